#pragma once

#include <QString>
#include <functional>
#include <optional>

#include "ui/qt/frame/dialogs.h"

namespace tallyfin::qt {

/// The answers of a user to the dialogs, which don't come up.
struct DialogsStandIn : Dialogs {
  bool hasPrinter() const override { return static_cast<bool>(onPrinter); }
  bool choosePrinter(QWidget& /*asking*/, QPrinter& printer, bool somePagesOffered) override {
    ++asked;
    somePages = somePagesOffered;
    return onPrinter(printer);
  }
  QString choosePdf(QWidget& asking, const QString& name) override {
    ++asked;
    offered = name;
    return onPdf ? onPdf(asking, name) : path;
  }

  /// Sets the printer up; false doesn't print after all. Without it there is no printer.
  std::function<bool(QPrinter&)> onPrinter;
  QString path;                                            ///< Where a PDF file is saved; empty doesn't save after all.
  std::function<QString(QWidget&, const QString&)> onPdf;  ///< Instead of that path.
  int asked = 0;
  std::optional<bool> somePages;  ///< Whether the latest printing offered to print some pages alone.
  QString offered;                ///< The name that was offered for the latest PDF file.
};

}  // namespace tallyfin::qt
