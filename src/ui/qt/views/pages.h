#pragma once

#include "ui/qt/views/view.h"

class QVBoxLayout;

namespace tallyfin {
class Panel;
}

namespace tallyfin::qt {

/// A screen in pages, of which one is in sight. The others stand beside the view, as wide and high as in their place,
/// and work there too.
class PagedView : public View {
 protected:
  explicit PagedView(Screen& screen);

  /// The place of the page in sight.
  QVBoxLayout* pages() const { return pages_; }
  /// A page that stands where its panel is, and the column of what is on it. Who can't see it goes by its name.
  QVBoxLayout* page(Panel& panel, const QString& name);
  /// Makes every page as high as the highest one at this width.
  void levelPages(int width);

  void resizeEvent(QResizeEvent* event) override;

 private:
  class Part;
  struct Page {
    Part* widget;
    const Panel* panel;
    QString name;
  };
  void place(const Page& page);

  QVBoxLayout* pages_;
  QSize room_;  ///< Of the page in sight.
  std::vector<Page> all_;
};

}  // namespace tallyfin::qt
