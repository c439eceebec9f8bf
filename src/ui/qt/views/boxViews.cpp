#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QSvgWidget>
#include <QVBoxLayout>

#include "ui/MsgBox.h"
#include "ui/frmAbt.h"
#include "ui/qt/accessibility/accessible.h"
#include "ui/qt/views/views.h"
#include "ui/qt/widgets/look.h"

/// The two boxes above the frame: the warning and About.

namespace tallyfin::qt {

namespace {

class MsgBoxView : public ScreenView {
 public:
  explicit MsgBoxView(MsgBox& screen) : ScreenView(screen) {
    look::setGround(*this, look::onDeep());
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(2 * look::edge, look::edge, 2 * look::edge, look::edge);
    layout->setSpacing(look::group);
    auto* words = new QVBoxLayout;
    words->setSpacing(look::row);
    words->addWidget(heading(screen.Title));
    words->addWidget(label(screen.Text));
    auto* sign = new QSvgWidget(QStringLiteral(":/pictures/warning.svg"), this);
    sign->setFixedSize(look::scaled(signSide), look::scaled(signSide));
    presentAs(*sign, QAccessible::Graphic);
    sign->setAccessibleName(QStringLiteral("Warning"));
    auto* top = new QHBoxLayout;
    top->setSpacing(look::group);
    top->addWidget(sign, 0, Qt::AlignTop);
    top->addLayout(words);
    layout->addLayout(top);
    QPushButton* ok = button(screen.OK);
    // Fusion draws a dialog's default button lighter than others, too light for its text.
    QPalette darker;
    darker.setColor(QPalette::Button, look::deep);
    ok->setPalette(darker);
    layout->addWidget(ok, 0, Qt::AlignRight);  // mutation: 0 -> 1: what is aligned is as large as it wants to be
  }

 private:
  static constexpr int signSide = 36;
};

class frmAbtView : public ScreenView {
 public:
  explicit frmAbtView(frmAbt& screen) : ScreenView(screen) {
    look::setGround(*this, look::onDeep());
    auto* picture = new QSvgWidget(QStringLiteral(":/pictures/about-box.svg"), this);
    picture->setAccessibleName(QStringLiteral("Tallyfin 99"));
    picture->setAccessibleDescription(QStringLiteral("Version " TALLYFIN_VERSION));
    tied(picture, bindPlain(*picture, screen.imgAbout));
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(look::edge, look::edge, look::edge, look::edge);
    layout->addWidget(picture);
  }
};

}  // namespace

std::unique_ptr<View> makeView(MsgBox& screen) { return std::make_unique<MsgBoxView>(screen); }

std::unique_ptr<View> makeView(frmAbt& screen) { return std::make_unique<frmAbtView>(screen); }

}  // namespace tallyfin::qt
