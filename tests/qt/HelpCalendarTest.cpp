// The calendar, opened from a real editor and worked with real keys and mouse.
#include <QCalendarWidget>
#include <QComboBox>
#include <QTableView>
#include <QTimeEdit>
#include <QToolButton>

#include "qt/HelpWindow.h"

namespace kxVsGrid::qt::testing {
namespace {

constexpr gEmHelpType OnlyDate = ih日期型;
constexpr gEmHelpType HalfDay = ih半日型;
constexpr gEmHelpType Time = ih时间型;

class CalendarWindow : public HelpWindow {
  public:
    explicit CalendarWindow(gEmHelpType type) { grid().VsCtrl(Date)->i帮助类型(type); }

    /// The editor's text when the calendar, opened over a text, has been worked by `act`.
    QString answer(const QString& opened, const Dialogs::Act& act) {
        Dialogs dialogs(act);
        write(2, Date, opened);
        press(Qt::Key_F2);
        EXPECT_EQ(dialogs.count, 1);
        EXPECT_EQ(committed, 0);
        const QString text = editorText();
        expectEditing(text);
        return text;
    }
};

QTableView& days(const Dialog& d) {
    return dynamic_cast<QTableView&>(d.inner("MonthView1"));
}

/// The middle of a day of the month shown, as it lies in the viewport; negative ones of the month before.
QPoint at(const Dialog& d, int day) {
    const auto& calendar = d.part<QCalendarWidget>("MonthView1");
    const QDate first(calendar.yearShown(), calendar.monthShown(), 1);
    for (int row = 1; row < 7; ++row) {
        for (int col = 0; col < 7; ++col) {
            const QModelIndex index = days(d).model()->index(row, col);
            const int offset = (row - 1) * 7 + col;
            const int lead = first.dayOfWeek() - 1 == 0 ? 7 : first.dayOfWeek() - 1;
            if (offset - lead + 1 == day) return days(d).visualRect(index).center();
        }
    }
    throw std::logic_error("no such day");
}
}  // namespace

TEST(HelpCalendar, IsWorkedByKeysAlone) {
    CalendarWindow w(OnlyDate);
    EXPECT_EQ(w.answer("2026-11-20",
                       [](Dialog& d) {
                           EXPECT_EQ(d.window.windowTitle(), "日期");
                           EXPECT_TRUE(d.focused("MonthView1"));
                           d.press(Qt::Key_Right);
                           d.press(Qt::Key_Down);
                           d.press(Qt::Key_PageDown);
                           d.press(Qt::Key_Return);
                       }),
              "2026-12-28");
    w.press(Qt::Key_Return);
    EXPECT_EQ(w.text(2, Date), "2026-12-28");
}

TEST(HelpCalendar, OneEnterIsOneOk) {
    CalendarWindow w(OnlyDate);
    EXPECT_EQ(w.answer("2026-11-20", [](Dialog& d) { d.press(Qt::Key_Enter); }), "2026-11-20");
    EXPECT_TRUE(w.editorShown());
    EXPECT_EQ(w.current(), "2,5");
}

TEST(HelpCalendar, OpensOnTheCellsMomentAndAnswersInItsForm) {
    const struct {
        gEmHelpType kind;
        const char* text;
        const char* answer;
    } moments[] = {
        {OnlyDate, "2011.5.6", "2011-05-06"},        {HalfDay, "2011-05-06 下午", "2011-05-06 下午"},
        {HalfDay, "2011-05-06", "2011-05-06 上午"},  {Time, "2011-05-06 14:30:00", "2011-05-06 14:30:00"},
        {Time, "2011-05-06", "2011-05-06 00:00:00"}, {OnlyDate, "0101-02-03", "0101-02-03"},
        {OnlyDate, "9999-12-31", "9999-12-31"}};
    for (const auto& moment : moments) {
        CalendarWindow w(moment.kind);
        EXPECT_EQ(w.answer(moment.text, [](Dialog& d) { d.press(Qt::Key_Return); }), moment.answer);
    }
}

TEST(HelpCalendar, ShowsTheControlsOfItsKind) {
    for (const gEmHelpType kind : {OnlyDate, HalfDay, Time}) {
        CalendarWindow w(kind);
        w.answer("2026-11-20", [&](Dialog& d) {
            EXPECT_EQ(d.part("Cob").isVisible(), kind == HalfDay);
            EXPECT_EQ(d.part("DTPTime").isVisible(), kind == Time);
            d.press(Qt::Key_Escape);
        });
    }
}

TEST(HelpCalendar, TakesTypedTimes) {
    CalendarWindow w(Time);
    EXPECT_EQ(w.answer("2026-11-20 08:00:00",
                       [](Dialog& d) {
                           d.press(Qt::Key_Tab);
                           EXPECT_TRUE(d.focused("DTPTime"));
                           d.type("1745");
                           d.press(Qt::Key_Return);
                       }),
              "2026-11-20 17:45:00");
}

TEST(HelpCalendar, TakesHalfDaysByKeysAndByMouse) {
    for (const bool byMouse : {false, true}) {
        CalendarWindow w(HalfDay);
        EXPECT_EQ(w.answer("2026-11-20 上午",
                           [&](Dialog& d) {
                               if (byMouse) {
                                   d.click("Cob");
                                   Window::settle();
                                   QWidget* popup = QApplication::activePopupWidget();
                                   QTest::keyClick(popup->focusWidget(), Qt::Key_Down);
                                   QTest::keyClick(popup->focusWidget(), Qt::Key_Return);
                                   Window::settle();
                               } else {
                                   d.press(Qt::Key_Tab);
                                   d.press(Qt::Key_Down);
                               }
                               d.press(Qt::Key_Return);
                           }),
                  "2026-11-20 下午");
    }
}

TEST(HelpCalendar, IsWorkedByMouseAlone) {
    CalendarWindow w(OnlyDate);
    Dialogs dialogs([](Dialog& d) {
        screen::click(*days(d).viewport(), at(d, 5));
        d.click("QdCommand");
    });
    w.doubleClick(1, Date);
    w.pressHelpButton();
    EXPECT_EQ(dialogs.count, 1);
    EXPECT_EQ(w.editorText(), "2026-11-05");
}

TEST(HelpCalendar, OpensByAnyButtonOfTheMouse) {
    for (const Qt::MouseButton button : {Qt::LeftButton, Qt::RightButton, Qt::MiddleButton}) {
        CalendarWindow w(OnlyDate);
        Dialogs dialogs([](Dialog& d) {
            d.press(Qt::Key_Left);
            d.press(Qt::Key_Return);
        });
        w.doubleClick(1, Date);
        auto& help = *w.widget->findChild<QToolButton*>();
        const QPoint place = screen::inWindow(help, help.rect().center());
        QTest::mousePress(w.window.windowHandle(), button, {}, place);
        QTest::mouseRelease(w.window.windowHandle(), button, {}, place);
        EXPECT_EQ(dialogs.count, 1) << button;
        EXPECT_EQ(w.editorText(), "2026-11-19");
        EXPECT_EQ(w.current(), "1," + std::to_string(Date));
    }
}

TEST(HelpCalendar, TakesADoubleClickOnADay) {
    for (const int day : {5, 20, 0, 31}) {  // the last two of the neighbouring months
        CalendarWindow w(OnlyDate);
        EXPECT_EQ(w.answer("2026-11-20", [&](Dialog& d) { Dialog::twice(*days(d).viewport(), at(d, day)); }),
                  QDate(2026, 11, 1).addDays(day - 1).toString("yyyy-MM-dd"));
    }
}

TEST(HelpCalendar, DoesNotTakeADoubleClickElsewhere) {
    CalendarWindow w(OnlyDate);
    EXPECT_EQ(w.answer("2026-11-20",
                       [](Dialog& d) {
                           const QPoint header = days(d).visualRect(days(d).model()->index(0, 3)).center();
                           Dialog::twice(*days(d).viewport(), header);
                           EXPECT_TRUE(d.window.isVisible());
                           QWidget& next = *d.part("MonthView1").findChild<QWidget*>("qt_calendar_nextmonth");
                           Dialog::twice(next, next.rect().center());
                           EXPECT_TRUE(d.window.isVisible());
                           EXPECT_EQ(d.part<QCalendarWidget>("MonthView1").monthShown(), 1);
                           d.press(Qt::Key_Escape);
                       }),
              "2026-11-20");
}

TEST(HelpCalendar, GoesToTodayByItsButton) {
    CalendarWindow w(OnlyDate);
    QDate today;
    const QString answer = w.answer("2020-01-31", [&](Dialog& d) {
        d.part<QCalendarWidget>("MonthView1").showNextYear();
        today = QDate::currentDate();
        d.click("Jtcommand");
        EXPECT_TRUE(d.focused("MonthView1"));
        EXPECT_EQ(d.part<QCalendarWidget>("MonthView1").monthShown(), today.month());
        EXPECT_EQ(d.part<QCalendarWidget>("MonthView1").yearShown(), today.year());
        d.press(Qt::Key_Return);
    });
    EXPECT_EQ(answer, today.toString("yyyy-MM-dd"));
}

TEST(HelpCalendar, LeavesTheEditorAsItWasWhenItIsCancelled) {
    const std::function<void(Dialog&)> cancels[] = {[](Dialog& d) { d.press(Qt::Key_Escape); },
                                                    [](Dialog& d) { d.closeByFrame(); }};
    for (const auto& cancel : cancels) {
        CalendarWindow w(Time);
        EXPECT_EQ(w.answer("2026-11-2",
                           [&](Dialog& d) {
                               d.press(Qt::Key_Right);
                               cancel(d);
                           }),
                  "2026-11-2");
    }
}

TEST(HelpCalendar, KeepsItsProportionsWhenItIsResized) {
    CalendarWindow w(Time);
    w.answer("2026-11-20", [](Dialog& d) {
        const QRect month = d.part("MonthView1").geometry();
        const QRect time = d.part("DTPTime").geometry();
        const QRect ok = d.part("QdCommand").geometry();
        const QSize size = d.window.size();
        d.window.resize(size * 2);
        EXPECT_EQ(d.part("MonthView1").geometry(), QRect(month.topLeft() * 2, month.size() * 2));
        EXPECT_EQ(d.part("DTPTime").size(), QSize(time.width() * 2, time.height()));
        EXPECT_EQ(d.part("QdCommand").geometry(), QRect(ok.topLeft() * 2, ok.size() * 2));
        d.press(Qt::Key_Escape);
    });
}
}  // namespace kxVsGrid::qt::testing
