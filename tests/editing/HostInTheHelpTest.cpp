// A host that works with the control while help asks it, or while the dialog is open, and one that fails
// there: what is chosen goes into the editor that asked or nowhere, and the control goes on working.
#include <memory>
#include <stdexcept>
#include <tuple>

#include "dialogs/HelpTest.h"

namespace kxVsGrid::testing {
namespace {

using headless::Desk;

/// What becomes of the editor that help was asked from.
enum Fate {
    Open,    ///< it stays as it is
    Closed,  ///< it has closed, and its cell is still the current one
    Left,    ///< another cell is current, or none can be edited
};

/// What a host does.
struct HelpAct {
    const char* name;
    std::function<void(Desk&, kxGrid&)> act;
    Fate fate;
    std::int32_t shift = 0;  ///< how far the row of the cell has moved
    friend std::ostream& operator<<(std::ostream& out, const HelpAct& act) { return out << act.name; }
};

const HelpAct HelpActs[] = {
    {"Nothing", [](Desk&, kxGrid&) {}, Open},
    // Moving the cell.
    {"Row", [](Desk&, kxGrid& g) { g.Row(4); }, Left},
    {"Col", [](Desk&, kxGrid& g) { g.Col(1); }, Left},
    {"Select", [](Desk&, kxGrid& g) { g.Grid().Select(3, 4); }, Left},
    {"RowAndBack", [](Desk&, kxGrid& g) { g.Row(4), g.Row(8); }, Closed},
    {"RowAndTyping", [](Desk& d, kxGrid& g) { g.Col(1), d.focusGrid().type("q"); }, Left},
    {"RowAndBackAndTyping", [](Desk& d, kxGrid& g) { g.Row(4), g.Row(8), d.focusGrid().type("q"); }, Closed},
    {"Escape", [](Desk& d, kxGrid&) { d.clickEditor().press(Key::Escape); }, Closed},
    // Taking the cell away.
    {"RemoveRow", [](Desk&, kxGrid& g) { g.Grid().RemoveRow(8); }, Left},
    {"FewerRows", [](Desk&, kxGrid& g) { g.Rows(6); }, Left},
    {"FewerRowsAndBack", [](Desk&, kxGrid& g) { g.Rows(6), g.Rows(12), g.Row(8); }, Left},
    {"AwayAndFewerRowsAndBack", [](Desk&, kxGrid& g) { g.Row(2), g.Rows(6), g.Rows(12), g.Row(8); }, Left},
    {"FewerCols", [](Desk&, kxGrid& g) { g.Cols(2); }, Left},
    {"NoCols", [](Desk&, kxGrid& g) { g.Grid().Cols(0); }, Left},
    {"Clear", [](Desk&, kxGrid& g) { g.Clear(); }, Left},
    // Moving its row.
    {"InsertRowAbove", [](Desk&, kxGrid& g) { g.Grid().InsertRow(1); }, Open, 1},
    {"RemoveRowAbove", [](Desk&, kxGrid& g) { g.Grid().RemoveRow(1); }, Open, -1},
    {"InsertRowBelow", [](Desk&, kxGrid& g) { g.Grid().InsertRow(9); }, Open},
    // Working with cells, which commits the editor.
    {"SetCell", [](Desk&, kxGrid& g) { g.SetCell(3, 1, "other", "tag"); }, Closed},
    {"ReadCell", [](Desk&, kxGrid& g) { EXPECT_EQ(g.ReadCell(8, 2, true), "typed"); }, Closed},
    {"GridText", [](Desk&, kxGrid& g) { g.Grid().Text(3, 1, "other"); }, Open},
    // Working with the control.
    {"ValidTextData", [](Desk&, kxGrid& g) { EXPECT_TRUE(g.ValidTextData()); }, Closed},
    {"ReDraw", [](Desk&, kxGrid& g) { g.ReDraw(true); }, Open},
    {"SumRow", [](Desk&, kxGrid& g) { g.SumRow(true), g.ReDraw(true); }, Open},
    {"NotEditable", [](Desk&, kxGrid& g) { g.Editable(false); }, Left},
    {"MoreRows", [](Desk&, kxGrid& g) { g.Rows(40); }, Closed},
    {"MoreCols", [](Desk&, kxGrid& g) { g.Cols(9); }, Closed},
    {"AnotherDefinition", [](Desk&, kxGrid& g) { g.SetVsControl(std::make_shared<cVsControl>()); }, Open},
    {"NoDefinition", [](Desk&, kxGrid& g) { g.SetVsControl(nullptr); }, Open},
    {"Resize", [](Desk& d, kxGrid&) { d.resize(12000, 8000); }, Open},
    {"Wheel", [](Desk& d, kxGrid&) { d.wheel(1); }, Open},
    // The clerk goes on meanwhile, as in a window of the host's own.
    {"Enter", [](Desk& d, kxGrid&) { d.press(Key::Enter); }, Left},
    {"Tab", [](Desk& d, kxGrid&) { d.press(Key::Tab); }, Left},
    {"Click", [](Desk& d, kxGrid&) { d.click(2, 1); }, Left},
    {"Elsewhere", [](Desk& d, kxGrid&) { d.focusElsewhere(); }, Closed},
    {"MoreHelp", [](Desk& d, kxGrid&) { d.press(Key::F2); }, Open},
};

enum class Moment { AskedForTheList, AskedForItsOwnHelp, AskedToEdit };

class HostInTheHelp : public HelpTest, public ::testing::WithParamInterface<std::tuple<HelpAct, Moment>> {
  protected:
    static constexpr std::int32_t TypedRow = 8;

    HostInTheHelp() { rows(12); }

    Moment moment() const { return std::get<Moment>(GetParam()); }
    Fate fate() const { return std::get<HelpAct>(GetParam()).fate; }
    Cell target() const { return {TypedRow + std::get<HelpAct>(GetParam()).shift, HelpCol}; }

    /// The host acts at its moment, once, then goes on with `then`.
    void hostile(const std::function<void()>& then) {
        const auto act = [this, then, done = std::make_shared<bool>(false)] {
            if (std::exchange(*done, true)) return;
            std::get<HelpAct>(GetParam()).act(desk, grid);
            then();
        };
        HelpTable table("货号");
        table.field("code", "货号").field("name", "品名").result("code", "name").editable();
        table.row({"A1", "螺栓"});
        if (moment() == Moment::AskedForTheList) grid.GetHelpCodeInfo.connect([act](auto&&...) { act(); });
        answer(table);
        grid.GetHelpEdit.connect([act](const std::string&, Variant&) { act(); });
        grid.UserHelpEvent.connect(
            [act](std::int32_t, std::int32_t, std::string& psText, Variant& pvarValue) {
                act();
                psText = "螺栓";
                pvarValue = "A1";
            });
        offer(moment() == Moment::AskedForItsOwnHelp ? ih特殊型 : ih通用型, "goods");
        desk.onDialog([this](LookupDialog& d) {
            if (moment() == Moment::AskedToEdit) d.Edit();
            if (d.open()) d.doubleClickRow(1);
        });
    }
    void askForHelp() {
        openAt(TypedRow, HelpCol);
        grid.Text("typed");
        grid.TextTag(KeptTag);
        log.clear();
        desk.clear();
        desk.press(Key::F2);
    }
    /// Cells, and the editor, that hold something of what was chosen.
    int traces() const {
        int found = 0;
        const auto look = [&](const std::string& text) { found += text == "A1" || text == "螺栓"; };
        for (std::int32_t row = 0; row < grid.Rows(); ++row)
            for (std::int32_t col = 0; col < grid.Cols(); ++col) look(text(row, col)), look(tag(row, col));
        if (desk.editor().visible) look(desk.editor().text), look(desk.editor().tag);
        return found;
    }
    /// A clerk at the same control: a text, and a list of constants.
    void expectToWork() {
        grid.Editable(true);
        desk.resize(9000, 6000);
        if (open()) desk.clickEditor().press(Key::Escape);
        desk.onDialog(std::function<void(LookupDialog&)>());
        if (grid.Cols() < 6) grid.Cols(6);
        desk.focusGrid();
        if (current() == Cell{2, 2}) at(1, 1);
        openAt(2, 2);
        desk.type("plain").press(Key::Enter);
        EXPECT_EQ(text(2, 2), "plain");
        EXPECT_EQ(current(), (Cell{2, 3}));
        column(3).i帮助类型(ih常量型);
        column(3).sHelp_Code("箱;1|件;2");
        desk.onDialog([](ConstantDialog& d) { d.doubleClickRow(2); });
        desk.press(Key::Space).press(Key::F2).press(Key::Enter);
        EXPECT_EQ(text(2, 3), "2");
        EXPECT_EQ(tag(2, 3), "件");
        EXPECT_FALSE(open());
    }
};

std::string nameOfCase(const ::testing::TestParamInfo<std::tuple<HelpAct, Moment>>& tested) {
    constexpr const char* Moments[] = {"WhenAskedForTheList", "WhenAskedForItsOwnHelp", "WhenAskedToEdit"};
    return std::string(std::get<HelpAct>(tested.param).name) +
           Moments[static_cast<std::size_t>(std::get<Moment>(tested.param))];
}
INSTANTIATE_TEST_SUITE_P(Does, HostInTheHelp,
                         ::testing::Combine(::testing::ValuesIn(HelpActs),
                                            ::testing::Values(Moment::AskedForTheList,
                                                              Moment::AskedForItsOwnHelp,
                                                              Moment::AskedToEdit)),
                         nameOfCase);

TEST_P(HostInTheHelp, AndAnswers) {
    hostile([] {});
    askForHelp();
    EXPECT_EQ(boxes(), std::vector<MessageBox>{});
    if (fate() != Left) {
        EXPECT_EQ(current(), target());
        EXPECT_EQ(inEditor(), (Pair{"A1", "螺栓"}));
        EXPECT_EQ(desk.focusOwner(), FocusPlace::Editor);
        EXPECT_EQ(traces(), 2) << "in the editor alone";
        desk.press(Key::Enter);
        EXPECT_EQ(text(target().row, target().col), "A1");
        EXPECT_EQ(tag(target().row, target().col), "螺栓");
    } else {
        EXPECT_EQ(traces(), 0);
        if (open()) {
            EXPECT_EQ(desk.editor().text, "q");
            EXPECT_EQ(desk.focusOwner(), FocusPlace::Editor);
        }
    }
    expectToWork();
}

TEST_P(HostInTheHelp, AndFails) {
    hostile([] { throw HostFailure(); });
    EXPECT_THROW(askForHelp(), HostFailure);
    EXPECT_EQ(boxes(), std::vector<MessageBox>{});
    if (std::string(std::get<HelpAct>(GetParam()).name) == "MoreHelp") {
        EXPECT_EQ(inEditor(), (Pair{"A1", "螺栓"})) << "of the inner help, which did not fail";
    } else {
        EXPECT_EQ(traces(), 0);
        if (fate() == Open) {
            EXPECT_EQ(inEditor(), kept("typed"));
            EXPECT_EQ(text(target().row, target().col), "");
        }
    }
    expectToWork();
}

TEST_P(HostInTheHelp, AndClosesTheWindow) {
    kxGrid& other = desk.place();
    other.ReDraw(true);
    desk.use(grid);
    hostile([this] { desk.remove(grid); });
    askForHelp();
    desk.use(other);
    desk.focusGrid().type("x").press(Key::Enter);
    EXPECT_EQ(other.Grid().Text(1, 1), "x");
}

TEST_F(HelpTest, AHostThatFailsInItsOwnHelpLeavesTheCell) {
    offer(ih特殊型);
    grid.UserHelpEvent.connect([](std::int32_t, std::int32_t, std::string& text, Variant& value) {
        text = "half";
        value = "done";
        throw HostFailure();
    });
    openWith("typed");
    EXPECT_THROW(desk.press(Key::F2), HostFailure);
    EXPECT_EQ(inEditor(), kept("typed"));
    desk.press(Key::Enter);
    EXPECT_EQ(text(HelpRow, HelpCol), "typed");
}

TEST_F(HelpTest, AScriptThatFailsInADialogClosesIt) {
    offer(ih常量型, "A;1");
    openWith("typed");
    desk.onDialog([](ConstantDialog& d) {
        d.clickRow(1);
        throw HostFailure();
    });
    EXPECT_THROW(desk.press(Key::F2), HostFailure);
    EXPECT_EQ(inEditor(), kept("typed"));
    EXPECT_EQ(HelpExchange::shared().ReturnCode, "");
}

TEST_F(HelpTest, NothingCanBeDoneInADialogThatHasClosed) {
    offer(ih常量型, "A;1");
    help<ConstantDialog>("typed", [](ConstantDialog& d) {
        d.Cancel();
        EXPECT_THROW(d.Ok(), std::logic_error);
        EXPECT_THROW(d.press(Key::Enter), std::logic_error);
        EXPECT_THROW(d.clickRow(1), std::logic_error);
    });
    EXPECT_EQ(inEditor(), kept("typed"));
}
}  // namespace
}  // namespace kxVsGrid::testing
