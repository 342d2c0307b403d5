// Pictures of each state, kept for people to look at; and what can be said of them by a program.
#include "qt/Window.h"

namespace kxVsGrid::qt::testing {

TEST(Picture, ShowsTheClosedGrid) {
    Window w;
    w.focusCell(1, Code);
    const QImage image = w.picture("closed");
    EXPECT_FALSE(image.isNull());
}

TEST(Picture, ShowsTheOpenEditor) {
    Window w;
    w.focusCell(1, Code);
    w.type("b");
    w.picture("editing");
    EXPECT_EQ(w.editorText(), "b");
}

TEST(Picture, ShowsTheRefusedExpression) {
    Window w;
    w.focusCell(2, Quantity);
    w.type("12+");
    w.press(Qt::Key_Enter);
    w.picture("refused");
    EXPECT_TRUE(w.grid().editorView().refused);
}
}  // namespace kxVsGrid::qt::testing
