#include "ui/qt/paper/formpages.h"

#include <QApplication>
#include <QPagedPaintDevice>
#include <QPainter>
#include <cmath>
#include <functional>

#include "ui/qt/explanation/setline.h"
#include "ui/qt/paper/reportpage.h"
#include "ui/qt/widgets/look.h"
#include "ui/qt/widgets/text.h"

namespace tallyfin::qt {

namespace {

// Measures in twips.
constexpr int inch = 1440;
constexpr int margin = inch;
constexpr int footerTop = inch / 5;
constexpr int fontPoints = 9;
constexpr int lineGap = 40;
constexpr int formGap = 240;

/// A block, which isn't split between pages.
struct Block {
  int gap;  ///< Space above it, except at the top of a page.
  int height;
  bool keepsNext;  ///< It can't be the last block of a page.
  std::function<void(QPainter&, int top)> draw;
};

/// The first block of each page.
std::vector<std::size_t> pagesOf(const std::vector<Block>& blocks, int room) {
  std::vector<std::size_t> starts{0};
  int top = 0;
  for (std::size_t i = 0; i < blocks.size();) {
    std::size_t end = i + 1;  // the end of the blocks that stay together
    int height = blocks[i].height;
    for (; end < blocks.size() && blocks[end - 1].keepsNext; ++end) height += blocks[end].gap + blocks[end].height;
    if (i > starts.back() && top + blocks[i].gap + height > room) {
      starts.push_back(i);
      top = 0;
    }
    top += (i == starts.back() ? 0 : blocks[i].gap) + height;
    i = end;
  }
  return starts;
}

/// Lays out the blocks of a document and draws its pages.
class Document {
 public:
  Document(const FormPages& pages, QSize paper) : pages_(pages), paper_(paper), width_(paper.width() - 2 * margin) {
    addEntries();
    for (const Form& form : pages.forms) addForm(form);
    starts_ = pagesOf(blocks_, paper_.height() - 2 * margin);
  }

  int count() const { return static_cast<int>(starts_.size()); }

  void draw(QPainter& painter, int page) const {
    const auto at = static_cast<std::size_t>(page);
    const std::size_t end = at + 1 < starts_.size() ? starts_[at + 1] : blocks_.size();
    int top = margin;
    for (std::size_t i = starts_[at]; i < end; ++i) {
      if (i > starts_[at]) top += blocks_[i].gap;
      blocks_[i].draw(painter, top);
      top += blocks_[i].height;
    }
    drawFooter(painter, page);
  }

 private:
  void addText(const QString& words, const QFont& font, bool keepsNext) {
    const QRect room(0, 0, width_, paper_.height());
    const int height = QFontMetrics(font).boundingRect(room, Qt::TextWordWrap, words).height();
    blocks_.push_back({lineGap, height, keepsNext, [words, font, this, height](QPainter& painter, int top) {
                         painter.setFont(font);
                         painter.setPen(Qt::black);
                         painter.drawText(QRect(margin, top, width_, height), Qt::TextWordWrap, words);
                       }});
  }

  void addEntries() {
    addText(pages_.title, paperFont(fontPoints + 4, true), true);
    for (const auto& [title, words] : pages_.entries)
      addText(text(title) + QStringLiteral(": ") + drawn(words), font_, true);
    addText(pages_.sentence, font_, false);
  }

  void addForm(const Form& form) {
    addTitle(form);
    SetLines set = setLines(form, font_, width_);
    for (std::size_t i = 0; i < set.size(); ++i) {
      // The title and the first two lines stay together, and so do the last two lines.
      const bool keepsNext = i + 1 < set.size() && (i == 0 || i + 2 == set.size());
      const int height = static_cast<int>(std::ceil(set[i]->height()));
      blocks_.push_back(
          {lineGap, height, keepsNext, [line = std::shared_ptr(std::move(set[i]))](QPainter& painter, int top) {
             line->draw(painter, QPointF(margin, top), Qt::black);
           }});
    }
  }

  void addTitle(const Form& form) {
    const QFont bold = paperFont(fontPoints + 1, true);
    const int height = QFontMetrics(bold).height();
    blocks_.push_back({formGap, height + lineGap, true, [&form, bold, this, height](QPainter& painter, int top) {
                         const QRect place(margin, top, width_, height);
                         painter.setFont(bold);
                         painter.setPen(Qt::black);
                         painter.drawText(place, Qt::AlignLeft | Qt::TextSingleLine, text(form.title));
                         painter.fillRect(QRect(margin, place.bottom(), width_, 15), look::deep);
                       }});
  }

  void drawFooter(QPainter& painter, int page) const {
    const QRect place(margin, paper_.height() - margin + footerTop, width_, inch / 4);
    painter.setFont(font_);
    painter.setPen(Qt::black);
    const QString number = QStringLiteral("Page %1 of %2").arg(page + 1).arg(count());
    const QFontMetrics metrics(font_);
    const int room = width_ - metrics.horizontalAdvance(number) - inch / 4;
    const QString name = metrics.elidedText(drawn(pages_.entries.front().second), Qt::ElideRight, room);
    painter.drawText(place, Qt::AlignLeft | Qt::TextSingleLine, name);
    painter.drawText(place, Qt::AlignRight | Qt::TextSingleLine, number);
  }

  const FormPages& pages_;
  QSize paper_;
  int width_;
  QFont font_ = paperFont(fontPoints);
  std::vector<Block> blocks_;
  std::vector<std::size_t> starts_;
};

}  // namespace

bool FormPages::draw(QPagedPaintDevice& device) const {
  QPainter painter;
  const std::optional<QSize> paper = beginPages(device, painter);
  if (!paper) return false;
  const Document document(*this, *paper);
  const QPageRanges wanted = device.pageRanges();
  bool first = true;
  for (int page = 0; page < document.count(); ++page) {
    if (!wanted.isEmpty() && !wanted.contains(page + 1)) continue;
    if (!first && !device.newPage()) return false;
    first = false;
    document.draw(painter, page);
  }
  return painter.end();
}

}  // namespace tallyfin::qt
