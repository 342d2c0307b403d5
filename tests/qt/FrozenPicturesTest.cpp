// Pictures of columns that stand still while the others scroll under their edge, kept beside the build for people to
// look at.
#include <QScrollBar>
#include <algorithm>

#include "qt/Palettes.h"
#include "qt/Window.h"
#include "qt/view/Scale.h"

namespace kxVsGrid::qt::testing {
namespace {

class FrozenWindow : public Window {
  public:
    explicit FrozenWindow(int width = 480) {
        grid().FrozenCols(Name - grid().FixedCols() + 1);
        for (std::int32_t row = 1; row < grid().Rows(); ++row) {
            grid().SetCell(row, Name, "六角螺栓");
            grid().SetCell(row, Quantity, std::to_string(100 * row));
        }
        window.resize(width, 320);
        focusCell(2, Code);
        settle();
    }
    /// How the cells of a column, and its total, look in a picture.
    QImage columnOf(const QImage& picture, std::int32_t col) {
        QRect place = cell(1, col).united(cell(4, col));
        place.setBottom(Scale(*widget).pixels(grid().totalRowRect()).bottom());
        const QRect logical = place.translated(widget->pos());
        const double ratio = picture.devicePixelRatio();
        return picture.copy(QRectF(logical.left() * ratio, logical.top() * ratio, logical.width() * ratio,
                                   logical.height() * ratio)
                                .toRect());
    }
    /// The columns that stand still look the same wherever the others are, and totals stand under their columns. In a
    /// narrow window fewer of them do.
    void expectStill(const QImage& earlier, const QImage& now) {
        const std::int32_t still = grid().Grid().StillCols() - 1;
        ASSERT_GE(still, grid().FixedCols() - 1);
        EXPECT_EQ(columnOf(earlier, still), columnOf(now, still));
        for (std::int32_t col = Name; col < grid().Cols(); ++col) {
            if (!grid().Grid().ColIsVisible(col)) continue;
            EXPECT_EQ(grid().Grid().CellRect(0, col).left, grid().Grid_Sum().CellRect(0, col).left) << col;
        }
    }
};

void takeAlongTheColumns(FrozenWindow& w, const QString& name) {
    QScrollBar& bar = w.bar(Qt::Horizontal);
    const QImage left = w.picture(name + "-left");
    ASSERT_GT(bar.maximum(), 0);
    w.grid().Grid().ScrollBy(400, 0);  // cuts a column
    w.settle();
    w.expectStill(left, w.picture(name + "-cut"));
    w.grid().Grid().ScrollTo(w.grid().Grid().TopRow(), w.grid().Grid().MaxLeftCol());
    w.settle();
    w.expectStill(left, w.picture(name + "-right"));
}
}  // namespace

TEST(FrozenPicture, ShowsFrozenColumnsAtBothEndsAndBetween) {
    FrozenWindow w;
    takeAlongTheColumns(w, "frozen");
}

TEST(FrozenPicture, ShowsFrozenColumnsInADarkPalette) {
    FrozenWindow w;
    w.window.setPalette(darkPalette());
    w.settle();
    takeAlongTheColumns(w, "frozen-dark");
}

TEST(FrozenPicture, ShowsFrozenColumnsInANarrowWindow) {
    FrozenWindow w(260);
    takeAlongTheColumns(w, "frozen-narrow");
}
}  // namespace kxVsGrid::qt::testing
