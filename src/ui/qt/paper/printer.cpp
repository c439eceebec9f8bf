#include "ui/qt/paper/printer.h"

#include <unistd.h>

#include <QBuffer>
#include <QLibrary>
#include <QPdfWriter>
#include <QPrinter>
#include <QPrinterInfo>
#include <QSaveFile>
#include <cerrno>

#include "ui/qt/frame/dialogs.h"

namespace tallyfin::qt {

namespace {

/// Why the job that has just gone to a printer wasn't taken; in the words of the print server where the printer is
/// still there. Empty if it was taken.
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
  QString answer = QString::fromUtf8(words());  // before the server is asked for its printers
  if (QPrinterInfo::availablePrinterNames().contains(printer.printerName())) return answer;
  return QStringLiteral("The printer %1 is gone.").arg(printer.printerName());
}

/// Puts a whole file in the place of another one, or leaves that as it is. The last bytes may be refused only when they
/// are flushed to the disk, before the new file has its name. Returns what went wrong, empty if nothing did.
QString replaceFile(QSaveFile& opened, const QByteArray& content) {
  if (opened.write(content) != content.size() || !opened.flush()) return opened.errorString();
  if (fsync(opened.handle()) != 0 && errno != EINVAL) return qt_error_string(errno);  // EINVAL: it can't be flushed
  return opened.commit() ? QString() : opened.errorString();
}

}  // namespace

Outcome Paper::print(Dialogs& dialogs, QWidget& asking) const {
  QPrinter printer(QPrinter::HighResolution);
  printer.setDocName(title);
  if (!dialogs.choosePrinter(asking, printer, somePages)) return std::nullopt;
  if (printer.outputFormat() == QPrinter::PdfFormat) {
    // Into a file that the user has named in the dialog. Qt would destroy it where the disk is full, and report
    // nothing.
    const QString path = printer.outputFileName();
    const QString trouble = write(path, &printer);
    if (trouble.isEmpty()) return Printed{true, QStringLiteral("Saved as %1").arg(path)};
    return Printed{false, QStringLiteral("The %1 couldn't be printed. %2: %3").arg(name, path, trouble)};
  }
  const bool taken = draw(printer) && printer.printerState() != QPrinter::Error;
  QString trouble = printTrouble(printer);
  if (!taken && trouble.isEmpty()) trouble = printer.printerName();
  if (trouble.isEmpty()) return Printed{true, {}};
  return Printed{false, QStringLiteral("The %1 couldn't be printed. %2").arg(name, trouble)};
}

Outcome Paper::save(Dialogs& dialogs, QWidget& asking) const {
  const QString path = dialogs.choosePdf(asking, file);
  if (path.isEmpty()) return std::nullopt;
  const QString trouble = write(path);
  if (trouble.isEmpty()) return Printed{true, QStringLiteral("Saved as %1").arg(path)};
  return Printed{false, QStringLiteral("The %1 couldn't be saved. %2: %3").arg(name, path, trouble)};
}

Outcome Paper::printOrSave(Dialogs& dialogs, QWidget& asking) const {
  return dialogs.hasPrinter() ? print(dialogs, asking) : save(dialogs, asking);
}

QString Paper::write(const QString& path, const QPrinter* setUp) const {
  QSaveFile saved(path);
  if (!saved.open(QIODevice::WriteOnly)) return saved.errorString();
  QBuffer content;
  content.open(QIODevice::WriteOnly);
  QPdfWriter writer(&content);
  writer.setPageSize(QPageSize(QPageSize::Letter));
  if (setUp != nullptr) {
    writer.setPageLayout(setUp->pageLayout());
    writer.setPageRanges(setUp->pageRanges());
  }
  writer.setTitle(title);
  writer.setCreator(QStringLiteral("Tallyfin 99"));
  if (!draw(writer)) return QStringLiteral("There is nothing to save.");
  return replaceFile(saved, content.data());
}

}  // namespace tallyfin::qt
