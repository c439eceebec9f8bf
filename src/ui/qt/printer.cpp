#include "ui/qt/printer.h"

#include <QApplication>
#include <QDir>
#include <QFileDialog>
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

ScreenPrinter::ScreenPrinter(const Desktop& desktop) : desktop_(desktop) {}

int ScreenPrinter::printScreen(Screen& screen) {
  QPrinter printer(QPrinter::HighResolution);
  printer.setPageSize(QPageSize(QPageSize::Letter));
  printer.setDocName(QString::fromStdString(screen.title()));
  View* view = desktop_.view(screen.name());
  if (view == nullptr || !setUp(printer)) return 0;
  const bool printed = printWidget(*view, printer);
  desktop_.frame()->tell(printed ? QString() : QStringLiteral("The form couldn't be printed."));
  return printed ? 1 : 0;
}

bool ScreenPrinter::ask(QPrinter& printer) {
  if (!QPrinterInfo::availablePrinters().isEmpty()) {
    QPrintDialog dialog(&printer, QApplication::activeWindow());
    return dialog.exec() == QDialog::Accepted;
  }
  const QDir documents(QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation));
  const QString file =
      QFileDialog::getSaveFileName(QApplication::activeWindow(), QStringLiteral("Print to a PDF file"),
                                   documents.filePath(printer.docName() + ".pdf"), QStringLiteral("PDF files (*.pdf)"));
  printer.setOutputFormat(QPrinter::PdfFormat);
  printer.setOutputFileName(file);
  return !file.isEmpty();
}

}  // namespace tallyfin::qt
