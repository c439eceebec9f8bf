#pragma once

#include <QString>
#include <functional>
#include <optional>

#include "ui/qt/frame/dialogs.h"

namespace tallyfin::qt {

/// Fake dialogs with the answers of a user.
struct FakeDialogs : Dialogs {
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

  /// Sets up the printer; false cancels. Without it there is no printer.
  std::function<bool(QPrinter&)> onPrinter;
  QString path;                                            ///< The path of the PDF file; empty cancels.
  std::function<QString(QWidget&, const QString&)> onPdf;  ///< Instead of that path.
  int asked = 0;
  std::optional<bool> somePages;  ///< Whether the last print dialog offered a page range.
  QString offered;                ///< The default name of the last PDF file.
};

}  // namespace tallyfin::qt
