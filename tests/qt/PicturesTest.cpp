// Pictures of each state, kept beside the build for people to look at.
#include "qt/Boxes.h"
#include "qt/CheckedWindow.h"
#include "qt/Palettes.h"
#include "qt/Window.h"
#include "qt/view/Scale.h"
#include "qt/view/SystemColors.h"

namespace kxVsGrid::qt::testing {
namespace {

/// A picture of the window, of which parts are looked at.
class Picture {
  public:
    Picture(Window& w, const QString& name) : w_(w), image_(w.picture(name)) {}

    QImage cell(std::int32_t row, std::int32_t col) const { return part(w_.cell(row, col)); }
    QImage editor() const { return part(w_.editor().geometry()); }
    QImage totals() const { return part(Scale(*w_.widget).pixels(w_.grid().totalRowRect())); }
    /// A rectangle of the widget.
    QImage part(const QRect& inWidget) const {
        const QRect logical = inWidget.translated(w_.widget->pos());
        const double ratio = image_.devicePixelRatio();
        return image_.copy(QRectF(logical.left() * ratio, logical.top() * ratio, logical.width() * ratio,
                                  logical.height() * ratio)
                               .toRect());
    }

  private:
    Window& w_;
    QImage image_;
};

/// How much of an image, in hundredths, is of a colour.
double share(const QImage& image, const QColor& color) {
    int count = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x) count += image.pixel(x, y) == color.rgb() ? 1 : 0;
    return 100.0 * count / (image.width() * image.height());
}

/// Whether something is written on the inside of a part, apart from its edges.
bool isWritten(const QImage& image) {
    const QImage inside = image.copy(image.rect().adjusted(5, 5, -5, -5));
    const QRgb ground = inside.pixel(0, 0);
    int ink = 0;
    for (int y = 0; y < inside.height(); ++y)
        for (int x = 0; x < inside.width(); ++x) ink += contrast(inside.pixel(x, y), ground) > 3 ? 1 : 0;
    return ink > 10;
}

QColor highlight(const Window& w) {
    return w.widget->palette().color(QPalette::Highlight);
}
const QColor LightGrey(0xE0, 0xE0, 0xE0);
const QColor Red(0xD0, 0x20, 0x20);
}  // namespace

TEST(Picture, ShowsTheClosedGrid) {
    Window w;
    w.focusCell(1, Code);
    const Picture picture(w, "closed");
    EXPECT_GT(share(picture.cell(1, Code), highlight(w)), 2);
    EXPECT_EQ(share(picture.cell(2, Code), highlight(w)), 0);
    for (const std::int32_t col : {Number, Code, Name, Quantity}) {
        EXPECT_TRUE(isWritten(picture.cell(0, col))) << col;
        EXPECT_TRUE(isWritten(picture.cell(2, col))) << col;
    }
    EXPECT_FALSE(isWritten(picture.cell(3, Name)));
    EXPECT_GT(share(picture.totals(), LightGrey), 30);
}

TEST(Picture, ShowsTheGridWithoutTheKeyboard) {
    Window w;
    w.grid().Grid().Select(1, Code);
    const Picture picture(w, "unfocused");
    EXPECT_EQ(share(picture.cell(1, Code), highlight(w)), 0);
    EXPECT_TRUE(isWritten(picture.cell(1, Code)));
}

TEST(Picture, ShowsTheOpenEditor) {
    Window w;
    w.grid().VsCtrl(Code)->b是否提供帮助(true);
    w.focusCell(1, Code);
    w.type("b");
    const Picture picture(w, "editing");
    EXPECT_GT(share(picture.editor(), highlight(w)), 2);
    EXPECT_TRUE(isWritten(picture.editor()));
    const QRect button = Scale(*w.widget).pixels(w.grid().editorView().helpRect);
    EXPECT_LT(share(picture.part(button), w.widget->palette().color(QPalette::Base)), 20);
}

TEST(Picture, ShowsTheEditorWithItsTextSelected) {
    Window w;
    w.doubleClick(1, Quantity);
    EXPECT_GT(share(Picture(w, "selected").editor(), highlight(w)), 10);
}

TEST(Picture, ShowsTheEditorOfSeveralLines) {
    Window w;
    w.grid().RowHeight(2, 900);
    w.focusCell(2, Remark);
    w.type("a");
    w.press(Qt::Key_Return);
    w.compose("", "第二行");
    const auto lower = [](const QImage& image) {
        return image.copy(0, image.height() / 3, image.width(), image.height() / 2);
    };
    EXPECT_TRUE(isWritten(lower(Picture(w, "lines").editor())));
    w.focusCell(2, Code);
    w.after->setFocus();
    EXPECT_TRUE(isWritten(lower(Picture(w, "lines-closed").cell(2, Remark))));
}

TEST(Picture, ShowsACompositionOnTheClosedGrid) {
    Window w;
    w.focusCell(3, Code);
    w.compose("pinyin");
    EXPECT_TRUE(isWritten(Picture(w, "composing").editor()));
}

TEST(Picture, ShowsTheRefusedExpression) {
    Window w;
    w.focusCell(2, Quantity);
    w.type("12+");
    EXPECT_EQ(share(Picture(w, "refused").editor(), Red), 0);
    w.press(Qt::Key_Enter);
    const Picture picture(w, "refused");
    EXPECT_GT(share(picture.editor(), Red), 5);
    EXPECT_TRUE(isWritten(picture.editor()));
}

TEST(Picture, ShowsTheGridScrolled) {
    Window w;
    w.focusCell(20, Date);
    w.grid().Grid().ScrollTo(15, 3);
    const Picture picture(w, "scrolled");
    EXPECT_GT(share(picture.cell(20, Date), highlight(w)), 2);
    EXPECT_TRUE(isWritten(picture.cell(0, Date)));
    EXPECT_TRUE(isWritten(picture.cell(20, Number)));
}

TEST(Picture, ShowsColoursOfTheHost) {
    Window w;
    w.grid().VsCtrl(Quantity)->b是否设列颜色(true);
    w.grid().VsCtrl(Quantity)->d列前景色(0x0000C0);
    w.grid().VsCtrl(Quantity)->d列背景色(0xC0FFFF);
    w.grid().ReDraw(true);
    w.grid().Grid().CellBackColor(4, Name, 0x00FF80);
    w.grid().Grid().Text(4, Name, "绿底");
    for (const bool dark : {false, true}) {
        if (dark) w.window.setPalette(darkPalette());
        const Picture picture(w, dark ? "colours-dark" : "colours");
        EXPECT_GT(share(picture.cell(4, Name), QColor(0x80, 0xFF, 0x00)), 50);
        EXPECT_GT(share(picture.cell(1, Quantity), QColor(0xFF, 0xFF, 0xC0)), 50);
        EXPECT_TRUE(isWritten(picture.cell(4, Name)));
        EXPECT_TRUE(isWritten(picture.cell(1, Quantity)));
    }
}

TEST(Picture, ShowsEverythingInADarkPalette) {
    Window w;
    w.window.setPalette(darkPalette());
    w.focusCell(1, Code);
    const Picture closed(w, "dark");
    EXPECT_GT(share(closed.cell(2, Name), QColor(30, 30, 30)), 50);
    EXPECT_TRUE(isWritten(closed.cell(2, Name)));
    EXPECT_TRUE(isWritten(closed.cell(0, Name)));
    w.type("b");
    EXPECT_TRUE(isWritten(Picture(w, "dark-editing").editor()));
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
    const Picture picture(w, "shaped");
    for (const std::int32_t row : {1, 2, 3, 4, 6, 7, 8}) {
        EXPECT_TRUE(isWritten(picture.cell(row, Name))) << row;
        EXPECT_FALSE(isWritten(picture.cell(row, Date)) && row > 1) << row;
    }
}
/// The box in front of the window, and what it leaves behind.
void picturesOfRefusal(CheckedWindow& w, const QString& name, std::int32_t row, Column col,
                       const QString& text) {
    Boxes boxes([&](QMessageBox& box) {
        w.picture(name + "-box", &box);
        EXPECT_TRUE(isWritten(box.grab().toImage()));
        Boxes::enter(box);
    });
    w.fill(row, col, text);
    w.press(Qt::Key_Tab);
    w.settle();
    EXPECT_EQ(boxes.count(), 1U);
    w.expectAllSelected(text);
    const Picture picture(w, name);
    EXPECT_GT(share(picture.editor(), Red), 2);
    EXPECT_GT(share(picture.editor(), highlight(w)), 2);
}

TEST(Picture, ShowsARefusedCodeAndItsBox) {
    CheckedWindow w;
    w.grid().VsCtrl(Code)->b是否提供帮助(true);
    picturesOfRefusal(w, "refused-code", 2, Code, "B9");
}

TEST(Picture, ShowsARefusedDateAndItsBox) {
    const struct {
        gEmJudgeType type;
        const char* name;
        const char* text;
    } forms[] = {{ij日期型, "refused-date", "2011-02-30"},
                 {ij半日型, "refused-half-day", "2011-02-03 晚上"},
                 {ij时间型, "refused-time", "2011-02-03 24:00:00"}};
    for (const auto& form : forms) {
        CheckedWindow w;
        w.grid().VsCtrl(Date)->i字段有效性判断类型(form.type);
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
    EXPECT_TRUE(isWritten(Picture(w, "last-row").cell(2000, Number)));
    w.type("2*3");
    expectClear();
    EXPECT_LE(w.editor().geometry().bottom(), Scale(*w.widget).pixels(grid.totalRowRect()).top());
    EXPECT_TRUE(isWritten(Picture(w, "last-row-editing").editor()));
}
}  // namespace kxVsGrid::qt::testing
