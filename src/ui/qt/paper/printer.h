#pragma once

#include <QString>
#include <functional>
#include <optional>

class QPagedPaintDevice;
class QPrinter;
class QWidget;

namespace tallyfin::qt {

class Dialogs;

/// Whether something has been printed or saved, and a message for the user. None if the user cancelled.
struct Printed {
  bool done;
  QString words;
};

/// A document for paper or a PDF file.
struct Paper {
  QString name;            ///< Its name in messages: "report".
  QString title;           ///< Of the document.
  QString file;            ///< The default file name.
  bool somePages = false;  ///< Whether a range of pages can be printed.
  /// False where painting fails, or there is nothing to draw.
  std::function<bool(QPagedPaintDevice&)> draw;

  /// Prints it on the printer that the user chooses.
  std::optional<Printed> print(Dialogs& dialogs, QWidget& asking) const;
  /// Saves it as the PDF file that the user names.
  std::optional<Printed> save(Dialogs& dialogs, QWidget& asking) const;
  /// Prints it, or saves it where there is no printer.
  std::optional<Printed> printOrSave(Dialogs& dialogs, QWidget& asking) const;

  /// Writes a PDF file on Letter paper, or as a printer is set up. Returns the error, empty for none. An existing file
  /// is replaced only by a complete one.
  QString write(const QString& path, const QPrinter* setUp = nullptr) const;
};

}  // namespace tallyfin::qt
