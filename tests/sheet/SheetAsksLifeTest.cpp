// Hosts who take the sheet away, and the control with it, in the middle of what a sheet asks them: codes, lists, what
// becomes of copies, which rows are lines, of which something is required.
#include <functional>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include "kxVsGrid/sheet/Sheet.h"
#include "sheet/SheetDesk.h"

namespace kxVsGrid::testing {
namespace {

class SheetThatAsks : public SheetDesk {
  protected:
    struct Part {
        std::string code, name;
    };
    struct Use {
        std::string code, place;
    };

    SheetThatAsks() {
        using Found = std::optional<Part>;
        auto parts = Codes<Part>::asking(
            [this](std::string_view typed) -> Found {
                if (asking) asking();
                if (typed == "9") throw std::runtime_error("断线");
                return Part{std::string(typed), "甲"};
            },
            &Part::code);
        parts.list([this] {
            if (listing) listing();
            return std::vector<Part>{{"1", "甲"}};
        });
        parts.edit([this](const std::string&) -> Found {
            if (editing) editing();
            return Part{"1", "甲"};
        });
        auto places = Codes<Part>::asking([](std::string_view) { return Found(); }, &Part::code);
        places.choose([this](std::int32_t, std::int32_t, const std::string&) -> Found {
            if (choosing) choosing();
            return Part{"2", "乙"};
        });
        sheet = std::make_unique<Sheet<Use>>(grid);
        sheet->code("code", "编码", &Use::code, parts).unknownColor(0xFF);
        sheet->code("place", "库位", &Use::place, places).preset("3").required([this](const Use&) {
            if (requiring) requiring();
            return true;
        });
        sheet->inUse([this](const Use& use) {
            if (judging) judging();
            return !use.code.empty();
        });
        sheet->copied([this](Use&) {
            if (copying) copying();
            return true;
        });
        sheet->failed([this](const std::string&) {
            if (failing) failing();
        });
        sheet->load(std::vector<Use>{{"1", "2"}, {"2", ""}});
        desk.focusGrid();
    }
    /// Sheet and control go when the host is asked, once.
    void goesIn(std::function<void()>& asked, const std::function<void()>& act) {
        asked = [this] {
            if (!sheet) return;
            sheet.reset();
            desk.remove(grid);
        };
        act();
        EXPECT_FALSE(sheet);
    }
    void help(std::int32_t col) {
        grid.Grid().Select(1, col);
        desk.type(" ").press(Key::F2);
    }

    std::function<void()> asking, listing, editing, choosing, requiring, judging, copying, failing;
    std::unique_ptr<Sheet<Use>> sheet;
};

TEST_F(SheetThatAsks, MayGoAsItTellsThatACodeCannotBeLookedUp) {
    goesIn(failing, [this] { type(1, 1, "9"); });
}

TEST_F(SheetThatAsks, MayGoAsItTellsThatThereIsNoHelp) {
    listing = [] { throw std::runtime_error("断线"); };
    goesIn(failing, [this] { help(1); });
}

TEST_F(SheetThatAsks, MayGoAsItLists) {
    goesIn(listing, [this] { help(1); });
}

TEST_F(SheetThatAsks, MayGoAsItsListIsEdited) {
    desk.onDialog([this](headless::LookupDialog& list) { goesIn(editing, [&] { list.Edit(); }); });
    help(1);
    EXPECT_FALSE(sheet);
}

TEST_F(SheetThatAsks, MayGoAsTheHostChooses) {
    goesIn(choosing, [this] { help(2); });
}

TEST_F(SheetThatAsks, MayGoAsARowIsCopied) {
    grid.Grid().Select(1, 1);
    goesIn(copying, [this] { desk.run(Command::DuplicateRow); });
}

TEST_F(SheetThatAsks, MayGoAsABlockMakesALine) {
    grid.Grid().Select(3, 1);
    desk.clipboard("5\n6\n7");
    goesIn(judging, [this] { desk.run(Command::Paste); });
}

TEST_F(SheetThatAsks, MayGoAsTheClerkIsTakenToARow) {
    Sheet<Use>& going = *sheet;
    goesIn(judging, [&] { going.goTo(4, "code"); });
}

TEST_F(SheetThatAsks, MayGoAsItIsCompleted) {
    Sheet<Use>& going = *sheet;
    goesIn(requiring, [&] { going.complete(); });
}

TEST_F(SheetThatAsks, MayGoAsItIsSaved) {
    Sheet<Use>& going = *sheet;
    goesIn(requiring, [&] { going.save([](RecordChanges<Use>&) {}); });
}

TEST_F(SheetThatAsks, IsWholeWhereTheHostThrows) {
    requiring = [] { throw std::runtime_error("不知道"); };
    sheet->complete();
    EXPECT_EQ(text(2, 2), "");
    EXPECT_EQ(sheet->firstFault().value().reason.empty(), false);
    requiring = {};
    sheet->complete();
    EXPECT_EQ(text(2, 2), "3");
}
}  // namespace
}  // namespace kxVsGrid::testing
