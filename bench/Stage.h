// A window of 1600 x 1000 pixels that is shown, active and really painted, with one table in it: about 820
// cells are in view. Header row and header column are shown on both sides.
#pragma once

#include <QHeaderView>
#include <QTableView>
#include <QWidget>

#include "kxVsGrid/qt/kxGridWidget.h"

namespace kxbench {

constexpr int WindowWidth = 1600;
constexpr int WindowHeight = 1000;
constexpr int RowPixels = 24;
constexpr int ColPixels = 76;
constexpr int HeaderPixels = 45;
constexpr std::int32_t ShownCols = 20;

/// Counts the paints of a widget and of all that lies in it.
class PaintCount : public QObject {
  public:
    explicit PaintCount(QWidget& painted);
    int count() const { return count_; }

  protected:
    bool eventFilter(QObject* target, QEvent* event) override;

  private:
    QWidget& painted_;
    int count_ = 0;
};

/// Handles what waits, paints included.
void settle();

/// Row and column sizes, then the window.
void show(QTableView& view);
void show(kxVsGrid::qt::kxGridWidget& widget);
/// Gives a shown window the keyboard.
void activate(QWidget& window);
}  // namespace kxbench
