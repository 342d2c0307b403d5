// The search of the pick-list: which cell a text finds, what the hit does, and that it stays the same while
// the index is built. A slow twin looks at every cell of every row.
#include <optional>

#include "dialogs/Definitions.h"
#include "dialogs/HelpTest.h"
#include "dialogs/LookupForm.h"
#include "kit/Random.h"

namespace kxVsGrid::testing {
namespace {

class LookupSearch : public HelpTest {
  protected:
    LookupSearch() { offer(ih通用型, "goods"); }

    static Variant info(const char* search, const char* name = "name") {
        Variant info = with(definition({"code", "name", "note"}), 0, HelpPosition::SearchFields, search);
        return with(with(info, 0, HelpPosition::CodeField, "code"), 0, HelpPosition::NameField, name);
    }
    static Variant goods() {
        return records({{"AB01", "ant", "x"},
                        {"ab02", "bee", "cat"},
                        {"AB03", "cat", "AB01"},
                        {" AB", "dog ", "螺栓M8"},
                        {"螺母", "螺栓M10", "bee"}});
    }
    void look(const char* search, const LookupScript& script) {
        answer(codes(), info(search), goods());
        help<LookupDialog>("", [&](LookupDialog& d) {
            script(d);
            if (!d.open()) return;
            d.idle();
            script(d);  // the same once the index stands
        });
    }
    /// Where the text leads from the header; nothing when it stays there.
    static Cell found(LookupDialog& d, std::string_view text) {
        d.CodeText("no such text at all");
        d.grid().Select(0, 0);
        d.CodeText(text);
        return {d.grid().Row(), d.grid().Col()};
    }
};

TEST_F(LookupSearch, FindsTheFirstRowWhoseFieldStartsWithTheText) {
    look("code", [](LookupDialog& d) {
        EXPECT_EQ(found(d, "A"), (Cell{1, 0}));
        EXPECT_EQ(found(d, "AB03"), (Cell{3, 0}));
        EXPECT_EQ(found(d, "螺"), (Cell{5, 0}));
        EXPECT_EQ(found(d, "B01"), (Cell{0, 0})) << "not inside a text";
        EXPECT_EQ(found(d, "AB011"), (Cell{0, 0})) << "not longer than it";
    });
}

TEST_F(LookupSearch, IsCaseSensitive) {
    look("code", [](LookupDialog& d) {
        EXPECT_EQ(found(d, "ab"), (Cell{2, 0}));
        EXPECT_EQ(found(d, "ab01"), (Cell{0, 0}));
    });
}

TEST_F(LookupSearch, TheLowestRowWinsThenTheFirstFieldOfTheList) {
    look("code;note", [](LookupDialog& d) {
        EXPECT_EQ(found(d, "AB03"), (Cell{3, 0}));
        EXPECT_EQ(found(d, "AB01"), (Cell{1, 0}));
        EXPECT_EQ(found(d, "ca"), (Cell{2, 2}));
    });
    look("note;code", [](LookupDialog& d) {
        EXPECT_EQ(found(d, "AB0"), (Cell{1, 0})) << "a lower row, though by the second field";
        EXPECT_EQ(found(d, "螺"), (Cell{4, 2}));
    });
    look("note;name;code", [](LookupDialog& d) {
        EXPECT_EQ(found(d, ""), (Cell{1, 2})) << "of one row the first field of the list";
    });
}

TEST_F(LookupSearch, TriesTheNameFieldWhenNoSearchFieldHasTheText) {
    look("code", [](LookupDialog& d) {
        EXPECT_EQ(found(d, "bee"), (Cell{2, 1}));
        EXPECT_EQ(found(d, "螺栓"), (Cell{5, 1}));
        EXPECT_EQ(found(d, "螺"), (Cell{5, 0})) << "the search field has it";
    });
    look("note", [](LookupDialog& d) {
        EXPECT_EQ(found(d, "bee"), (Cell{5, 2})) << "a later row of a search field comes first";
        EXPECT_EQ(found(d, "ant"), (Cell{1, 1}));
    });
}

TEST_F(LookupSearch, WithoutSearchFieldsLooksAtTheNameField) {
    look("", [](LookupDialog& d) {
        EXPECT_EQ(found(d, "cat"), (Cell{3, 1}));
        EXPECT_EQ(found(d, "AB"), (Cell{0, 0}));
        EXPECT_EQ(found(d, ""), (Cell{1, 1}));
    });
}

TEST_F(LookupSearch, AnUnknownSearchFieldIsTheFirstColumn) {
    look("nothing", [](LookupDialog& d) { EXPECT_EQ(found(d, "AB03"), (Cell{3, 0})); });
    look("note;Code", [](LookupDialog& d) { EXPECT_EQ(found(d, "AB03"), (Cell{3, 0})); });
    look("note;", [](LookupDialog& d) { EXPECT_EQ(found(d, "AB03"), (Cell{3, 0})); });
    look(";;;", [](LookupDialog& d) { EXPECT_EQ(found(d, "AB03"), (Cell{3, 0})); });
}

TEST_F(LookupSearch, TrimsTheTextButNotTheCells) {
    look("code", [](LookupDialog& d) {
        EXPECT_EQ(found(d, "  AB03 "), (Cell{3, 0}));
        EXPECT_EQ(found(d, " AB"), (Cell{1, 0})) << "without its blank it is another text";
        EXPECT_EQ(found(d, "\tAB"), (Cell{0, 0})) << "a blank alone is trimmed";
    });
}

TEST_F(LookupSearch, AnEmptyTextFindsTheFirstRow) {
    look("code", [](LookupDialog& d) {
        EXPECT_EQ(found(d, ""), (Cell{1, 0}));
        EXPECT_EQ(found(d, "   "), (Cell{1, 0}));
    });
}

TEST_F(LookupSearch, WithoutAHitNothingChanges) {
    look("code", [](LookupDialog& d) {
        d.CodeText("AB03");
        const std::int32_t top = d.grid().TopRow();
        d.CodeText("AB03x");
        EXPECT_EQ(d.grid().Row(), 3);
        EXPECT_EQ(d.grid().Col(), 0);
        EXPECT_EQ(d.grid().TopRow(), top);
        EXPECT_EQ(d.focused(), "CodeText");
    });
}

TEST_F(LookupSearch, SaysBesideTheBoxThatNothingBeginsSoAndKeepsTheRowInSight) {
    look("code", [](LookupDialog& d) {
        EXPECT_EQ(d.control("NotFound").caption, "");
        const Rect box = d.control("CodeText").place;
        const Rect said = d.control("NotFound").place;
        EXPECT_GE(said.left, box.right());
        EXPECT_LT(said.top, box.bottom());
        EXPECT_GT(said.bottom(), box.top);
        d.CodeText("AB03");
        d.resize(d.form().minWidth(), d.form().minHeight());
        d.grid().TopRow(d.grid().Rows() - 1);
        d.CodeText("AB03x");
        EXPECT_EQ(d.control("NotFound").caption, "没有找到");
        EXPECT_EQ(d.grid().Row(), 3);
        EXPECT_TRUE(d.grid().RowIsVisible(3));
        d.CodeText("AB");
        EXPECT_EQ(d.control("NotFound").caption, "");
        d.CodeText("zzz");
        d.CodeText("");
        EXPECT_EQ(d.control("NotFound").caption, "");
    });
}

TEST_F(LookupSearch, NeverReducesTheList) {
    look("code", [](LookupDialog& d) {
        for (const char* text : {"A", "AB03", "zzz", ""}) {
            d.CodeText(text);
            EXPECT_EQ(d.grid().Rows(), 6);
            for (std::int32_t row = 0; row < 6; ++row) EXPECT_FALSE(d.grid().RowHidden(row));
        }
    });
}

TEST_F(LookupSearch, FollowsEveryKeyOfTheClerk) {
    look("code", [](LookupDialog& d) {
        d.CodeText("");
        const std::pair<const char*, int> steps[] = {{"A", 1}, {"B", 1}, {"0", 1}, {"3", 3}};
        for (const auto& [key, row] : steps) {
            d.type(key);
            EXPECT_EQ(d.grid().Row(), row) << d.CodeText();
            EXPECT_EQ(d.focused(), "CodeText");
        }
        d.press(Key::Back);
        EXPECT_EQ(d.CodeText(), "AB0");
        EXPECT_EQ(d.grid().Row(), 1);
    });
}

TEST_F(LookupSearch, TheFirstKeyReplacesTheSelectedText) {
    answer(codes(), info("code"), goods());
    help<LookupDialog>("AB03", [](LookupDialog& d) {
        d.type("a");
        EXPECT_EQ(d.CodeText(), "a");
        EXPECT_EQ(d.grid().Row(), 2);
    });
}

TEST_F(LookupSearch, MakesTheRowTheTopRowAsFarAsTheListGoes) {
    std::vector<std::vector<Variant>> rows;
    for (int i = 1000; i < 1400; ++i) rows.push_back({std::to_string(i), "n", "x"});
    answer(codes(), info("code"), records(rows));
    help<LookupDialog>("1200", [](LookupDialog& d) {
        EXPECT_EQ(d.grid().Row(), 201);
        EXPECT_EQ(d.grid().TopRow(), 201);
        d.CodeText("1100");
        EXPECT_EQ(d.grid().TopRow(), 101);
        d.CodeText("1399");
        EXPECT_EQ(d.grid().Row(), 400);
        EXPECT_EQ(d.grid().TopRow(), d.grid().MaxTopRow());
        EXPECT_TRUE(d.grid().RowIsVisible(400));
        d.CodeText("");
        EXPECT_EQ(d.grid().TopRow(), 1);
    });
}

TEST_F(LookupSearch, HandsTheGridOneLeftArrowPerHit) {
    answer(codes(), info("code"), goods());
    help<LookupDialog>("", [](LookupDialog& d) {
        std::vector<int> pressed;
        d.grid().KeyDown.connect([&](std::int16_t& code, std::int16_t) { pressed.push_back(code); });
        d.CodeText("AB");
        EXPECT_EQ(pressed, (std::vector<int>{static_cast<int>(Key::Left)}));
        d.CodeText("ABX");
        EXPECT_EQ(pressed.size(), 1u) << "none without a hit";
        EXPECT_EQ(d.focused(), "CodeText");
    });
}

TEST_F(LookupSearch, SearchesAndReturnsNumbersAsTheyAreShown) {
    Variant info = with(definition({"price", "name"}), 0, HelpPosition::SearchFields, "price");
    info = with(with(info, 0, HelpPosition::Kind, 5), 0, HelpPosition::NameField, "name");
    answer(codes(), with(info, 0, HelpPosition::CodeField, "price"), records({{0.5, "a"}, {1234.5, "b"}}));
    help<LookupDialog>("", [](LookupDialog& d) {
        EXPECT_EQ(d.grid().DisplayText(2, 0), "1,234.50");
        d.CodeText("1234");
        EXPECT_EQ(d.grid().Row(), 0);
        d.CodeText("1,23");
        EXPECT_EQ(d.grid().Row(), 2);
        d.Ok();
    });
    EXPECT_EQ(inEditor(), (Pair{"1,234.50", "b"}));
}

TEST_F(LookupSearch, BytesThatAreNoCharactersAndZeroBytes) {
    const std::string zero("A\0B", 3);
    const std::string longer("A\0B\0", 4);
    answer(codes(), info("code"),
           records({{"A", "1", ""},
                    {zero, "2", ""},
                    {longer, "3", ""},
                    {"\xff\xfe", "4", ""},
                    {"货\xe8", "5", ""}}));
    help<LookupDialog>("", [&](LookupDialog& d) {
        for (int pass = 0; pass < 2; ++pass) {
            EXPECT_EQ(found(d, "A"), (Cell{1, 0}));
            EXPECT_EQ(found(d, std::string_view("A\0", 2)), (Cell{2, 0}));
            EXPECT_EQ(found(d, zero), (Cell{2, 0}));
            EXPECT_EQ(found(d, longer), (Cell{3, 0}));
            EXPECT_EQ(found(d, "\xff"), (Cell{4, 0}));
            EXPECT_EQ(found(d, "货"), (Cell{5, 0}));
            d.idle();
        }
    });
}

// --- Random lists and texts.

/// A window that keeps the idle work to be done slice by slice.
class Window : public FormWindow {
  public:
    void changed(const FormControl&) override {}
    void giveFocus(const FormControl&) override {}
    void close() override {}
    void whenIdle(std::function<bool()> slice) override { slices_.push_back(std::move(slice)); }
    /// One slice; false when nothing is left to do.
    bool work() {
        if (slices_.empty()) return false;
        if (!slices_.front()()) slices_.erase(slices_.begin());
        return true;
    }

  private:
    std::vector<std::function<bool()>> slices_;
};

/// The rule, word by word.
std::optional<Cell> slowly(const CellGrid& grid, const std::vector<std::int32_t>& columns,
                           std::int32_t nameColumn, std::string_view text) {
    const std::string wanted(support::trim(text));
    for (const auto& searched : {columns, std::vector<std::int32_t>{nameColumn}})
        for (std::int32_t row = grid.FixedRows(); row < grid.Rows(); ++row)
            for (const std::int32_t col : searched)
                if (grid.Text(row, col).starts_with(wanted)) return Cell{row, col};
    return std::nullopt;
}

class RandomList {
  public:
    explicit RandomList(kit::Random& random) : random_(random) {
        const auto alphabets = std::to_array<std::vector<std::string>>(
            {{"a", "b"}, {"a", "A", "1", " "}, {"货", "物", "a"}, {std::string(1, '\0'), "a"}, {"x"}});
        alphabet_ = alphabets[static_cast<std::size_t>(random.between(0, 4))];
        if (random.oneIn(3)) prefix_ = std::string(static_cast<std::size_t>(random.between(5, 20)), 'p');
    }
    std::string text() {
        std::string text = random_.oneIn(3) ? "" : prefix_;
        for (auto length = random_.between(0, 4); length > 0; --length)
            text += alphabet_[static_cast<std::size_t>(
                random_.between(0, static_cast<std::int64_t>(alphabet_.size()) - 1))];
        return text;
    }

  private:
    kit::Random& random_;
    std::vector<std::string> alphabet_;
    std::string prefix_;
};

TEST(RandomLookupSearch, FindsWhatLookingAtEveryCellFindsBeforeWhileAndAfterTheIndexIsBuilt) {
    constexpr int Lists = 600;
    constexpr int TextsPerStage = 20;
    static constexpr const char* Fields[] = {"f0", "f1", "f2", "f3"};
    kit::Random random;
    for (int i = 0; i < Lists; ++i) {
        RandomList texts(random);
        std::vector<std::vector<Variant>> rows(static_cast<std::size_t>(random.between(1, 40)));
        for (auto& row : rows)
            for (int field = 0; field < 4; ++field) row.push_back(texts.text());
        std::vector<std::int32_t> columns;
        std::string search;
        for (auto count = random.between(0, 3); count > 0; --count) {
            columns.push_back(static_cast<std::int32_t>(random.between(0, 3)));
            search += (search.empty() ? "" : ";") + std::string(Fields[columns.back()]);
        }
        const auto nameColumn = static_cast<std::int32_t>(random.between(0, 3));
        HelpExchange& exchange = HelpExchange::shared();
        exchange = {};
        exchange.GridInfo =
            with(definition({"f0", "f1", "f2", "f3"}), 0, HelpPosition::NameField, Fields[nameColumn]);
        exchange.GridInfo = with(exchange.GridInfo, 0, HelpPosition::SearchFields, search);
        exchange.GridData = records(rows);

        dialogs::LookupForm lookup(TextMetrics::fixed());
        Form& form = lookup;
        Window window;
        form.open(window);
        const CellGrid& grid = *form.control("CzxsGrid").grid;
        ASSERT_EQ(grid.Rows(), static_cast<std::int32_t>(rows.size()) + 1);
        std::string shown;
        bool working = true;
        while (working) {
            for (int n = 0; n < TextsPerStage; ++n) {
                const std::string text = texts.text();
                const Cell before{grid.Row(), grid.Col()};
                form.edit(form.control("CodeText"), text, 0, 0);
                if (text == std::exchange(shown, text)) continue;  // no change, no search
                const auto hit = slowly(grid, columns, nameColumn, text);
                ASSERT_EQ((Cell{grid.Row(), grid.Col()}), hit.value_or(before))
                    << "list " << i << ", fields " << search << ", text \"" << text << '"';
            }
            working = window.work();
        }
        form.closed();
    }
    HelpExchange::shared() = {};
}
}  // namespace
}  // namespace kxVsGrid::testing
