#include "kxVsGrid/GridColumns.h"

namespace kxVsGrid {

std::string GridColumns::FormatString() {
    return grid_.FormatString();
}

std::int32_t GridColumns::Cols() {
    return grid_.Cols();
}

std::int32_t GridColumns::Col() {
    return grid_.Col();
}

void GridColumns::Col(std::int32_t col) {
    grid_.Col(col);
}

std::shared_ptr<cVsControl> GridColumns::SetVsControl() {
    return grid_.SetVsControl();
}

void GridColumns::SetVsControl(std::shared_ptr<cVsControl> definition) {
    grid_.SetVsControl(std::move(definition));
}

void GridColumns::applied() {
    if (grid_.ReDraw()) grid_.ReDraw(true);
}
}  // namespace kxVsGrid
