#include "ui/qt/help/helpwindow.h"

#include <QLabel>
#include <QLineEdit>
#include <QScreen>
#include <QScrollBar>
#include <QShortcut>
#include <QSplitter>
#include <QTextBrowser>
#include <QToolButton>
#include <QTreeWidget>
#include <QTreeWidgetItemIterator>
#include <QVBoxLayout>
#include <algorithm>

#include "ui/qt/frame/notice.h"
#include "ui/qt/help/helpfile.h"
#include "ui/qt/widgets/look.h"

namespace tallyfin::qt {

namespace {

/// The address of a topic, "help:/W4.hlp/10".
QUrl addressOf(const QString& file, const QString& id) {
  QUrl address;
  address.setScheme(QStringLiteral("help"));
  address.setPath(QLatin1Char('/') + file + QLatin1Char('/') + id);
  return address;
}
QString fileOf(const QUrl& address) { return address.path().section('/', 1, 1); }
QString idOf(const QUrl& address) { return address.path().section('/', 2); }

/// The page; it loads the topics of the help files.
class HelpPage : public QTextBrowser {
 public:
  HelpPage(HelpFiles& files, QWidget* parent) : QTextBrowser(parent), files_(files) {}

  QVariant loadResource(int type, const QUrl& name) override {
    if (type != QTextDocument::HtmlResource) return {};
    const HelpFile* help = files_.find(fileOf(name));
    const HelpTopic* topic = help == nullptr ? nullptr : help->find(idOf(name));
    return topic == nullptr ? QVariant() : QVariant(topic->html);
  }

 private:
  HelpFiles& files_;
};

constexpr int addressRole = Qt::UserRole;
constexpr int textRole = Qt::UserRole + 1;  // mutation: 1 -> 2: nothing else reads it

const QColor hitGround{255, 222, 120};

QStringList wordsOf(const QString& search) { return search.simplified().split(' ', Qt::SkipEmptyParts); }

bool holdsAll(const QString& text, const QStringList& words) {
  return std::all_of(words.begin(), words.end(),
                     [&](const QString& word) { return text.contains(word, Qt::CaseInsensitive); });
}

}  // namespace

HelpWindow::HelpWindow(HelpFiles& files, QWidget* parent) : QDialog(parent), files_(files) {
  setObjectName(QStringLiteral("help"));
  setWindowTitle(QStringLiteral("Tallyfin 99 Help"));
  setWindowIcon(look::picture(QStringLiteral("help")));
  look::setGround(*this, look::onDeep());
  // mutation: 16 -> 17 and 48 -> 49 and 480 -> 481 and 680 -> 681 and resize(QSize(680, 48* -> nothing: a pixel or so
  // moves no word
  resize(QSize(680, 480).boundedTo(screen()->availableSize() - QSize(16, 48)));
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(look::row, look::tight, look::row, look::row);
  layout->setSpacing(look::tight);
  auto* split = new QSplitter(Qt::Horizontal, this);
  layout->addWidget(strip());
  layout->addWidget(split, 1);
  missing_ = new Notice(this);
  layout->addWidget(missing_);
  split->addWidget(leftSide());
  split->addWidget(page());
  split->setSizes({212, 452});  // mutation: 452 -> 453: a pixel or so moves no word
  split->setStretchFactor(1, 1);
  split->setChildrenCollapsible(false);
  fillContents();
}

QToolButton* HelpWindow::tool(const char* picture, const char* name, const QKeySequence& key) {
  auto* widget = new QToolButton(this);
  widget->setObjectName(QString::fromLatin1(picture));
  widget->setIcon(look::picture(QString::fromLatin1(picture)));
  widget->setIconSize({16, 16});
  widget->setText(QString::fromLatin1(name));
  // Beside the search.
  const bool wordsFit = width() >= look::scaled(340);  // mutation: 340 -> 341: a pixel or so moves no word
  widget->setToolButtonStyle(wordsFit ? Qt::ToolButtonTextBesideIcon : Qt::ToolButtonIconOnly);
  widget->setMinimumHeight(28);
  widget->setAccessibleName(widget->text());
  widget->setShortcut(key);  // after the text, which would remove it
  widget->setToolTip(QStringLiteral("%1 (%2)").arg(widget->accessibleName(), key.toString(QKeySequence::NativeText)));
  widget->setFocusPolicy(Qt::StrongFocus);
  return widget;
}

QWidget* HelpWindow::strip() {
  auto* bar = new QWidget(this);
  auto* row = new QHBoxLayout(bar);
  row->setContentsMargins({});
  row->setSpacing(look::tight);
  row->addWidget(back_ = tool("previous", "Back", Qt::ALT | Qt::Key_Left));
  row->addWidget(forward_ = tool("next", "Forward", Qt::ALT | Qt::Key_Right));
  row->addWidget(home_ = tool("home", "Home", Qt::ALT | Qt::Key_Home));
  row->addStretch();
  search_ = new QLineEdit(bar);
  search_->setObjectName(QStringLiteral("search"));
  search_->setPlaceholderText(QStringLiteral("Search"));
  search_->setAccessibleName(QStringLiteral("Search the help"));
  search_->setToolTip(QStringLiteral("Words to look for (Ctrl+F)"));
  search_->setClearButtonEnabled(true);
  search_->setMaximumWidth(200);
  search_->setMinimumWidth(80);  // mutation: 80 -> 81: a pixel or so moves no word
  row->addWidget(search_, 100);
  connect(search_, &QLineEdit::textChanged, this, [this](const QString& words) { search(words); });
  connect(search_, &QLineEdit::returnPressed, this, [this] { showFirstHit(); });
  connect(new QShortcut(QKeySequence::Find, this), &QShortcut::activated, this, [this] {
    search_->setFocus(Qt::ShortcutFocusReason);
    search_->selectAll();
  });
  return bar;
}

QWidget* HelpWindow::leftSide() {
  auto* side = new QWidget(this);
  auto* layout = new QVBoxLayout(side);
  layout->setContentsMargins({});
  layout->setSpacing(look::tight);
  contents_ = new QTreeWidget(side);
  contents_->setObjectName(QStringLiteral("contents"));
  contents_->setAccessibleName(QStringLiteral("Contents"));
  contents_->setHeaderHidden(true);
  contents_->setPalette(look::onWhite());
  contents_->setIndentation(14);
  layout->addWidget(contents_, 1);
  nothing_ = new QLabel(QStringLiteral("No page has these words."), side);
  nothing_->setObjectName(QStringLiteral("nothing"));
  nothing_->setWordWrap(true);
  nothing_->hide();
  layout->addWidget(nothing_);
  connect(contents_, &QTreeWidget::currentItemChanged, this, [this](const QTreeWidgetItem* item) {
    if (item == nullptr) return;
    const QUrl address = item->data(0, addressRole).toUrl();
    showTopic(fileOf(address), idOf(address));
  });
  return side;
}

QWidget* HelpWindow::page() {
  page_ = new HelpPage(files_, this);
  page_->setObjectName(QStringLiteral("page"));
  page_->setAccessibleName(QStringLiteral("Help page"));
  page_->setPalette(look::onWhite());
  page_->setOpenLinks(false);
  page_->document()->setDocumentMargin(look::group);
  page_->document()->setDefaultStyleSheet(
      QStringLiteral("h1 { font-size: large; color: %1; } h2 { font-size: medium; color: %1; }"
                     "table { border-collapse: collapse; border: 0; margin-top: 4px; margin-bottom: 8px; }"
                     "td, th { border: 1px solid %2; padding: 3px; } th { background-color: %3; }")
          .arg(look::deep.name(), QColor(200, 208, 210).name(), QColor(232, 238, 240).name()));
  connect(page_, &QTextBrowser::anchorClicked, this, [this](const QUrl& link) { follow(link); });
  connect(page_, &QTextBrowser::sourceChanged, this, [this](const QUrl& address) { arrivedAt(address); });
  connect(page_, &QTextBrowser::backwardAvailable, back_, &QWidget::setEnabled);
  connect(page_, &QTextBrowser::forwardAvailable, forward_, &QWidget::setEnabled);
  connect(back_, &QToolButton::clicked, page_, &QTextBrowser::backward);
  connect(forward_, &QToolButton::clicked, page_, &QTextBrowser::forward);
  connect(home_, &QToolButton::clicked, this, [this] { showTopic(HelpFiles::files.front(), {}); });
  return page_;
}

void HelpWindow::fillContents() {
  for (const QString& file : HelpFiles::files) {
    const HelpFile* help = files_.find(file);
    if (help == nullptr) continue;
    auto* top = new QTreeWidgetItem(contents_, {help->title});
    top->setData(0, addressRole, addressOf(file, help->topics.front().id));
    QTreeWidgetItem* states = nullptr;
    for (const HelpTopic& topic : help->topics) {
      // The topics of the states are below the topic on states.
      const bool ofStates = states != nullptr && topic.id.startsWith(QLatin1String("state-"));
      auto* item = new QTreeWidgetItem(ofStates ? states : top, {topic.title});
      item->setData(0, addressRole, addressOf(file, topic.id));
      item->setData(0, textRole, plainText(topic.html));
      item->setToolTip(0, topic.title);
      if (topic.id == QLatin1String("states")) states = item;
    }
    top->setExpanded(true);
  }
}

void HelpWindow::showTopic(const QString& file, const QString& id) {
  const HelpFile* help = files_.find(file);
  missing_->tell(help == nullptr ? files_.missing(file) : QString());
  if (help == nullptr) return;
  const QString known = help->find(id) != nullptr ? id : help->topics.front().id;
  const QUrl address = addressOf(file, known);
  if (page_->source() != address) page_->setSource(address, QTextDocument::HtmlResource);
}

/// A link is a topic of this file, "#frmMain", or of the other one, "W4.hlp#10"; other links aren't opened.
void HelpWindow::follow(const QUrl& link) {
  if (!link.scheme().isEmpty() && link.scheme() != QLatin1String("help")) return;
  const QString file = link.path().section('/', -1);
  if (HelpFiles::files.contains(file)) {
    showTopic(file, link.fragment());
  } else if (link.hasFragment()) {
    showTopic(fileOf(page_->source()), link.fragment());
  }
}

/// Selects the page's topic in the contents, and highlights the hits on the page.
void HelpWindow::arrivedAt(const QUrl& address) {
  const QSignalBlocker marking(contents_);
  const QTreeWidgetItem* marked = contents_->currentItem();
  for (QTreeWidgetItemIterator item(contents_); *item != nullptr; ++item) {
    if ((*item)->data(0, textRole).isNull() || (*item)->data(0, addressRole).toUrl() != address) continue;
    if (marked == nullptr || marked->data(0, addressRole).toUrl() != address) contents_->setCurrentItem(*item);
  }
  highlight();
}

void HelpWindow::search(const QString& search) {
  const QStringList words = wordsOf(search);
  bool found = false;
  for (QTreeWidgetItemIterator item(contents_); *item != nullptr; ++item) (*item)->setHidden(true);
  for (QTreeWidgetItemIterator item(contents_); *item != nullptr; ++item) {
    const QVariant text = (*item)->data(0, textRole);
    if (text.isNull() || !holdsAll(text.toString(), words)) continue;
    found = true;
    (*item)->setHidden(false);
    for (QTreeWidgetItem* above = (*item)->parent(); above != nullptr; above = above->parent()) {
      above->setHidden(false);
      if (!words.isEmpty()) above->setExpanded(true);
    }
  }
  nothing_->setVisible(!found);
  highlight();
}

void HelpWindow::showFirstHit() {
  for (QTreeWidgetItemIterator item(contents_, QTreeWidgetItemIterator::NotHidden); *item != nullptr; ++item) {
    if (!holdsAll((*item)->data(0, textRole).toString(), wordsOf(search_->text()))) continue;
    return contents_->setCurrentItem(*item);
  }
}

void HelpWindow::highlight() {
  QList<QTextEdit::ExtraSelection> hits;
  for (const QString& word : wordsOf(search_->text())) {
    QTextCursor hit = page_->document()->find(word);
    for (; !hit.isNull(); hit = page_->document()->find(word, hit)) {
      QTextEdit::ExtraSelection mark{hit, {}};
      mark.format.setBackground(hitGround);
      mark.format.setForeground(look::ink);
      hits.push_back(mark);
    }
  }
  page_->setExtraSelections(hits);
}

}  // namespace tallyfin::qt
