// The native controls of a form: what they show of it, and what it hears of them.
#include <QCalendarWidget>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QTimeEdit>
#include <QTimer>

#include "qt/AnyForm.h"
#include "qt/Dialogs.h"
#include "qt/Palettes.h"
#include "qt/view/Scale.h"

namespace kxVsGrid::qt::testing {
namespace {

QStringList itemsOf(const QComboBox& box) {
    QStringList items;
    for (int i = 0; i < box.count(); ++i) items << box.itemText(i);
    return items;
}
}  // namespace

TEST(FormDialog, ShowsANativeControlOfEachTypeUnderItsName) {
    AnyForm form;
    work(form, [&](Dialog& d) {
        EXPECT_EQ(d.window.objectName(), "AnyForm");
        EXPECT_EQ(d.window.windowTitle(), "一个窗口");
        EXPECT_EQ(d.part<QLabel>("Caption").text(), "名称(&N)：");
        EXPECT_EQ(d.part<QLineEdit>("Text").text(), "abc");
        EXPECT_EQ(itemsOf(d.part<QComboBox>("Combo")), QStringList({"箱", "件", "瓶"}));
        EXPECT_EQ(d.part<QComboBox>("Combo").currentText(), "箱");
        EXPECT_EQ(d.part<QCheckBox>("Check").text(), "含税(&T)");
        EXPECT_EQ(d.part<QTimeEdit>("Time").text(), "08:30:00");
        EXPECT_EQ(d.part<QFrame>("Line").frameShape(), QFrame::HLine);
        EXPECT_EQ(d.part<QCalendarWidget>("Month").selectedDate(), QDate(2026, 11, 20));
        EXPECT_TRUE(d.part<FormGrid>("List").isVisible());
        EXPECT_EQ(d.part<QPushButton>("Extra").text(), "其他(&E)");
        EXPECT_TRUE(d.part<QPushButton>("Ok").isDefault());
        EXPECT_FALSE(d.part<QPushButton>("Cancel").isDefault());
        EXPECT_FALSE(d.part("Hidden").isVisible());
        EXPECT_FALSE(d.part("NoPlace").isVisible());
        EXPECT_EQ(d.window.findChild<QWidget*>("Unknown"), nullptr);
        d.press(Qt::Key_Escape);
    });
}

TEST(FormDialog, NamesItsControlsForAssistivePrograms) {
    AnyForm form;
    work(form, [&](Dialog& d) {
        EXPECT_EQ(d.part("Text").accessibleName(), "名称");
        EXPECT_EQ(d.part("Time").accessibleName(), "时间");
        EXPECT_EQ(d.part("List").accessibleName(), "列表");
        EXPECT_EQ(d.part("Extra").accessibleName(), "其他(E)");
        d.press(Qt::Key_Escape);
    });
}

TEST(FormDialog, PutsTheControlsAtTheirPlaces) {
    AnyForm form;
    work(form, [&](Dialog& d) {
        const Scale scale(d.window);
        for (const char* name : {"Month", "List", "Extra", "Ok"})
            EXPECT_EQ(d.part(name).geometry(), scale.pixels(form.control(name).place)) << name;
        // these are at least as high as their font needs
        for (const char* name : {"Caption", "Text", "Combo", "Check", "Time"}) {
            const QRect place = scale.pixels(form.control(name).place);
            const QRect shown = d.part(name).geometry();
            EXPECT_EQ(shown.left(), place.left()) << name;
            EXPECT_EQ(shown.width(), place.width()) << name;
            EXPECT_EQ(shown.top(), place.top()) << name;
            EXPECT_EQ(shown.height(), std::max(place.height(), d.part(name).minimumSizeHint().height()))
                << name;
        }
        d.press(Qt::Key_Escape);
    });
}

TEST(FormDialog, ShowsACalendarOfChineseNamesThatStartsOnMonday) {
    AnyForm form;
    work(form, [&](Dialog& d) {
        auto& calendar = d.part<QCalendarWidget>("Month");
        EXPECT_EQ(calendar.firstDayOfWeek(), Qt::Monday);
        EXPECT_EQ(calendar.locale().dayName(1, QLocale::ShortFormat), "周一");
        EXPECT_EQ(calendar.locale().monthName(11), "十一月");
        d.press(Qt::Key_Escape);
    });
}

// --- What the form changes

TEST(FormDialog, FollowsWhatTheFormChanges) {
    AnyForm form;
    work(form, [&](Dialog& d) {
        form.heard.clear();
        form.control("Caption").caption = "别名：";
        form.control("Check").checked = true;
        form.control("Combo").list = {"公斤", "吨"};
        form.control("Combo").text = "吨";
        form.control("Time").value.hour = 23;
        form.control("Month").value = {2027, 2, 28};
        form.control("Extra").enabled = false;
        form.control("Ok").visible = false;
        form.control("Hidden").visible = true;
        form.control("Cancel").place.left += 150;
        for (const auto& control : form.controls()) form.tell(control->name.c_str());
        EXPECT_EQ(d.part<QLabel>("Caption").text(), "别名：");
        EXPECT_TRUE(d.part<QCheckBox>("Check").isChecked());
        EXPECT_EQ(itemsOf(d.part<QComboBox>("Combo")), QStringList({"公斤", "吨"}));
        EXPECT_EQ(d.part<QComboBox>("Combo").currentText(), "吨");
        EXPECT_EQ(d.part<QTimeEdit>("Time").time(), QTime(23, 30));
        EXPECT_EQ(d.part<QCalendarWidget>("Month").selectedDate(), QDate(2027, 2, 28));
        EXPECT_EQ(d.part<QCalendarWidget>("Month").monthShown(), 2);
        EXPECT_FALSE(d.part("Extra").isEnabled());
        EXPECT_FALSE(d.part("Ok").isVisible());
        EXPECT_TRUE(d.part("Hidden").isVisible());
        EXPECT_EQ(d.part("Cancel").x(), Scale(d.window).pixel(form.control("Cancel").place.left));
        EXPECT_EQ(form.words(), "");  // it is not told of its own changes
        d.press(Qt::Key_Escape);
    });
}

TEST(FormDialog, ShowsTextAndSelectionInCharacters) {
    AnyForm form;
    work(form, [&](Dialog& d) {
        form.heard.clear();
        FormControl& text = form.control("Text");
        text.text = "a\xF0\xA0\x80\x80品c";
        text.selStart = 1;
        text.selLength = 2;
        form.tell("Text");
        auto& box = d.part<QLineEdit>("Text");
        EXPECT_EQ(box.text(), "a" + Rare + "品c");
        EXPECT_EQ(box.selectedText(), Rare + "品");
        text.selStart = 4;
        text.selLength = 0;
        form.tell("Text");
        EXPECT_EQ(box.cursorPosition(), 5);
        EXPECT_FALSE(box.hasSelectedText());
        EXPECT_EQ(form.words(), "");
        d.press(Qt::Key_Escape);
    });
}

TEST(FormDialog, KeepsTheBytesOfATextThatNobodyTouches) {
    AnyForm form;
    const std::string broken = "a\xFFz\nb" + std::string(40'000, 'x');
    form.control("Text").text = broken;
    work(form, [&](Dialog& d) {
        form.giveFocusTo("Text");
        form.heard.clear();
        d.press(Qt::Key_Home);
        d.press(Qt::Key_Right, Qt::ShiftModifier);
        EXPECT_EQ(form.control("Text").text, broken);
        EXPECT_EQ(form.control("Text").selStart, 0);
        EXPECT_EQ(form.control("Text").selLength, 1);
        EXPECT_EQ(form.words(), "");
        d.press(Qt::Key_Escape);
    });
}

TEST(FormDialog, GoesBackToTheMonthOfTheDayThatTheFormChooses) {
    AnyForm form;
    work(form, [&](Dialog& d) {
        auto& calendar = d.part<QCalendarWidget>("Month");
        calendar.showNextYear();
        form.tell("Month");
        EXPECT_EQ(calendar.yearShown(), 2026);
        d.press(Qt::Key_Escape);
    });
}

// --- What the clerk does

TEST(FormDialog, TellsWhatIsTypedAndSelected) {
    AnyForm form;
    work(form, [&](Dialog& d) {
        form.giveFocusTo("Text");
        form.heard.clear();
        d.press(Qt::Key_End);
        d.type("品");
        d.compose("", Rare);
        EXPECT_EQ(form.words(), "text abc品, text abc品\xF0\xA0\x80\x80");
        EXPECT_EQ(form.control("Text").selStart, 5);
        d.press(Qt::Key_Left, Qt::ShiftModifier);
        EXPECT_EQ(form.control("Text").selStart, 4);
        EXPECT_EQ(form.control("Text").selLength, 1);
        d.press(Qt::Key_Home);
        EXPECT_EQ(form.control("Text").selStart, 0);
        EXPECT_EQ(form.heard.size(), 2U);
        d.press(Qt::Key_Escape);
    });
}

TEST(FormDialog, TellsOfEntriesChecksAndButtons) {
    AnyForm form;
    form.keepsEnter = true;
    work(form, [&](Dialog& d) {
        form.heard.clear();
        d.click("Combo");
        Window::settle();
        QWidget* popup = QApplication::activePopupWidget();
        ASSERT_NE(popup, nullptr);
        QTest::keyClick(popup->focusWidget(), Qt::Key_Down);
        QTest::keyClick(popup->focusWidget(), Qt::Key_Return);
        Window::settle();
        d.press(Qt::Key_Down);
        screen::click(d.part("Check"), {8, d.part("Check").height() / 2});
        d.press(Qt::Key_Space);
        d.click("Extra");
        form.giveFocusTo("Ok");
        d.press(Qt::Key_Space);
        EXPECT_EQ(form.words(), "pick 件, pick 瓶, check, uncheck, press Extra, press Ok");
        form.end();
    });
}

TEST(FormDialog, TellsOfTimesAndDays) {
    AnyForm form;
    work(form, [&](Dialog& d) {
        form.heard.clear();
        form.giveFocusTo("Time");
        d.part<QTimeEdit>("Time").setSelectedSection(QDateTimeEdit::HourSection);
        d.type("14");
        d.press(Qt::Key_Up);
        form.giveFocusTo("Month");
        d.press(Qt::Key_Right);
        d.press(Qt::Key_PageDown);
        EXPECT_EQ(form.heard.back(), "day 2026-12-21");
        EXPECT_EQ(form.control("Month").value, (DateTime{2026, 12, 21}));
        const DateTime time = form.control("Time").value;
        EXPECT_EQ(time.hour, 14);
        EXPECT_EQ(time.minute, 31);
        EXPECT_EQ(time.year, 2026);
        d.press(Qt::Key_Escape);
    });
}

TEST(FormDialog, ActsOnMnemonicsAlsoOfALabelBeforeItsControl) {
    AnyForm form;
    work(form, [&](Dialog& d) {
        form.giveFocusTo("Month");
        form.heard.clear();
        d.press(Qt::Key_N, Qt::AltModifier);
        EXPECT_TRUE(d.focused("Text"));
        d.press(Qt::Key_T, Qt::AltModifier);
        d.press(Qt::Key_E, Qt::AltModifier);
        EXPECT_TRUE(waitUntil([&] { return form.heard.size() >= 2; }));
        EXPECT_EQ(form.words(), "check, press Extra");
        d.press(Qt::Key_Escape);
    });
}

TEST(FormDialog, HasAMenuInTheControlsOwnWordsOnItsTextBox) {
    AnyForm form;
    work(form, [&](Dialog& d) {
        form.giveFocusTo("Text");
        d.part<QLineEdit>("Text").selectAll();
        QContextMenuEvent event(QContextMenuEvent::Keyboard, {5, 5}, d.window.mapToGlobal(QPoint(5, 5)));
        QApplication::sendEvent(&d.part("Text"), &event);
        auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        ASSERT_NE(menu, nullptr);
        for (QAction* action : menu->actions())
            if (action->text().startsWith("删除")) action->trigger();
        menu->close();
        EXPECT_EQ(form.heard.back(), "text ");
        d.press(Qt::Key_Escape);
    });
}

// --- Look

TEST(FormDialog, WearsTheWindowsPaletteAndTheWidgetsFont) {
    AnyForm form;
    Window w;
    QFont font = w.widget->font();
    font.setPointSizeF(font.pointSizeF() * 1.5);
    w.widget->setFont(font);
    Dialogs dialogs([&](Dialog& d) {
        EXPECT_EQ(d.part("Text").font().pointSizeF(), font.pointSizeF());
        EXPECT_GE(d.part("Text").height(), d.part("Text").minimumSizeHint().height());
        EXPECT_GT(form.grid.RowHeight(1), CellGrid::DefaultRowHeight);
        w.window.setPalette(darkPalette());
        EXPECT_EQ(d.part("Text").palette().color(QPalette::Base), darkPalette().color(QPalette::Base));
        QWidget& grid = d.inner("List");
        const QImage image = grid.grab().toImage();
        const QPointF cell = QPointF(d.cell(form.grid, 3, 1)) * image.devicePixelRatio();
        EXPECT_EQ(image.pixelColor(cell.toPoint()), darkPalette().color(QPalette::Base));
        d.press(Qt::Key_Escape);
    });
    runForm(w.widget, form, {});
    EXPECT_EQ(dialogs.count, 1);
}
}  // namespace kxVsGrid::qt::testing
