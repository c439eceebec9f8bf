#include <QCheckBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include "ui/frmName.h"
#include "ui/qt/views/views.h"
#include "ui/qt/widgets/look.h"

namespace tallyfin::qt {

namespace {

class frmNameView : public ScreenView {
 public:
  explicit frmNameView(frmName& screen) : ScreenView(screen) {
    look::setGround(*this, look::onDeep());
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(2 * look::edge, look::edge, 2 * look::edge, look::edge);
    layout->setSpacing(look::tight);
    layout->addWidget(heading(screen.lblPersInfo));
    layout->addWidget(label(screen.lblPersInfo2));
    layout->addSpacing(look::row);
    const auto row = [&](Label& caption, TextBox& control, char mark) {
      QLabel* title = label(caption);
      QLineEdit* edit = box(control);
      name(title, edit, mark);
      layout->addWidget(title);
      layout->addWidget(edit);
      layout->addSpacing(look::tight);
    };
    row(screen.lblName, screen.txtName, 'E');
    row(screen.lblSSN, screen.txtSSN, 'S');
    row(screen.lblHomeAddress, screen.txtAddress, 'H');
    row(screen.lblCity, screen.txtCity, 'C');
    const auto status = options(screen.optMaritalStatus);
    const char marks[] = {'M', 'g', 'b'};
    for (std::size_t i = 0; i < std::size(marks); ++i) {
      letter(status.at(i), marks[i]);
      layout->addWidget(status.at(i));
    }
    layout->addStretch();
    auto* foot = new QHBoxLayout;
    QCheckBox* show = check(screen.chkShow);
    letter(show, 'w');
    foot->addWidget(show);
    foot->addStretch();
    QPushButton* ok = button(screen.cmdExit);
    letter(ok, 'O');
    foot->addWidget(ok);
    layout->addLayout(foot);
  }
};

}  // namespace

std::unique_ptr<View> makeView(frmName& screen) { return std::make_unique<frmNameView>(screen); }

}  // namespace tallyfin::qt
