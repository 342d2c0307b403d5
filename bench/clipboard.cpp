// A block of order lines to the clipboard and from it: each cell passes the checks of its column, is one step
// with all others, and a host that knows its codes by heart answers for them.
#include <QStringList>
#include <memory>
#include <stdexcept>
#include <string>
#include <unordered_map>

#include "Contestants.h"
#include "Measure.h"
#include "Plan.h"
#include "Texts.h"

namespace kxbench {
namespace {

using kxVsGrid::Command;

constexpr std::int32_t Rows = 100'000;
constexpr std::int32_t Cols = 10;

/// Number columns take numbers, the first one codes that the host knows.
class PasteDesk : public OnDesk {
  public:
    PasteDesk() {
        define(grid, Cols);
        for (std::int32_t c = 0; c < Cols; ++c) grid.VsCtrl(col(c))->bIsEditable(true);
        const auto code = grid.VsCtrl(col(0));
        code->i有效性判断(1);
        code->i字段有效性判断类型(kxVsGrid::ij编码型);
        code->i帮助返回值显示类型(kxVsGrid::iText记Code);
        const Texts& texts = Texts::instance();
        for (std::int32_t r = 0; r < 1024; ++r) names_.emplace(texts.utf8(r, 0), "name");
        grid.TxtValidBmS.connect([this](const std::string&, const std::string&, const std::string&,
                                        const std::string& text, std::string& foundCode, std::string& name) {
            const auto found = names_.find(text);
            if (found == names_.end()) return;
            foundCode = found->first;
            name = found->second;
        });
        setRows(grid, Rows);
    }
    void fill() { fillCells(grid, Rows, Cols); }
    void copy() {
        grid.Grid().SelectRange(HeaderRows, HeaderCols, Rows, Cols);
        if (!desk.run(Command::Copy)) throw std::runtime_error("nothing was copied");
    }
    /// What another program has put there, so that every cell is checked.
    void paste(const std::string& text) {
        desk.clipboard(text);
        grid.Grid().Select(HeaderRows, HeaderCols);
        kxVsGrid::PasteReport report;
        const kxVsGrid::ScopedConnection told =
            grid.Commands().Reported.connect([&](const kxVsGrid::PasteReport& given) { report = given; });
        if (!desk.run(Command::Paste) || report.written != std::int64_t{Rows} * Cols)
            throw std::runtime_error("not all was pasted: " + report.summary() +
                                     (report.refusals.empty() ? "" : report.refusals.front().reason));
    }

  private:
    static std::int16_t col(std::int32_t c) { return static_cast<std::int16_t>(c + HeaderCols); }
    std::unordered_map<std::string, std::string> names_;
};

struct Ours {
    PasteDesk from;
    PasteDesk to;
    Ours() { from.fill(); }
    void run() {
        from.copy();
        to.paste(from.desk.clipboard());
    }
};

/// The parser that one writes first: it knows no quotes.
struct Lean {
    LeanModel from;
    LeanModel to;
    Lean() {
        from.resize(Rows, Cols);
        fillCells(from, Rows, Cols);
        to.resize(Rows, Cols);
    }
    void run() {
        QString text;
        for (int r = 0; r < Rows; ++r)
            for (int c = 0; c < Cols; ++c) {
                text += from.data(from.index(r, c)).toString();
                text += c + 1 < Cols ? u'\t' : u'\n';
            }
        const QStringList lines = text.split(u'\n');
        for (int r = 0; r < Rows; ++r) {
            const QStringList cells = lines[r].split(u'\t');
            for (int c = 0; c < Cols; ++c) to.setData(to.index(r, c), cells[c]);
        }
    }
};

template <class Contestant>
void add(const std::string& name) {
    measure(name, 1, 7, [](benchmark::State& state) {
        for (auto _ : state) {
            returnFreedMemory();
            auto contestant = std::make_unique<Contestant>();
            state.SetIterationTime(seconds([&] { contestant->run(); }));
        }
    });
}
}  // namespace

void planClipboard(Plan& plan) {
    Group group{"clipboard", {}, {}};
    add<Ours>("clipboard/desk");
    add<Lean>("clipboard/lean");
    group.lines.push_back({"copy and paste 100,000 x 10 through all checks, beside setData and plain splits",
                           "clipboard/desk", "clipboard/lean", Limit::Ratio, 1.5, Show::Milliseconds});
    plan.push_back(group);
}
}  // namespace kxbench
