#include "ui/qt/paper/printer.h"

#include <QApplication>
#include <QLibrary>
#include <QPainter>
#include <QPdfWriter>
#include <QPicture>
#include <QPrinter>
#include <QSaveFile>

#include "controls/screen.h"
#include "ui/qt/desktop.h"
#include "ui/qt/frame/dialogs.h"
#include "ui/qt/frame/frame.h"
#include "ui/qt/views/view.h"

namespace tallyfin::qt {

namespace {

/// What the widget draws, as drawing orders: drawn on a printer directly, it would come out as a picture of pixels.
QPicture drawingOf(QWidget& widget) {
  QWidget* focused = QApplication::focusWidget();
  const bool mark = focused != nullptr && widget.isAncestorOf(focused);
  if (mark) focused->clearFocus();  // neither the cursor nor the mark of the focus belongs on paper
  QPicture picture;
  {
    QPainter painter(&picture);
    widget.render(&painter, QPoint(), QRegion(), QWidget::DrawChildren);
  }
  if (mark) focused->setFocus(Qt::OtherFocusReason);
  return picture;
}

/// Draws a widget on one page, as large as the page's margins let it be and in vectors: words stay words.
bool drawWidget(QWidget& widget, QPagedPaintDevice& device) {
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

/// Why the job that has just gone to a printer wasn't taken, in the words of the print server; empty if it was.
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

}  // namespace

Outcome Paper::print(Dialogs& dialogs, QWidget& asking) const {
  QPrinter printer(QPrinter::HighResolution);
  printer.setDocName(title);
  if (!dialogs.choosePrinter(asking, printer, somePages)) return std::nullopt;
  const bool taken = draw(printer) && printer.printerState() != QPrinter::Error;
  const QString trouble = taken ? printTrouble(printer) : printer.printerName();
  return trouble.isEmpty() ? QString() : QStringLiteral("The %1 couldn't be printed. %2").arg(name, trouble);
}

Outcome Paper::save(Dialogs& dialogs, QWidget& asking) const {
  const QString path = dialogs.choosePdf(asking, file);
  if (path.isEmpty()) return std::nullopt;
  const QString trouble = write(path);
  return trouble.isEmpty() ? QString() : QStringLiteral("The %1 couldn't be saved. %2: %3").arg(name, path, trouble);
}

Outcome Paper::printOrSave(Dialogs& dialogs, QWidget& asking) const {
  return dialogs.hasPrinter() ? print(dialogs, asking) : save(dialogs, asking);
}

QString Paper::write(const QString& path) const {
  QSaveFile saved(path);
  if (!saved.open(QIODevice::WriteOnly)) return saved.errorString();
  QPdfWriter writer(&saved);
  writer.setPageSize(QPageSize(QPageSize::Letter));
  writer.setTitle(title);
  writer.setCreator(QStringLiteral("Tallyfin 99"));
  if (!draw(writer)) return QStringLiteral("There is nothing to save.");
  return saved.commit() ? QString() : saved.errorString();
}

ScreenPrinter::ScreenPrinter(const Desktop& desktop) : desktop_(desktop) {}

int ScreenPrinter::printScreen(Screen& screen) {
  View* view = desktop_.view(screen.name());
  if (view == nullptr) return 0;
  const QString title = QString::fromStdString(screen.title());
  const Paper form{.name = QStringLiteral("form"),
                   .title = title,
                   .file = title + QStringLiteral(".pdf"),
                   .draw = [view](QPagedPaintDevice& device) { return drawWidget(*view, device); }};
  Frame& frame = *desktop_.frame();
  const Outcome outcome = form.printOrSave(frame.dialogs(), frame);
  if (outcome) frame.tell(*outcome);
  return outcome && outcome->isEmpty() ? 1 : 0;
}

}  // namespace tallyfin::qt
