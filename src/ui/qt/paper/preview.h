#pragma once

#include <QScrollArea>

#include "ui/qt/accessibility/accessible.h"

namespace tallyfin {
class PrintEngine;
}

namespace tallyfin::qt {

class View;

/// The picture of the report: one page as a sheet of paper on a grey background. The arrows, Page Up and Page Down,
/// Home and End move the sheet.
class Preview : public QScrollArea, public Readable {
 public:
  Preview(View& view, const PrintEngine& engine);

  /// Shows a page, counted from 0, or the nearest existing one, at the engine's zoom.
  void turnTo(int page);
  int page() const { return page_; }
  int pages() const;
  /// The zoom in percent at which the whole page, or its width, fits.
  int fitting(bool whole) const;

  QString readable() const override { return text_; }

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  bool event(QEvent* event) override;

 private:
  class Sheet;

  const PrintEngine& engine_;
  Sheet* sheet_;
  int page_ = 0;  // mutation: 0 -> 1: written before it is read
  QString text_;
};

}  // namespace tallyfin::qt
