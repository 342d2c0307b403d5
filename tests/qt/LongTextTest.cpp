// The line editor holds texts of any length.
#include <QClipboard>

#include "qt/Window.h"

namespace kxVsGrid::qt::testing {
namespace {

/// More than a line box of the toolkit takes of itself.
constexpr std::size_t Long = 40'000;
}  // namespace

TEST(LongText, OfTheHostIsKeptWhenTheClerkAddsACharacter) {
    Window w;
    w.grid().SetCell(1, Code, std::string(Long, 'x'));
    w.doubleClick(1, Code);
    w.press(Qt::Key_End);
    w.type("y");
    w.press(Qt::Key_Return);
    EXPECT_EQ(w.text(1, Code), std::string(Long, 'x') + "y");
}

TEST(LongText, SetByCodeIntoTheOpenEditorIsKept) {
    Window w;
    w.focusCell(1, Code);
    w.type("x");
    w.grid().Text(std::string(Long, 'z'));
    EXPECT_EQ(w.editorText().size(), static_cast<qsizetype>(Long));
    w.press(Qt::Key_Home);
    w.type("a");
    EXPECT_EQ(w.grid().Text(), "a" + std::string(Long, 'z'));
}

TEST(LongText, IsPastedAndComposedWhole) {
    Window w;
    w.focusCell(1, Code);
    w.type("x");
    QGuiApplication::clipboard()->setText(QString(static_cast<qsizetype>(Long), u'p'));
    w.press(Qt::Key_V, Qt::ControlModifier);
    w.compose("", QString(static_cast<qsizetype>(Long), u'品'));
    EXPECT_EQ(w.grid().editorView().selStart, 2 * Long + 1);
    w.press(Qt::Key_Return);
    EXPECT_EQ(w.text(1, Code).size(), 1 + Long + 3 * Long);
}

TEST(LongText, OfAnExpressionIsEvaluatedWhole) {
    Window w;
    std::string expression = "1";
    for (int i = 0; i < 30'000; ++i) expression += "+1";
    w.focusCell(2, Quantity);
    QGuiApplication::clipboard()->setText(QString::fromStdString(expression));
    w.press(Qt::Key_V, Qt::ControlModifier);
    w.press(Qt::Key_Return);
    EXPECT_FALSE(w.editorShown());
    EXPECT_EQ(w.text(2, Quantity), "30001");
}

TEST(LongText, IsStillLimitedWhereTheColumnSaysSo) {
    Window w;
    w.grid().VsCtrl(Code)->iLimitLength(5);
    w.focusCell(1, Code);
    w.press(Qt::Key_Space);
    QGuiApplication::clipboard()->setText(QString(static_cast<qsizetype>(Long), u'p'));
    w.press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(w.editorText(), "ppppp");
}
}  // namespace kxVsGrid::qt::testing
