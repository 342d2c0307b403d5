// Any acts of a clerk and a host: undone from the first to the last they leave nothing behind, redone all is
// there again, and the log of changes tells what a copy of the saved grid tells.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <iostream>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "kxVsGrid/headless/Desk.h"

namespace {

using namespace kxVsGrid;

constexpr std::int32_t Cols = 36;  // more than the log and the history keep in one word
constexpr std::int32_t MostRows = 12;

void require(bool condition, const char* what) {
    if (condition) return;
    std::cerr << what << '\n';
    std::abort();
}

/// The input, a byte at a time; zeros after its end.
class Bytes {
  public:
    Bytes(const std::uint8_t* data, std::size_t size) : at_(data), end_(data + size) {}
    bool any() const { return at_ != end_; }
    std::uint8_t next() { return any() ? *at_++ : std::uint8_t{0}; }
    std::int32_t below(std::int32_t count) { return next() % count; }

  private:
    const std::uint8_t* at_;
    const std::uint8_t* end_;
};

using Line = std::map<std::int32_t, std::pair<std::string, std::string>>;  ///< cells that hold something
using Content = std::vector<Line>;

class Acts {
  public:
    explicit Acts(Bytes& bytes) : bytes_(bytes) {
        grid_.Cols(Cols);
        grid_.VsCtrl(2)->iType(flexDTDouble);
        grid_.VsCtrl(3)->iType(flexDTBoolean);
        grid_.AddVsRow.connect([this](std::int32_t, bool& consent) { consent = cells().Rows() < MostRows; });
        grid_.DeleteVsRow.connect([](std::int32_t, bool& consent) { consent = true; });
        grid_.AfterEdit.connect([this](std::int32_t row, std::int32_t) {
            if (bytes_.below(4) == 0) grid_.SetCell(row, 4, text(), text());
        });
        grid_.ReDraw(true);
        desk_.focusGrid();
    }
    void run() {
        save();
        while (bytes_.any()) {
            act();
            require(!grid_.Changes().Unknown(), "the log is lost");
        }
        compareLog();
        goThrough();
        compareLog();
    }

  private:
    CellGrid& cells() { return grid_.Grid(); }
    std::int32_t row() { return 1 + bytes_.below(cells().Rows() - 1); }
    std::int32_t col() { return bytes_.below(5) == 0 ? 1 + bytes_.below(Cols - 1) : 1 + bytes_.below(5); }
    std::string text() {
        const std::uint8_t byte = bytes_.next();
        if (byte % 4 == 0) return {};
        return byte % 4 == 1 ? "a text that fits into no slot" : std::to_string(byte);
    }

    void act() {
        switch (bytes_.below(12)) {
            case 0:
            case 1:
                return type();
            case 2:
                desk_.press(Key::Insert);
                return;
            case 3:
                desk_.press(Key::Delete);
                return;
            case 4:
                return choose();
            case 5:
                return write();
            case 6:
            case 7:
                return step();
            case 8:
                grid_.History().Undo();
                return;
            case 9:
                grid_.History().Redo();
                return;
            case 10:
                return goThrough();
            default:
                compareLog();
                if (bytes_.below(3) == 0) save();
        }
    }
    void type() {
        cells().Select(row(), col());
        desk_.type(std::to_string(bytes_.below(200))).press(bytes_.below(5) == 0 ? Key::Escape : Key::Enter);
        if (desk_.editor().visible) desk_.press(Key::Escape);
    }
    void choose() {
        static const char* const Items[] = {"新增行", "复制行", "插入行", "复制插入行", "删除行"};
        cells().Select(row(), col());
        desk_.onPopup([&](headless::PoppedMenu& menu) { menu.choose(Items[bytes_.below(5)]); });
        desk_.press(Key::Menu);
        desk_.onPopup({});
    }
    void write() {
        switch (bytes_.below(9)) {
            case 0:
                if (cells().Rows() < MostRows) cells().InsertRow(row());
                return;
            case 1:
                if (cells().Rows() > 3) cells().RemoveRow(row());
                return;
            case 2:
                return grid_.Rows(3 + bytes_.below(MostRows - 3));
            case 3:
                return cells().ClearText(row(), cells().Rows() - 1);
            case 4: {
                const std::int32_t first = row();
                const std::int32_t count = 1 + bytes_.below(cells().Rows() - first);
                return cells().MoveRows(first, count, 1 + bytes_.below(cells().Rows() - count));
            }
            default: {
                const std::int32_t at = row();
                for (std::int32_t n = 1 + bytes_.below(6); n > 0; --n)
                    grid_.SetCell(at, col(), text(), text());
            }
        }
    }
    void step() {
        const Content before = content();
        auto step = grid_.Step("step");
        for (std::int32_t n = 1 + bytes_.below(5); n > 0; --n) write();
        if (bytes_.below(3) != 0) return;
        require(step.takeBack(), "a step was not taken back");
        require(content() == before, "what was taken back left something behind");
    }

    /// All the way back and forth again.
    void goThrough() {
        std::vector<Content> passed;
        while (grid_.History().CanUndo()) {
            passed.push_back(content());
            require(grid_.History().Undo(), "a step was not undone");
        }
        for (; !passed.empty(); passed.pop_back()) {
            require(grid_.History().Redo(), "a step was not redone");
            require(content() == passed.back(), "a step was redone as another one");
        }
    }
    Line lineOf(std::int32_t row) {
        Line line;
        for (std::int32_t c = 1; c < Cols; ++c) {
            std::pair cell{cells().Text(row, c), cells().Data(row, c)};
            if (!cell.first.empty() || !cell.second.empty()) line[c] = std::move(cell);
        }
        return line;
    }
    Content content() {
        Content content;
        for (std::int32_t r = 1; r < cells().Rows(); ++r) content.push_back(lineOf(r));
        return content;
    }

    void save() {
        saved_.clear();
        for (std::int32_t r = 1; r < cells().Rows(); ++r)
            if (Line line = lineOf(r); !line.empty()) saved_[cells().IdOf(r)] = std::move(line);
        grid_.Changes().Saved();
    }
    void compareLog() {
        std::vector<RowId> added;
        std::vector<RowId> changed;
        std::size_t still = 0;
        for (std::int32_t r = 1; r < cells().Rows(); ++r) {
            const Line line = lineOf(r);
            const RowId id = cells().IdOf(r);
            const auto then = saved_.find(id);
            if (then == saved_.end() && !line.empty()) added.push_back(id);
            if (then == saved_.end() || line.empty()) continue;
            ++still;
            if (then->second != line) changed.push_back(id);
        }
        require(grid_.Changes().Added() == added, "other lines were added");
        std::vector<RowId> told;
        for (const ChangedRow& row : grid_.Changes().Changed()) told.push_back(row.row);
        require(told == changed, "other lines were changed");
        const std::vector<RemovedRow> removed = grid_.Changes().Removed();
        require(removed.size() == saved_.size() - still, "other lines were removed");
        for (const RemovedRow& row : removed) {
            Line line;
            for (const RemovedCell& cell : row.cells) line[cell.col] = {cell.text, cell.tag};
            require(saved_.at(row.row) == line, "a removed line was another one");
        }
        require(grid_.Changes().empty() == (added.empty() && changed.empty() && removed.empty()),
                "the log is empty, or not");
    }

    Bytes& bytes_;
    headless::Desk desk_;
    kxGrid& grid_ = desk_.place();
    std::map<RowId, Line> saved_;
};
}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size > 2'000) return 0;
    Bytes bytes(data, size);
    Acts(bytes).run();
    return 0;
}
