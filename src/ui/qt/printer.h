#pragma once

#include <QString>
#include <functional>

#include "machine/machine.h"

class QPagedPaintDevice;
class QPrinter;
class QWidget;

namespace tallyfin::qt {

class Desktop;

/// Draws a widget on one page, as large as the page's margins let it be and in vectors: words stay words. False where
/// the device takes nothing.
bool printWidget(QWidget& widget, QPagedPaintDevice& device);

/// Why the job that has just gone to a printer wasn't taken, in the words of the print server; empty if it was.
QString printTrouble(const QPrinter& printer);

/// Prints screens as the desktop shows them.
class ScreenPrinter : public Printer {
 public:
  explicit ScreenPrinter(const Desktop& desktop);

  int printScreen(Screen& screen) override;

  /// Asks the user by the system's print dialog, or for the name of a PDF file where there is no printer. False if he
  /// doesn't want to print after all.
  static bool ask(QPrinter& printer);
  /// Sets the printer up before each printing; false prints nothing.
  std::function<bool(QPrinter&)> setUp = ask;

 private:
  const Desktop& desktop_;
};

}  // namespace tallyfin::qt
