// Any bytes as a draft, as they are and as the lines of one with good checksums: nothing breaks, what is
// refused changes nothing, and what comes back comes back the same a second time.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <iostream>
#include <string>
#include <string_view>
#include <vector>

#include "changes/DraftLine.h"
#include "kxVsGrid/Draft.h"

namespace {

using namespace kxVsGrid;

constexpr std::int32_t Cols = 4;

void require(bool condition, const char* what) {
    if (condition) return;
    std::cerr << what << '\n';
    std::abort();
}

std::vector<std::string> contentOf(const CellGrid& grid) {
    std::vector<std::string> content;
    for (std::int32_t row = grid.FixedRows(); row < grid.Rows(); ++row)
        for (std::int32_t col = 0; col < grid.Cols(); ++col) {
            content.push_back(grid.Text(row, col));
            content.push_back(grid.Data(row, col));
        }
    return content;
}

/// Rows by the million are slow, and nothing else.
bool namesManyRows(std::string_view fields) {
    int digits = 0;
    for (const char c : fields) {
        digits = c >= '0' && c <= '9' ? digits + 1 : 0;
        if (digits > 3) return true;
    }
    return false;
}

/// The lines of the input behind the header of a draft.
std::string draftOf(std::string_view input) {
    CellGrid grid;
    grid.Cols(Cols);
    std::string bytes;
    Draft draft(grid, [&bytes](std::string_view more) {
        bytes += more;
        return true;
    });
    draft.begin("key", "version");
    changes::DraftPlace place{
        1, changes::readLine(std::string_view(bytes).substr(1, bytes.size() - 2), 0)->checksum};
    while (!input.empty()) {
        const std::size_t end = input.find('\n');
        const std::string_view fields = input.substr(0, end);
        if (!fields.empty() && !namesManyRows(fields)) changes::appendLine(bytes, place, fields);
        input.remove_prefix(end == std::string_view::npos ? input.size() : end + 1);
    }
    return bytes;
}

void recover(std::string_view bytes, bool document) {
    CellGrid grid;
    grid.Cols(Cols);
    grid.Text(1, 1, "stays");
    const DraftInfo info = recoverDraft(grid, bytes, document);
    const DraftInfo looked = lookAtDraft(bytes);
    require(looked.steps == info.steps && looked.whole == info.whole && looked.damage == info.damage,
            "looking tells something else than recovering");
    if (!info.refusal.empty()) {
        require(grid.Text(1, 1) == "stays" && grid.Rows() == CellGrid().Rows(), "a refused draft changed it");
        return;
    }
    CellGrid again;
    again.Cols(Cols);
    if (document) again.Text(1, 1, "stays");
    recoverDraft(again, bytes, document);
    require(contentOf(again) == contentOf(grid), "it came back otherwise");
}
}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view input(reinterpret_cast<const char*>(data), size);
    recover(input, false);
    const std::string lines = draftOf(input);
    recover(lines, false);
    recover(lines, true);
    return 0;
}
