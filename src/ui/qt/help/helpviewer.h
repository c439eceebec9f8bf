#pragma once

#include <QDialog>
#include <QPointer>
#include <QStringList>
#include <QUrl>
#include <vector>

#include "platform/platform.h"

class QLabel;
class QLineEdit;
class QTextBrowser;
class QToolButton;
class QTreeWidget;

/// The program's help: its two files, the window that shows them, and the way in.

namespace tallyfin::qt {

class Notice;

class Frame;

/// One topic of a help file: what follows a heading of the first order, up to the next one.
struct HelpTopic {
  QString id;
  QString title;
  QString html;  ///< The heading included.
};

/// A help file, taken apart into its topics.
struct HelpBook {
  QString file;
  QString title;
  std::vector<HelpTopic> topics;

  const HelpTopic* find(const QString& id) const;
  static HelpBook read(const QString& file, const QString& html);
};

/// Finds the help files in the folders where the program keeps them and reads each once.
class HelpShelf {
 public:
  explicit HelpShelf(QStringList folders);

  /// None where the file isn't there.
  const HelpBook* book(const QString& file);
  /// Tells the user that a file is missing, and where it was looked for.
  QString missing(const QString& file) const;

  static const QStringList files;
  /// The program's own folder, then the one where a package puts the files.
  static QStringList usualFolders();

 private:
  QStringList folders_;
  std::vector<HelpBook> books_;
};

/// The help window: contents, search, the page, back, forward and home.
class HelpWindow : public QDialog {
 public:
  HelpWindow(HelpShelf& shelf, QWidget* parent);

  /// Shows a topic; the first one of the file where there is none of this name. A missing file is told.
  void showTopic(const QString& file, const QString& id);

 private:
  QWidget* strip();
  QWidget* leftSide();
  QWidget* page();
  QToolButton* tool(const char* picture, const char* name, const QKeySequence& key);
  void fillContents();
  void follow(const QUrl& link);
  void arrivedAt(const QUrl& address);
  void search(const QString& words);
  void showFirstHit();
  void highlight();

  HelpShelf& shelf_;
  QToolButton* back_ = nullptr;
  QToolButton* forward_ = nullptr;
  QToolButton* home_ = nullptr;
  QLineEdit* search_ = nullptr;
  QTreeWidget* contents_ = nullptr;
  QLabel* nothing_ = nullptr;
  Notice* missing_ = nullptr;
  QTextBrowser* page_ = nullptr;
};

/// The program's help as the frame asks for it.
class DesktopHelp : public HelpViewer {
 public:
  explicit DesktopHelp(QStringList folders = HelpShelf::usualFolders());
  ~DesktopHelp() override;

  /// Shows its window above this one from now on, and makes F1 open the help of the active document.
  void serve(Frame& frame);
  /// Makes F1 act in a box that must be answered before the frame.
  void serveBox(QWidget& box);
  /// A box is about to go: the help that it has opened stays.
  void leave(const QWidget& box);
  void open(const std::string& file, int context) override;
  void openTopic(const QString& file, const QString& id);
  /// The topic that bears the name of the active document, in whichever file it is.
  void openForActiveDocument();

  HelpWindow* window() const { return window_; }

 private:
  HelpShelf shelf_;
  QPointer<Frame> frame_;
  QPointer<HelpWindow> window_;
};

}  // namespace tallyfin::qt
