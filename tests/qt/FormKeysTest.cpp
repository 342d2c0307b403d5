// Keys in a form's window: Enter and Esc, the order of the controls, input methods.
#include <QCalendarWidget>
#include <QSpinBox>
#include <QTimeEdit>

#include "qt/AnyForm.h"
#include "qt/Dialogs.h"

namespace kxVsGrid::qt::testing {
namespace {

const char* const typedInto[] = {"Text", "Combo", "Check", "Time", "Month", "List"};
}  // namespace

TEST(FormKeys, EnterPressesTheDefaultButtonOnceFromEveryControl) {
    for (const char* name : typedInto) {
        for (const Qt::Key enter : {Qt::Key_Return, Qt::Key_Enter}) {
            SCOPED_TRACE(name);
            AnyForm form;
            form.keepsEnter = true;
            work(form, [&](Dialog& d) {
                form.giveFocusTo(name);
                EXPECT_TRUE(d.focused(name));
                form.heard.clear();
                d.press(enter);
                Window::settle();
                EXPECT_EQ(form.words(), "press Ok");
                form.end();
            });
        }
    }
}

TEST(FormKeys, EnterPressesTheButtonThatHasTheKeyboard) {
    AnyForm form;
    work(form, [&](Dialog& d) {
        form.heard.clear();
        form.giveFocusTo("Extra");
        d.press(Qt::Key_Return);
        EXPECT_EQ(form.words(), "press Extra");
        form.giveFocusTo("Cancel");
        d.press(Qt::Key_Return);
    });
    EXPECT_EQ(form.words(), "press Extra, press Cancel, unload");
}

TEST(FormKeys, EscPressesTheCancelButtonFromEveryControl) {
    for (const char* name : typedInto) {
        SCOPED_TRACE(name);
        AnyForm form;
        work(form, [&](Dialog& d) {
            form.giveFocusTo(name);
            form.heard.clear();
            d.press(Qt::Key_Escape);
        });
        EXPECT_EQ(form.words(), "press Cancel, unload");
    }
}

TEST(FormKeys, EscClosesAFormWithoutACancelButton) {
    AnyForm form;
    form.control("Cancel").isCancel = false;
    work(form, [&](Dialog& d) {
        form.heard.clear();
        d.press(Qt::Key_Escape);
    });
    EXPECT_EQ(form.words(), "unload");
}

TEST(FormKeys, GoToTheFormBeforeTheControl) {
    for (const char* name : typedInto) {
        AnyForm form;
        work(form, [&](Dialog& d) {
            form.giveFocusTo(name);
            form.heard.clear();
            d.press(Qt::Key_F5);
            EXPECT_EQ(form.words(), std::string("F5 in ") + name);
            d.press(Qt::Key_Escape);
        });
    }
}

TEST(FormKeys, EnterTakesTheHalfTypedTimeOver) {
    AnyForm form;
    work(form, [&](Dialog& d) {
        form.giveFocusTo("Time");
        d.part<QTimeEdit>("Time").setSelectedSection(QDateTimeEdit::HourSection);
        d.type("1");
        d.press(Qt::Key_Return);
    });
    EXPECT_EQ(form.control("Time").value.hour, 1);
    EXPECT_EQ(form.heard.back(), "unload");
}

TEST(FormKeys, EnterInTheCalendarsYearBoxEndsTheYearAlone) {
    AnyForm form;
    work(form, [&](Dialog& d) {
        auto& calendar = d.part<QCalendarWidget>("Month");
        screen::click(*calendar.findChild<QWidget*>("qt_calendar_yearbutton"));
        auto* year = calendar.findChild<QSpinBox*>("qt_calendar_yearedit");
        ASSERT_TRUE(year->isVisible());
        year->selectAll();
        form.heard.clear();
        d.type("2031");
        d.press(Qt::Key_Return);
        EXPECT_EQ(form.words(), "");
        EXPECT_EQ(calendar.yearShown(), 2031);
        EXPECT_TRUE(d.window.isVisible());
        d.press(Qt::Key_Escape);
    });
    EXPECT_EQ(form.words(), "press Cancel, unload");
}

TEST(FormKeys, EntriesOfAnOpenListAreItsOwn) {
    AnyForm form;
    work(form, [&](Dialog& d) {
        form.heard.clear();
        d.click("Combo");
        Window::settle();
        QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Escape);
        Window::settle();
        EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
        EXPECT_EQ(form.words(), "");
        d.press(Qt::Key_Escape);
    });
}

// --- Focus

TEST(FormFocus, IsWhereTheFormPutsItElseWithTheFirstControl) {
    AnyForm first;
    work(first, [&](Dialog& d) {
        EXPECT_TRUE(d.focused("Text"));
        d.press(Qt::Key_Escape);
    });
    AnyForm form;
    form.at = [](AnyForm& f, const std::string& word) {
        if (word == "load") f.giveFocusTo("List");
    };
    work(form, [&](Dialog& d) {
        EXPECT_TRUE(d.focused("List"));
        d.press(Qt::Key_Escape);
    });
}

TEST(FormFocus, GoesRoundInTheOrderOfTheControls) {
    AnyForm form;
    work(form, [&](Dialog& d) {
        const std::vector<const char*> order{"Text", "Combo", "Check", "Time",  "Month",
                                             "List", "Extra", "Ok",    "Cancel"};
        for (std::size_t i = 0; i <= order.size(); ++i) {
            const char* name = order[i % order.size()];
            EXPECT_TRUE(d.focused(name)) << i << name;
            // a time has a stop for each of its parts
            for (int stop = 0; stop < (std::string(name) == "Time" ? 3 : 1); ++stop) d.press(Qt::Key_Tab);
        }
        form.giveFocusTo("Combo");
        d.press(Qt::Key_Backtab, Qt::ShiftModifier);
        EXPECT_TRUE(d.focused("Text"));
        d.press(Qt::Key_Escape);
    });
}

TEST(FormFocus, FollowsTheMouse) {
    AnyForm form;
    work(form, [&](Dialog& d) {
        for (const char* name : {"List", "Text", "Month"}) {
            d.click(name);
            EXPECT_TRUE(d.focused(name)) << name;
        }
        d.press(Qt::Key_Escape);
    });
}

// --- Input method

TEST(FormComposition, TellsNothingUntilItsTextIsCommitted) {
    AnyForm form;
    work(form, [&](Dialog& d) {
        form.giveFocusTo("Text");
        d.part<QLineEdit>("Text").selectAll();
        form.heard.clear();
        d.compose("p");
        d.compose("pin");
        EXPECT_EQ(form.words(), "");
        EXPECT_EQ(form.control("Text").text, "abc");
        d.compose("", "品");
        EXPECT_EQ(form.words(), "text 品");
        EXPECT_EQ(form.control("Text").selStart, 1);
        d.press(Qt::Key_Escape);
    });
}

TEST(FormComposition, KeepsTheKeysForItself) {
    AnyForm form;
    work(form, [&](Dialog& d) {
        form.giveFocusTo("Text");
        form.heard.clear();
        d.compose("pin");
        for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Escape, Qt::Key_Down, Qt::Key_F5,
                                  Qt::Key_Tab, Qt::Key_Left})
            d.press(key);
        EXPECT_EQ(form.words(), "");
        EXPECT_TRUE(d.focused("Text"));
        d.compose("", "品");
        EXPECT_EQ(form.words(), "text abc品");
        d.press(Qt::Key_F5);
        d.press(Qt::Key_Return);
    });
    EXPECT_EQ(form.words(), "text abc品, F5 in Text, press Ok, unload");
}

TEST(FormComposition, BringsTextAndSelectionBackWhenItIsDropped) {
    AnyForm form;
    work(form, [&](Dialog& d) {
        form.giveFocusTo("Text");
        auto& box = d.part<QLineEdit>("Text");
        box.setSelection(0, 2);
        form.heard.clear();
        d.compose("pin");
        d.compose("");
        EXPECT_EQ(box.text(), "abc");
        EXPECT_EQ(box.selectedText(), "ab");
        EXPECT_EQ(form.words(), "");
        d.press(Qt::Key_Escape);
    });
}

TEST(FormComposition, IsCommittedOnceByAPressElsewhere) {
    AnyForm form;
    work(form, [&](Dialog& d) {
        form.giveFocusTo("Text");
        form.heard.clear();
        d.compose("pin");
        d.click("Extra");
        EXPECT_EQ(form.words(), "text abcpin, press Extra");
        d.press(Qt::Key_Escape);
    });
}

TEST(FormComposition, GivesWayToATextOfTheForms) {
    AnyForm form;
    work(form, [&](Dialog& d) {
        form.giveFocusTo("Text");
        d.compose("pin");
        form.control("Text").text = "新";
        form.control("Text").selStart = 1;
        form.tell("Text");
        EXPECT_EQ(d.part<QLineEdit>("Text").text(), "新");
        form.heard.clear();
        d.type("x");
        EXPECT_EQ(form.words(), "text 新x");
        d.press(Qt::Key_Escape);
    });
}
}  // namespace kxVsGrid::qt::testing
