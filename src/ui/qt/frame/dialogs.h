#pragma once

#include <QString>

class QPrinter;
class QWidget;

namespace tallyfin::qt {

/// Dialogs for printing and saving.
class Dialogs {
 public:
  virtual ~Dialogs() = default;
  /// Whether a printer is set up on this computer.
  virtual bool hasPrinter() const = 0;
  /// Lets the user choose a printer and, where allowed, some of the pages. False if the user cancels.
  virtual bool choosePrinter(QWidget& asking, QPrinter& printer, bool somePages) = 0;
  /// The path of a PDF file, which may exist. Empty if the user cancels.
  virtual QString choosePdf(QWidget& asking, const QString& offered) = 0;
};

/// The dialogs of Qt or of the system.
class SystemDialogs : public Dialogs {
 public:
  bool hasPrinter() const override;
  bool choosePrinter(QWidget& asking, QPrinter& printer, bool somePages) override;
  QString choosePdf(QWidget& asking, const QString& offered) override;
};

}  // namespace tallyfin::qt
