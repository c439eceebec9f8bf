#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QSpinBox>
#include <QVBoxLayout>

#include "ui/frmPrint.h"
#include "ui/qt/frame/dialogs.h"
#include "ui/qt/frame/frame.h"
#include "ui/qt/frame/notice.h"
#include "ui/qt/paper/preview.h"
#include "ui/qt/paper/printer.h"
#include "ui/qt/paper/reportpage.h"
#include "ui/qt/views/views.h"
#include "ui/qt/widgets/look.h"

namespace tallyfin::qt {

namespace {

class frmPrintView : public ScreenView {
 public:
  explicit frmPrintView(frmPrint& screen) : ScreenView(screen), engine_(screen.vsPrinter1) {
    look::setGround(*this, look::onDeep());
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(look::row, look::tight, look::row, look::tight);
    layout->setSpacing(look::tight);
    layout->addLayout(toolbar(screen));
    preview_ = new Preview(*this, engine_);
    layout->addWidget(preview_, 1);
    notice_ = new Notice(this);
    layout->addWidget(notice_);
    layout->addLayout(statusLine(screen));
    bindEngine();
  }

  /// This screen fills the document area, although the model doesn't maximise it.
  QSize sizeHint() const override { return QSize(look::scaled(468), look::scaled(372)).expandedTo(minimumSizeHint()); }

 protected:
  QWidget* firstControl() const override { return preview_; }

 private:
  QLayout* toolbar(frmPrint& screen) {
    auto* row = new QHBoxLayout;
    row->setSpacing(look::tight);
    const auto add = [row](QPushButton* widget, const char* picture, const char* name, const char* word = nullptr) {
      showPicture(*widget, picture, name, {look::scaled(toolWidth), look::scaled(toolHeight)}, 20);
      if (word != nullptr) {
        widget->setMaximumWidth(QWIDGETSIZE_MAX);
        showWord(*widget, picture, word);
      }
      widget->setToolTip(widget->accessibleName());
      row->addWidget(widget);
      return widget;
    };
    const auto own = [this, add](const char* picture, const char* name, const char* word, auto press) {
      return add(ownButton(picture, press), picture, name, word);
    };
    auto* page = own("fitpage", "Fit page", "Fit", [this] { zoom_->setValue(preview_->fitting(true)); });
    auto* width = own("fitwidth", "Fit width", nullptr, [this] { zoom_->setValue(preview_->fitting(false)); });
    previous_ = own("previous", "Previous page", nullptr, [this] { turnTo(preview_->page() - 1); });
    next_ = own("next", "Next page", nullptr, [this] { turnTo(preview_->page() + 1); });
    row->addSpacing(look::tight);
    print_ = own("print", "Print", "Print", [this] { print(); });
    save_ = own("savepdf", "Save as PDF", "PDF", [this] { savePdf(); });
    row->addSpacing(look::tight);
    add(button(screen.cmdPrintMenu[0]), "report", "Make the report again");
    add(button(screen.cmdPrintMenu[1]), "close", "Close");
    pressOn(Qt::ALT | Qt::Key_W, width);
    pressOn(Qt::ALT | Qt::Key_A, page);
    pressOn(QKeySequence::Print, print_);
    pressOn(QKeySequence::Save, save_);
    pressOn(Qt::CTRL | Qt::Key_PageUp, previous_);
    pressOn(Qt::CTRL | Qt::Key_PageDown, next_);
    row->addStretch();
    auto* zoomName = new QLabel(QStringLiteral("Zoom"), this);
    auto* zoom = new QSpinBox(this);
    zoom->setSingleStep(10);
    zoom->setAlignment(Qt::AlignRight);
    name(zoomName, zoom, 'Z');
    row->addWidget(zoomName);
    row->addWidget(tied(zoom, bind(*zoom, screen.udZoom)));
    QPalette face = look::lightFace();
    face.setColor(QPalette::WindowText, look::ink);  // the arrows
    colour(zoom, face);
    zoom_ = zoom;
    zoom->setToolTip(QStringLiteral("Size of the page, 10 to 400 percent"));
    return row;
  }

  template <class Press>
  QPushButton* ownButton(const char* name, Press press) {
    auto* widget = new QPushButton(this);
    widget->setObjectName(QString::fromLatin1(name));
    widget->setAutoDefault(true);
    QPalette face;
    face.setColor(QPalette::Window, look::light);  // its edge, like that of the other buttons of the screen
    widget->setPalette(face);
    connect(widget, &QPushButton::clicked, this, [this, press] {
      if (this->screen() != nullptr) press();
    });
    return widget;
  }

  QLayout* statusLine(frmPrint& screen) {
    auto* row = new QHBoxLayout;
    row->setSpacing(2);
    pageNumber_ = new QLabel(this);
    pageNumber_->setObjectName(QStringLiteral("pageNumber"));
    row->addWidget(pageNumber_);
    row->addStretch();
    QLabel* size = figure(screen.lblShowSize);
    size->setAccessibleName(QStringLiteral("Zoom in percent"));
    row->addWidget(size);
    row->addWidget(label(screen.lblPercent));
    return row;
  }

  void bindEngine() {
    Binding& binding = bindPlain(*preview_, engine_);
    binding.show = [this] {
      tell({});
      turnTo(preview_->page());
    };
    tied(preview_, binding);
  }

  void turnTo(int page) {
    preview_->turnTo(page);
    const int pages = preview_->pages();
    const int shown = preview_->page() + 1;
    pageNumber_->setText(pages == 0 ? QStringLiteral("No report")
                                    : QStringLiteral("Page %1 of %2").arg(shown).arg(pages));
    previous_->setEnabled(shown > 1);
    next_->setEnabled(shown < pages);
    print_->setEnabled(pages > 0);
    save_->setEnabled(pages > 0);
  }

  Frame& frame() const { return static_cast<Frame&>(*window()); }

  void print() {
    if (!frame().dialogs().hasPrinter()) {
      return tell(
          QStringLiteral("No printer is set up on this computer. You can save the report as a PDF file and "
                         "print that elsewhere."));
    }
    if (const std::optional<Printed> printed = paper_.print(frame().dialogs(), *this)) tell(printed->words);
  }

  void savePdf() {
    if (const std::optional<Printed> printed = paper_.save(frame().dialogs(), *this)) tell(printed->words);
  }

  /// Shows a message in a line of this screen; an empty text hides the line.
  void tell(const QString& words) {
    notice_->tell(words);
    if (!words.isEmpty()) frame().announce(words);
  }

  static constexpr int toolWidth = 30;
  static constexpr int toolHeight = 28;

  PrintEngine& engine_;
  Paper paper_{.name = QStringLiteral("report"),
               .title = QStringLiteral("Tallyfin 99"),
               .file = QStringLiteral("Paycheck.pdf"),
               .draw = [this](QPagedPaintDevice& device) { return drawReport(device, engine_); }};
  QSpinBox* zoom_ = nullptr;
  Preview* preview_ = nullptr;
  QLabel* pageNumber_ = nullptr;
  Notice* notice_ = nullptr;
  QPushButton* print_ = nullptr;
  QPushButton* save_ = nullptr;
  QPushButton* previous_ = nullptr;
  QPushButton* next_ = nullptr;
};

}  // namespace

std::unique_ptr<View> makeView(frmPrint& screen) { return std::make_unique<frmPrintView>(screen); }

}  // namespace tallyfin::qt
