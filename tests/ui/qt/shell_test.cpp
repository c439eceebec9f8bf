#include <QDialog>
#include <QDir>
#include <QImage>
#include <QMessageBox>
#include <QPainter>
#include <QPointer>
#include <QSvgRenderer>
#include <QToolButton>
#include <cstdlib>

#include "controls/desk.h"
#include "desktoptest.h"
#include "paints.h"
#include "ui/MDIOpen.h"
#include "ui/qt/frame/listbar.h"
#include "ui/qt/widgets/look.h"
#include "ui/qt/widgets/text.h"
#include "whatif/frmMisc.h"

/// The frame: its list bar, its boxes, its size.

namespace tallyfin::qt {

namespace {

using ShellDesktop = DesktopTest;

QDialog* boxAbove(const Frame& frame) {
  for (QDialog* box : frame.findChildren<QDialog*>()) {
    if (box->isVisible()) return box;
  }
  return nullptr;
}

/// The document widget of a page.
const QWidget* documentOf(const View& view) { return view.parentWidget()->parentWidget()->parentWidget(); }

TEST_F(ShellDesktop, PersonalInformationComesFirstOnAFreshStore) {
  start();
  EXPECT_EQ(front(), "Personal Information");
  EXPECT_FALSE(shown("frmMain"));
  type("frmName", "txtName", "Pat Q. Sample");
  click("frmName", "cmdExit");
  EXPECT_EQ(front(), "Calculations");
  EXPECT_FALSE(shown("frmName"));
}

/// The difference of two pictures: the mean difference of colour components, of 255.
double difference(const QImage& one, const QImage& other) {
  double sum = 0;
  for (int y = 0; y < one.height(); ++y) {
    for (int x = 0; x < one.width(); ++x) {
      const QColor a = one.pixelColor(x, y);
      const QColor b = other.pixelColor(x, y);
      sum += std::abs(a.red() - b.red()) + std::abs(a.green() - b.green()) + std::abs(a.blue() - b.blue());
    }
  }
  return sum / (3.0 * one.width() * one.height());
}

/// The splash is a file drawn by tools/screenshots. Fonts differ slightly between computers.
TEST_F(ShellDesktop, TheSplashIsItsDrawing) {
  QSvgRenderer drawing(QStringLiteral(TESTS_FOLDER "/../src/ui/qt/pictures/splash.svg"));
  for (const char* file : {":/pictures/splash.png", ":/pictures/splash@2x.png"}) {
    const QImage kept(QString::fromLatin1(file));
    ASSERT_FALSE(kept.isNull()) << file;
    QImage drawn(kept.size(), QImage::Format_RGB32);
    QPainter painter(&drawn);
    drawing.render(&painter);
    painter.end();
    EXPECT_LT(difference(kept, drawn), 1) << file;
  }
}

TEST_F(ShellDesktop, SaysNothingOfAFileThatIsNoStoreAndWorksOn) {
  putFile("[User]\nDontShow=1\n");
  restart();
  EXPECT_EQ(boxAbove(frame()), nullptr);
  EXPECT_EQ(front(), "Personal Information");
  click("frmName", "cmdExit");
  EXPECT_EQ(front(), "Calculations");
  EXPECT_EQ(boxAbove(frame()), nullptr);
}

TEST_F(ShellDesktop, TheNameIsTheOneRequiredField) {
  start();
  type("frmName", "txtName", "");
  click("frmName", "txtCity");
  click("frmName", "cmdExit");
  EXPECT_EQ(front(), "Personal Information");
  EXPECT_EQ(focused(), "txtName");
}

TEST_F(ShellDesktop, WithoutShowMeTheNextStartOpensTheMainScreen) {
  start();
  click("frmName", "chkShow");
  restart();
  EXPECT_EQ(front(), "Calculations");
}

TEST_F(ShellDesktop, TheListBarStartsWithTheCalculations) {
  startOnMain();
  std::vector<std::string> inSight;
  for (const Control* item : desk.find("MDIOpen")->controls()) {
    const QString name = qt::text(item->address());
    if (find("MDIOpen", name).isVisible()) inSight.push_back(item->address());
  }
  EXPECT_THAT(inSight, ::testing::ElementsAre("SSListBar1(Calc)", "SSListBar1(Multi)", "SSListBar1(Analysis)"));
}

TEST_F(ShellDesktop, TheListBarMovesBetweenTheScreens) {
  startOnMain();
  clickItem("Multi");
  EXPECT_EQ(front(), "Multiple Check Worksheet");
  clickItem("StateInfo");
  EXPECT_EQ(front(), "State Options");
  clickItem("Personal");
  EXPECT_EQ(front(), "Personal Information");
  clickItem("Calc");
  EXPECT_EQ(front(), "Calculations");
  EXPECT_FALSE(shown("frmMultiCheck"));
}

TEST_F(ShellDesktop, TheListBarIsReachedByKeyboard) {
  startOnMain();
  find("MDIOpen", "group File").setFocus();
  press(Qt::Key_Return);
  EXPECT_TRUE(find("MDIOpen", "SSListBar1(StateInfo)").isVisible());
  EXPECT_FALSE(find("MDIOpen", "SSListBar1(Calc)").isVisible());
  press(Qt::Key_Tab);
  EXPECT_EQ(focused(), "SSListBar1(NewFile)");
  press(Qt::Key_Tab);
  press(Qt::Key_Return);
  EXPECT_EQ(front(), "State Options");
}

TEST_F(ShellDesktop, TabPassesOverTheDocumentsBeneath) {
  startOnMain();
  click("frmMain", "cmdAdditional(0)");
  const View& beneath = view("frmMain");
  for (int i = 0; i < 30; ++i) {
    press(Qt::Key_Tab);
    EXPECT_FALSE(beneath.isAncestorOf(QApplication::focusWidget())) << focused();
  }
  EXPECT_EQ(front(), "Local Tax and Raise");
}

TEST_F(ShellDesktop, TheActiveDocumentHasTheLighterStrip) {
  startOnMain();
  const auto strip = [this](const char* title) {
    for (const auto* label : frame().findChildren<QLabel*>()) {
      if (label->text() == title && label->parentWidget()->autoFillBackground()) {
        return label->parentWidget()->palette().color(QPalette::Window);
      }
    }
    return QColor();
  };
  click("frmMain", "cmdAdditional(0)");
  EXPECT_EQ(strip("Local Tax and Raise"), look::deepLighter);
  EXPECT_EQ(strip("Calculations"), look::deep);
  EXPECT_TRUE(find("frmMain", "txtIncome").isVisible());
  click("frmMisc", "imgSeal");
  EXPECT_EQ(strip("Calculations"), look::deepLighter);
}

TEST_F(ShellDesktop, APageThatIsCoveredIsOutOfReach) {
  startOnMain();
  choose("frmMain", "cboState", "California");
  ASSERT_EQ(front(), "State Options");
  EXPECT_FALSE(find("frmMain", "txtIncome").isVisible());
  QTest::keyClick(&frame(), Qt::Key_I, Qt::AltModifier);
  settle();
  EXPECT_EQ(front(), "State Options");
  click("frmState", "cmdAccept");
  QTest::keyClick(&frame(), Qt::Key_I, Qt::AltModifier);
  settle();
  EXPECT_EQ(focused(), "txtIncome");
}

TEST_F(ShellDesktop, APageFollowsItsTitleAndItsSize) {
  startOnMain();
  click("frmMain", "cmdAdditional(0)");
  const QWidget* document = documentOf(view("frmMisc"));
  desk.use<frmMisc>().title = "Another";
  EXPECT_EQ(document->accessibleName(), "Another");
  EXPECT_NE(document->size(), frame().area().size());
  desk.use<frmMisc>().maximized = true;
  EXPECT_EQ(document->size(), frame().area().size());
  EXPECT_FALSE(find("frmMain", "txtIncome").isVisible());
  desk.use<frmMisc>().maximized = false;
  EXPECT_TRUE(find("frmMain", "txtIncome").isVisible());
}

TEST_F(ShellDesktop, AnItemIsHighlightedWhileThePointerIsOverIt) {
  startOnMain();
  auto& item = static_cast<ListBarButton&>(find("MDIOpen", "SSListBar1(Multi)"));
  QEnterEvent enter({5, 5}, {5, 5}, item.mapToGlobal(QPointF(5, 5)));
  QApplication::sendEvent(&item, &enter);
  EXPECT_TRUE(item.highlighted);
  QEvent leave(QEvent::Leave);
  QApplication::sendEvent(&item, &leave);
  EXPECT_FALSE(item.highlighted);
}

TEST_F(ShellDesktop, AnItemIsDrawnAgainWhenItsHighlightChanges) {
  startOnMain();
  QWidget& item = find("MDIOpen", "SSListBar1(Multi)");
  paintNow(item);
  Paints paints(item);
  QEnterEvent enter({5, 5}, {5, 5}, item.mapToGlobal(QPointF(5, 5)));
  QApplication::sendEvent(&item, &enter);
  paintNow(item);
  EXPECT_EQ(paints.count, 1);
  QEvent leave(QEvent::Leave);
  QApplication::sendEvent(&item, &leave);
  paintNow(item);
  EXPECT_EQ(paints.count, 2);
}

TEST_F(ShellDesktop, AGroupsHeaderIsDrawnAgainUnderThePointer) {
  startOnMain();
  QWidget& header = find("MDIOpen", "group File");
  const QPoint elsewhere = frame().rect().bottomRight();
  QTest::mouseMove(frame().windowHandle(), elsewhere);
  paintNow(header);
  Paints paints(header);
  for (const QPoint& place : {header.mapTo(&frame(), header.rect().center()), elsewhere}) {
    paints.count = 0;
    QTest::mouseMove(frame().windowHandle(), place);
    paintNow(header);
    EXPECT_GT(paints.count, 0);
  }
}

TEST_F(ShellDesktop, TheLightPictureOfAnItemIsDarkWhileItIsHighlighted) {
  startOnMain();
  auto& item = static_cast<ListBarButton&>(find("MDIOpen", "SSListBar1(Multi)"));
  item.highlighted = true;
  const QImage drawn = item.grab(QRect((item.width() - 22) / 2, 5, 22, 22)).toImage();
  std::map<QRgb, int> colours;
  for (int y = 0; y < drawn.height(); ++y) {
    for (int x = 0; x < drawn.width(); ++x) ++colours[drawn.pixel(x, y)];
  }
  EXPECT_GT(colours[look::deep.rgb()], 20);
  EXPECT_GT(colours[look::lightBlue.rgb()], 100);  // the background around its shape
}

TEST_F(ShellDesktop, TheOtherButtonBringsAPageToTheFrontToo) {
  startOnMain();
  click("frmMain", "cmdAdditional(0)");
  ASSERT_EQ(front(), "Local Tax and Raise");
  QTest::mouseClick(&find("frmMain", "lblIncome"), Qt::RightButton);
  EXPECT_EQ(front(), "Calculations");
}

TEST_F(ShellDesktop, APageLeavesRoomForTheNoticeUntilAnotherOpens) {
  startOnMain();
  clickItem("W4");
  dialogs.path = "/dev/null/form.pdf";
  QTest::keyClick(&frame(), Qt::Key_P, Qt::ControlModifier);
  settle();
  const auto* notice = frame().findChild<QLabel*>("notice", Qt::FindDirectChildrenOnly);
  ASSERT_TRUE(notice->isVisible());
  const QWidget* page = documentOf(view("frmW4"));
  EXPECT_EQ(page->rect(), frame().area().rect());
  EXPECT_LT(page->mapTo(&frame(), page->rect().bottomLeft()).y(), notice->y());
  clickItem("Calc");
  EXPECT_FALSE(notice->isVisible());
}

TEST_F(ShellDesktop, TheFrameStaysWhileAWarningMustBeAnswered) {
  startOnMain();
  clickItem("Analysis");
  ASSERT_TRUE(shown("MsgBox"));
  frame().close();
  settle();
  EXPECT_TRUE(frame().isVisible());
  EXPECT_TRUE(desk.running());
}

/// Pictures of disabled buttons are paler, with the same resolution.
TEST_F(ShellDesktop, APictureFadesWhereItIsDisabled) {
  QPixmap picture(8, 8);
  picture.setDevicePixelRatio(2);
  picture.fill(Qt::white);
  const QPixmap faded = QApplication::style()->generatedIconPixmap(QIcon::Disabled, picture, nullptr);
  EXPECT_EQ(faded.devicePixelRatio(), 2);
  const QImage drawn = faded.toImage();
  for (const QPoint corner : {QPoint(0, 0), QPoint(7, 7)}) EXPECT_EQ(drawn.pixelColor(corner).alpha(), 101);
}

TEST_F(ShellDesktop, AnalysisWithoutACalculationWarnsAndMustBeAnswered) {
  startOnMain();
  clickItem("Analysis");
  QDialog* box = boxAbove(frame());
  ASSERT_NE(box, nullptr);
  EXPECT_EQ(box->windowTitle(), "Nothing to Work With!");
  EXPECT_EQ(text("MsgBox", "Text"), "You have to make some calculations for me to analyze!");
  EXPECT_TRUE(box->isModal());
  clickItem("Multi");
  EXPECT_EQ(front(), "Calculations");
  click("MsgBox", "OK");
  EXPECT_EQ(boxAbove(frame()), nullptr);
  clickItem("Multi");
  EXPECT_EQ(front(), "Multiple Check Worksheet");
}

TEST_F(ShellDesktop, EscapeAnswersTheWarning) {
  startOnMain();
  clickItem("Analysis");
  QTest::keyClick(boxAbove(frame()), Qt::Key_Escape);
  settle();
  EXPECT_FALSE(shown("MsgBox"));
  clickItem("Multi");
  EXPECT_EQ(front(), "Multiple Check Worksheet");
}

TEST_F(ShellDesktop, AboutOpensAboveTheFrameAndStaysOpen) {
  startOnMain();
  clickItem("About");
  QDialog* box = boxAbove(frame());
  ASSERT_NE(box, nullptr);
  EXPECT_EQ(box->windowTitle(), "About Tallyfin 99");
  clickItem("Multi");
  EXPECT_EQ(front(), "Multiple Check Worksheet");
  EXPECT_TRUE(shown("frmAbt"));
  box->close();
  settle();
  EXPECT_FALSE(shown("frmAbt"));
}

TEST_F(ShellDesktop, TheFrameHasOneSizeAndSpringsBack) {
  startOnMain();
  EXPECT_EQ(frame().size(), QSize(586, 393));
  EXPECT_EQ(frame().windowTitle(), "Tallyfin 99");
  frame().showMaximized();
  settle();
  EXPECT_FALSE(frame().isMaximized());
  EXPECT_EQ(frame().size(), QSize(586, 393));
  frame().resize(900, 700);
  EXPECT_EQ(frame().size(), QSize(586, 393));
}

TEST_F(ShellDesktop, ExitEndsTheProgram) {
  startOnMain();
  clickItem("ExitProgram");
  EXPECT_FALSE(desk.running());
}

TEST_F(ShellDesktop, ClosingTheFrameEndsTheProgram) {
  startOnMain();
  frame().close();
  settle();
  EXPECT_FALSE(desk.running());
}

TEST_F(ShellDesktop, ADocumentClosesByItsOwnButton) {
  startOnMain();
  click("frmMain", "cmdAdditional(0)");
  ASSERT_EQ(front(), "Local Tax and Raise");
  const auto documents = frame().findChildren<QToolButton*>();
  for (QToolButton* close : documents) {
    if (close->parentWidget()->findChild<QLabel*>()->text() == "Local Tax and Raise") click(*close);
  }
  EXPECT_EQ(front(), "Calculations");
}

TEST_F(ShellDesktop, ThePointerLeavesTheItemThatWarned) {
  startOnMain();
  QWidget& item = *frame().findChild<QWidget*>("SSListBar1(Analysis)");
  QEvent enter(QEvent::Enter);
  QApplication::sendEvent(&item, &enter);
  ListBarItem& control = desk.use<MDIOpen>().SSListBar1[6];
  EXPECT_TRUE(control.highlighted());
  clickItem("Analysis");
  ASSERT_TRUE(shown("MsgBox"));
  QEvent leave(QEvent::Leave);
  QApplication::sendEvent(&item, &leave);
  EXPECT_FALSE(control.highlighted());
}

TEST_F(ShellDesktop, NewEmptiesTheBoxes) {
  stored(section::settings, "IncAmt", "1000");
  startOnMain();
  clickItem("NewFile");
  EXPECT_EQ(front(), "Calculations");
  EXPECT_EQ(text("frmMain", "txtIncome"), "");
  EXPECT_EQ(text("frmMain", "txtHours"), "");
  EXPECT_EQ(text("frmMain", "cboState"), "No State");
}

}  // namespace

}  // namespace tallyfin::qt
