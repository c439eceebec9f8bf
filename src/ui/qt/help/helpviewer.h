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

/// The program's help: its two files, the window, and the keys that open it.

namespace tallyfin::qt {

class Notice;

class Frame;

/// One topic of a help file: from a first-level heading up to the next one.
struct HelpTopic {
  QString id;
  QString title;
  QString html;  ///< Including the heading.
};

/// A help file with its topics.
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

  /// None where the file is missing.
  const HelpBook* book(const QString& file);
  /// Reports a missing file and the folders that were searched.
  QString missing(const QString& file) const;

  static const QStringList files;
  /// The program's folder, then that of an installed package.
  static QStringList usualFolders();

 private:
  QStringList folders_;
  std::vector<HelpBook> books_;
};

/// The help window: contents, search, the page, back, forward and home.
class HelpWindow : public QDialog {
 public:
  HelpWindow(HelpShelf& shelf, QWidget* parent);

  /// Shows a topic, or the first one of the file where there is none of this name. Reports a missing file.
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

/// The help of the program, for the frame.
class DesktopHelp : public HelpViewer {
 public:
  explicit DesktopHelp(QStringList folders = HelpShelf::usualFolders());
  ~DesktopHelp() override;

  /// Makes F1 in this window open the help on the active document, in a window above it.
  void serve(Frame& frame);
  /// Makes F1 work in a modal box.
  void serveBox(QWidget& box);
  /// Call before a box is destroyed: help that was opened from it stays open.
  void leave(const QWidget& box);
  void open(const std::string& file, int context) override;
  void openTopic(const QString& file, const QString& id);
  /// The topic with the name of the active document, in either file.
  void openForActiveDocument();

  HelpWindow* window() const { return window_; }

 private:
  HelpShelf shelf_;
  QPointer<Frame> frame_;
  QPointer<HelpWindow> window_;
};

}  // namespace tallyfin::qt
