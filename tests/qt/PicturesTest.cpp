// Pictures of each state, kept beside the build for people to look at.
#include "qt/Boxes.h"
#include "qt/CheckedWindow.h"
#include "qt/Palettes.h"
#include "qt/Scale.h"
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
/// The box in front of the window, and what it leaves behind.
void picturesOfRefusal(CheckedWindow& w, const QString& name, std::int32_t row, Column col,
                       const QString& text) {
    Boxes boxes([&](QMessageBox& box) {
        EXPECT_TRUE(hasManyColours(w.picture(name + "-box", &box)));
        Boxes::enter(box);
    });
    w.fill(row, col, text);
    w.press(Qt::Key_Tab);
    w.settle();
    EXPECT_EQ(boxes.count(), 1U);
    w.expectAllSelected(text);
    EXPECT_TRUE(hasManyColours(w.picture(name)));
}

TEST(Picture, ShowsARefusedCodeAndItsBox) {
    CheckedWindow w;
    w.grid().VsCtrl(Code)->b是否提供帮助(true);
    picturesOfRefusal(w, "refused-code", 2, Code, "B9");
}

TEST(Picture, ShowsARefusedDateAndItsBox) {
    const struct {
        int type;
        const char* name;
        const char* text;
    } forms[] = {{2, "refused-date", "2011-02-30"},
                 {4, "refused-half-day", "2011-02-03 晚上"},
                 {5, "refused-time", "2011-02-03 24:00:00"}};
    for (const auto& form : forms) {
        CheckedWindow w;
        w.grid().VsCtrl(Date)->i字段有效性判断类型(static_cast<gEmJudgeType>(form.type));
        w.grid().ColWidth(Date, 2400);
        picturesOfRefusal(w, form.name, 1, Date, form.text);
    }
}

TEST(Picture, ShowsARefusedTextOfSeveralLinesAndItsBox) {
    CheckedWindow w;
    w.grid().RowHeight(2, 900);
    picturesOfRefusal(w, "refused-lines", 2, Remark, "aXb");
}

TEST(Picture, ShowsRefusalsInADarkPalette) {
    CheckedWindow w;
    w.window.setPalette(darkPalette());
    picturesOfRefusal(w, "refused-code-dark", 2, Code, "B9");
    w.press(Qt::Key_Escape);
    picturesOfRefusal(w, "refused-date-dark", 1, Date, "2011-02-30");
}

TEST(Picture, ShowsABoxWithALongText) {
    CheckedWindow w;
    w.window.resize(780, 360);
    const QString text = QStringLiteral("此货号在商品目录中不存在，请核对后重新输入。").repeated(6) +
                         QStringLiteral("\n<b>no markup</b> & ") + QString(90, u'x');
    w.grid().VsCtrl(Code)->s错误提示信息(text.toStdString());
    picturesOfRefusal(w, "refused-long", 2, Code, "B9");
}

TEST(Picture, ShowsABoxWithoutAText) {
    CheckedWindow w;
    w.grid().VsCtrl(Code)->s错误提示信息("");
    picturesOfRefusal(w, "refused-empty", 2, Code, "B9");
}

TEST(Picture, ShowsTheLastRowOfALongDocumentWhollyAboveTheTotals) {
    Window w;
    kxGrid& grid = w.grid();
    w.widget->setMinimumSize(600, 400);  // 9000 x 6000 twips
    w.widget->setMaximumSize(600, 400);
    w.window.adjustSize();
    grid.Rows(2001);
    grid.ColWidth(Number, 700);
    for (std::int32_t row = 3; row < grid.Rows(); ++row) grid.SetCell(row, Quantity, "1", "");
    w.focusCell(2000, Quantity);
    ASSERT_EQ(Scale(*w.widget).twips(w.widget->width()), 9000);
    ASSERT_EQ(Scale(*w.widget).twips(w.widget->height()), 6000);
    const auto expectClear = [&] {
        const Rect last = grid.Grid().CellRect(2000, Quantity);
        EXPECT_EQ(last.height, grid.RowHeight(2000));
        EXPECT_GE(last.top, grid.Grid().FixedHeight());
        EXPECT_LE(last.bottom(), grid.totalRowRect().top);
        EXPECT_LE(w.cell(2000, Quantity).bottom(), Scale(*w.widget).pixels(grid.totalRowRect()).top());
    };
    expectClear();
    EXPECT_TRUE(hasManyColours(w.picture("last-row")));
    w.type("2*3");
    expectClear();
    EXPECT_LE(w.editor().geometry().bottom(), Scale(*w.widget).pixels(grid.totalRowRect()).top());
    EXPECT_TRUE(hasManyColours(w.picture("last-row-editing")));
}
}  // namespace kxVsGrid::qt::testing
