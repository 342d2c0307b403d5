// Forms that the desk does not know by name: shown, recorded, and worked by a script.
#include <gtest/gtest.h>

#include <cstdint>
#include <stdexcept>
#include <string>
#include <vector>

#include "kxVsGrid/headless/Desk.h"

namespace kxVsGrid::testing {
namespace {

using headless::Desk;
using headless::FormDialog;

/// A host's own form, with a control of every kind that a clerk works.
class Parcel : public Form {
  public:
    Parcel() : Form("Parcel", "包裹", 6000, 4000), grid_(TextMetrics::fixed()) {
        add("TextBox", "Sender", "", {0, 0, 2000, 300});
        add("CheckBox", "Urgent", "加急", {0, 400, 2000, 300});
        add("ComboBox", "Carrier", "", {0, 800, 2000, 300}).list = {"陆运", "空运"};
        add("MonthView", "Day", "", {0, 1200, 2000, 1500});
        add("CommandButton", "Ok", "确定", {0, 2800, 1000, 300}).isDefault = true;
        add("CommandButton", "Hidden", "", {0, 3200, 1000, 300}).visible = false;
        FormControl& lines = add("CellGrid", "Lines", "", {2500, 0, 3000, 3000});
        grid_.Cols(2);
        grid_.Rows(5);
        grid_.Resize(3000, 3000);
        lines.grid = &grid_;
    }
    std::vector<std::string> told;
    CellGrid& lines() { return grid_; }

  protected:
    void load() override { told.emplace_back("load"); }
    void unload() override { told.emplace_back("unload"); }
    void pressed(FormControl& button) override {
        told.push_back("pressed " + button.name);
        close();
    }
    void textChanged(FormControl& box) override { told.push_back("text " + box.text); }
    void checkChanged(FormControl& box) override { told.push_back(box.checked ? "checked" : "unchecked"); }
    void picked(FormControl& list) override { told.push_back("picked " + list.text); }
    void chosen(FormControl& day) override { told.push_back("chosen " + std::to_string(day.value.day)); }
    void doubleClicked(FormControl& control) override { told.push_back("double " + control.name); }

  private:
    CellGrid grid_;
};

using Told = std::vector<std::string>;
constexpr Rect Anchor{100, 200, 300, 400};

TEST(AnyForm, IsShownRecordedAndClosedByItsFrameWithoutAScript) {
    Desk desk;
    Parcel form;
    desk.showForm(form, Anchor);
    EXPECT_EQ(form.told, (Told{"load", "unload"}));
    EXPECT_EQ(desk.dialogs(), (std::vector<headless::ShownDialog>{{"Parcel", 6000, 4000, Anchor}}));
}

TEST(AnyForm, IsWorkedByAScript) {
    Desk desk;
    Parcel form;
    desk.onDialog([&](FormDialog& d) {
        EXPECT_EQ(d.name(), "Parcel");
        d.text("Sender", "仓库").check("Urgent").pick("Carrier", "空运").choose("Day", {2026, 1, 31});
        d.clickRow("Lines", 2).doubleClick("Lines");
        EXPECT_EQ(d.focused(), "Lines");
        EXPECT_EQ(d.grid("Lines").Row(), 2);
        d.focus("Sender").type("1");
        EXPECT_EQ(d.text("Sender"), "仓库1");
        d.click("Ok");
        EXPECT_FALSE(d.open());
    });
    desk.showForm(form, {});
    EXPECT_EQ(form.told, (Told{"load", "text 仓库", "checked", "picked 空运", "chosen 31", "double Lines",
                               "text 仓库1", "pressed Ok", "unload"}));
}

TEST(AnyForm, SaysWhatCannotBeDone) {
    Desk desk;
    Parcel form;
    desk.onDialog([](FormDialog& d) {
        EXPECT_THROW(d.click("Hidden"), std::logic_error);
        EXPECT_THROW(d.click("Sender"), std::logic_error);
        EXPECT_THROW(d.text("Ok", "x"), std::logic_error);
        EXPECT_THROW(d.check("Carrier"), std::logic_error);
        EXPECT_THROW(d.pick("Carrier", "海运"), std::logic_error);
        EXPECT_THROW(d.choose("Urgent", {}), std::logic_error);
        EXPECT_THROW(d.clickRow("Lines", 99), std::exception);
        EXPECT_THROW(d.grid("Ok"), std::logic_error);
        EXPECT_THROW(d.click("Nowhere"), std::out_of_range);
        d.closeByFrame();
        EXPECT_THROW(d.text("Sender", "x"), std::logic_error);
        EXPECT_THROW(d.doubleClick("Lines"), std::logic_error);
    });
    desk.showForm(form, {});
    EXPECT_EQ(form.told, (Told{"load", "unload"}));
}

TEST(AnyForm, KeepsHandsOffWhatIsHiddenOrDisabled) {
    Desk desk;
    Parcel form;
    desk.onDialog([&](FormDialog& d) {
        EXPECT_THROW(d.focus("Hidden"), std::logic_error);
        d.control("Lines").enabled = false;
        EXPECT_THROW(d.doubleClick("Lines"), std::logic_error);
        EXPECT_THROW(d.focus("Lines"), std::logic_error);
        d.control("Lines").enabled = true;
        d.control("Lines").visible = false;
        EXPECT_THROW(d.doubleClick("Lines"), std::logic_error);
        EXPECT_EQ(d.focused(), "");
        d.closeByFrame();
        EXPECT_THROW(d.focus("Sender"), std::logic_error);
    });
    desk.showForm(form, {});
    EXPECT_EQ(form.told, (Told{"load", "unload"}));
}

TEST(AnyForm, IsClosedWhenItsScriptThrows) {
    Desk desk;
    Parcel form;
    desk.onDialog([](FormDialog&) { throw std::runtime_error("boom"); });
    EXPECT_THROW(desk.showForm(form, {}), std::runtime_error);
    EXPECT_EQ(form.told, (Told{"load", "unload"}));
}

TEST(AnyForm, MayBeADialogOfAHelpThatHasNoScriptOfItsOwn) {
    Desk desk;
    kxGrid& grid = desk.place();
    grid.VsCtrl(1)->i帮助类型(ih日期型);
    std::vector<std::string> names;
    desk.onDialog([&](FormDialog& d) { names.push_back(d.name()); });
    const auto askForHelp = [&] { desk.focusGrid().press(Key::Space).press(Key::F2).press(Key::Escape); };
    grid.Grid().Select(1, 1);
    askForHelp();
    EXPECT_EQ(names, Told{"XT_calendar"});
    int calendars = 0;
    desk.onDialog([&](headless::CalendarDialog&) { ++calendars; });
    askForHelp();
    EXPECT_EQ(names.size(), 1U);
    EXPECT_EQ(calendars, 1);
}

TEST(AnyForm, MayShowAnother) {
    Desk desk;
    Parcel outer;
    Parcel inner;
    desk.onDialog([&](FormDialog& d) {
        if (&d.form() != &outer) return;
        desk.showForm(inner, {});
        EXPECT_TRUE(d.open());
        EXPECT_EQ(inner.told, (Told{"load", "unload"}));
    });
    desk.showForm(outer, {});
    EXPECT_EQ(desk.dialogs().size(), 2U);
    EXPECT_EQ(outer.told, inner.told);
}
}  // namespace
}  // namespace kxVsGrid::testing
