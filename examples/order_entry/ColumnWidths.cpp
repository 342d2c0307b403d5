#include "ColumnWidths.h"

#include <algorithm>

#include "kxVsGrid/qt/SettingsBag.h"

using namespace kxVsGrid;

ColumnWidths::ColumnWidths(kxGrid& grid, std::unique_ptr<QSettings> settings,
                           std::function<void(const QString&)> failed)
    : grid_(grid), settings_(std::move(settings)), failed_(std::move(failed)) {
    for (std::int32_t col = 0; col < grid_.Cols(); ++col)
        designed_.push_back({grid_.ColWidth(col), grid_.ColSample(col)});
    if (!settings_) return;
    settings_->beginGroup("columnWidths");
    restore();
    resized_ = grid_.Grid().AfterUserResize.connect([this](std::int32_t, std::int32_t col) { keep(col); });
}

std::string ColumnWidths::name(std::int32_t col) const {
    return grid_.VsCtrl(static_cast<std::int16_t>(col))->sName();
}

void ColumnWidths::restore() {
    for (std::int32_t col = 0; col < grid_.Cols(); ++col)
        if (const std::int32_t twips = kept(col)) put(col, twips);
}

/// 0 for nothing that can be used: the file is the user's, who may have written anything into it.
std::int32_t ColumnWidths::kept(std::int32_t col) const {
    try {
        const std::int32_t twips = qt::SettingsBag(*settings_).Read(name(col), std::int32_t{0}).toInt32();
        return twips >= Narrowest && twips <= Widest ? twips : 0;
    } catch (const std::exception&) {  // no number, or a damaged file
        return 0;
    }
}

void ColumnWidths::keep(std::int32_t col) {
    try {
        qt::SettingsBag bag(*settings_);
        bag.Write(name(col), grid_.ColWidth(col), designed_.at(static_cast<std::size_t>(col)).width);
        bag.sync();
    } catch (const std::exception& error) {
        failed_(QString::fromUtf8(error.what()));
    }
}

void ColumnWidths::reset() {
    if (settings_) {
        settings_->remove(QString());
        settings_->sync();
    }
    for (std::int32_t col = 0; col < std::min(grid_.Cols(), static_cast<std::int32_t>(designed_.size()));
         ++col) {
        const Design& design = designed_[static_cast<std::size_t>(col)];
        put(col, design.width);
        if (!design.sample.empty()) grid_.ColSample(col, design.sample);
    }
}

/// The total row would follow with the next layout only.
void ColumnWidths::put(std::int32_t col, std::int32_t twips) {
    grid_.ColWidth(col, twips);
    grid_.Grid_Sum().ColWidth(col, twips);
}
