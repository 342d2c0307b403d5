#include "sheet/ColumnLook.h"

#include <algorithm>

namespace kxVsGrid::sheet {
namespace {

constexpr std::int32_t LeastStretched = 1200;  // twips
/// A layout counts columns as too wide that leave less beside them.
constexpr std::int32_t Margin = 60;
}  // namespace

mEmDataType typeOf(FieldKind kind) {
    switch (kind) {
        case FieldKind::Number:
            return flexDTDouble;
        case FieldKind::Date:
        case FieldKind::Moment:
            return flexDTDate;
        case FieldKind::Flag:
            return flexDTBoolean;
        default:
            return flexDTString;
    }
}

mEmflexAlign alignmentOf(FieldKind kind) {
    if (kind == FieldKind::Number) return flexAlignRightCenter;
    return kind == FieldKind::Text ? flexAlignLeftCenter : flexAlignCenterCenter;
}

std::string formatOf(FieldKind kind, std::optional<int> decimals) {
    switch (kind) {
        case FieldKind::Number:
            if (!decimals) return {};
            return *decimals == 0 ? "#,##0"
                                  : "#,##0." + std::string(static_cast<std::size_t>(*decimals), '0');
        case FieldKind::Date:
            return "yyyy-mm-dd";
        case FieldKind::Moment:
            return "yyyy-mm-dd HH:mm:ss";
        default:
            return {};
    }
}

std::string_view usualText(FieldKind kind) {
    switch (kind) {
        case FieldKind::Date:
            return "2026-12-30  ";
        case FieldKind::Moment:
            return "2026-12-30 23:59:59  ";
        case FieldKind::Text:
            return "编码与名称等  ";
        default:
            return {};
    }
}

std::string sampleOf(const kxGrid& grid, std::string_view usual, const std::string& caption) {
    const TextMetrics& metrics = grid.Grid().Metrics();
    std::string heading = caption + "  ";
    return metrics.textWidth(usual) >= metrics.textWidth(heading) ? std::string(usual) : heading;
}

void putCaptions(kxGrid& grid, std::span<const std::string> captions) {
    std::string all;
    for (std::int32_t col = 0; col < grid.FixedCols(); ++col) all += col == 0 ? "行号|" : "|";
    for (const std::string& caption : captions) all += caption + "|";
    if (!all.empty()) all.pop_back();
    grid.FormatString(all);
}

/// Who hears of the width may destroy the control.
void stretch(kxGrid& grid, std::int32_t col) {
    std::int32_t others = 0;
    for (std::int32_t other = 0; other < grid.Cols(); ++other)
        if (other != col && !grid.ColHidden(other)) others += grid.ColWidth(other);
    const std::int32_t rest = std::max(LeastStretched, grid.Grid().ClientWidth() - others - Margin);
    if (rest == grid.ColWidth(col)) return;
    const std::weak_ptr<const void> life = grid.life();
    grid.ColWidth(col, rest);
    if (!life.expired())
        grid.Grid_Sum().ColWidth(col, rest);  // otherwise it follows with the next layout only
}
}  // namespace kxVsGrid::sheet
