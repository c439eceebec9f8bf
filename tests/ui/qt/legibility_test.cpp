#include <QAbstractItemView>
#include <QAccessible>
#include <QClipboard>
#include <QHelpEvent>
#include <QPainter>
#include <QRegularExpression>
#include <QScreen>
#include <QScrollBar>
#include <QSvgRenderer>
#include <QTextDocumentFragment>
#include <QToolButton>
#include <QToolTip>
#include <set>

#include "contrast.h"
#include "everyscreen.h"
#include "picture.h"
#include "ui/qt/frame/document.h"
#include "ui/qt/frame/listbar.h"
#include "ui/qt/frame/placement.h"
#include "ui/qt/widgets/look.h"

/// Legibility of texts, lists, marks and messages, with fonts and displays of several sizes.

namespace tallyfin::qt {

namespace {

class Legibility : public DesktopTest {
 protected:
  ~Legibility() override { QApplication::setFont(normal_); }

  /// As on a desktop whose font has 15 points.
  static void enlargeFont() { look::applyFont(*qApp, 15); }
  static const Document& documentOf(const QWidget& view) {
    const QWidget* part = &view;
    while (dynamic_cast<const Document*>(part) == nullptr) part = part->parentWidget();
    return static_cast<const Document&>(*part);
  }
  std::string confirmed(const char* screen) const {
    return documentOf(view(screen)).findChild<QLabel*>("confirmed")->text().toStdString();
  }
  static std::string tooltipOf(QWidget& widget) {
    QHelpEvent event(QEvent::ToolTip, widget.rect().center(), widget.mapToGlobal(widget.rect().center()));
    QApplication::sendEvent(&widget, &event);
    const std::string words = QTextDocumentFragment::fromHtml(QToolTip::text()).toPlainText().toStdString();
    QToolTip::hideText();
    return words;
  }
  static void expectAllRowsInView(const QListWidget& list) {
    EXPECT_EQ(list.verticalScrollBar()->maximum(), 0);
    for (int row = 0; row < list.count(); ++row) {
      const QRect place = list.visualItemRect(list.item(row));
      EXPECT_TRUE(list.viewport()->rect().contains(QRect(place.topLeft(), QSize(1, place.height())))) << row;
    }
  }

 private:
  QFont normal_ = QApplication::font();
};

const std::string longAddress = "17 North Second Street, Apartment 3, care of the harbor master";

// --- Texts that are longer than their box

/// The tooltip of a very long text fits on the screen, and a text with tags is shown as it is.
TEST_F(Legibility, TheTooltipOfALongTextWraps) {
  stored(section::user, "UAdd", std::string(9000, 'x') + " y");
  stored(section::user, "UCity", "<b>Port</b> Ellery, between the &lt;second&gt; and the third light");
  startOnMain();
  clickItem("W4");
  EXPECT_EQ(tooltipOf(find("frmW4", "txtCity")), "<b>Port</b> Ellery, between the &lt;second&gt; and the third light");
  EXPECT_LT(tooltipOf(find("frmW4", "txtAddress")).size(), 2100);
}

TEST_F(Legibility, ABoxWithoutTheFocusShowsTheBeginningOfItsText) {
  stored(section::user, "UAdd", longAddress);
  startOnMain();
  clickItem("W4");
  auto& box = find<QLineEdit>("frmW4", "txtAddress");
  EXPECT_EQ(box.cursorPosition(), 0);
  EXPECT_EQ(tooltipOf(box), longAddress);
  EXPECT_EQ(QAccessible::queryAccessibleInterface(&box)->text(QAccessible::Value).toStdString(), longAddress);
  click(box);
  QTest::keyClick(&box, Qt::Key_End);
  EXPECT_EQ(box.cursorPosition(), static_cast<int>(longAddress.size()));
  click("frmW4", "txtCity");
  EXPECT_EQ(box.cursorPosition(), 0);
}

TEST_F(Legibility, ABoxThatShowsItsWholeTextNeedsNoTooltip) {
  stored(section::user, "UAdd", "1 Elm St");
  startOnMain();
  clickItem("W4");
  EXPECT_EQ(tooltipOf(find("frmW4", "txtAddress")), "");
}

// --- Lists

TEST_F(Legibility, TheFrequencyListShowsItsFourRowsWhateverIsChosen) {
  startOnMain();
  const auto& list = find<QListWidget>("frmMain", "lstFrequency");
  for (const char* entry : {"Monthly", "Weekly", "Every Two Weeks"}) {
    choose("frmMain", "lstFrequency", entry);
    expectAllRowsInView(list);
  }
}

TEST_F(Legibility, TheBasesOfTheLocalTaxNeedNoScrolling) {
  enlargeFont();
  startOnMain();
  click("frmMain", "cmdAdditional(0)");
  choose("frmMisc", "lstGrossPay", "Gross pay less Deps Deduction");
  expectAllRowsInView(find<QListWidget>("frmMisc", "lstGrossPay"));
}

TEST_F(Legibility, AnOpenListShowsTwelveRowsWithAnEdge) {
  const auto look = [this](const char* screen) {
    auto& box = find<QComboBox>(screen, "cboState");
    EXPECT_EQ(box.count(), 42);
    box.showPopup();
    settle();
    QWidget& popup = *box.view()->window();
    const int row = box.view()->sizeHintForRow(0);
    EXPECT_GE(box.view()->height(), 12 * row) << screen;
    EXPECT_LT(box.view()->height(), 13 * row) << screen;
    const QImage picture = pictureOf(popup);
    const QColor inside = box.palette().color(QPalette::Base);
    for (const QPoint& place :
         {QPoint(0, popup.height() / 2), QPoint(popup.width() / 2, 0), QPoint(popup.width() / 2, popup.height() - 1)}) {
      const QRect pixels = pixelsOf(picture, {place, QSize(1, 1)});
      const double edge = std::max(contrast(inside, picture.pixelColor(pixels.topLeft())),
                                   contrast(inside, picture.pixelColor(pixels.bottomRight())));
      EXPECT_GE(edge, 3) << screen << " " << place.x() << ", " << place.y();
    }
    box.hidePopup();
    settle();
  };
  startOnMain();
  look("frmMain");
  clickItem("StateInfo");
  look("frmState");
}

TEST_F(Legibility, AnOpenListShowsTwelveRowsInALargerFont) {
  enlargeFont();
  startOnMain();
  auto& box = find<QComboBox>("frmMain", "cboState");
  box.showPopup();
  settle();
  const int row = box.view()->sizeHintForRow(0);
  EXPECT_GE(box.view()->height(), 12 * row);
  EXPECT_LT(box.view()->height(), 13 * row);
  box.hidePopup();
}

// --- Larger fonts

TEST_F(Legibility, TheFrameGrowsWithTheFontAndTheResultsAreNotCutOff) {
  enlargeFont();
  startOnMain();
  choose("frmMain", "lstFrequency", "Weekly");
  click("frmMain", "cmdToolBar(0)");
  const QSize room = QGuiApplication::primaryScreen()->availableGeometry().size();
  EXPECT_EQ(frame().width(), std::min(look::scaled(586), room.width() - 8));
  EXPECT_GT(frame().width(), 586);
  auto& table = find<QTableWidget>("frmMain", "dbgDisplay");
  EXPECT_EQ(table.visibleRegion().boundingRect(), table.rect());
  for (int row = 0; row < table.rowCount(); ++row) {
    const QRect place = table.visualItemRect(table.item(row, 1));
    EXPECT_TRUE(table.viewport()->rect().contains(place)) << row;
    EXPECT_LE(QFontMetrics(table.item(row, 1)->font()).horizontalAdvance(table.item(row, 1)->text()), place.width());
  }
  for (const char* figure : {"lbl1", "lbl8"}) {
    const QWidget& label = find("frmMain", figure);
    EXPECT_EQ(label.visibleRegion().boundingRect(), label.rect()) << figure;
  }
}

// --- Contrast of the state options

TEST_F(Legibility, TheStateOptionsHaveContrast) {
  startOnMain();
  clickItem("StateInfo");
  choose("frmState", "cboState", "California");
  click("frmState", "op3Marital(8)");
  click("frmState", "mskAdditional");
  const QWidget& option = find("frmState", "op3Marital(8)");
  const QImage picture = pictureOf(option);
  const QColor ground = view("frmState").palette().color(QPalette::Window);
  EXPECT_EQ(option.palette().color(QPalette::WindowText), QColor(255, 128, 128));
  EXPECT_GE(contrast(ground, QColor(255, 128, 128)), 4.5);
  // Contrast of the dot in the indicator with the lightest colour around it.
  const QPoint centre(7, option.height() / 2);
  const QColor dot = colourAt(picture, centre);
  double best = 1;
  for (int x = 1; x < 14; ++x) best = std::max(best, contrast(dot, colourAt(picture, {x, centre.y()})));
  EXPECT_GE(best, 3) << dot.name().toStdString();
}

// --- The main action, keys in tooltips

TEST_F(Legibility, CalculateIsTheMainActionAndEveryToolHasItsWord) {
  startOnMain();
  const std::vector<std::pair<int, std::string>> words{{0, "Calculate"}, {1, "Print"}, {2, "Clear"}, {3, "Exit"}};
  for (const auto& [index, word] : words) {
    auto& button = find<QPushButton>("frmMain", QStringLiteral("cmdToolBar(%1)").arg(index));
    EXPECT_EQ(button.text().toStdString(), word);
    EXPECT_FALSE(button.icon().isNull()) << word;
    EXPECT_EQ(button.palette().color(QPalette::Button) == look::lightYellow, word == "Calculate") << word;
  }
  EXPECT_EQ(find("frmMain", "cmdToolBar(0)").toolTip(), "Calculate (F9)");
  EXPECT_EQ(find("frmMain", "cmdToolBar(1)").toolTip(), "Print (Ctrl+P)");
  EXPECT_EQ(find("frmMain", "cmdToolBar(2)").toolTip(), "Clear (Ctrl+L)");
  EXPECT_EQ(find("frmMain", "lstFrequency").toolTip(), "Pay frequency (Alt+Y)");
}

// --- Why the federal tax is zero

TEST_F(Legibility, TheResultsSayThatTheFederalTaxNeedsAPayFrequency) {
  startOnMain();
  const QLabel& remark = find<QLabel>("frmMain", "remark");
  EXPECT_FALSE(remark.isVisible());
  type("frmMain", "txtIncome", "1000");
  click("frmMain", "cmdToolBar(0)");
  EXPECT_TRUE(remark.isVisible());
  EXPECT_EQ(remark.visibleRegion().boundingRect(), remark.rect());
  EXPECT_EQ(results().size(), 12U);
  EXPECT_EQ(results().at(4), "Federal Tax $0.00");
  EXPECT_FALSE(find("frmMain", "dbgDisplay").geometry().intersects(remark.geometry()));
  choose("frmMain", "lstFrequency", "Weekly");
  click("frmMain", "cmdToolBar(0)");
  EXPECT_FALSE(remark.isVisible());
}

// --- The current page in the list bar

TEST_F(Legibility, TheListBarMarksThePageInFront) {
  startOnMain();
  const auto marked = [this] {
    std::vector<std::string> items;
    for (const auto* button : frame().findChildren<QAbstractButton*>()) {
      const auto* item = dynamic_cast<const ListBarButton*>(button);
      if (item == nullptr || !item->current()) continue;
      EXPECT_EQ(item->accessibleDescription(), "The page in front");
      items.push_back(item->objectName().toStdString());
    }
    return items;
  };
  using ::testing::ElementsAre;
  using ::testing::IsEmpty;
  EXPECT_THAT(marked(), ElementsAre("SSListBar1(Calc)"));
  click("frmMain", "cmdAdditional(0)");  // opens from there
  EXPECT_THAT(marked(), ElementsAre("SSListBar1(Calc)"));
  click("frmMisc", "imgSeal");
  clickItem("Multi");
  EXPECT_THAT(marked(), ElementsAre("SSListBar1(Multi)"));
  clickItem("W4");
  EXPECT_THAT(marked(), ElementsAre("SSListBar1(W4)"));
  click("frmW4", "cmdW4Exit");
  clickItem("Personal");
  EXPECT_THAT(marked(), ElementsAre("SSListBar1(Personal)"));
  QTest::keyClick(&frame(), Qt::Key_W, Qt::ControlModifier);
  settle();
  EXPECT_THAT(marked(), IsEmpty());
}

TEST_F(Legibility, TheMarkOfThePageInFrontIsSeenOnTheHeadOfAClosedGroup) {
  startOnMain();
  auto& header = *frame().findChild<QAbstractButton*>("group Calculations");
  const auto mark = [&] { return colourAt(pictureOf(header), {1, header.height() / 2}); };
  EXPECT_NE(mark(), look::lightYellow);
  click(*frame().findChild<QAbstractButton*>("group Help"));
  EXPECT_EQ(mark(), look::lightYellow);
}

// --- Messages of success and of errors

TEST_F(Legibility, WhatIsCopiedIsConfirmedUntilTheFocusMovesOn) {
  startOnMain();
  choose("frmMain", "lstFrequency", "Weekly");
  click("frmMain", "cmdToolBar(0)");
  auto& table = find<QTableWidget>("frmMain", "dbgDisplay");
  table.setFocus();
  QTest::keySequence(&table, QKeySequence::Copy);
  EXPECT_EQ(confirmed("frmMain"), "Copied");
  click("frmMain", "txtIncome");
  EXPECT_EQ(confirmed("frmMain"), "");
  type("frmMain", "txtIncome", "1000");
  click("frmMain", "cmdToolBar(0)");
  clickItem("Analysis");
  QTest::keySequence(&frame(), QKeySequence::Copy);
  EXPECT_EQ(confirmed("frmAnalysis"), "Copied");
}

TEST_F(Legibility, NothingIsConfirmedAnyMoreOnAPageBehindAnother) {
  startOnMain();
  click("frmMain", "cmdToolBar(0)");
  auto& table = find<QTableWidget>("frmMain", "dbgDisplay");
  table.setFocus();
  QTest::keySequence(&table, QKeySequence::Copy);
  EXPECT_EQ(confirmed("frmMain"), "Copied");
  QTest::keyClick(&frame(), Qt::Key_9, Qt::ControlModifier);
  settle();
  EXPECT_EQ(desk.activeDocument()->name(), "frmW4");
  EXPECT_EQ(confirmed("frmMain"), "");
}

TEST_F(Legibility, ANoticeWrapsAndPushesNothingOut) {
  startOnMain();
  const QSize before = frame().size();
  const QString path = QStringLiteral("/home/") + QString(300, QLatin1Char('x'));
  frame().tell(QStringLiteral("Saved as ") + path);
  settle();
  auto& notice = *frame().findChild<QLabel*>("notice", Qt::FindDirectChildrenOnly);
  EXPECT_EQ(frame().size(), before);
  EXPECT_TRUE(frame().rect().contains(notice.geometry()));
  EXPECT_EQ(frame().area().width(), notice.width());
  EXPECT_GE(notice.height(), 3 * notice.fontMetrics().height());
  // The last line is drawn in view.
  const QImage picture = pictureOf(notice);
  const int line = notice.fontMetrics().height();
  const QRect last = pixelsOf(picture, {0, notice.height() - line, notice.width(), line});
  bool drawn = false;
  for (int y = last.top(); y <= last.bottom(); ++y) {
    for (int x = last.left(); x <= last.right(); ++x) drawn = drawn || picture.pixelColor(x, y).lightness() > 200;
  }
  EXPECT_TRUE(drawn);
}

TEST_F(Legibility, ASavedFormIsConfirmedWithItsPath) {
  const QTemporaryDir folder;
  dialogs.path = folder.filePath("form.pdf");
  startOnMain();
  clickItem("W4");
  QTest::keyClick(&frame(), Qt::Key_P, Qt::ControlModifier);
  const auto& words = *documentOf(view("frmW4")).findChild<QLabel*>("confirmed");
  EXPECT_TRUE(words.text().startsWith("Saved as ")) << words.text().toStdString();
  EXPECT_EQ(words.toolTip(), "Saved as " + dialogs.path);
  EXPECT_EQ(words.visibleRegion().boundingRect(), words.rect());
}

// --- Boxes, windows, icons

TEST_F(Legibility, TheWarningHasItsSign) {
  startOnMain();
  clickItem("Analysis");
  const auto signs = view("MsgBox").findChildren<QWidget*>();
  const auto sign = std::find_if(signs.begin(), signs.end(),
                                 [](const QWidget* widget) { return widget->accessibleName() == "Warning"; });
  ASSERT_NE(sign, signs.end());
  EXPECT_EQ(QAccessible::queryAccessibleInterface(*sign)->role(), QAccessible::Graphic);
  EXPECT_GT(colourAt(pictureOf(**sign), (*sign)->rect().center()).lightness(), 128);
}

TEST_F(Legibility, AboutTellsItsVersionToAssistiveTechnology) {
  startOnMain();
  clickItem("About");
  const QString words =
      QAccessible::queryAccessibleInterface(&find("frmAbt", "imgAbout"))->text(QAccessible::Description);
  EXPECT_TRUE(words.startsWith("Version 1.")) << words.toStdString();
}

TEST_F(Legibility, AWindowIsBesideTheFrameWhereItFits) {
  startOnMain();
  const QRect room = QGuiApplication::primaryScreen()->availableGeometry();
  frame().move(room.topLeft());
  QWidget window;
  window.resize(room.width() - frame().width() - 20, 200);
  placeBeside(window, frame());
  EXPECT_FALSE(window.geometry().intersects(frame().geometry()));
  window.resize(room.width() - 20, 200);
  placeBeside(window, frame());
  EXPECT_FALSE(window.geometry().intersects(frame().geometry()));  // below it
  window.resize(room.size() * 2);
  placeBeside(window, frame());
  EXPECT_EQ(window.pos(), room.topLeft());
}

// --- Buttons that have only a picture

class Wordless : public EveryScreen {
 protected:
  /// Notes the visible buttons without a word, by their names.
  void note() {
    for (const QWidget* widget : QApplication::allWidgets()) {
      const auto* button = qobject_cast<const QAbstractButton*>(widget);
      if (button == nullptr || !button->isVisible()) continue;
      if (qobject_cast<const QPushButton*>(button) == nullptr && qobject_cast<const QToolButton*>(button) == nullptr) {
        continue;  // an option or a check box has its caption beside it
      }
      static const QRegularExpression letterOrDigit(QStringLiteral("[A-Za-z0-9]"));
      if (button->text().contains(letterOrDigit)) continue;
      const std::string name = QAccessible::queryAccessibleInterface(const_cast<QAbstractButton*>(button))
                                   ->text(QAccessible::Name)
                                   .toStdString();
      names.insert(name);
      EXPECT_FALSE(button->toolTip().isEmpty()) << name;
    }
  }

  std::set<std::string> names;
};

/// Where a word fits, a button has one; in the preview's tool bar there is no more room.
TEST_F(Wordless, OnlyTheseButtonsHaveAPictureWithoutAWord) {
  onEveryScreen([this](const Screen&) { note(); });
  QTest::keyClick(&frame(), Qt::Key_F1);
  settle();
  ASSERT_TRUE(frame().findChild<QDialog*>("help") != nullptr && frame().findChild<QDialog*>("help")->isVisible());
  note();
  clickItem("Calc");
  click("frmMain", "cmdToolBar(0)");
  frame().activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&frame()));
  auto& grid = find<QTableWidget>("frmMain", "dbgDisplay");
  const QPoint row = grid.visualItemRect(grid.item(0, 0)).center();
  QTest::mouseClick(grid.viewport(), Qt::LeftButton, {}, row);
  QTest::mouseDClick(grid.viewport(), Qt::LeftButton, {}, row);
  settle();
  ASSERT_NE(frame().findChild<QDialog*>("explanation"), nullptr);
  note();
  EXPECT_THAT(names,
              testing::UnorderedElementsAre("Close", "Close this page", "Fit width", "Previous page", "Next page",
                                            "Make the report again", "Previous month", "Next month"));
}

TEST(Icons, AreTheDrawing) {
  QSvgRenderer drawing(QStringLiteral(TESTS_FOLDER "/../src/ui/qt/pictures/tallyfin99.svg"));
  for (const int side : {48, 128}) {
    const QImage kept(QStringLiteral(TESTS_FOLDER "/../packaging/icons/tallyfin99-%1.png").arg(side));
    ASSERT_EQ(kept.size(), QSize(side, side));
    QImage drawn(side, side, QImage::Format_ARGB32);
    drawn.fill(Qt::transparent);
    QPainter painter(&drawn);
    drawing.render(&painter);
    painter.end();
    EXPECT_EQ(kept.convertToFormat(QImage::Format_ARGB32), drawn) << side;
  }
}

}  // namespace

}  // namespace tallyfin::qt
