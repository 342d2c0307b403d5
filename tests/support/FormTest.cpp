// A dialog as data: its size, the keys that press its buttons, and what it hears of the clerk.
#include "kxVsGrid/Form.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "kxVsGrid/Enumerations.h"

namespace kxVsGrid {
namespace {

using Lines = std::vector<std::string>;

class Window : public FormWindow {
  public:
    explicit Window(Form& form) : form_(form) {}
    void changed(const FormControl& control) override { lines.push_back("changed " + control.name); }
    void giveFocus(const FormControl& control) override { lines.push_back("focus " + control.name); }
    void close() override {
        lines.push_back("close");
        form_.closed();
    }
    void whenIdle(std::function<bool()>) override {}
    Lines lines;

  private:
    Form& form_;
};

/// A form that writes down what happens to it.
class Diary : public Form {
  public:
    Diary() : Form("Diary", "日记", 4000, 3000) {
        add("TextBox", "Text", "", {0, 0, 100, 300});
        add("CommandButton", "Ok", "确定", {0, 400, 100, 300}).isDefault = true;
        add("kxButton", "Edit", "编辑", {0, 800, 100, 300});
        add("CheckBox", "Check", "", {0, 800, 100, 300});
        add("ComboBox", "Combo", "", {0, 1200, 100, 300}).list = {"a", "b"};
        add("MonthView", "Month", "", {0, 1600, 100, 300});
    }
    Lines take() { return std::exchange(lines_, {}); }
    FormControl& addCancel() {
        FormControl& cancel = add("CommandButton", "Cancel", "取消", {0, 2000, 100, 300});
        cancel.isCancel = true;
        return cancel;
    }
    bool press(const char* focused, Key code, std::int16_t shift = 0) {
        return key(control(focused), static_cast<std::int16_t>(code), shift);
    }
    using Form::changed;
    using Form::close;
    using Form::giveFocus;
    Key usedUp = Key::None;  ///< by the form itself

  protected:
    void load() override { note("load"); }
    void resized() override { note("resized"); }
    void unload() override { note("unload"); }
    void pressed(FormControl& button) override { note("pressed " + button.name); }
    void textChanged(FormControl& box) override { note("text " + box.text); }
    void checkChanged(FormControl& box) override { note(box.checked ? "checked" : "unchecked"); }
    void picked(FormControl& list) override { note("picked " + list.text); }
    void chosen(FormControl& month) override { note("chosen " + std::to_string(month.value.day)); }
    void doubleClicked(FormControl& control) override { note("double " + control.name); }
    bool keyDown(FormControl& focused, std::int16_t code, std::int16_t) override {
        if (usedUp == Key::None || code != static_cast<std::int16_t>(usedUp)) return false;
        note("key at " + focused.name);
        return true;
    }

  private:
    void note(std::string line) { lines_.push_back(std::move(line)); }
    Lines lines_;
};

class FormTest : public ::testing::Test {
  protected:
    void open() {
        form.open(window);
        form.take();
    }
    Diary form;
    Window window{form};
};

// --- Its size.

TEST_F(FormTest, LoadsInItsOwnSizeWhenItOpens) {
    form.open(window);
    EXPECT_EQ(form.take(), (Lines{"load"}));
    EXPECT_EQ(form.ScaleWidth(), 4000);
    EXPECT_EQ(form.ScaleHeight(), 3000);
}

TEST_F(FormTest, IsGivenItsStartSizeAfterItHasLoaded) {
    form.startSize(5000, 4000);
    EXPECT_EQ(form.ScaleWidth(), 4000) << "not before";
    form.open(window);
    EXPECT_EQ(form.take(), (Lines{"load", "resized"}));
    EXPECT_EQ(form.ScaleWidth(), 5000);
    EXPECT_EQ(form.ScaleHeight(), 4000);
}

TEST_F(FormTest, AStartSizeOfZeroIsItsOwn) {
    form.startSize(0, 4000);
    open();
    EXPECT_EQ(form.ScaleWidth(), 4000);
    EXPECT_EQ(form.ScaleHeight(), 4000);
}

TEST_F(FormTest, AStartSizeIsNeverBelowHalfItsOwn) {
    for (const std::int32_t size : {1, 1999, 2000}) {
        Diary small;
        Window frame(small);
        small.startSize(size, 1);
        small.open(frame);
        EXPECT_EQ(small.ScaleWidth(), 2000);
        EXPECT_EQ(small.ScaleHeight(), 1500);
        EXPECT_EQ(small.minWidth(), 2000);
        EXPECT_EQ(small.minHeight(), 1500);
    }
}

TEST_F(FormTest, HearsOfEverySizeThatItsWindowGets) {
    open();
    form.resize(3000, 2500);
    EXPECT_EQ(form.take(), (Lines{"resized"}));
    EXPECT_EQ(form.ScaleWidth(), 3000);
    EXPECT_EQ(form.ScaleHeight(), 2500);
    EXPECT_EQ(form.minWidth(), 2000) << "of the size that it was designed in";
}

// --- Keys.

TEST_F(FormTest, EnterPressesTheDefaultButton) {
    open();
    EXPECT_TRUE(form.press("Text", Key::Enter));
    EXPECT_EQ(form.take(), (Lines{"pressed Ok"}));
    EXPECT_TRUE(form.press("Month", Key::Enter));
    EXPECT_EQ(form.take(), (Lines{"pressed Ok"}));
}

TEST_F(FormTest, EnterOnAButtonPressesThatButton) {
    form.addCancel();
    open();
    EXPECT_TRUE(form.press("Edit", Key::Enter));
    EXPECT_TRUE(form.press("Cancel", Key::Enter));
    EXPECT_TRUE(form.press("Ok", Key::Enter));
    EXPECT_EQ(form.take(), (Lines{"pressed Edit", "pressed Cancel", "pressed Ok"}));
}

TEST_F(FormTest, EscapePressesTheCancelButtonWhereverTheKeyboardIs) {
    form.addCancel();
    open();
    EXPECT_TRUE(form.press("Text", Key::Escape));
    EXPECT_TRUE(form.press("Ok", Key::Escape));
    EXPECT_EQ(form.take(), (Lines{"pressed Cancel", "pressed Cancel"}));
    EXPECT_EQ(window.lines, Lines{}) << "whether it closes is up to the form";
}

TEST_F(FormTest, EscapeWithoutACancelButtonClosesTheForm) {
    open();
    EXPECT_TRUE(form.press("Text", Key::Escape));
    EXPECT_EQ(window.lines, (Lines{"close"}));
    EXPECT_EQ(form.take(), (Lines{"unload"}));
}

TEST_F(FormTest, HiddenAndDisabledButtonsAreNotPressed) {
    FormControl& cancel = form.addCancel();
    open();
    for (FormControl* button : {&form.control("Ok"), &cancel}) {
        for (bool FormControl::*switched : {&FormControl::visible, &FormControl::enabled}) {
            button->*switched = false;
            EXPECT_TRUE(form.press("Text", button == &cancel ? Key::Escape : Key::Enter)) << "used up";
            form.Form::press(*button);
            EXPECT_EQ(form.take(), Lines{});
            button->*switched = true;
        }
    }
    EXPECT_EQ(window.lines, Lines{});
}

TEST_F(FormTest, EnterWithoutADefaultButtonIsUsedUpAndDoesNothing) {
    form.control("Ok").isDefault = false;
    open();
    EXPECT_TRUE(form.press("Text", Key::Enter));
    EXPECT_EQ(form.take(), Lines{});
}

TEST_F(FormTest, OtherKeysAreLeftToTheControls) {
    open();
    for (const Key key : {Key::Tab, Key::Left, Key::Down, Key::Space, Key::Back, Key::F2})
        EXPECT_FALSE(form.press("Text", key));
    EXPECT_EQ(form.take(), Lines{});
}

TEST_F(FormTest, SeesEveryKeyBeforeItsButtonsDo) {
    open();
    form.usedUp = Key::Enter;
    EXPECT_TRUE(form.press("Text", Key::Enter));
    EXPECT_EQ(form.take(), (Lines{"key at Text"}));
    form.usedUp = Key::Down;
    EXPECT_TRUE(form.press("Combo", Key::Down));
    EXPECT_FALSE(form.press("Combo", Key::Up));
    EXPECT_EQ(form.take(), (Lines{"key at Combo"}));
}

// --- The clerk.

TEST_F(FormTest, HearsOfTextsThatChange) {
    open();
    FormControl& text = form.control("Text");
    form.edit(text, "货号", 2, 0);
    EXPECT_EQ(text.text, "货号");
    EXPECT_EQ(text.selStart, 2);
    form.edit(text, "货号", 0, 2);
    EXPECT_EQ(text.selStart, 0);
    EXPECT_EQ(text.selLength, 2);
    EXPECT_EQ(form.take(), (Lines{"text 货号"})) << "a selection is no change of the text";
}

TEST_F(FormTest, HearsOfChecksPicksAndDaysThatChange) {
    open();
    form.check(form.control("Check"), true);
    form.check(form.control("Check"), true);
    form.pick(form.control("Combo"), 1);
    form.choose(form.control("Month"), {2011, 5, 6});
    form.choose(form.control("Month"), {2011, 5, 6});
    form.doubleClick(form.control("Month"));
    EXPECT_EQ(form.take(), (Lines{"checked", "picked b", "chosen 6", "double Month"}));
    EXPECT_EQ(form.control("Combo").text, "b");
}

TEST_F(FormTest, IgnoresPicksThatTheListDoesNotHave) {
    open();
    for (const int index : {-1, 2, 1000}) form.pick(form.control("Combo"), index);
    EXPECT_EQ(form.take(), Lines{});
    EXPECT_EQ(form.control("Combo").text, "");
}

// --- The window.

TEST_F(FormTest, TellsItsWindowWhatHasChanged) {
    open();
    form.changed(form.control("Text"));
    form.giveFocus(form.control("Combo"));
    form.close();
    EXPECT_EQ(window.lines, (Lines{"changed Text", "focus Combo", "close"}));
}

TEST_F(FormTest, UnloadsOnceAndThenHasNoWindow) {
    open();
    form.closed();
    form.closed();
    form.changed(form.control("Text"));
    form.giveFocus(form.control("Text"));
    form.close();
    EXPECT_EQ(form.take(), (Lines{"unload"}));
    EXPECT_EQ(window.lines, Lines{});
}

TEST_F(FormTest, FindsItsControlsByName) {
    EXPECT_EQ(form.control("Edit").caption, "编辑");
    EXPECT_THROW(form.control("edit"), std::out_of_range);
    EXPECT_EQ(form.name() + form.caption(), "Diary日记");
    EXPECT_EQ(form.controls().size(), 6u);
}
}  // namespace
}  // namespace kxVsGrid
