// Pictures of the menus in each of their states, kept beside the build for people to look at.
#include <QInputDialog>

#include "qt/Menus.h"
#include "qt/Palettes.h"
#include "qt/view/SystemColors.h"

namespace kxVsGrid::qt::testing {
namespace {

/// A window whose name column has a default text, so that empty rows are offered, too.
class MenuWindow : public Window {
  public:
    MenuWindow() {
        grid().VsCtrl(Name)->sDefaultText_Name("件");
        grid().SetCell(1, Date, "2026-01-31");
        grid().SetCell(1, Quantity, "3");
    }
};

QImage textOf(QMenu& menu, QAction& action) {
    const QRect place = menu.actionGeometry(&action);
    const int letters = menu.fontMetrics().horizontalAdvance(action.text().remove(u'&'));
    const int left = 2 * menu.fontMetrics().height();
    return menu.grab(QRect(place.left(), place.top(), left + letters, place.height())).toImage();
}

/// No text is cut: more room would not change it. Separators stand between items.
void expectWhole(QMenu& menu) {
    EXPECT_TRUE(menu.screen()->geometry().contains(menu.geometry()));
    std::vector<QImage> texts;
    bool separator = true;
    for (QAction* action : menu.actions()) {
        EXPECT_FALSE(separator && action->isSeparator());
        separator = action->isSeparator();
        texts.push_back(textOf(menu, *action));
    }
    EXPECT_FALSE(separator);
    menu.setMinimumWidth(menu.width() + 200);
    menu.adjustSize();
    std::size_t i = 0;
    for (QAction* action : menu.actions()) {
        const QImage& text = texts.at(i++);
        if (action->isSeparator() || action->menu()) continue;
        EXPECT_TRUE(text == textOf(menu, *action)) << action->text().toStdString();
    }
}

/// The item's strongest contrast to the menu's ground.
double strength(QMenu& menu, QAction& action) {
    const QImage image = menu.grab(menu.actionGeometry(&action).adjusted(4, 3, -4, -3)).toImage();
    double most = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            most = std::max(most, contrast(image.pixel(x, y), image.pixel(0, 0)));
    return most;
}

void takeMenu(MenuWindow& w, const QString& name, Column col, Qt::KeyboardModifiers modifiers = {}) {
    w.focusCell(1, col);
    Menus menus([&](QMenu& menu) {
        w.pictureAround(name, {&menu});
        expectWhole(menu);
        for (QAction* action : menu.actions()) {
            if (action->isSeparator()) continue;
            EXPECT_GT(strength(menu, *action), 4.5) << action->text().toStdString();
        }
    });
    rightClick(w, 1, col, modifiers);
    EXPECT_EQ(menus.seen.size(), 1U);
}

void takeFills(MenuWindow& w, const QString& name, Column col) {
    w.focusCell(1, col);
    Menus menus([&](QMenu& menu) {
        QMenu* fills = item(menu, "填充列").menu();
        menu.setActiveAction(fills->menuAction());
        QTest::keyClick(&menu, Qt::Key_Right);
        ASSERT_TRUE(fills->isVisible());
        w.pictureAround(name, {&menu, fills});
        expectWhole(*fills);
        for (QAction* action : fills->actions()) {
            if (action == fills->activeAction()) continue;
            const double most = strength(*fills, *action);
            EXPECT_TRUE(action->isEnabled() ? most > 4.5 : most > 1.2 && most < 4.5)
                << action->text().toStdString() << ' ' << most;
        }
    });
    rightClick(w, 1, col);
    EXPECT_EQ(menus.seen.size(), 1U);
}

void takeAll(MenuWindow& w, const QString& suffix) {
    takeMenu(w, "menu-rows" + suffix, Code);
    takeMenu(w, "menu-rows-ctrl" + suffix, Code, Qt::ControlModifier);
    takeMenu(w, "menu-rows-no-fill" + suffix, Paid);
    w.grid().VsCtrl(Name)->sDefaultText_Name("");
    takeMenu(w, "menu-rows-no-defaults" + suffix, Code);
    w.grid().VsCtrl(Name)->sDefaultText_Name("件");
    takeFills(w, "menu-fill-number" + suffix, Quantity);
    takeFills(w, "menu-fill-date" + suffix, Date);
    takeFills(w, "menu-fill-text" + suffix, Code);
    w.grid().Editable(false);
    takeMenu(w, "menu-copy" + suffix, Code);
    w.grid().Editable(true);
}

void takeRowCount(MenuWindow& w, const QString& name) {
    w.focusCell(1, Code);
    bool taken = false;
    Menus menus([&](QMenu& menu) {
        whenOpen<QInputDialog>([&](QInputDialog& box) {
            w.picture(name, &box);
            for (const QWidget* part : box.findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
                if (!part->isVisible()) continue;
                EXPECT_GE(part->width(), part->minimumSizeHint().width());
            }
            taken = true;
            box.reject();
        });
        chooseByKeys(menu, "新增..行");
    });
    rightClick(w, 1, Code, Qt::ControlModifier);
    EXPECT_TRUE(taken);
}
}  // namespace

TEST(MenuPicture, ShowsTheMenusInEachState) {
    MenuWindow w;
    takeAll(w, {});
}

TEST(MenuPicture, ShowsTheMenusInADarkPalette) {
    MenuWindow w;
    w.window.setPalette(darkPalette());
    takeAll(w, "-dark");
    w.focusCell(1, Code);
    QColor ground;
    Menus menus([&](QMenu& menu) { ground = menu.grab().toImage().pixelColor(menu.width() - 6, 6); });
    rightClick(w, 1, Code);
    EXPECT_LT(ground.lightness(), 100);
}

TEST(MenuPicture, ShowsTheMenusInTheFontOfTheWindow) {
    MenuWindow w;
    QFont large = w.window.font();
    large.setPointSizeF(large.pointSizeF() * 1.6);
    w.window.setFont(large);
    takeAll(w, "-large");
    Menus menus([&](QMenu& menu) {
        EXPECT_EQ(menu.font().pointSizeF(), large.pointSizeF());
        EXPECT_EQ(item(menu, "填充列").menu()->font().pointSizeF(), large.pointSizeF());
    });
    rightClick(w, 1, Code);
    EXPECT_EQ(menus.seen.size(), 1U);
}

TEST(MenuPicture, ShowsTheBoxThatAsksForTheNumberOfRows) {
    MenuWindow w;
    takeRowCount(w, "menu-row-count");
    w.window.setPalette(darkPalette());
    takeRowCount(w, "menu-row-count-dark");
}
}  // namespace kxVsGrid::qt::testing
