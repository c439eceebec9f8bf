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

/// The reason why the last print job was rejected, from the print server if the printer still exists. Empty if it was
/// accepted.
QString printTrouble(const QPrinter& printer) {
  if (printer.outputFormat() != QPrinter::NativeFormat) return {};
  // Qt sends the job to the print server and doesn't report the answer, but the CUPS library still has it.
  QLibrary cups(QStringLiteral("cups"), 2);
  using Status = int (*)();
  using Words = const char* (*)();
  const auto status = reinterpret_cast<Status>(cups.resolve("cupsLastError"));
  const auto words = reinterpret_cast<Words>(cups.resolve("cupsLastErrorString"));
  constexpr int firstError = 0x0400;  // smaller values mean success
  // mutation: < -> <=: the printer's state says so too
  if (status == nullptr || words == nullptr || status() < firstError) return {};
  QString answer = QString::fromUtf8(words());  // before the next request to the server
  if (QPrinterInfo::availablePrinterNames().contains(printer.printerName())) return answer;
  return QStringLiteral("The printer %1 is gone.").arg(printer.printerName());
}

/// Replaces a file by a complete new one, or doesn't change it. Flushes the new file before the rename, because an
/// error of the last bytes may be reported only then. Returns the error, empty for none.
QString replaceFile(QSaveFile& opened, const QByteArray& content) {
  if (opened.write(content) != content.size() || !opened.flush()) return opened.errorString();
  if (fsync(opened.handle()) != 0 && errno != EINVAL) return qt_error_string(errno);  // EINVAL: no flushing
  return opened.commit() ? QString() : opened.errorString();
}

}  // namespace

std::optional<Printed> Paper::print(Dialogs& dialogs, QWidget& asking) const {
  QPrinter printer(QPrinter::HighResolution);
  printer.setDocName(title);
  if (!dialogs.choosePrinter(asking, printer, somePages)) return std::nullopt;
  if (printer.outputFormat() == QPrinter::PdfFormat) {
    // To a file that the user chose in the dialog. On a full disk Qt would destroy an existing file without an error.
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

std::optional<Printed> Paper::save(Dialogs& dialogs, QWidget& asking) const {
  const QString path = dialogs.choosePdf(asking, file);
  if (path.isEmpty()) return std::nullopt;
  const QString trouble = write(path);
  if (trouble.isEmpty()) return Printed{true, QStringLiteral("Saved as %1").arg(path)};
  return Printed{false, QStringLiteral("The %1 couldn't be saved. %2: %3").arg(name, path, trouble)};
}

std::optional<Printed> Paper::printOrSave(Dialogs& dialogs, QWidget& asking) const {
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
