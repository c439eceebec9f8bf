#include "ui/qt/paper/screenprinter.h"

#include <QApplication>
#include <QPagedPaintDevice>
#include <QPainter>
#include <QPicture>

#include "controls/screen.h"
#include "ui/qt/frame/frame.h"
#include "ui/qt/paper/printer.h"
#include "ui/qt/widgets/text.h"

namespace tallyfin::qt {

namespace {

/// The drawing of the widget as a QPicture: rendered directly on a printer, it would be a bitmap.
QPicture drawingOf(QWidget& widget) {
  QWidget* focused = QApplication::focusWidget();
  const bool mark = focused != nullptr && widget.isAncestorOf(focused);
  if (mark) focused->clearFocus();  // the cursor and the focus ring aren't printed
  QPicture picture;
  {
    QPainter painter(&picture);
    widget.render(&painter, QPoint(), QRegion(), QWidget::DrawChildren);
  }
  if (mark) focused->setFocus(Qt::OtherFocusReason);
  return picture;
}

/// Draws a widget on one page, as large as the margins allow, as vectors, so that texts stay texts.
bool drawWidget(QWidget& widget, QPagedPaintDevice& device) {
  const QPicture picture = drawingOf(widget);
  QPainter painter;
  if (!painter.begin(&device)) return false;  // mutation: false -> true: the printer's state says so too
  // A QPicture keeps its size in inches on every device.
  const double width = widget.width() * static_cast<double>(device.logicalDpiX()) / picture.logicalDpiX();
  const double height = widget.height() * static_cast<double>(device.logicalDpiY()) / picture.logicalDpiY();
  const double scale = std::min(painter.viewport().width() / width, painter.viewport().height() / height);
  painter.scale(scale, scale);
  painter.drawPicture(0, 0, picture);  // mutation: 0 -> 1: a trace at the edge of a page
  return painter.end();
}

}  // namespace

ScreenPrinter::ScreenPrinter(FindView find) : find_(std::move(find)) {}

int ScreenPrinter::printScreen(Screen& screen) {
  View* view = find_(screen.name());
  if (view == nullptr) return 0;
  const QString title = text(screen.title());
  const Paper form{.name = QStringLiteral("form"),
                   .title = title,
                   .file = title + QStringLiteral(".pdf"),
                   .draw = [view](QPagedPaintDevice& device) { return drawWidget(*view, device); }};
  Frame& frame = static_cast<Frame&>(*view->window());
  const std::optional<Printed> printed = form.printOrSave(frame.dialogs(), frame);
  if (!printed) return 0;
  // The form doesn't change, so it can be printed again.
  frame.tell(printed->done ? QString() : printed->words);
  if (printed->done) frame.confirm(printed->words);
  return printed->done ? 1 : 0;
}

}  // namespace tallyfin::qt
