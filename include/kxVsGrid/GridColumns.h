// A grid control as the column page sees it. What the page applies is shown at once when the control is up to
// date (ReDraw True), and the container hears that the definitions have changed.
#pragma once

#include "kxVsGrid/ControlPage.h"
#include "kxVsGrid/kxGrid.h"

namespace kxVsGrid {

class GridColumns : public ColumnSource {
  public:
    explicit GridColumns(kxGrid& grid) : grid_(grid) {}

    std::string FormatString() override;
    std::int32_t Cols() override;
    std::int32_t Col() override;
    void Col(std::int32_t col) override;
    std::shared_ptr<cVsControl> SetVsControl() override;
    void SetVsControl(std::shared_ptr<cVsControl> definition) override;
    void applied() override;

  private:
    kxGrid& grid_;
};
}  // namespace kxVsGrid
