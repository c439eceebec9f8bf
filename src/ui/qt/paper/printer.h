#pragma once

#include <QString>
#include <functional>
#include <optional>

class QPagedPaintDevice;
class QPrinter;
class QWidget;

namespace tallyfin::qt {

class Dialogs;

/// Whether something has been printed or saved, and what the user must know of it. None if they didn't want to after
/// all.
struct Printed {
  bool done;
  QString words;
};
using Outcome = std::optional<Printed>;

/// Something for paper or a PDF file.
struct Paper {
  QString name;            ///< What the user calls it: "report".
  QString title;           ///< Of the document.
  QString file;            ///< The name that is offered for a file.
  bool somePages = false;  ///< Whether some of its pages can be printed alone.
  /// False where the device takes nothing, or there is nothing to draw.
  std::function<bool(QPagedPaintDevice&)> draw;

  /// Prints it on the printer that the user chooses.
  Outcome print(Dialogs& dialogs, QWidget& asking) const;
  /// Saves it as the PDF file that the user names.
  Outcome save(Dialogs& dialogs, QWidget& asking) const;
  /// Prints it, or saves it where there is no printer.
  Outcome printOrSave(Dialogs& dialogs, QWidget& asking) const;

  /// Writes a PDF file on Letter paper, or as a printer is set up. Returns what went wrong, empty if nothing did. A
  /// file that stood there before is replaced only by a whole one.
  QString write(const QString& path, const QPrinter* setUp = nullptr) const;
};

}  // namespace tallyfin::qt
