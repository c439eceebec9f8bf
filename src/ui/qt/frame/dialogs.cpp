#include "ui/qt/frame/dialogs.h"

#include <QDir>
#include <QFileDialog>
#include <QPrintDialog>
#include <QPrinterInfo>
#include <QStandardPaths>

namespace tallyfin::qt {

bool SystemDialogs::hasPrinter() const { return !QPrinterInfo::availablePrinterNames().isEmpty(); }

bool SystemDialogs::choosePrinter(QWidget& asking, QPrinter& printer, bool somePages) {
  QPrintDialog dialog(&printer, &asking);
  dialog.setOption(QAbstractPrintDialog::PrintPageRange, somePages);
  return dialog.exec() == QDialog::Accepted;
}

QString SystemDialogs::choosePdf(QWidget& asking, const QString& offered) {
  const QDir documents(QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation));
  QFileDialog dialog(&asking, QStringLiteral("Save as PDF"), documents.path(), QStringLiteral("PDF files (*.pdf)"));
  dialog.setAcceptMode(QFileDialog::AcceptSave);  // asks before it replaces a file
  dialog.setDefaultSuffix(QStringLiteral("pdf"));
  dialog.selectFile(offered);
  return dialog.exec() == QDialog::Accepted ? dialog.selectedFiles().front() : QString();
}

}  // namespace tallyfin::qt
