// Pictures of each state, kept beside the build for people to look at.
#include "qt/Palettes.h"
#include "qt/Window.h"

namespace kxVsGrid::qt::testing {
namespace {

bool hasManyColours(const QImage& image) {
    QSet<QRgb> colours;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x) colours.insert(image.pixel(x, y));
    return colours.size() > 10;
}
}  // namespace

TEST(Picture, ShowsTheClosedGrid) {
    Window w;
    w.focusCell(1, Code);
    EXPECT_TRUE(hasManyColours(w.picture("closed")));
}

TEST(Picture, ShowsTheGridWithoutTheKeyboard) {
    Window w;
    EXPECT_TRUE(hasManyColours(w.picture("unfocused")));
}

TEST(Picture, ShowsTheOpenEditor) {
    Window w;
    w.grid().VsCtrl(Code)->b是否提供帮助(true);
    w.focusCell(1, Code);
    w.type("b");
    EXPECT_TRUE(hasManyColours(w.picture("editing")));
}

TEST(Picture, ShowsTheEditorWithItsTextSelected) {
    Window w;
    w.doubleClick(1, Quantity);
    EXPECT_TRUE(hasManyColours(w.picture("selected")));
}

TEST(Picture, ShowsTheEditorOfSeveralLines) {
    Window w;
    w.grid().RowHeight(2, 900);
    w.focusCell(2, Remark);
    w.type("a");
    w.press(Qt::Key_Return);
    w.compose("", "第二行");
    EXPECT_TRUE(hasManyColours(w.picture("lines")));
    w.focusCell(2, Code);
    w.after->setFocus();
    EXPECT_TRUE(hasManyColours(w.picture("lines-closed")));
}

TEST(Picture, ShowsACompositionOnTheClosedGrid) {
    Window w;
    w.focusCell(3, Code);
    w.compose("pinyin");
    EXPECT_TRUE(hasManyColours(w.picture("composing")));
}

TEST(Picture, ShowsTheRefusedExpression) {
    Window w;
    w.focusCell(2, Quantity);
    w.type("12+");
    w.press(Qt::Key_Enter);
    EXPECT_TRUE(hasManyColours(w.picture("refused")));
}

TEST(Picture, ShowsTheGridScrolled) {
    Window w;
    w.focusCell(20, Date);
    w.grid().Grid().ScrollTo(15, 3);
    EXPECT_TRUE(hasManyColours(w.picture("scrolled")));
}

TEST(Picture, ShowsColoursOfTheHost) {
    Window w;
    w.grid().VsCtrl(Quantity)->b是否设列颜色(true);
    w.grid().VsCtrl(Quantity)->d列前景色(0x0000C0);
    w.grid().VsCtrl(Quantity)->d列背景色(0xC0FFFF);
    w.grid().ReDraw(true);
    w.grid().Grid().CellBackColor(4, Name, 0x00FF80);
    w.grid().Grid().Text(4, Name, "绿底");
    EXPECT_TRUE(hasManyColours(w.picture("colours")));
    w.window.setPalette(darkPalette());
    EXPECT_TRUE(hasManyColours(w.picture("colours-dark")));
}

TEST(Picture, ShowsEverythingInADarkPalette) {
    Window w;
    w.window.setPalette(darkPalette());
    w.focusCell(1, Code);
    EXPECT_TRUE(hasManyColours(w.picture("dark")));
    w.type("b");
    EXPECT_TRUE(hasManyColours(w.picture("dark-editing")));
}

TEST(Picture, ShowsTextsThatAreShapedAndTextsThatDoNotFit) {
    Window w;
    w.grid().ColWidth(Name, 1500);
    w.grid().Grid().Text(1, Name, "a very long text of a cell");
    w.grid().Grid().Text(2, Name, "很长的中文文字放不下");
    w.grid().Grid().Text(3, Name, "שלום abc");
    w.grid().Grid().Text(4, Name, "e\u0301\u0302 naïve");
    w.grid().Grid().Text(6, Name, "line 1\nline 2");
    w.grid().Grid().Text(7, Name, "𠀀𠀁");
    w.grid().Grid().Text(8, Name, "a\tb");
    EXPECT_TRUE(hasManyColours(w.picture("shaped")));
}
}  // namespace kxVsGrid::qt::testing
