// The help button hides nothing of what is typed.
#include <QToolButton>

#include "qt/Window.h"
#include "qt/view/Scale.h"

namespace kxVsGrid::qt::testing {
namespace {

constexpr const char* SixDigits = "100001";

QToolButton& helpButton(Window& w) {
    auto* found = w.widget->findChild<QToolButton*>(QString(), Qt::FindDirectChildrenOnly);
    if (found == nullptr) throw std::logic_error("the widget has no help button");
    return *found;
}

/// Where the first and the last character of the editor's text are drawn: the caret before and behind them.
QRect textPlace(Window& w) {
    auto& line = dynamic_cast<QLineEdit&>(w.editor());
    line.setCursorPosition(0);
    const QRect first = line.inputMethodQuery(Qt::ImCursorRectangle).toRect();
    line.setCursorPosition(static_cast<int>(line.text().size()));
    const QRect last = line.inputMethodQuery(Qt::ImCursorRectangle).toRect();
    return first.united(last).translated(line.geometry().topLeft());
}

void expectAllShown(Window& w) {
    EXPECT_TRUE(helpButton(w).isVisible());
    EXPECT_FALSE(helpButton(w).geometry().intersects(w.editor().geometry()));
    EXPECT_TRUE(w.widget->rect().contains(helpButton(w).geometry()));
    const int width = QFontMetrics(w.editor().font()).horizontalAdvance(w.editorText());
    EXPECT_GE(textPlace(w).width(), width) << "nothing is scrolled out";
}
}  // namespace

TEST(HelpButton, LeavesAllOfASixDigitCodeToBeSeen) {
    for (const std::int32_t col : {Code, Quantity})  // to the left, to the right
        for (const std::int32_t twips : {900, 1000, 1100, 1200, 1300, 1400, 1600, 2400}) {
            SCOPED_TRACE(twips);
            Window w;
            w.grid().VsCtrl(static_cast<std::int16_t>(col))->b是否提供帮助(true);
            w.grid().ColWidth(col, twips);
            w.focusCell(2, col);
            w.type(SixDigits);
            w.settle();
            expectAllShown(w);
            w.picture(QStringLiteral("help-button-%1-%2").arg(col).arg(twips));
        }
}

TEST(HelpButton, StandsInsideAWideCellAndOutsideANarrowOne) {
    Window w;
    w.grid().VsCtrl(Code)->b是否提供帮助(true);
    w.grid().ColWidth(Code, 2400);
    w.focusCell(2, Code);
    w.type("1");
    EXPECT_TRUE(w.cell(2, Code).contains(helpButton(w).geometry()));
    w.press(Qt::Key_Escape);
    w.grid().ColWidth(Code, 600);
    w.focusCell(2, Code);
    w.type("1");
    EXPECT_FALSE(w.cell(2, Code).intersects(helpButton(w).geometry()));
    EXPECT_EQ(helpButton(w).geometry().left(), w.cell(2, Code).right() + 1);
    EXPECT_EQ(w.editor().geometry(), w.cell(2, Code));
}

TEST(HelpButton, StandsToTheLeftAtTheEdgeOfTheWindow) {
    Window w;
    w.grid().VsCtrl(Paid)->iType(flexDTString);
    w.grid().VsCtrl(Paid)->b是否提供帮助(true);
    w.grid().ReDraw(true);
    w.grid().ColWidth(Paid, 700);
    const std::int32_t right = w.grid().Grid().CellRect(2, Paid).right();
    const int spare = w.widget->width() - Scale(*w.widget).pixel(w.grid().Grid().ClientWidth());
    w.window.resize(w.window.width() - w.widget->width() + Scale(*w.widget).pixel(right) + spare + 3,
                    w.window.height());
    w.settle();
    w.focusCell(2, Paid);
    w.type("12");
    w.settle();
    EXPECT_EQ(helpButton(w).geometry().right() + 1, w.cell(2, Paid).left());
    expectAllShown(w);
    w.picture("help-button-at-the-edge");
}

TEST(HelpButton, OpensTheHelpOutsideTheCellToo) {
    Window w;
    int asked = 0;
    w.grid().GetHelpCodeInfo.connect([&](const Variant&, Variant&, Variant&, Variant&) { ++asked; });
    w.grid().VsCtrl(Code)->b是否提供帮助(true);
    w.grid().ColWidth(Code, 600);
    w.focusCell(2, Code);
    w.type("1");
    whenOpen<QWidget>([](QWidget& box) { box.close(); });
    QTest::mousePress(&helpButton(w), Qt::LeftButton);
    EXPECT_EQ(asked, 1);
    EXPECT_TRUE(w.editorShown());
}
}  // namespace kxVsGrid::qt::testing
