#pragma once

#include <QString>

class QPrinter;
class QWidget;

namespace tallyfin::qt {

/// Asks the user where something is to be printed or saved.
class Dialogs {
 public:
  virtual ~Dialogs() = default;
  /// Whether a printer is set up on this computer.
  virtual bool hasPrinter() const = 0;
  /// Sets the printer up as the user wants it, for some of the pages too where he may choose them. False if he doesn't
  /// want to print after all.
  virtual bool choosePrinter(QWidget& asking, QPrinter& printer, bool somePages) = 0;
  /// The path of a PDF file; one that is there already may be replaced. Empty if the user doesn't want to save after
  /// all.
  virtual QString choosePdf(QWidget& asking, const QString& offered) = 0;
};

/// The dialogs of the toolkit or the system.
class SystemDialogs : public Dialogs {
 public:
  bool hasPrinter() const override;
  bool choosePrinter(QWidget& asking, QPrinter& printer, bool somePages) override;
  QString choosePdf(QWidget& asking, const QString& offered) override;
};

}  // namespace tallyfin::qt
