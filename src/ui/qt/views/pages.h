#pragma once

#include "ui/qt/views/screenview.h"

class QVBoxLayout;

namespace tallyfin {
class Panel;
}

namespace tallyfin::qt {

/// A screen with pages, of which one is visible. The others are beside the view, with the same size, and work there
/// too.
class PagedView : public ScreenView {
 protected:
  explicit PagedView(Screen& screen);

  /// The layout at the place of the visible page.
  QVBoxLayout* pages() const { return pages_; }
  /// Adds a page at the position of its panel, and returns the layout of its content. The name is for assistive
  /// technology.
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
  QSize room_;  ///< Of the visible page.
  std::vector<Page> all_;
};

}  // namespace tallyfin::qt
