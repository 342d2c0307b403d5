// The grid and its peers, each empty, and the ways to fill them with the same texts. A peer stands on a view
// that is not shown, as the grid stands on a machine of its own.
#pragma once

#include <QStandardItemModel>
#include <QTableView>
#include <QTableWidget>
#include <cstdint>
#include <memory>

#include "LeanModel.h"
#include "kxVsGrid/headless/Desk.h"
#include "kxVsGrid/kxGrid.h"
#include "kxVsGrid/qt/kxGridWidget.h"

namespace kxbench {

/// The grid without a window.
struct OnDesk {
    kxVsGrid::headless::Desk desk;
    kxVsGrid::kxGrid& grid = desk.place();
};
/// The grid as a widget.
struct OnWidget {
    kxVsGrid::qt::kxGridWidget widget;
    kxVsGrid::kxGrid& grid = widget.grid();
};

/// Data cell (r, c) is the grid's cell (r + HeaderRows, c + HeaderCols): the peers' headers are no cells.
constexpr std::int32_t HeaderRows = 1;
constexpr std::int32_t HeaderCols = 1;
/// The data columns whose totals are kept.
constexpr std::int32_t FirstSummed = 4;
constexpr std::int32_t SecondSummed = 6;

/// Columns as they come, ReDraw False.
void leavePlain(kxVsGrid::kxGrid& grid, std::int32_t cols);
/// Columns of the grid as an order form defines them: numbers, dates, two sums, a total row; ReDraw True.
void define(kxVsGrid::kxGrid& grid, std::int32_t cols);
/// The wanted number of data rows; the columns came first.
void setRows(kxVsGrid::kxGrid& grid, std::int32_t rows);
/// Texts and tags of every cell, by single SetCells.
void fillCells(kxVsGrid::kxGrid& grid, std::int32_t rows, std::int32_t cols);

/// The same by columns, whose texts come in blocks.
void fillColumns(kxVsGrid::kxGrid& grid, std::int32_t rows, std::int32_t cols);

struct OnLean {
    LeanModel model;
    QTableView view;
    OnLean() { view.setModel(&model); }
};
void fillCells(LeanModel& model, std::int32_t rows, std::int32_t cols);
/// By columns, while the model is being reset.
void fillColumns(LeanModel& model, std::int32_t rows, std::int32_t cols);

struct OnStandardModel {
    QStandardItemModel model;
    QTableView view;
};
/// Row by row; with a view attached a cell that is set later makes the view lay out all rows anew.
void fillCells(QStandardItemModel& model, std::int32_t rows, std::int32_t cols);
void fillCells(QTableWidget& table, std::int32_t rows, std::int32_t cols);

/// What the repetitions of a benchmark share: made when first asked for, dropped by release().
template <class T>
class Shared {
  public:
    static T& get() {
        if (!one()) one() = std::make_unique<T>();
        return *one();
    }
    static void release() { one().reset(); }

  private:
    static std::unique_ptr<T>& one() {
        static std::unique_ptr<T> instance;
        return instance;
    }
};
}  // namespace kxbench
