// The list of constants: how the column's text becomes rows, and what is returned.
#include "dialogs/HelpTest.h"

namespace kxVsGrid::testing {
namespace {

class Constants : public HelpTest {
  protected:
    void choose(std::string_view constants, const ConstantScript& script) {
        offer(ih常量型, constants);
        help<ConstantDialog>("text", script);
    }
    /// The rows of a list: name, a bar, value.
    Lines rows(std::string_view constants) {
        Lines found;
        choose(constants, [&](ConstantDialog& d) {
            for (std::int32_t row = 1; row < d.grid().Rows(); ++row)
                found.push_back(d.grid().Text(row, 1) + "|" + d.grid().Text(row, 2));
        });
        return found;
    }
    /// What the row of this number returns.
    Pair chosen(std::string_view constants, std::int32_t row) {
        choose(constants, [&](ConstantDialog& d) {
            d.clickRow(row);
            d.Ok();
        });
        return inEditor();
    }
};

TEST_F(Constants, ShowNamesAndValuesUnderAHeader) {
    choose("箱;1|件;2", [](ConstantDialog& d) {
        EXPECT_EQ(d.form().name(), "XT_Const");
        EXPECT_EQ(d.form().caption(), "常量");
        EXPECT_EQ(d.grid().FixedRows(), 1);
        EXPECT_EQ(d.grid().FixedCols(), 1);
        EXPECT_EQ(d.grid().Cols(), 3);
        EXPECT_EQ(d.grid().FormatString(), " |名称          |值");
        EXPECT_EQ(d.grid().Text(0, 1), "名称");
        EXPECT_EQ(d.grid().Text(0, 2), "值");
        EXPECT_EQ(d.grid().RowHeight(1), 300);
        EXPECT_NE(d.grid().Redraw(), 0);
        EXPECT_EQ(d.grid().Row(), 0);
    });
    EXPECT_EQ(rows("箱;1|件;2"), (Lines{"箱|1", "件|2"}));
}

TEST_F(Constants, ALeadingBarMakesNoRow) {
    EXPECT_EQ(rows("|Male;1|Female;2"), (Lines{"Male|1", "Female|2"}));
    EXPECT_EQ(rows("|A"), (Lines{"A|A"}));
}

TEST_F(Constants, AnEmptyListHasTheHeaderAloneAndReturnsNothing) {
    for (const char* constants : {"", "|", "  "}) {
        choose(constants, [](ConstantDialog& d) {
            EXPECT_EQ(d.grid().Rows(), 1);
            d.press(Key::Down);
            EXPECT_EQ(d.grid().Row(), 0);
            d.Ok();
            EXPECT_FALSE(d.open());
        });
        EXPECT_EQ(inEditor(), kept("text")) << constants;
    }
}

TEST_F(Constants, AnItemWithoutASemicolonIsNameAndValue) {
    EXPECT_EQ(rows("A|B"), (Lines{"A|A", "B|B"}));
    EXPECT_EQ(chosen("A|B", 2), (Pair{"B", "B"}));
}

TEST_F(Constants, OnlyTheFirstTwoPartsOfAnItemCount) {
    EXPECT_EQ(rows("A;1;x|B;2;;"), (Lines{"A|1", "B|2"}));
}

TEST_F(Constants, EmptyItemsAndPartsAreRows) {
    EXPECT_EQ(rows("A||B"), (Lines{"A|A", "|", "B|B"}));
    EXPECT_EQ(rows("A|"), (Lines{"A|A", "|"}));
    EXPECT_EQ(rows("||"), (Lines{"|", "|"}));
    EXPECT_EQ(rows("|||;|;;;"), (Lines{"|", "|", "|", "|"}));
    EXPECT_EQ(rows(";1|A;"), (Lines{"|1", "A|"}));
}

TEST_F(Constants, AnItemWithoutAValueLeavesTheCell) {
    EXPECT_EQ(chosen("A||B", 2), kept("text"));
    EXPECT_EQ(chosen("A;", 1), kept("text"));
    EXPECT_EQ(chosen(";1", 1), (Pair{"1", ""}));
}

TEST_F(Constants, ReturnTheValueAsCodeAndTheNameAsName) {
    EXPECT_EQ(chosen("|Male;1|Female;2", 2), (Pair{"2", "Female"}));
    EXPECT_EQ(chosen(" A b ; 1 ", 1), (Pair{"1", "A b"})) << "trimmed";
}

TEST_F(Constants, ADoubleClickTakesTheRow) {
    choose("A;1|B;2", [](ConstantDialog& d) {
        d.doubleClickRow(2);
        EXPECT_FALSE(d.open());
    });
    EXPECT_EQ(inEditor(), (Pair{"2", "B"}));
}

TEST_F(Constants, KeysAloneAreEnough) {
    choose("A;1|B;2|C;3", [](ConstantDialog& d) { keys(d, {Key::Down, Key::Down, Key::Enter}); });
    EXPECT_EQ(inEditor(), (Pair{"2", "B"}));
    choose("A;1|B;2|C;3", [](ConstantDialog& d) { keys(d, {Key::Down, Key::Down, Key::Up, Key::Enter}); });
    EXPECT_EQ(inEditor(), (Pair{"1", "A"}));
}

TEST_F(Constants, OkOnTheHeaderReturnsNothing) {
    choose("A;1", [](ConstantDialog& d) { d.Ok(); });
    EXPECT_EQ(inEditor(), kept("text"));
    choose("A;1", [](ConstantDialog& d) { d.press(Key::Enter); });
    EXPECT_EQ(inEditor(), kept("text"));
}

TEST_F(Constants, CancelEscapeAndTheFrameReturnNothing) {
    const std::initializer_list<ConstantScript> ends = {
        [](ConstantDialog& d) { d.Cancel(); }, [](ConstantDialog& d) { d.press(Key::Escape); },
        [](ConstantDialog& d) { d.closeByFrame(); }, [](ConstantDialog&) {}};
    for (const ConstantScript& end : ends) {
        choose("A;1", [&](ConstantDialog& d) {
            d.clickRow(1);
            end(d);
        });
        EXPECT_EQ(inEditor(), kept("text"));
    }
}

TEST_F(Constants, AreNotAskedFromTheHost) {
    choose("A;1", [](ConstantDialog& d) { d.doubleClickRow(1); });
    EXPECT_EQ(heard(), Lines{});
}

TEST_F(Constants, KeepTheirProportionsAndTheSizeOfTheColumn) {
    column(HelpCol).HelpWidth(6000);
    column(HelpCol).HelpHeight(5000);
    choose("A;1", [](ConstantDialog& d) {
        EXPECT_EQ(d.form().ScaleWidth(), 6000);
        EXPECT_EQ(d.form().ScaleHeight(), 5000);
        const Rect list = d.control("CzxsGrid").place;
        EXPECT_EQ(d.grid().Width(), list.width);
        d.resize(12000, 10000);
        EXPECT_NEAR(d.control("CzxsGrid").place.width, 2 * list.width, 1);
        EXPECT_NEAR(d.control("CzxsGrid").place.height, 2 * list.height, 1);
        EXPECT_EQ(d.grid().Width(), d.control("CzxsGrid").place.width);
        d.clickRow(1);
    });
}

TEST_F(Constants, WhoseNamesAreTheirValuesShowOneColumn) {
    choose("箱|件|盒;盒", [](ConstantDialog& d) {
        EXPECT_TRUE(d.grid().ColHidden(2));
        EXPECT_FALSE(d.grid().ColHidden(1));
        EXPECT_GT(d.grid().ColWidth(1), 2500);
        d.clickRow(2);
        d.Ok();
    });
    EXPECT_EQ(inEditor(), (Pair{"件", "件"}));
    choose("箱|件;2", [](ConstantDialog& d) { EXPECT_FALSE(d.grid().ColHidden(2)); });
}

TEST_F(Constants, BeginAtThePresentOneByNameOrValue) {
    offer(ih常量型, "箱;1|箱子;2|件;3");
    for (const auto& [present, row] : {std::pair(" 件 ", 3), std::pair("3", 3), std::pair("箱", 1),
                                       std::pair("箱子", 2), std::pair("盒", 0), std::pair("", 0)}) {
        help<ConstantDialog>(present, [&, at = row](ConstantDialog& d) {
            EXPECT_EQ(d.grid().Row(), at) << present;
            EXPECT_EQ(d.control("NotFound").caption, std::string_view(present) == "盒" ? "没有找到" : "");
        });
    }
    std::string many;
    for (int i = 0; i < 500; ++i) many += "|名" + std::to_string(i);
    offer(ih常量型, many);
    help<ConstantDialog>("名400", [](ConstantDialog& d) { EXPECT_TRUE(d.grid().RowIsVisible(401)); });
}

TEST_F(Constants, AreFoundByWhatIsTyped) {
    choose("Male;1|Female;2|F;3", [](ConstantDialog& d) {
        EXPECT_EQ(d.focused(), "CodeText");
        d.type("F");
        EXPECT_EQ(d.grid().Row(), 3) << "wholly typed";
        d.type("e");
        EXPECT_EQ(d.grid().Row(), 2);
        d.type("x");
        EXPECT_EQ(d.grid().Row(), 2) << "no such constant";
        EXPECT_EQ(d.control("NotFound").caption, "没有找到");
        d.press(Key::Enter);
    });
    EXPECT_EQ(inEditor(), (Pair{"2", "Female"}));
    choose("Male;1|Female;2", [](ConstantDialog& d) {
        d.type("1");
        EXPECT_EQ(d.grid().Row(), 1);
        EXPECT_EQ(d.control("NotFound").caption, "");
        d.press(Key::Down);
        EXPECT_EQ(d.grid().Row(), 2);
        d.press(Key::Enter);
    });
    EXPECT_EQ(inEditor(), (Pair{"2", "Female"}));
}

TEST_F(Constants, ListsOfAnyLength) {
    std::string constants;
    for (int i = 0; i < 3000; ++i) constants += "|名" + std::to_string(i) + ";" + std::to_string(i);
    choose(constants, [](ConstantDialog& d) {
        EXPECT_EQ(d.grid().Rows(), 3001);
        EXPECT_EQ(d.grid().Text(3000, 1), "名2999");
    });
    const std::string big(10'000, 'x');
    EXPECT_EQ(chosen(big + ";" + big + "y", 1), (Pair{big + "y", big}));
    EXPECT_EQ(rows(std::string(2000, '|')).size(), 2000u);
    EXPECT_EQ(rows(std::string(2000, ';')), (Lines{"|"}));
}
}  // namespace
}  // namespace kxVsGrid::testing
