#include <sys/resource.h>

#include <QDir>
#include <QFile>
#include <csignal>

#include "controls/desk.h"
#include "desktoptest.h"
#include "ui/qt/explanation/explanation.h"
#include "w4/frmW4.h"

/// A disk that becomes full while a PDF file replaces another, for each document and each way to a file.

namespace tallyfin::qt {

namespace {

using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

/// Limits the length of files during its lifetime, as a full disk does: bytes beyond it can't be written.
class FullDisk {
 public:
  explicit FullDisk(rlim_t bytes) {
    std::signal(SIGXFSZ, SIG_IGN);
    getrlimit(RLIMIT_FSIZE, &before_);
    const rlimit limit{bytes, before_.rlim_max};
    setrlimit(RLIMIT_FSIZE, &limit);
  }
  ~FullDisk() { setrlimit(RLIMIT_FSIZE, &before_); }
  FullDisk(const FullDisk&) = delete;
  FullDisk& operator=(const FullDisk&) = delete;

 private:
  rlimit before_{};
};

struct Way {
  const char* document;
  bool printed;  ///< Into a file that is chosen in the dialog of the printer.
};

class OnAFullDisk : public DesktopTest, public testing::WithParamInterface<Way> {
 protected:
  OnAFullDisk() {
    stored(section::user, "UName", "Pat Q. Sample");
    startOnMain();
    type("frmMain", "txtIncome", "1000");
    click("frmMain", "cmdToolBar(0)");
    if (is("report")) click("frmMain", "cmdToolBar(1)");
    if (is("form")) clickItem("W4");
    if (is("explanation")) ExplanationWindow::open(frame(), "Federal Tax");
    settle();
    dialogs.path = path();
    if (GetParam().printed) {
      dialogs.onPrinter = [this](QPrinter& printer) {
        printer.setOutputFileName(path());
        return true;
      };
    }
  }

  static bool is(const char* document) { return QLatin1String(GetParam().document) == QLatin1String(document); }
  QString path() const { return papers_.filePath("paper.pdf"); }

  void save() const {
    if (is("report")) click("frmPrint", GetParam().printed ? "print" : "savepdf");
    if (is("form")) QTest::mouseDClick(const_cast<View*>(&view("frmW4")), Qt::LeftButton, {}, {2, 2});
    if (is("explanation")) click(*window().findChild<QPushButton*>("print"));
    settle();
  }
  /// The message about the last file.
  std::string notice() const { return noticeIn(is("report") ? view("frmPrint") : window()).text().toStdString(); }

  QByteArray content() const {
    QFile file(path());
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
  }
  QStringList files() const { return QDir(papers_.path()).entryList(QDir::Files | QDir::Hidden); }

 private:
  const QWidget& window() const {
    return is("explanation") ? *frame().findChild<QDialog*>("explanation") : static_cast<const QWidget&>(frame());
  }
  static const QLabel& noticeIn(const QWidget& widget) {
    return *widget.findChild<QLabel*>("notice", Qt::FindDirectChildrenOnly);
  }

  QTemporaryDir papers_;
};

/// The form has the time on it, so that its length changes by a few bytes.
TEST_P(OnAFullDisk, TheOldFileIsLeftAsItIs) {
  save();
  const QByteArray before = content();
  ASSERT_GT(before.size(), 4096);
  for (const qsizetype room : {qsizetype{0}, qsizetype{1}, qsizetype{4096}, before.size() / 2, before.size() - 100}) {
    {
      const FullDisk disk(static_cast<rlim_t>(room));
      save();
    }
    EXPECT_EQ(content(), before) << room;
    EXPECT_EQ(files(), QStringList{"paper.pdf"}) << room;
    EXPECT_THAT(notice(), StartsWith("The " + std::string(GetParam().document) + " couldn't be ")) << room;
  }
  save();
  EXPECT_THAT(notice(), Not(HasSubstr("couldn't")));
}

INSTANTIATE_TEST_SUITE_P(Papers, OnAFullDisk,
                         testing::Values(Way{"report", false}, Way{"report", true}, Way{"form", false},
                                         Way{"form", true}, Way{"explanation", false}, Way{"explanation", true}),
                         [](const auto& way) {
                           return std::string(way.param.document) + (way.param.printed ? "Printed" : "Saved");
                         });

}  // namespace

}  // namespace tallyfin::qt
