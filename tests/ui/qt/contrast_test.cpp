#include "contrast.h"

#include <QAbstractItemView>
#include <QCheckBox>
#include <QGroupBox>
#include <QPrintDialog>
#include <QPrinter>
#include <QSpinBox>
#include <QtMath>
#include <map>

#include "controls/desk.h"
#include "controls/screen.h"
#include "everyscreen.h"
#include "picture.h"
#include "ui/qt/widgets/look.h"
#include "ui/qt/widgets/text.h"

/// Contrast tests, measured in pictures of the screens.

namespace tallyfin::qt {

namespace {

/// A part of a picture: its background is the most frequent colour, its text the one with the highest contrast.
struct Part {
  QColor ground;
  double letters = 1;
};

Part measured(const QImage& picture, const QRect& where) {
  const QRect place = pixelsOf(picture, where);
  std::map<QRgb, int> colours;
  for (int y = place.top(); y <= place.bottom(); ++y) {
    for (int x = place.left(); x <= place.right(); ++x) ++colours[picture.pixel(x, y)];
  }
  if (colours.empty()) return {};
  const auto commonest = std::max_element(colours.begin(), colours.end(),
                                          [](const auto& a, const auto& b) { return a.second < b.second; });
  Part part{QColor(commonest->first)};
  for (const auto& [colour, times] : colours)
    part.letters = std::max(part.letters, contrast(part.ground, QColor(colour)));
  return part;
}

class Contrast : public EveryScreen {
 protected:
  static QImage withoutFocus(const QWidget& window) {
    if (QWidget* focused = QApplication::focusWidget()) focused->clearFocus();
    settle();
    return pictureOf(window);
  }

  static bool seen(const QWidget& widget) { return widget.isVisible() && !widget.visibleRegion().isEmpty(); }
};

/// The rectangle of a widget's text, without frame and indicator.
QRect wordsOf(const QWidget& widget) {
  QRect place = widget.rect();
  if (qobject_cast<const QCheckBox*>(&widget) != nullptr || qobject_cast<const QRadioButton*>(&widget) != nullptr) {
    if (widget.objectName().startsWith(QLatin1String("chkPersWkShtA"))) return place.adjusted(0, 0, -60, 0);
    return place.adjusted(18, 0, 0, 0);
  }
  return place.adjusted(3, 3, -3, -3);
}

TEST_F(Contrast, EveryTextHasContrast) {
  int texts = 0;
  onEveryScreen([&](const Screen& screen) {
    QWidget& window = *view(screen.name().c_str()).window();
    const QImage picture = withoutFocus(window);
    for (QWidget* widget : window.findChildren<QWidget*>()) {
      const QString words = widget->property("text").toString() + widget->property("currentText").toString();
      if (words.trimmed().isEmpty() || !seen(*widget)) continue;
      const QRect place = wordsOf(*widget).intersected(widget->visibleRegion().boundingRect());
      if (place.height() < 8 || place.width() < 6) continue;
      ++texts;
      const Part part = measured(picture, place.translated(widget->mapTo(&window, QPoint())));
      EXPECT_GE(part.letters, widget->isEnabled() ? 4.5 : 3)
          << widget->objectName().toStdString() << " " << widget->metaObject()->className() << " \""
          << words.toStdString() << "\" on " << part.ground.name().toStdString();
    }
  });
  EXPECT_GT(texts, 200);
}

/// A disabled button has less contrast than an enabled one.
TEST_F(Contrast, WhatIsDisabledLooksSo) {
  int disabled = 0;
  onEveryScreen([&](const Screen& screen) {
    QWidget& window = *view(screen.name().c_str()).window();
    for (auto* button : window.findChildren<QAbstractButton*>()) {
      if (!seen(*button) || button->isEnabled()) continue;
      ++disabled;
      const QRect place = wordsOf(*button).translated(button->mapTo(&window, QPoint()));
      const Part off = measured(pictureOf(window), place);
      button->setEnabled(true);
      const Part on = measured(pictureOf(window), place);
      button->setEnabled(false);
      EXPECT_LT(off.letters, 0.8 * on.letters) << button->objectName().toStdString();
    }
  });
  EXPECT_GT(disabled, 4);
}

/// The contrast of the weakest side of a box with its background: the best of the lines where the edge may be.
double edgeOf(const QImage& picture, const QRect& where, const QColor& ground) {
  const QRect box = pixelsOf(picture, where);
  const int depths = qCeil(4 * picture.devicePixelRatio());
  double left = 1;
  double right = 1;
  double top = 1;
  double bottom = 1;
  for (int depth = 0; depth < depths; ++depth) {
    const auto at = [&](int x, int y) {
      return picture.rect().contains(x, y) ? contrast(ground, picture.pixelColor(x, y)) : 1.0;
    };
    // A chosen row covers the whole width; the edge is visible above or below it.
    for (const int y : {box.top() + box.height() / 4, box.center().y(), box.bottom() - box.height() / 4}) {
      left = std::max(left, at(box.left() + depth, y));
      right = std::max(right, at(box.right() - depth, y));
    }
    top = std::max(top, at(box.center().x(), box.top() + depth));
    bottom = std::max(bottom, at(box.center().x(), box.bottom() - depth));
  }
  return std::min({left, right, top, bottom});
}

TEST_F(Contrast, EveryBoxHasAnEdge) {
  int boxes = 0;
  onEveryScreen([&](const Screen& screen) {
    if (screen.place() == Place::box || screen.name() == "frmW4") return;  // the form's own rules are around its boxes
    QWidget& window = *view(screen.name().c_str()).window();
    const QImage picture = withoutFocus(window);
    for (const Control* control : screen.controls()) {
      QWidget& widget = find(screen.name().c_str(), qt::text(control->address()));
      const bool box = qobject_cast<QLineEdit*>(&widget) != nullptr || qobject_cast<QComboBox*>(&widget) != nullptr ||
                       qobject_cast<QListWidget*>(&widget) != nullptr || qobject_cast<QSpinBox*>(&widget) != nullptr;
      if (!box || !seen(widget) || !widget.isEnabled()) continue;
      ++boxes;
      const QRect place(widget.mapTo(&window, QPoint()), widget.size());
      const QColor ground = widget.parentWidget()->palette().color(QPalette::Window);
      EXPECT_GE(edgeOf(picture, place, ground), 3) << control->address() << " on " << ground.name().toStdString();
    }
    for (auto* button : window.findChildren<QAbstractButton*>()) {
      const bool mark = qobject_cast<QCheckBox*>(button) != nullptr || qobject_cast<QRadioButton*>(button) != nullptr;
      if (!mark || !seen(*button) || !button->isEnabled()) continue;
      ++boxes;
      QRect place(0, 0, 18, button->height());
      if (button->objectName().startsWith(QLatin1String("chkPersWkShtA"))) place.moveRight(button->width() - 1);
      const Part part = measured(picture, place.translated(button->mapTo(&window, QPoint())));
      EXPECT_GE(part.letters, 3) << button->objectName().toStdString();
    }
  });
  EXPECT_GT(boxes, 60);
}

TEST_F(Contrast, AnOpenListIsRead) {
  startOnMain();
  const auto look = [](QComboBox& box) {
    box.showPopup();
    settle();
    QAbstractItemView& rows = *box.view();
    const QImage picture = pictureOf(*rows.viewport());
    for (int row = 0; row < std::min(box.count(), 6); ++row) {
      const Part part = measured(picture, rows.visualRect(box.model()->index(row, 0)));
      EXPECT_GE(part.letters, 4.5) << box.objectName().toStdString() << " " << box.itemText(row).toStdString();
    }
    box.hidePopup();
    settle();
  };
  look(find<QComboBox>("frmMain", "cboState"));
  look(find<QComboBox>("frmMain", "cboExemptions"));
  clickItem("StateInfo");
  look(find<QComboBox>("frmState", "cboState"));
}

TEST_F(Contrast, ThePrintDialogIsRead) {
  QPrinter printer;
  QPrintDialog dialog(&printer);
  dialog.show();
  settle();
  const QImage picture = pictureOf(dialog);
  int texts = 0;
  for (const QWidget* widget : dialog.findChildren<QWidget*>()) {
    const bool words =
        qobject_cast<const QLabel*>(widget) != nullptr || qobject_cast<const QAbstractButton*>(widget) != nullptr;
    if (!words || widget->property("text").toString().isEmpty() || !seen(*widget) || !widget->isEnabled()) continue;
    ++texts;
    const Part part = measured(picture, wordsOf(*widget).translated(widget->mapTo(&dialog, QPoint())));
    EXPECT_GE(part.letters, 4.5) << widget->property("text").toString().toStdString();
  }
  EXPECT_GT(texts, 5);
  for (auto* box : dialog.findChildren<QComboBox*>()) {
    if (!seen(*box) || box->count() == 0) continue;
    box->showPopup();
    settle();
    const QImage rows = pictureOf(*box->view()->viewport());
    EXPECT_GE(measured(rows, box->view()->visualRect(box->model()->index(0, 0))).letters, 4.5)
        << box->itemText(0).toStdString();
    box->hidePopup();
  }
}

TEST_F(Contrast, APageOverAnotherHasAnEdge) {
  startOnMain();
  clickItem("TwoWork");
  click("frm2Workers", "cmdTable1Show(0)");
  const QWidget* document = &view("frmTableOne");
  while (dynamic_cast<const Document*>(document) == nullptr) document = document->parentWidget();
  const QImage picture = withoutFocus(frame());
  const QRect place = pixelsOf(picture, QRect(document->mapTo(&frame(), QPoint()), document->size()));
  const int y = place.center().y();
  const QColor beneath = picture.pixelColor(place.left() - 3, y);
  double edge = 1;
  for (int x = 0; x < 4; ++x) edge = std::max(edge, contrast(beneath, picture.pixelColor(place.left() + x, y)));
  EXPECT_GE(edge, 3);
}

}  // namespace

}  // namespace tallyfin::qt
