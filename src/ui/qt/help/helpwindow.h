#pragma once

#include <QDialog>
#include <QUrl>

class QLabel;
class QLineEdit;
class QTextBrowser;
class QToolButton;
class QTreeWidget;

namespace tallyfin::qt {

class HelpFiles;
class Notice;

/// The help window: contents, search, the page, back, forward and home.
class HelpWindow : public QDialog {
 public:
  HelpWindow(HelpFiles& files, QWidget* parent);

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

  HelpFiles& files_;
  QToolButton* back_ = nullptr;
  QToolButton* forward_ = nullptr;
  QToolButton* home_ = nullptr;
  QLineEdit* search_ = nullptr;
  QTreeWidget* contents_ = nullptr;
  QLabel* nothing_ = nullptr;
  Notice* missing_ = nullptr;
  QTextBrowser* page_ = nullptr;
};

}  // namespace tallyfin::qt
