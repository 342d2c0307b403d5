// A clerk and a host who do what comes to their minds on a sheet, beside plain records.
#include <iostream>
#include <limits>
#include <stdexcept>

#include "sheet/TwinSheet.h"

namespace kxVsGrid::testing {
namespace {

#ifdef KX_THOROUGH
constexpr int ActsOfTheSheet = 34'000;  // of each of three kinds
#else
constexpr int ActsOfTheSheet = 1'000;
#endif

class RandomSheet : public TwinSheet {
  protected:
    RandomSheet() {
        sheet.onModified([this](bool modified) {
            EXPECT_NE(modified, heard) << "told twice: " << act_;
            heard = modified;
        });
        grid.AfterAddRow.connect([](bool& keep, auto...) { keep = true; });
        loadAnything();
        grid.Options(Key).sortable(true);
        grid.Options(Quantity).sortable(true);
        countEvents();
        desk.focusGrid();
    }
    void TearDown() override {
        if (HasFailure()) std::cout << "after: " << act_ << "\n" << desk.ascii();
    }
    void countEvents() {
        grid.CellChanged.connect([this](auto...) { ++events; });
        grid.RowColChange.connect([this] { ++events; });
        grid.SelChange.connect([this] { ++events; });
        grid.BeforeTextEdit.connect([this] { ++events; });
        grid.ValidData.connect([this](auto&...) { ++events; });
        grid.Changes().After.connect([this](const StepChanges&) { ++events; });
    }

    // --- Choices.
    std::int32_t roll(std::int32_t from, std::int32_t to) {
        return static_cast<std::int32_t>(dice.between(from, to));
    }
    std::int32_t anyRow() { return roll(1, grid.Rows() - 1); }
    std::int32_t anyTyped() { return roll(Key, Gift); }
    std::string oneOf(const std::vector<std::string>& texts) {
        return texts[static_cast<std::size_t>(roll(0, static_cast<std::int32_t>(texts.size()) - 1))];
    }
    std::string typedFor(std::int32_t col) {
        static const std::vector<std::string> Numbers{"1",    "2",       "12",   "0",   "-4",    "1.005",
                                                      "2*3",  "0.0005",  "7/4",  "",    "1/3",   "12.50",
                                                      "-.25", "1000000", "12ab", "3+4", "2.5*2", "5-5"};
        static const std::vector<std::string> Large{"999999999999999999",
                                                    "9999999999999999999",
                                                    "123456789.123",
                                                    "123456789012.123456",
                                                    "32768",
                                                    "1e3"};
        static const std::vector<std::string> Days{"2026-11-23", "11-23", "2027-02-29", "", "20261123", "x"};
        static const std::vector<std::string> Moments{"2026-11-23 08:05:09", "11-23", "", "x"};
        static const std::vector<std::string> Words{"a", "b", "word", "a b", "", "12", "甲"};
        switch (col) {
            case Key:
            case Note:
                return oneOf(Words);
            case Due:
                return oneOf(Days);
            case At:
                return oneOf(Moments);
            case Gift:
                return " ";
            default:
                return oneOf(dice.oneIn(8) ? Large : Numbers);
        }
    }
    /// A text that stands for a value, and rarely one that does not.
    std::string writtenFor(std::int32_t col) {
        if (dice.oneIn(40)) return oneOf({"x", "1e9", "2026-13-01", "99999999999999999999"});
        switch (col) {
            case Key:
            case Note:
                return oneOf({"a", "b", "word", "", "12"});
            case Due:
                return oneOf({"2026-11-23", "2027-01-01", ""});
            case At:
                return oneOf({"2026-11-23 08:05:09", ""});
            case Gift:
                return oneOf({"-1", "0", ""});
            case Count:
            case Pieces:
                return oneOf({"1", "-7", "0", "", "32000"});
            default:
                return oneOf({"1", "2.50", "0", "", "-4.125", "+7", "999999999999999999", ".5"});
        }
    }
    TwinEntry anyEntry() {
        TwinEntry e = entry(oneOf({"a", "b", "c", "long key"}), oneOf({"s", "t"}));
        if (dice.oneIn(2)) e.quantity = Decimal(roll(-3, 3));
        if (!dice.oneIn(4)) e.price = Decimal::scaled(roll(-500, 500), 2);
        if (dice.oneIn(9)) e.price = Decimal("999999999999999999");
        e.count = roll(-3, 3);
        if (dice.oneIn(2)) e.pieces = static_cast<std::int16_t>(roll(-3, 3));
        if (dice.oneIn(2)) e.due = Date{2026, 11, roll(1, 30)};
        if (dice.oneIn(3)) e.at = DateTime{2026, 11, roll(1, 30), 1, 2, 3};
        e.gift = dice.oneIn(2);
        e.amount = 77;
        e.number = 99;
        e.tax = 88;
        return e;
    }

    // --- Acts of the clerk.
    void type() {
        vs().Select(anyRow(), anyTyped());
        act_ = "type";
        const std::string text = typedFor(vs().Col());
        act_ += " '" + text + "' at " + std::to_string(vs().Row()) + "," + std::to_string(vs().Col());
        if (text.empty())
            desk.press(kxVsGrid::Key::F2).press(kxVsGrid::Key::Escape);
        else
            desk.type(text);
        desk.press(dice.oneIn(6) ? kxVsGrid::Key::Escape : kxVsGrid::Key::Enter);
        if (desk.editor().visible) desk.press(kxVsGrid::Key::Escape);
    }
    void key() {
        vs().Select(anyRow(), anyTyped());
        const bool more = grid.Rows() < 11 && dice.oneIn(2);
        act_ = more ? "insert" : "delete";
        desk.press(more ? kxVsGrid::Key::Insert : kxVsGrid::Key::Delete);
    }
    void command() {
        static const std::vector<Command> Any{
            Command::DuplicateRow, Command::InsertRow,  Command::AppendRow,   Command::DeleteRows,
            Command::DeleteRows,   Command::MoveRowUp,  Command::MoveRowDown, Command::CopyFromAbove,
            Command::FillDown,     Command::ClearCells, Command::Copy,        Command::Cut,
            Command::Paste,        Command::SortUp,     Command::SortDown,    Command::Unsort,
            Command::Today,        Command::SelectAll,  Command::SelectRow};
        select();
        Command chosen = Any[static_cast<std::size_t>(roll(0, static_cast<int>(Any.size()) - 1))];
        if (grid.Rows() > 11 &&
            (chosen == Command::DuplicateRow || chosen == Command::InsertRow || chosen == Command::AppendRow))
            chosen = Command::DeleteRows;
        act_ = std::string(nameOf(chosen)) + " at " + std::to_string(vs().Row()) + "," +
               std::to_string(vs().Col());
        desk.run(chosen);
    }
    void select() {
        vs().Select(anyRow(), roll(Key, Tax));
        if (dice.oneIn(2)) vs().SelectRange(anyRow(), roll(Key, Tax), anyRow(), roll(Key, Tax));
        if (dice.oneIn(4)) vs().SelectRows(anyRow(), anyRow());
    }
    void pasteBlock() {
        act_ = "paste a block";
        std::string text;
        const std::int32_t first = anyTyped();
        vs().Select(anyRow(), first);
        for (int line = roll(1, 4); line > 0; --line) {
            const std::int32_t last = std::min<std::int32_t>(Tax, first + roll(0, 5));
            for (std::int32_t col = first; col <= last; ++col)
                text += (col == first ? "" : "\t") + writtenFor(col);
            text += "\n";
        }
        desk.clipboard(text);
        if (grid.Rows() < 12) desk.run(Command::Paste);
    }
    void fillColumn() {
        vs().Select(anyRow(), anyTyped());
        act_ = "fill column " + std::to_string(vs().Col());
        desk.onPopup([&](headless::PoppedMenu& menu) {
            try {
                menu.choose("填充列", dice.oneIn(2) ? "序列方式填充" : "复制单元格");
            } catch (const std::logic_error&) {
            }
        });
        desk.press(kxVsGrid::Key::Menu);
        desk.onPopup({});
    }
    void replaceAll() {
        act_ = "replace all";
        vs().Select(anyRow(), anyTyped());
        grid.Find().Rule({.text = oneOf({"1", "a", "2", "word"})});
        grid.Find().ReplaceAll(oneOf({"3", "", "a", "1"}));
        grid.Find().End();
    }

    // --- Acts of the host.
    void write() {
        const std::int32_t row = anyRow(), col = dice.oneIn(9) ? roll(Amount, Tax) : anyTyped();
        grid.SetCell(row, col, writtenFor(col));
    }
    void hostStep() {
        act_ = "a host's step";
        auto step = grid.Step("by the host");
        for (int n = roll(1, 5); n > 0; --n) write();
        if (dice.oneIn(4)) {
            act_ += ", taken back";
            ASSERT_TRUE(step.takeBack());
        }
    }
    void unrecorded() {
        act_ = "unrecorded writes of a step, recomputed";
        {
            auto step = grid.Step("by the host");
            const auto span = grid.Unrecorded();
            for (int n = roll(1, 3); n > 0; --n) write();
        }
        sheet.recompute();
    }
    void outsideOfSteps() {
        act_ = "writes outside of steps, recomputed";
        for (int n = roll(1, 3); n > 0; --n) write();
        sheet.recompute();
    }
    void edit() {
        const std::int32_t row = anyRow();
        act_ = "edit row " + std::to_string(row);
        if (!read(row).wrong.empty()) return;
        if (dice.oneIn(3)) return sheet.put(row, anyEntry());
        sheet.edit(row, [&](TwinEntry& e) {
            if (dice.oneIn(2)) e.quantity = Decimal::scaled(roll(-20, 20), roll(0, 4));
            if (dice.oneIn(2)) e.note += "!";
            if (dice.oneIn(4)) e.due.reset();
            if (dice.oneIn(2)) e.price = Decimal(roll(0, 5));
            e.secret = "another";
            e.number = 50;
            e.id = 5;
        });
    }
    void append() {
        act_ = "append";
        if (grid.Rows() > 10) return;
        std::vector<TwinEntry> lines;
        for (int n = roll(0, 3); n > 0; --n) lines.push_back(anyEntry());
        const auto rows = sheet.append(lines);
        ASSERT_EQ(rows.size(), lines.size());
        for (std::size_t i = 0; i < lines.size(); ++i) {
            const TwinEntry now = read(rows[i]).entry;
            EXPECT_EQ(now.key, lines[i].key);
            EXPECT_EQ(now.count, lines[i].count);
        }
    }
    void loadAnything() {
        act_ = "load";
        std::vector<TwinEntry> lines;
        for (int n = roll(0, 6); n > 0; --n) lines.push_back(anyEntry());
        load(lines);
        EXPECT_FALSE(sheet.modified());
        EXPECT_FALSE(grid.History().CanUndo());
    }
    bool readable() {
        const auto rows = readAll();
        return std::all_of(rows.begin(), rows.end(), [](const TwinRow& row) { return row.wrong.empty(); });
    }
    void save() {
        act_ = "save";
        if (!readable()) return;
        auto changes = sheet.changes();
        store(changes);
        if (HasFatalFailure()) return;
        for (int n = dice.oneIn(2) ? roll(1, 4) : 0; n > 0; --n) {
            if (dice.oneIn(2))
                type();
            else if (dice.oneIn(2))
                grid.History().Undo();
            else
                key();
            compare();
            if (HasFatalFailure()) return;
        }
        act_ += ", accepted";
        sheet.accept(changes);
        take(changes);
    }

    void act() {
        switch (roll(0, 29)) {
            case 0:
            case 1:
            case 2:
            case 3:
            case 4:
            case 5:
                return type();
            case 6:
            case 7:
                return key();
            case 8:
            case 9:
            case 10:
            case 11:
                return command();
            case 12:
                return pasteBlock();
            case 13:
                return fillColumn();
            case 14:
                return replaceAll();
            case 15:
                return hostStep();
            case 16:
                return dice.oneIn(3) ? unrecorded() : outsideOfSteps();
            case 17:
            case 18:
                return edit();
            case 19:
                return append();
            case 20:
            case 21:
                return save();
            case 22:
                if (dice.oneIn(20)) loadAnything();
                return;
            case 23:
            case 24:
                act_ = "redo";
                return static_cast<void>(grid.History().Redo());
            default:
                act_ = "undo";
                return static_cast<void>(grid.History().Undo());
        }
    }

    // --- What has to be.
    void compare() {
        const std::vector<TwinRow> rows = readAll();
        compareComputed(rows);
        if (HasFatalFailure()) return;
        compareRecords(rows);
        if (HasFatalFailure()) return;
        compareChanges(rows);
        if (HasFatalFailure()) return;
        compareFaults(rows);
    }
    void compareComputed(const std::vector<TwinRow>& rows) {
        for (const TwinRow& row : rows) {
            TwinEntry made = row.entry;
            const bool known = row.wrong.empty();
            const bool computed = known && inUse(row);
            const auto failed = computed ? compute(made) : std::set<std::int32_t>{};
            for (const std::int32_t col : {Amount, Tax}) {
                const CellMark* const mark = grid.Mark(row.row, col);
                const bool problem = mark && mark->kind == CellMark::Kind::Problem;
                ASSERT_EQ(problem, failed.contains(col)) << row.row << "," << col << " " << row.entry;
                if (!computed || failed.contains(col)) {
                    ASSERT_EQ(row.texts.at(col), "") << row.row << "," << col << " " << row.entry;
                }
            }
            if (!computed) continue;
            ASSERT_EQ(row.entry.amount, made.amount) << row.entry;
            ASSERT_EQ(row.entry.tax, made.tax) << row.entry;
        }
    }
    void compareRecords(const std::vector<TwinRow>& rows) {
        std::vector<TwinEntry> lines;
        bool wrong = false;
        for (const TwinRow& row : rows) {
            wrong = wrong || !row.wrong.empty();
            if (!row.wrong.empty()) {
                ASSERT_THROW(static_cast<void>(sheet.record(row.row)), UnreadableCell) << row.row;
                continue;
            }
            ASSERT_EQ(sheet.isInUse(row.row), inUse(row)) << row.entry;
            if (inUse(row)) lines.push_back(row.entry);
        }
        if (wrong) {
            ASSERT_THROW(static_cast<void>(sheet.records()), UnreadableCell);
            return;
        }
        ASSERT_EQ(sheet.records(), lines);
        try {
            Decimal sum;
            for (const TwinEntry& line : lines) sum += line.tax;
            ASSERT_EQ(sheet.sum("tax"), sum);
        } catch (const DecimalError&) {
            ASSERT_THROW(static_cast<void>(sheet.sum("tax")), DecimalError);
        }
    }
    void compareChanges(const std::vector<TwinRow>& rows) {
        ASSERT_EQ(sheet.modified(), heard);
        if (std::any_of(rows.begin(), rows.end(), [](const TwinRow& row) { return !row.wrong.empty(); })) {
            ASSERT_THROW(static_cast<void>(sheet.changes()), UnreadableCell);
            ASSERT_TRUE(sheet.modified());
            return;
        }
        const auto expected = expectedChanges(rows);
        auto found = sheet.changes();
        ASSERT_EQ(sheet.modified(), !expected.empty());
        ASSERT_EQ(found.added.size(), expected.added.size());
        ASSERT_EQ(found.changed.size(), expected.changed.size());
        ASSERT_EQ(found.removed.size(), expected.removed.size());
        for (std::size_t i = 0; i < found.added.size(); ++i) {
            ASSERT_EQ(found.added[i].row, expected.added[i].row);
            ASSERT_EQ(found.added[i].record, expected.added[i].record);
        }
        for (std::size_t i = 0; i < found.changed.size(); ++i) {
            ASSERT_EQ(found.changed[i].row, expected.changed[i].row);
            ASSERT_EQ(found.changed[i].before, expected.changed[i].before);
            ASSERT_EQ(found.changed[i].after, expected.changed[i].after);
        }
        std::sort(found.removed.begin(), found.removed.end(),
                  [](const auto& a, const auto& b) { return a.row < b.row; });
        for (std::size_t i = 0; i < found.removed.size(); ++i) {
            ASSERT_EQ(found.removed[i].row, expected.removed[i].row);
            ASSERT_EQ(found.removed[i].before, expected.removed[i].before);
        }
    }
    void compareFaults(const std::vector<TwinRow>& rows) {
        std::vector<std::pair<std::int32_t, std::int32_t>> expected, found;
        for (const TwinRow& row : rows) {
            if (!row.wrong.empty()) {
                // What is not known breaks no rule.
                std::set<std::int32_t> wrong = row.wrong;
                if (!wrong.contains(Price) && row.entry.price == 0) wrong.insert(Price);
                for (const std::int32_t col : wrong) expected.emplace_back(row.row, col);
                continue;
            }
            if (!inUse(row)) continue;
            TwinEntry made = row.entry;
            const auto failed = compute(made);
            if (!quantityHolds(row.entry)) expected.emplace_back(row.row, Quantity);
            if (row.entry.price == 0) expected.emplace_back(row.row, Price);
            for (const std::int32_t col : failed) expected.emplace_back(row.row, col);
        }
        const int eventsBefore = events;
        const auto state =
            std::tuple(vs().Row(), vs().Col(), grid.History().UndoName(), desk.messages().size());
        const auto first = sheet.firstFault();
        for (const Fault& fault : sheet.faults()) found.emplace_back(fault.row, fault.col);
        ASSERT_EQ(found, expected);
        ASSERT_EQ(first.has_value(), !expected.empty());
        if (first) {
            ASSERT_EQ(std::pair(first->row, first->col), expected[0]);
        }
        ASSERT_EQ(events, eventsBefore);
        ASSERT_EQ(std::tuple(vs().Row(), vs().Col(), grid.History().UndoName(), desk.messages().size()),
                  state);
    }

    kit::Random dice;
    std::string act_ = "the start";
    int events = 0;
};

TEST_P(RandomSheet, IsWhatItsCellsSayAfterEveryAct) {
    std::string past;
    compare();
    for (int n = 0; n < ActsOfTheSheet && !HasFailure(); ++n) {
        act();
        if (HasFatalFailure()) return;
        compare();
        past += std::to_string(n) + " " + act_ + "\n";
        if (past.size() > 1500) past.erase(0, past.find('\n') + 1);
        if (HasFailure()) std::cout << past;
        if (n % 1000 == 0) desk.clear();
    }
}

INSTANTIATE_TEST_SUITE_P(Kinds, RandomSheet,
                         ::testing::Values(TwinKind{true, false}, TwinKind{false, false},
                                           TwinKind{true, true}),
                         [](const auto& kind) {
                             return std::string(kind.param.saysLines ? "Said" : "Unsaid") +
                                    (kind.param.numbered ? "Numbered" : "");
                         });
}  // namespace
}  // namespace kxVsGrid::testing
