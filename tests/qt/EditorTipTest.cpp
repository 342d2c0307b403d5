// The tip at the editor: why an expression was refused.
#include "qt/Window.h"
#include "qt/text/EditorTip.h"

namespace kxVsGrid::qt::testing {
namespace {

EditorTip& tipOf(Window& w) {
    for (QObject* child : w.widget->children())
        if (auto* found = dynamic_cast<EditorTip*>(child)) return *found;
    throw std::logic_error("the widget has no tip");
}

void refuse(Window& w, std::int32_t row, Qt::Key key = Qt::Key_Return) {
    w.focusCell(row, Quantity);
    w.type("1+*2");
    w.press(key);
    w.settle();
}

void expectShown(Window& w) {
    EXPECT_TRUE(tipOf(w).isVisible());
    EXPECT_EQ(tipOf(w).text(), "第 3 个字符：此处应为数字");
    EXPECT_TRUE(w.editor().hasFocus());
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
    const QRect place = tipOf(w).geometry();
    EXPECT_TRUE(w.widget->rect().contains(place));
    EXPECT_FALSE(place.intersects(w.editor().geometry()));
}
}  // namespace

TEST(EditorTip, SaysWhyAnExpressionWasRefusedHoweverItWasCommitted) {
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Tab, Qt::Key_Down}) {
        Window w;
        refuse(w, 2, key);
        expectShown(w);
        EXPECT_EQ(w.editor().accessibleDescription(), tipOf(w).text());
        w.picture("refused-expression");
    }
    Window w;
    w.focusCell(2, Quantity);
    w.type("1+*2");
    w.click(4, Code);
    expectShown(w);
}

TEST(EditorTip, StandsAboveTheEditorInTheLowestRow) {
    Window w;
    const std::int32_t row = w.grid().Grid().TopRow() + 6;
    refuse(w, row);
    w.window.resize(640, w.window.height() - (w.widget->height() - w.editor().geometry().bottom() - 4));
    w.settle();
    expectShown(w);
    w.grid().Grid().ColWidth(Name, 3600);
    w.window.resize(400, w.window.height());
    w.settle();
    EXPECT_LE(tipOf(w).geometry().right(), w.widget->width());
}

TEST(EditorTip, TakesNoKeyAndNoFocusAndGoesWithTheFirstChange) {
    Window w;
    refuse(w, 2);
    w.press(Qt::Key_Home);
    EXPECT_TRUE(tipOf(w).isVisible());
    w.press(Qt::Key_Delete);
    EXPECT_EQ(w.editorText(), "+*2");
    EXPECT_FALSE(tipOf(w).isVisible());
    EXPECT_EQ(w.editor().accessibleDescription(), "");
}

TEST(EditorTip, LetsPressesThrough) {
    Window w;
    refuse(w, 2);
    const QPoint middle = tipOf(w).geometry().center();
    EXPECT_EQ(w.widget->childAt(middle), &w.view());
}

TEST(EditorTip, GoesWhenTheEditorCloses) {
    Window w;
    refuse(w, 2);
    w.press(Qt::Key_Escape);
    EXPECT_FALSE(tipOf(w).isVisible());
}

TEST(EditorTip, GoesWhenTheKeyboardLeaves) {
    Window w;
    refuse(w, 2);
    w.after->setFocus();
    w.settle();
    EXPECT_TRUE(w.editorShown());
    EXPECT_FALSE(tipOf(w).isVisible());
    w.widget->setFocus();
    w.press(Qt::Key_Return);
    expectShown(w);
}

TEST(EditorTip, IsAwayWhileAnotherWindowIsInFront) {
    Window w;
    refuse(w, 2);
    QWidget other;
    other.show();
    QApplication::setActiveWindow(&other);
    w.settle();
    EXPECT_FALSE(tipOf(w).isVisible());
    QApplication::setActiveWindow(&w.window);
    w.settle();
    expectShown(w);
}
}  // namespace kxVsGrid::qt::testing
