// Pictures of the find bar in each of its states, kept beside the build for people to look at.
#include <algorithm>

#include "qt/Palettes.h"
#include "qt/Window.h"
#include "qt/find/FindBar.h"
#include "qt/view/SystemColors.h"

namespace kxVsGrid::qt::testing {
namespace {

class LookingWindow : public Window {
  public:
    explicit LookingWindow(int width = 640) {
        window.resize(width, 360);
        grid().SetCell(2, Name, "苹果");
        grid().SetCell(3, Name, "青苹果干");
        grid().SetCell(4, Name, "苹果汁");
        focusCell(1, Code);
    }
    FindBar& bar() {
        for (QObject* child : widget->children())
            if (auto* found = dynamic_cast<FindBar*>(child)) return *found;
        throw std::logic_error("there is no bar");
    }
    void look(const QString& text, bool replace = false) {
        press(replace ? Qt::Key_H : Qt::Key_F, Qt::ControlModifier);
        type(text);
        waitUntil([this] { return grid().Find().State().complete; });
        settle();
    }
    QImage cellOf(const QImage& picture, std::int32_t row, std::int32_t col) {
        const QRect place = cell(row, col).translated(widget->pos());
        const double ratio = picture.devicePixelRatio();
        return picture.copy(
            QRectF(place.left() * ratio, place.top() * ratio, place.width() * ratio, place.height() * ratio)
                .toRect());
    }
    /// No text of the bar is cut: each part is as wide as its text needs.
    void expectWhole() {
        for (auto* part : bar().findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
            if (!part->isVisible() || qobject_cast<QLineEdit*>(part)) continue;
            EXPECT_GE(part->width(), part->sizeHint().width()) << part->accessibleName().toStdString();
            EXPECT_TRUE(bar().rect().contains(part->geometry())) << part->accessibleName().toStdString();
        }
    }
};

/// The ground of a cell, and how well its text stands out from it.
QRgb groundOf(const QImage& cell) {
    return cell.pixel(cell.width() - 8, cell.height() / 2);
}
double strengthOn(const QImage& cell) {
    double most = 0;
    for (int y = 4; y < cell.height() - 4; ++y)
        for (int x = 4; x < cell.width() - 8; ++x)
            most = std::max(most, contrast(cell.pixel(x, y), groundOf(cell)));
    return most;
}

void expectTints(LookingWindow& w, const QImage& picture) {
    const QImage here = w.cellOf(picture, 1, Name);
    const QImage other = w.cellOf(picture, 3, Name);
    EXPECT_NE(groundOf(here), groundOf(other));
    EXPECT_NE(groundOf(other), groundOf(w.cellOf(picture, 3, Code)));
    EXPECT_GT(strengthOn(here), 5);
    EXPECT_GT(strengthOn(other), 7);
}
}  // namespace

TEST(FindPicture, ShowsTheBarAndWhatIsFound) {
    LookingWindow w;
    w.look("苹果");
    const QImage picture = w.picture("find");
    expectTints(w, picture);
    w.expectWhole();
}

TEST(FindPicture, ShowsReplacing) {
    LookingWindow w;
    w.look("苹果", true);
    w.picture("find-replace");
    w.expectWhole();
}

TEST(FindPicture, ShowsThatNothingIsFound) {
    LookingWindow w;
    w.look("香蕉");
    w.picture("find-nothing");
    w.expectWhole();
}

TEST(FindPicture, ShowsThatItWentOverTheEnd) {
    LookingWindow w;
    w.look("苹果");
    w.press(Qt::Key_Return, Qt::ShiftModifier);
    w.picture("find-wrapped");
    w.expectWhole();
}

TEST(FindPicture, ShowsTheBarInDarkPalettes) {
    LookingWindow w;
    w.window.setPalette(darkPalette());
    w.look("苹果", true);
    const QImage picture = w.picture("find-dark");
    expectTints(w, picture);
    w.press(Qt::Key_F, Qt::ControlModifier);
    w.type("x");
    waitUntil([&] { return w.grid().Find().State().complete; });
    w.picture("find-dark-nothing");
}

TEST(FindPicture, ShowsTheBarInANarrowWindow) {
    LookingWindow w(300);
    w.look("苹果", true);
    w.picture("find-narrow");
    w.expectWhole();
}
}  // namespace kxVsGrid::qt::testing
