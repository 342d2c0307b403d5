// Pictures of the help dialogs, kept beside the build for people to look at.
#include "qt/HelpWindow.h"
#include "qt/Palettes.h"

namespace kxVsGrid::qt::testing {
namespace {

/// How much of an image, in hundredths, is of a colour.
double share(const QImage& image, const QColor& color) {
    int count = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x) count += image.pixel(x, y) == color.rgb() ? 1 : 0;
    return 100.0 * count / (image.width() * image.height());
}

/// Keeps a picture, in which the chosen row or day stands out.
void takePicture(const Dialog& d, const QString& name) {
    const QImage image = d.picture(name);
    EXPECT_GT(share(image, d.window.palette().color(QPalette::Highlight)), 0.5) << name.toStdString();
    EXPECT_LT(share(image, d.window.palette().color(QPalette::Highlight)), 20) << name.toStdString();
    expectWhole(d);
}
}  // namespace

TEST(HelpPicture, ShowsTheLookup) {
    HelpWindow w;
    w.editable = true;
    Dialogs dialogs([&](Dialog& d) {
        takePicture(d, "help-lookup-opened");
        d.type("B00");
        takePicture(d, "help-lookup");
        w.picture("help-lookup-over", &d.window);
        d.press(Qt::Key_Escape);
    });
    w.write(2, Code, "A00");
    w.press(Qt::Key_F2);
    EXPECT_EQ(dialogs.count, 1);
}

TEST(HelpPicture, ShowsTheCalendars) {
    for (const gEmHelpType type : {ih日期型, ih半日型, ih时间型}) {
        HelpWindow w;
        w.grid().VsCtrl(Date)->i帮助类型(type);
        Dialogs dialogs([&](Dialog& d) {
            takePicture(d, QStringLiteral("help-calendar-%1").arg(int{type}));
            if (type == ih时间型) w.picture("help-calendar-over", &d.window);
            d.press(Qt::Key_Escape);
        });
        w.write(2, Date, "2026-11-20 下午");
        w.press(Qt::Key_F2);
        EXPECT_EQ(dialogs.count, 1);
    }
}

TEST(HelpPicture, ShowsTheConstants) {
    HelpWindow w;
    Dialogs dialogs([&](Dialog& d) {
        d.press(Qt::Key_Down);
        d.press(Qt::Key_Down);
        takePicture(d, "help-constants");
        w.picture("help-constants-over", &d.window);
        d.press(Qt::Key_Escape);
    });
    w.write(2, Remark, "x");
    w.press(Qt::Key_F2);
    EXPECT_EQ(dialogs.count, 1);
}

TEST(HelpPicture, ShowsTheDialogsAsSmallAsTheyGet) {
    for (const Column col : {Code, Date, Remark}) {
        HelpWindow w;
        w.editable = true;
        w.grid().VsCtrl(Date)->i帮助类型(ih时间型);
        w.grid().VsCtrl(col)->HelpWidth(1);
        w.grid().VsCtrl(col)->HelpHeight(1);
        Dialogs dialogs([&](Dialog& d) {
            d.press(Qt::Key_Down);
            EXPECT_EQ(d.window.size(), d.window.minimumSize());
            takePicture(d, QStringLiteral("help-small-%1").arg(int{col}));
            d.press(Qt::Key_Escape);
        });
        w.write(2, col, "1");
        w.press(Qt::Key_F2);
        EXPECT_EQ(dialogs.count, 1);
    }
}

TEST(HelpPicture, ShowsTheDialogsInADarkPalette) {
    for (const Column col : {Code, Date, Remark}) {
        HelpWindow w;
        w.window.setPalette(darkPalette());
        w.grid().VsCtrl(Date)->i帮助类型(ih时间型);
        Dialogs dialogs([&](Dialog& d) {
            d.press(Qt::Key_Down);
            takePicture(d, QStringLiteral("help-dark-%1").arg(int{col}));
            d.press(Qt::Key_Escape);
        });
        w.write(2, col, "1");
        w.press(Qt::Key_F2);
        EXPECT_EQ(dialogs.count, 1);
    }
}
}  // namespace kxVsGrid::qt::testing
