#include <QCalendarWidget>
#include <QTextCharFormat>
#include <QToolButton>
#include <QVBoxLayout>

#include "controls/desk.h"
#include "ui/qt/views/views.h"
#include "ui/qt/widgets/look.h"
#include "w4/frmCalendar.h"

namespace tallyfin::qt {

namespace {

/// A month to look at, in the colours of the worksheets.
class frmCalendarView : public ScreenView {
 public:
  explicit frmCalendarView(frmCalendar& screen) : ScreenView(screen) {
    QPalette palette = look::onPaper();
    palette.setColor(QPalette::Highlight, look::deep);
    look::setGround(*this, palette);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(look::edge, look::edge, look::edge, look::edge);
    layout->addWidget(calendar(screen.mthTwoWorkers));
  }

 private:
  QWidget* calendar(MonthCalendar& control) {
    auto* widget = new QCalendarWidget(this);
    widget->setVerticalHeaderFormat(QCalendarWidget::NoVerticalHeader);
    widget->setGridVisible(true);
    widget->setDateEditEnabled(false);  // closed in the middle of a typed date, it would leak what was typed
    widget->setLocale(QLocale(QLocale::English, QLocale::UnitedStates));
    widget->setAccessibleName(QStringLiteral("Calendar"));
    const auto nameOf = [widget](const char* part, const char* words) {
      widget->findChild<QWidget*>(QString::fromLatin1(part))->setAccessibleName(QString::fromLatin1(words));
    };
    const auto arrow = [&](const char* part, const char* picture, const char* words) {
      auto* button = widget->findChild<QToolButton*>(QString::fromLatin1(part));
      button->setIcon(look::picture(QString::fromLatin1(picture)));
      button->setToolTip(QString::fromLatin1(words));
      nameOf(part, words);
    };
    arrow("qt_calendar_prevmonth", "previous", "Previous month");
    arrow("qt_calendar_nextmonth", "next", "Next month");
    nameOf("qt_calendar_yearedit", "Year");
    nameOf("qt_calendar_calendarview", "Days");
    QTextCharFormat weekday;
    weekday.setForeground(look::ink);
    QTextCharFormat weekend;
    weekend.setForeground(QColor(160, 60, 40));
    for (int day = Qt::Monday; day <= Qt::Sunday; ++day) {
      widget->setWeekdayTextFormat(static_cast<Qt::DayOfWeek>(day), day < Qt::Saturday ? weekday : weekend);
    }
    Binding& binding = bindPlain(*widget, control);
    for (QWidget* part : widget->findChildren<QWidget*>())
      part->installEventFilter(&binding);  // they take the keyboard
    binding.show = [widget, &control] {
      const std::chrono::year_month_day& date = control.date();
      widget->setSelectedDate(QDate(static_cast<int>(date.year()),
                                    static_cast<int>(static_cast<unsigned>(date.month())),
                                    static_cast<int>(static_cast<unsigned>(date.day()))));
    };
    connect(widget, &QCalendarWidget::selectionChanged, &binding, [&binding, widget, &control] {
      const QDate day = widget->selectedDate();
      binding.act([&] {
        desk.act(control, [&] {
          control.date =
              std::chrono::year(day.year()) / static_cast<unsigned>(day.month()) / static_cast<unsigned>(day.day());
        });
      });
    });
    return tied(widget, binding);
  }
};

}  // namespace

std::unique_ptr<View> makeView(frmCalendar& screen) { return std::make_unique<frmCalendarView>(screen); }

}  // namespace tallyfin::qt
