#include <QFileDialog>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <QPrintDialog>
#include <QPrinter>
#include <QPrinterInfo>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QSpinBox>
#include <QVBoxLayout>
#include <utility>

#include "ui/frmPrint.h"
#include "ui/qt/accessible.h"
#include "ui/qt/frame.h"
#include "ui/qt/look.h"
#include "ui/qt/printer.h"
#include "ui/qt/reportpage.h"
#include "ui/qt/views/views.h"

namespace tallyfin::qt {

namespace {

const QColor previewGround{128, 134, 137};

/// One page of the report as a sheet of paper with its shadow.
class Sheet : public QWidget {
 public:
  static constexpr int around = 12;  ///< Ground on each side of the paper.

  Sheet(const View& view, const PrintEngine& engine) : view_(view), engine_(engine) {
    setAccessibleName(QStringLiteral("Page"));
  }

  /// Turns to a page and to the engine's zoom.
  void showPage(int page) {
    page_ = page;
    const QSize paper = ReportPages::letter * engine_.zoom() / 100;
    setFixedSize(Frame::pixels(paper.width()) + 2 * around, Frame::pixels(paper.height()) + 2 * around);
    update();
  }

 protected:
  void paintEvent(QPaintEvent* /*event*/) override {
    if (view_.screen() == nullptr || page_ >= ReportPages(engine_).count()) return;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRect paper = rect().adjusted(around, around, -around, -around);
    for (int spread = 4; spread > 0; --spread) {
      painter.fillRect(paper.adjusted(0, 0, spread, spread).translated(1, 1), QColor(0, 0, 0, 24));
    }
    painter.fillRect(paper, Qt::white);
    painter.translate(paper.topLeft());
    painter.scale(paper.width() / static_cast<double>(ReportPages::letter.width()),
                  paper.height() / static_cast<double>(ReportPages::letter.height()));
    ReportPages(engine_).draw(painter, page_);
  }

 private:
  const View& view_;
  const PrintEngine& engine_;
  int page_ = 0;
};

/// The grey ground on which the sheet lies. The arrows, Page Up and Page Down, Home and End move it.
class Preview : public QScrollArea, public Readable {
 public:
  explicit Preview(QWidget* parent) : QScrollArea(parent) { presentAs(*this, QAccessible::Document); }

  QString readable() const override { return text_; }
  /// What is read of the page.
  void setText(const QString& text) {
    const QString before = std::exchange(text_, text);
    if (before != text_) tellReadable(*this, before, text_);
  }

 protected:
  void keyPressEvent(QKeyEvent* event) override {
    if (event->key() == Qt::Key_Home) return verticalScrollBar()->triggerAction(QScrollBar::SliderToMinimum);
    if (event->key() == Qt::Key_End) return verticalScrollBar()->triggerAction(QScrollBar::SliderToMaximum);
    QScrollArea::keyPressEvent(event);
  }

  bool event(QEvent* event) override {
    if (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut) update();
    const bool done = QScrollArea::event(event);
    if (event->type() == QEvent::Paint) {
      QPainter painter(this);
      painter.setPen(hasFocus() ? look::lightYellow : look::deepLine);
      painter.drawRect(rect().adjusted(0, 0, -1, -1));
    }
    return done;
  }

 private:
  QString text_;
};

class frmPrintView : public View {
 public:
  explicit frmPrintView(frmPrint& screen) : View(screen), engine_(screen.vsPrinter1) {
    look::setGround(*this, look::onDeep());
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(look::row, look::tight, look::row, look::tight);
    layout->setSpacing(look::tight);
    layout->addLayout(toolbar(screen));
    layout->addWidget(preview(), 1);
    notice_ = new QLabel(this);
    notice_->setObjectName(QStringLiteral("notice"));
    notice_->setWordWrap(true);
    layout->addWidget(notice_);
    layout->addLayout(statusLine(screen));
    bindEngine();
  }

  /// The model doesn't maximise this screen; it takes the frame's whole document area all the same.
  QSize sizeHint() const override { return QSize(468, 372).expandedTo(minimumSizeHint()); }

 protected:
  QWidget* firstControl() const override { return preview_; }

 private:
  QLayout* toolbar(frmPrint& screen) {
    auto* row = new QHBoxLayout;
    row->setSpacing(look::tight);
    const auto add = [row](QPushButton* widget, const char* name) {
      widget->setIconSize({20, 20});
      widget->setFixedSize(34, 28);
      widget->setToolTip(QString::fromLatin1(name));
      widget->setAccessibleName(widget->toolTip());
      row->addWidget(widget);
      return widget;
    };
    add(button(screen.cmdPrintMenu[0], QStringLiteral("report")), "Make the report again");
    add(button(screen.cmdPrintMenu[1], QStringLiteral("close")), "Close");
    row->addSpacing(look::row);
    print_ = add(ownButton("print", [this] { print(); }), "Print");
    save_ = add(ownButton("savepdf", [this] { savePdf(); }), "Save as PDF");
    row->addSpacing(look::row);
    previous_ = add(ownButton("previous", [this] { turnTo(page_ - 1); }), "Previous page");
    next_ = add(ownButton("next", [this] { turnTo(page_ + 1); }), "Next page");
    auto* width = add(ownButton("fitwidth", [this] { fit(false); }), "Fit width");
    auto* page = add(ownButton("fitpage", [this] { fit(true); }), "Fit page");
    pressOn(Qt::ALT | Qt::Key_W, width);
    pressOn(Qt::ALT | Qt::Key_A, page);
    pressOn(QKeySequence::Print, print_);
    pressOn(QKeySequence::Save, save_);
    pressOn(Qt::CTRL | Qt::Key_PageUp, previous_);
    pressOn(Qt::CTRL | Qt::Key_PageDown, next_);
    row->addStretch(1);
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
  QPushButton* ownButton(const char* picture, Press press) {
    auto* widget = new QPushButton(this);
    widget->setObjectName(QString::fromLatin1(picture));
    widget->setIcon(look::picture(QString::fromLatin1(picture)));
    widget->setAutoDefault(true);
    QPalette face;
    face.setColor(QPalette::Window, look::light);  // its edge, as that of the screen's own buttons
    widget->setPalette(face);
    connect(widget, &QPushButton::clicked, this, [this, press] {
      if (this->screen() != nullptr) press();
    });
    return widget;
  }

  QWidget* preview() {
    preview_ = new Preview(this);
    preview_->setAccessibleName(QStringLiteral("Preview of the report"));
    preview_->setFrameShape(QFrame::Box);
    preview_->setAlignment(Qt::AlignCenter);
    preview_->setFocusPolicy(Qt::StrongFocus);
    sheet_ = new Sheet(*this, engine_);
    preview_->setWidget(sheet_);
    QPalette ground;
    ground.setColor(QPalette::Window, previewGround);
    preview_->viewport()->setPalette(ground);
    preview_->viewport()->setAutoFillBackground(true);
    sheet_->setAutoFillBackground(false);
    return preview_;
  }

  QLayout* statusLine(frmPrint& screen) {
    auto* row = new QHBoxLayout;
    row->setSpacing(2);
    pageNumber_ = new QLabel(this);
    pageNumber_->setObjectName(QStringLiteral("pageNumber"));
    row->addWidget(pageNumber_);
    row->addStretch(1);
    QLabel* size = figure(screen.lblShowSize);
    size->setAccessibleName(QStringLiteral("Zoom in percent"));
    row->addWidget(size);
    row->addWidget(label(screen.lblPercent));
    return row;
  }

  void bindEngine() {
    Binding& binding = bindPlain(*preview_, engine_);
    tied(preview_, binding);
    binding.show = [this] {
      tell({});
      turnTo(page_);
    };
    binding.refresh();
  }

  void turnTo(int page) {
    const int pages = ReportPages(engine_).count();
    page_ = std::clamp(page, 0, std::max(0, pages - 1));
    sheet_->showPage(page_);
    preview_->setText(ReportPages(engine_).readable(page_));
    pageNumber_->setText(pages == 0 ? QStringLiteral("No report")
                                    : QStringLiteral("Page %1 of %2").arg(page_ + 1).arg(pages));
    previous_->setEnabled(page_ > 0);
    next_->setEnabled(page_ + 1 < pages);
    print_->setEnabled(pages > 0);
    save_->setEnabled(pages > 0);
  }

  /// Turns the zoom until the page, or its width, is as large as it can be seen whole.
  void fit(bool whole) {
    const QSize room = preview_->maximumViewportSize() - QSize(2 * Sheet::around, 2 * Sheet::around);
    const QSize paper(Frame::pixels(ReportPages::letter.width()), Frame::pixels(ReportPages::letter.height()));
    const int byHeight = 100 * room.height() / paper.height();
    // A page as wide as its room is higher than that and has a bar beside it.
    const int bar =
        byHeight < 100 * room.width() / paper.width() ? preview_->verticalScrollBar()->sizeHint().width() : 0;
    const int byWidth = 100 * (room.width() - bar) / paper.width();
    zoom_->setValue(whole ? std::min(byHeight, 100 * room.width() / paper.width()) : byWidth);
  }

  void print() {
    if (QPrinterInfo::availablePrinterNames().isEmpty()) {
      return tell(QStringLiteral(
          "No printer is set up on this computer. You can save the report as a PDF file and print that elsewhere."));
    }
    const auto printer = std::make_shared<QPrinter>(QPrinter::HighResolution);
    printer->setDocName(QStringLiteral("Tallyfin 99"));
    auto* dialog = new QPrintDialog(printer.get(), this);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setOption(QAbstractPrintDialog::PrintPageRange, false);
    connect(dialog, qOverload<QPrinter*>(&QPrintDialog::accepted), this, [this, printer](QPrinter* chosen) {
      if (screen() == nullptr) return;
      const bool drawn = printReportTo(*chosen, engine_);
      const QString trouble = drawn ? printTrouble(*chosen) : chosen->printerName();
      tell(trouble.isEmpty() ? QString() : QStringLiteral("The report couldn't be printed. ") + trouble);
    });
    dialog->open();
  }

  void savePdf() {
    auto* dialog = new QFileDialog(this, QStringLiteral("Save as PDF"), QString(), QStringLiteral("PDF files (*.pdf)"));
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setAcceptMode(QFileDialog::AcceptSave);
    dialog->setDefaultSuffix(QStringLiteral("pdf"));
    dialog->selectFile(QStringLiteral("Paycheck.pdf"));
    connect(dialog, &QFileDialog::fileSelected, this, [this](const QString& path) { saveTo(path); });
    dialog->open();
  }

  void saveTo(const QString& path) {
    if (screen() == nullptr) return;
    const QString trouble = saveReportAsPdf(path, engine_);
    tell(trouble.isEmpty() ? QString() : QStringLiteral("The report couldn't be saved. %1: %2").arg(path, trouble));
  }

  /// Says in a line of this screen what the user must know; no words take the line away.
  void tell(const QString& words) {
    notice_->setText(words);
    notice_->setVisible(!words.isEmpty());
    if (auto* frame = dynamic_cast<Frame*>(window()); frame != nullptr && !words.isEmpty()) frame->announce(words);
  }

  PrintEngine& engine_;
  QSpinBox* zoom_ = nullptr;
  Preview* preview_ = nullptr;
  Sheet* sheet_ = nullptr;
  QLabel* pageNumber_ = nullptr;
  QLabel* notice_ = nullptr;
  QPushButton* print_ = nullptr;
  QPushButton* save_ = nullptr;
  QPushButton* previous_ = nullptr;
  QPushButton* next_ = nullptr;
  int page_ = 0;
};

}  // namespace

std::unique_ptr<View> makeView(frmPrint& screen) { return std::make_unique<frmPrintView>(screen); }

}  // namespace tallyfin::qt
