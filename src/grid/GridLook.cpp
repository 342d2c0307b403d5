// How the control looks: colours go to both of its grids and are settings of its container.
#include "grid/Parts.h"

namespace kxVsGrid {

std::uint32_t kxGrid::BackColor() const {
    return parts_->main.BackColor();
}

void kxGrid::BackColor(std::uint32_t color) {
    parts_->main.BackColor(color);
    parts_->sums.BackColor(parts_->main.BackColor());
    parts_->report("BackColor");
}

std::uint32_t kxGrid::BackColorBkg() const {
    return parts_->main.BackColorBkg();
}

void kxGrid::BackColorBkg(std::uint32_t color) {
    parts_->main.BackColorBkg(color);
    parts_->sums.BackColorBkg(parts_->main.BackColorBkg());
    parts_->report("BackColorBkg");
}

std::uint32_t kxGrid::BackColorFixed() const {
    return parts_->main.BackColorFixed();
}

void kxGrid::BackColorFixed(std::uint32_t color) {
    parts_->main.BackColorFixed(color);
    parts_->sums.BackColorFixed(parts_->main.BackColorFixed());
    parts_->report("BackColorFixed");
}

std::uint32_t kxGrid::ForeColor() const {
    return parts_->main.ForeColor();
}

void kxGrid::ForeColor(std::uint32_t color) {
    parts_->main.ForeColor(color);
    parts_->sums.ForeColor(parts_->main.ForeColor());
    parts_->report("ForeColor");
}

std::uint32_t kxGrid::ForeColorFixed() const {
    return parts_->main.ForeColorFixed();
}

void kxGrid::ForeColorFixed(std::uint32_t color) {
    parts_->main.ForeColorFixed(color);
    parts_->sums.ForeColorFixed(parts_->main.ForeColorFixed());
    parts_->report("ForeColorFixed");
}

std::int32_t kxGrid::Appearance() const {
    return parts_->main.Appearance();
}

void kxGrid::Appearance(std::int32_t appearance) {
    parts_->main.Appearance(appearance);
    parts_->report("Appearance");
}

void kxGrid::VsSumCellBackColor(std::uint32_t color) {
    parts_->totals.setColor(color);
}
}  // namespace kxVsGrid
