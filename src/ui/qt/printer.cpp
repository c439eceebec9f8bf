#include "ui/qt/printer.h"

#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <QLibrary>
#include <QPainter>
#include <QPicture>
#include <QPrintDialog>
#include <QPrinter>
#include <QPrinterInfo>
#include <QStandardPaths>

#include "controls/screen.h"
#include "ui/qt/desktop.h"
#include "ui/qt/frame.h"
#include "ui/qt/view.h"

namespace tallyfin::qt {

namespace {

/// What the widget draws, as drawing orders: drawn on a printer directly, it would come out as a picture of pixels.
QPicture drawingOf(QWidget& widget) {
  QWidget* focused = QApplication::focusWidget();
  const bool mark = focused != nullptr && widget.isAncestorOf(focused);
  if (mark) focused->clearFocus();  // neither the cursor nor the mark of the focus belongs on paper
  QPicture picture;
  QPainter painter(&picture);
  widget.render(&painter, QPoint(), QRegion(), QWidget::DrawChildren);
  painter.end();
  if (mark) focused->setFocus(Qt::OtherFocusReason);
  return picture;
}

}  // namespace

bool printWidget(QWidget& widget, QPagedPaintDevice& device) {
  const QPicture picture = drawingOf(widget);
  QPainter painter;
  if (!painter.begin(&device)) return false;
  // A drawing keeps its size in inches wherever it is drawn.
  const double width = widget.width() * static_cast<double>(device.logicalDpiX()) / picture.logicalDpiX();
  const double height = widget.height() * static_cast<double>(device.logicalDpiY()) / picture.logicalDpiY();
  const double scale = std::min(painter.viewport().width() / width, painter.viewport().height() / height);
  painter.scale(scale, scale);
  painter.drawPicture(0, 0, picture);
  return painter.end();
}

QString printTrouble(const QPrinter& printer) {
  if (printer.outputFormat() != QPrinter::NativeFormat) return {};
  // The toolkit hands the job to the print server and keeps its answer to itself. The server's library has it still.
  QLibrary cups(QStringLiteral("cups"), 2);
  using Status = int (*)();
  using Words = const char* (*)();
  const auto status = reinterpret_cast<Status>(cups.resolve("cupsLastError"));
  const auto words = reinterpret_cast<Words>(cups.resolve("cupsLastErrorString"));
  constexpr int firstError = 0x0400;  // those below are kinds of success
  if (status == nullptr || words == nullptr || status() < firstError) return {};
  return QString::fromUtf8(words());
}

ScreenPrinter::ScreenPrinter(const Desktop& desktop) : desktop_(desktop) {}

int ScreenPrinter::printScreen(Screen& screen) {
  QPrinter printer(QPrinter::HighResolution);
  printer.setPageSize(QPageSize(QPageSize::Letter));
  printer.setDocName(QString::fromStdString(screen.title()));
  View* view = desktop_.view(screen.name());
  if (view == nullptr || !setUp(printer)) return 0;
  const bool toFile = printer.outputFormat() == QPrinter::PdfFormat;
  QString trouble;
  if (!printWidget(*view, printer)) {
    trouble = toFile ? printer.outputFileName() + QStringLiteral(" can't be written.") : printer.printerName();
  } else {
    trouble = printTrouble(printer);
  }
  if (trouble.isEmpty()) {
    desktop_.frame()->tell({});
    return 1;
  }
  const QString what = toFile ? QStringLiteral("saved") : QStringLiteral("printed");
  desktop_.frame()->tell(QStringLiteral("The form couldn't be %1. %2").arg(what, trouble));
  return 0;
}

bool ScreenPrinter::ask(QPrinter& printer) {
  if (!QPrinterInfo::availablePrinters().isEmpty()) {
    QPrintDialog dialog(&printer, QApplication::activeWindow());
    return dialog.exec() == QDialog::Accepted;
  }
  const QDir documents(QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation));
  QFileDialog dialog(QApplication::activeWindow(), QStringLiteral("Print to a PDF file"), documents.path(),
                     QStringLiteral("PDF files (*.pdf)"));
  dialog.setAcceptMode(QFileDialog::AcceptSave);  // which asks before it replaces a file
  dialog.setDefaultSuffix(QStringLiteral("pdf"));
  dialog.selectFile(printer.docName() + ".pdf");
  if (dialog.exec() != QDialog::Accepted) return false;
  printer.setOutputFormat(QPrinter::PdfFormat);
  printer.setOutputFileName(dialog.selectedFiles().front());
  return true;
}

}  // namespace tallyfin::qt
