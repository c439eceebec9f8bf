#include "ui/qt/explanation/formview.h"

#include <QHeaderView>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <QStyledItemDelegate>
#include <algorithm>
#include <climits>
#include <cmath>

#include "ui/qt/widgets/look.h"
#include "ui/qt/widgets/text.h"

namespace tallyfin::qt {

namespace {

constexpr int given = Qt::UserRole;     ///< The tax or amount of a row of a table.
constexpr int used = Qt::UserRole + 1;  ///< Whether it is the row that was used.
constexpr int padding = look::tight / 2;

}  // namespace

/// Draws the lines of the form, and the rows of a table in two columns.
class FormView::Delegate : public QStyledItemDelegate {
 public:
  explicit Delegate(FormView* view) : QStyledItemDelegate(view), view_(*view) {}

  QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
    double height = 0;
    if (index.parent().isValid()) {
      const QRect room(0, 0, view_.viewport()->width() - 2 * view_.indentation(), INT_MAX / 2);
      const QRect right = columnOf(room, option.font, index);
      height =
          QFontMetrics(bold(option.font)).boundingRect(right, Qt::TextWordWrap, index.data(given).toString()).height();
    } else {
      height = set(index).height();
    }
    return {0, static_cast<int>(std::ceil(height)) + 2 * padding};
  }

  void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override {
    painter->save();
    const QRect place = option.rect.adjusted(0, padding, 0, -padding);
    if (!index.parent().isValid()) {
      set(index).draw(*painter, place.topLeft(), look::ink);
    } else {
      painter->setFont(index.data(used).toBool() ? bold(option.font) : option.font);
      painter->setPen(look::ink);
      painter->drawText(place, Qt::AlignLeft, index.data(Qt::DisplayRole).toString());
      painter->drawText(columnOf(place, option.font, index), Qt::TextWordWrap, index.data(given).toString());
    }
    painter->restore();
  }

 private:
  static QFont bold(QFont font) {
    font.setBold(true);
    return font;
  }

  /// The left end of the second column of a table: right of the widest bounds.
  static QRect columnOf(const QRect& place, const QFont& font, const QModelIndex& index) {
    const QFontMetrics metrics(bold(font));
    int left = 0;
    for (int row = 0; row < index.model()->rowCount(index.parent()); ++row) {
      left = std::max(left, metrics.horizontalAdvance(index.siblingAtRow(row).data().toString()));
    }
    return place.adjusted(left + look::group, 0, 0, 0);
  }

  const SetLine& set(const QModelIndex& index) const { return *view_.set_[static_cast<std::size_t>(index.row())]; }

  const FormView& view_;
};

FormView::FormView(QWidget* parent) : QTreeWidget(parent) {
  setObjectName(QStringLiteral("page"));
  setAccessibleName(QStringLiteral("Explanation"));
  setPalette(look::onWhite());
  setFont(look::figures());
  setItemDelegate(new Delegate(this));
  setColumnCount(1);
  setIndentation(fontMetrics().height());
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setVerticalScrollMode(ScrollPerPixel);
  setSelectionMode(SingleSelection);
  setTabKeyNavigation(false);
  setMouseTracking(true);
  header()->setSectionsClickable(false);
  QFont bold = font();
  bold.setBold(true);
  header()->setFont(bold);
  connect(this, &QTreeWidget::currentItemChanged, viewport(), [this] { viewport()->update(); });
}

FormView::~FormView() = default;

void FormView::show(Form form) {
  const int row = currentIndex().parent().isValid() ? -1 : currentIndex().row();
  clear();
  pointed_.clear();
  form_ = std::move(form);
  setForm();
  setHeaderLabel(text(form_.title));
  for (const FormLine& line : form_.lines) {
    auto* item = new QTreeWidgetItem(this, {drawn(line.text())});
    item->setData(0, Qt::AccessibleTextRole, drawn(line.spoken));
    if (line.table) addTable(*item, *line.table);
  }
  setCurrentItem(topLevelItem(std::clamp(row, 0, topLevelItemCount() - 1)));
}

void FormView::addTable(QTreeWidgetItem& line, const FormTable& table) {
  for (std::size_t i = 0; i < table.rows.size(); ++i) {
    const FormTable::Row& row = table.rows[i];
    auto* item = new QTreeWidgetItem(&line, {text(row.where)});
    item->setData(0, given, text(row.given));
    item->setData(0, used, i == table.used);
    item->setData(
        0, Qt::AccessibleTextRole,
        text((i == table.used ? "Used: " : "") + table.of + " " + spoken(row.where) + ": " + spoken(row.given)));
  }
}

/// The width beside a scroll bar, also without one, so that showing a scroll bar doesn't rewrap lines.
void FormView::setForm() {
  const int bar = verticalScrollBar()->sizeHint().width();
  set_ = setLines(form_, font(), width() - 2 * frameWidth() - bar - indentation() - look::tight);
}

const FormLine* FormView::lineOf(const QModelIndex& index) const {
  const bool isLine = index.isValid() && !index.parent().isValid();
  return isLine ? &form_.lines[static_cast<std::size_t>(index.row())] : nullptr;
}

std::vector<int> FormView::marked() const {
  std::vector<int> numbers = pointed_;
  const FormLine* line = hasFocus() ? lineOf(currentIndex()) : nullptr;
  if (line) {
    for (const FormPart& part : line->parts) numbers.insert(numbers.end(), part.lines.begin(), part.lines.end());
  }
  return numbers;
}

QString FormView::currentText() const {
  if (const FormLine* line = lineOf(currentIndex())) {
    return text(line->number == 0 ? line->text() : line->text() + "\t" + line->figure);
  }
  if (!currentIndex().isValid()) return {};
  return currentIndex().data().toString() + QLatin1Char('\t') + currentIndex().data(given).toString();
}

void FormView::drawRow(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const {
  const FormLine* line = lineOf(index);
  const std::vector<int> marks = marked();
  const bool isMarked = line ? line->number != 0 && std::find(marks.begin(), marks.end(), line->number) != marks.end()
                             : index.data(used).toBool();
  if (isMarked) painter->fillRect(option.rect, look::lightBlue);
  if (index == currentIndex() && hasFocus()) {
    if (!isMarked) painter->fillRect(option.rect, look::paper);
    look::drawEdge(*painter, option.rect, look::deep);
  }
  drawBranches(
      painter,
      QRect(option.rect.left(), option.rect.top(), visualRect(index).left() - option.rect.left(), option.rect.height()),
      index);
  QStyleOptionViewItem own = option;
  own.rect = visualRect(index);
  itemDelegate()->paint(painter, own, index);
}

void FormView::resizeEvent(QResizeEvent* event) {
  setForm();
  QTreeWidget::resizeEvent(event);
  scheduleDelayedItemsLayout();
}

void FormView::mouseMoveEvent(QMouseEvent* event) {
  QTreeWidget::mouseMoveEvent(event);
  const QModelIndex index = indexAt(event->pos());
  if (lineOf(index) == nullptr) return point({});
  const QPoint inside = event->pos() - visualRect(index).topLeft() - QPoint(0, padding);
  point(set_[static_cast<std::size_t>(index.row())]->namedAt(inside));
}

void FormView::leaveEvent(QEvent* event) {
  QTreeWidget::leaveEvent(event);
  point({});
}

void FormView::point(std::vector<int> lines) {
  if (lines == pointed_) return;
  pointed_ = std::move(lines);
  viewport()->update();
}

}  // namespace tallyfin::qt
