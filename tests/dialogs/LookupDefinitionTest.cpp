// What a host's definition says about the columns of the pick-list and about the help, and what becomes of
// definitions and records that are not as they should be.
#include "dialogs/Definitions.h"
#include "dialogs/HelpTest.h"

namespace kxVsGrid::testing {
namespace {

class LookupDefinition : public HelpTest {
  protected:
    LookupDefinition() { offer(ih通用型, "goods"); }

    void look(const Variant& info, const Variant& data, const LookupScript& script,
              std::string_view text = {}) {
        answer(codes(), info, data);
        help<LookupDialog>(text, script);
    }
    /// The one cell of a list of numbers whose field has these attributes.
    std::string shownNumber(Variant info, const Variant& value) {
        std::string shown;
        look(info, records({{"x", value}}), [&](LookupDialog& d) { shown = d.grid().DisplayText(1, 1); });
        return shown;
    }
    static Variant number() { return with(definition({"code", "price"}), 1, HelpPosition::Kind, 5); }
};

TEST_F(LookupDefinition, GivesEachFieldItsHeaderAndWidth) {
    Variant info = with(definition({"code", "name", " price "}), 0, HelpPosition::Header, " 货号 ");
    info = with(with(info, 0, HelpPosition::Width, 2100), 1, HelpPosition::Width, "700");
    look(info, records({{"A", "B", "C"}}), [](LookupDialog& d) {
        EXPECT_EQ(d.grid().Cols(), 3);
        EXPECT_EQ(d.grid().Text(0, 0), "货号");
        EXPECT_EQ(d.grid().Text(0, 1), "name");
        EXPECT_EQ(d.grid().Text(0, 2), "price");
        EXPECT_EQ(d.grid().ColWidth(0), 2100);
        EXPECT_EQ(d.grid().ColWidth(1), 700);
        EXPECT_EQ(d.grid().ColWidth(2), 1500);
    });
}

TEST_F(LookupDefinition, AHeaderMayHoldWhatAFormatStringWouldActOn) {
    const Variant info = with(definition({"code", "name"}), 0, HelpPosition::Header, "<a|^b;c");
    look(info, records({{"A", "B"}}), [](LookupDialog& d) {
        EXPECT_EQ(d.grid().Cols(), 2);
        EXPECT_EQ(d.grid().Text(0, 0), "<a|^b;c");
        EXPECT_EQ(d.grid().Rows(), 2);
    });
}

TEST_F(LookupDefinition, AlignsAndHidesFields) {
    Variant info = with(definition({"code", "name", "note", "mark"}), 0, HelpPosition::Alignment, 7);
    info = with(with(info, 1, HelpPosition::Visible, "0"), 2, HelpPosition::Visible, false);
    info = with(info, 3, HelpPosition::Visible, "1");
    look(info, records({{"A", "12", "C", "D"}}), [](LookupDialog& d) {
        EXPECT_EQ(d.grid().EffectiveAlignment(1, 0), flexAlignRightCenter);
        EXPECT_EQ(d.grid().EffectiveAlignment(1, 1), flexAlignRightCenter) << "a number";
        EXPECT_EQ(d.grid().EffectiveAlignment(1, 3), flexAlignLeftCenter) << "a text";
        EXPECT_FALSE(d.grid().ColHidden(0));
        EXPECT_TRUE(d.grid().ColHidden(1));
        EXPECT_TRUE(d.grid().ColHidden(2));
        EXPECT_FALSE(d.grid().ColHidden(3));
    });
}

TEST_F(LookupDefinition, ShowsNumbersWithSoManyDecimals) {
    EXPECT_EQ(shownNumber(number(), 1234.5), "1,234.50") << "no count given";
    const Variant plain = with(number(), 1, HelpPosition::Decimals, 3);
    EXPECT_EQ(shownNumber(plain, 1234.5), "1234.500");
    EXPECT_EQ(shownNumber(with(plain, 1, HelpPosition::Thousands, "1"), 1234.5), "1,234.500");
    EXPECT_EQ(shownNumber(with(plain, 1, HelpPosition::Thousands, true), 1234.5), "1,234.500");
    EXPECT_EQ(shownNumber(with(plain, 1, HelpPosition::Thousands, "0"), 1234.5), "1234.500");
    EXPECT_EQ(shownNumber(with(number(), 1, HelpPosition::Decimals, "0"), "1234"), "1234");
    EXPECT_EQ(shownNumber(with(number(), 1, HelpPosition::Decimals, "1"), "0.25"), "0.3");
    EXPECT_EQ(shownNumber(with(number(), 1, HelpPosition::Decimals, "none"), "1.5"), "1.50");
}

TEST_F(LookupDefinition, NumbersLineUpAtTheRightHoweverTheyAreWritten) {
    HelpTable table("货号");
    table.field("code", "货号").field("price", "单价", 1500, HelpKind::Number, 2);
    table.row({"A", 1234.5}).row({"B", "1,234.5"}).row({"C", " 7 "}).row({"D", "-0.125"}).row({"E", 1234567});
    table.row({"F", "面议"});
    look(table.GridInfo(), table.GridData(), [](LookupDialog& d) {
        EXPECT_EQ(rowsOf(d.grid()),
                  (Lines{"A|1,234.50", "B|1,234.50", "C|7.00", "D|-0.13", "E|1,234,567.00", "F|面议"}));
        for (std::int32_t row = 1; row < d.grid().Rows(); ++row)
            EXPECT_EQ(d.grid().EffectiveAlignment(row, 1), flexAlignRightCenter) << row;
    });
    for (const int kind : {8, 9, 10}) {
        const Variant info = with(definition({"code", "price"}), 1, HelpPosition::Kind, kind);
        look(info, records({{"A", "1"}, {"B", "面议"}}), [](LookupDialog& d) {
            EXPECT_EQ(d.grid().EffectiveAlignment(1, 1), flexAlignRightCenter);
            EXPECT_EQ(d.grid().EffectiveAlignment(2, 1), flexAlignRightCenter);
        });
    }
}

TEST_F(LookupDefinition, ShowsAmountsQuantitiesAndPricesInFixedWidth) {
    for (const auto& [kind, seven, big] :
         {std::tuple(8, "07", "1235"), std::tuple(9, "07", "1235"), std::tuple(10, "0007", "1235")}) {
        const Variant info = with(definition({"code", "price"}), 1, HelpPosition::Kind, kind);
        EXPECT_EQ(shownNumber(info, 7), seven);
        EXPECT_EQ(shownNumber(info, "1234.6"), big);
        EXPECT_EQ(shownNumber(with(info, 1, HelpPosition::Decimals, 3), 7), seven) << "whatever the count";
        EXPECT_EQ(shownNumber(with(info, 1, HelpPosition::Kind, std::to_string(kind)), 7), seven);
    }
}

TEST_F(LookupDefinition, ShowsTextsAsTheyAre) {
    const Variant info = definition({"code", "price"});
    EXPECT_EQ(shownNumber(info, "007"), "007");
    EXPECT_EQ(shownNumber(info, "1234.5"), "1234.5");
    EXPECT_EQ(shownNumber(info, 1234.5), "1234.5");
    EXPECT_EQ(shownNumber(number(), "no number"), "no number");
}

TEST_F(LookupDefinition, NamesOfFieldsAreTrimmedAndComparedExactly) {
    Variant info = with(definition({"Code", " code ", "code"}), 0, HelpPosition::CodeField, "  code");
    info = with(info, 0, HelpPosition::NameField, "Code ");
    look(info, records({{"N", "first", "second"}}), [](LookupDialog& d) {
        d.clickRow(1);
        d.Ok();
    });
    EXPECT_EQ(inEditor(), (Pair{"first", "N"}));
}

TEST_F(LookupDefinition, AnUnknownNameIsTheFirstColumn) {
    Variant info = with(definition({"a", "b"}), 0, HelpPosition::CodeField, "b");
    info = with(info, 0, HelpPosition::NameField, "no such field");
    look(info, records({{"A", "B"}}), [](LookupDialog& d) {
        d.clickRow(1);
        d.Ok();
    });
    EXPECT_EQ(inEditor(), (Pair{"B", "A"}));
}

TEST_F(LookupDefinition, WithoutTheNamedFieldsReturnsAndSearchesTheFirstColumn) {
    look(definition({"a", "b"}), records({{"A1", "B1"}, {"A2", "B2"}}), [](LookupDialog& d) {
        d.CodeText("B");
        EXPECT_EQ(d.grid().Row(), 0);
        d.CodeText("A2");
        EXPECT_EQ(d.grid().Row(), 2);
        d.Ok();
    });
    EXPECT_EQ(inEditor(), (Pair{"A2", "A2"}));
}

TEST_F(LookupDefinition, ShowsTheEditButtonForTheTextOneAndForTrueAlone) {
    const std::pair<Variant, bool> flags[] = {
        {"1", true},    {" 1 ", true}, {true, true},        {"0", false},
        {false, false}, {"", false},   {Variant(), false},  {Variant::null(), false},
        {"yes", false}, {"11", false}, {list({"1"}), false}};
    for (const auto& [flag, shown] : flags)
        look(with(definition({"a", "b"}), 0, HelpPosition::Editable, flag), records({{"A", "B"}}),
             [shown = shown](LookupDialog& d) { EXPECT_EQ(d.editShown(), shown); });
}

TEST_F(LookupDefinition, ReadsItsOwnSettingsFromTheFirstEntryAlone) {
    Variant info = with(definition({"a", "b"}), 1, HelpPosition::CodeField, "b");
    info = with(with(info, 1, HelpPosition::NameField, "b"), 1, HelpPosition::Editable, "1");
    look(info, records({{"A", "B"}}), [](LookupDialog& d) {
        EXPECT_FALSE(d.editShown());
        d.clickRow(1);
        d.Ok();
    });
    EXPECT_EQ(inEditor(), (Pair{"A", "A"}));
}

// --- Records of every shape.

TEST_F(LookupDefinition, RecordsCountFromTheLowerBoundsOfTheTable) {
    const Variant info = definition({"a", "b"});
    for (const std::int32_t lower : {0, 1, 5, -3})
        look(info, records({{"A1", "B1"}, {"A2", "B2"}, {"A3", "B3"}}, lower), [&](LookupDialog& d) {
            EXPECT_EQ(rowsOf(d.grid()), (Lines{"A1|B1", "A2|B2", "A3|B3"})) << "lower bound " << lower;
        });
}

TEST_F(LookupDefinition, MissingAndSurplusFieldsOfRecords) {
    look(definition({"a", "b", "c"}), records({{"A1"}, {"A2"}}), [](LookupDialog& d) {
        EXPECT_EQ(rowsOf(d.grid()), (Lines{"A1||", "A2||"}));
    });
    look(definition({"a", "b"}), records({{"A1", "B1", "C1", "D1"}}),
         [](LookupDialog& d) { EXPECT_EQ(rowsOf(d.grid()), (Lines{"A1|B1"})); });
}

TEST_F(LookupDefinition, AnArrayOfArraysIsATableWithRaggedRows) {
    const Variant data = list({Variant(), list({"A1"}), list({"A2", "B2", "C2"}), list({"A3", "B3"}, 1),
                               "no record", Variant::null(), list({})});
    look(definition({"a", "b"}), data, [](LookupDialog& d) {
        EXPECT_EQ(d.grid().Rows(), 8);
        EXPECT_EQ(rowsOf(d.grid())[1], "A1|");
        EXPECT_EQ(rowsOf(d.grid())[2], "A2|B2");
        EXPECT_EQ(rowsOf(d.grid())[3], "A3|B3");
        for (const int row : {0, 4, 5, 6}) EXPECT_EQ(rowsOf(d.grid())[static_cast<std::size_t>(row)], "|");
        d.CodeText("A3");
        EXPECT_EQ(d.grid().Row(), 4);
        d.idle();
        d.CodeText("A2");
        EXPECT_EQ(d.grid().Row(), 3);
    });
}

TEST_F(LookupDefinition, ADefinitionMayBeAnArrayOfArraysToo) {
    const Variant info = list({list({"", "a"}), list({"", "b", "", "", ""}), "no entry", list({"", "d"})});
    look(info, records({{"A", "B", "C", "D"}}), [](LookupDialog& d) {
        EXPECT_EQ(d.grid().Cols(), 4) << "an entry without a name in between is a field";
        EXPECT_EQ(d.grid().Text(0, 0) + d.grid().Text(0, 1) + d.grid().Text(0, 3), "abd");
        EXPECT_EQ(rowsOf(d.grid()), (Lines{"A|B|C|D"}));
    });
}

TEST_F(LookupDefinition, ValuesOfAnyTypeBecomeTexts) {
    look(definition({"a", "b"}),
         records({{12, 1.25},
                  {std::int16_t{-3}, Variant::null()},
                  {true, false},
                  {Variant(), list({"x", "y"})},
                  {0.1, 1e15}}),
         [](LookupDialog& d) {
             EXPECT_EQ(d.grid().Rows(), 6);
             EXPECT_EQ(rowsOf(d.grid())[0], "12|1.25");
             EXPECT_EQ(rowsOf(d.grid())[1], "-3|");
             EXPECT_EQ(rowsOf(d.grid())[3], "|");
             d.CodeText("12");
             EXPECT_EQ(d.grid().Row(), 1);
         });
}

TEST_F(LookupDefinition, AttributesOfOtherTypesCountAsTheirTextsOrAsMissing) {
    Variant info = definition({"a", "12", "c"});
    info = with(info, 1, HelpPosition::FieldName, 12);
    info = with(with(info, 0, HelpPosition::CodeField, 12), 0, HelpPosition::NameField, Variant::null());
    info = with(with(info, 0, HelpPosition::SearchFields, list({"a"})), 2, HelpPosition::Width, "wide");
    info = with(with(info, 2, HelpPosition::Header, list({})), 2, HelpPosition::Kind, Variant::null());
    info = with(info, 2, HelpPosition::Visible, list({}));
    look(info, records({{"A", "B", "C"}}), [](LookupDialog& d) {
        EXPECT_EQ(d.grid().Cols(), 3);
        EXPECT_EQ(d.grid().ColWidth(2), 1500);
        EXPECT_EQ(d.grid().Text(0, 2), "c");
        EXPECT_FALSE(d.grid().ColHidden(2));
        d.clickRow(1);
        d.Ok();
    });
    EXPECT_EQ(inEditor(), (Pair{"B", "A"}));
}

TEST_F(LookupDefinition, WidthsThatNoColumnCanHaveDoNoHarm) {
    for (const Variant& width :
         {Variant(-5), Variant("-99999999999"), Variant(2147483647), Variant("1e300")}) {
        const Variant info = with(definition({"a", "b"}), 0, HelpPosition::Width, width);
        look(info, records({{"A", "B"}}), [](LookupDialog& d) {
            EXPECT_GE(d.grid().ColWidth(0), 0);
            EXPECT_EQ(rowsOf(d.grid()), (Lines{"A|B"}));
        });
    }
}

TEST_F(LookupDefinition, NumbersOutOfRangeCountAsMissing) {
    Variant info = with(number(), 1, HelpPosition::Decimals, 1'000'000);
    EXPECT_EQ(shownNumber(info, 1.5), "1.50");
    EXPECT_EQ(shownNumber(with(info, 1, HelpPosition::Decimals, -1), 1.5), "1.50");
    EXPECT_EQ(shownNumber(with(definition({"a", "b"}), 1, HelpPosition::Kind, 99), "1.5"), "1.5");
    EXPECT_EQ(shownNumber(with(definition({"a", "b"}), 1, HelpPosition::Alignment, 99), "1.5"), "1.5");
}

TEST_F(LookupDefinition, TooFewAttributesAreMissingOnes) {
    Table info(0, 1, 0, 1);
    info.at(0, 1) = "a";
    info.at(1, 1) = "b";
    look(info, records({{"A", "B"}}), [](LookupDialog& d) {
        EXPECT_EQ(rowsOf(d.grid()), (Lines{"A|B"}));
        EXPECT_FALSE(d.editShown());
        d.CodeText("A");
        d.Ok();
    });
    EXPECT_EQ(inEditor(), (Pair{"A", "A"}));
}

TEST_F(LookupDefinition, ADefinitionWithoutAnyFieldOpensAnEmptyList) {
    for (const Variant& info : {list({1, 2, 3}), Variant(Table(0, 3, 5, 6)), Variant(Table(0, -1)),
                                list({"a", Variant::null()}), Variant(Table(1, 4, 0, 43))}) {
        look(
            info, records({{"A", "B"}}),
            [](LookupDialog& d) {
                d.CodeText("A");
                d.idle();
                d.CodeText("");
                keys(d, {Key::Down, Key::PageDown, Key::Up});
                d.Ok();
            },
            "text");
        EXPECT_EQ(inEditor(), kept("text"));
    }
}

TEST_F(LookupDefinition, AnUpperBoundBelowZeroIsPresentAndHoldsNoRecord) {
    look(
        definition({"a", "b"}), Table(0, -1),
        [](LookupDialog& d) {
            EXPECT_EQ(rowsOf(d.grid()), Lines{});
            d.CodeText("A");
            d.idle();
            d.CodeText("");
            EXPECT_EQ(d.grid().Row(), 0);
            keys(d, {Key::Down, Key::Enter});
            EXPECT_FALSE(d.open());
        },
        "text");
    EXPECT_EQ(boxes(), std::vector<MessageBox>{});
    EXPECT_EQ(inEditor(), kept("text"));
}

TEST_F(LookupDefinition, CellsOfTenThousandCharacters) {
    const std::string big(10'000, 'x');
    std::string wide;
    for (int i = 0; i < 10'000; ++i) wide += "货";
    Variant info = with(definition({"code", "name"}), 0, HelpPosition::CodeField, "code");
    info = with(with(info, 0, HelpPosition::NameField, "name"), 0, HelpPosition::SearchFields, "code;name");
    look(info, records({{big, wide + "1"}, {big + "y", wide + "2"}}), [&](LookupDialog& d) {
        for (int pass = 0; pass < 2; ++pass) {
            d.CodeText(big + "y");
            EXPECT_EQ(d.grid().Row(), 2);
            d.CodeText(wide);
            EXPECT_EQ(d.grid().Row(), 1);
            d.CodeText(wide + "2");
            EXPECT_EQ(d.grid().Row(), 2);
            d.CodeText(big + big);
            EXPECT_EQ(d.grid().Row(), 2) << "no hit: nothing changes";
            d.idle();
        }
        d.Ok();
    });
    EXPECT_EQ(inEditor(), (Pair{big + "y", wide + "2"}));
}
}  // namespace
}  // namespace kxVsGrid::testing
