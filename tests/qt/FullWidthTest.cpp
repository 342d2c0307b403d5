// Full-width signs in boxes over columns of numbers and dates: shown as their ASCII selves at once, with the caret
// and the box's own undo as ever.
#include <QClipboard>

#include "qt/Window.h"

namespace kxVsGrid::qt::testing {
namespace {

void paste(Window& w, const QString& text) {
    QApplication::clipboard()->setText(text);
    w.press(Qt::Key_V, Qt::ControlModifier);
}

/// The caret, as the box and the core count it.
void expectCaret(Window& w, int place) {
    auto* line = qobject_cast<QLineEdit*>(&w.editor());
    EXPECT_EQ(
        line ? line->cursorPosition() : qobject_cast<QPlainTextEdit*>(&w.editor())->textCursor().position(),
        place);
    EXPECT_EQ(w.grid().editorView().selStart, static_cast<std::size_t>(place));
}

/// Goes back to the text that the editor was opened with: no text on the way has a full-width sign.
void expectUndone(Window& w, const QString& opened, const QString& entered) {
    for (int i = 0; w.editorText() != opened; ++i) {
        ASSERT_LT(i, 20);
        w.press(Qt::Key_Z, Qt::ControlModifier);
        ASSERT_TRUE(w.editorShown());
        EXPECT_FALSE(w.editorText().contains(u'１')) << qPrintable(w.editorText());
        EXPECT_EQ(w.grid().Text(), w.editorText().toStdString());
    }
    for (int i = 0; i < 20 && w.editorText() != entered; ++i) w.press(Qt::Key_Y, Qt::ControlModifier);
    EXPECT_EQ(w.editorText(), entered);
}

const QString FullWidthSum = QStringLiteral("-３×（２＋１）");
}  // namespace

TEST(FullWidthSigns, AreTypedAsTheirAsciiSelves) {
    Window w;
    w.focusCell(2, Quantity);
    w.type(FullWidthSum);
    EXPECT_EQ(w.editorText(), "-3*(2+1)");
    EXPECT_EQ(w.grid().Text(), "-3*(2+1)");
    expectCaret(w, 8);
    w.press(Qt::Key_Home);
    w.type("１");
    EXPECT_EQ(w.editorText(), "1-3*(2+1)");
    expectCaret(w, 1);
    expectUndone(w, "12", "1-3*(2+1)");
    w.press(Qt::Key_Return);
    EXPECT_EQ(w.text(2, Quantity), "-8");
}

TEST(FullWidthSigns, AreCommittedByAnInputMethodAsTheirAsciiSelves) {
    Window w;
    w.focusCell(2, Quantity);
    w.compose("１９");
    EXPECT_EQ(w.grid().Text(), "12") << "nothing is taken while it is composed";
    w.compose("", "１９。５");
    EXPECT_EQ(w.editorText(), "19.5");
    expectCaret(w, 4);
    w.press(Qt::Key_Left);
    w.compose("", "，１");
    EXPECT_EQ(w.editorText(), "19.,15");
    expectCaret(w, 5);
    w.compose("２", "１");
    EXPECT_EQ(w.grid().Text(), "19.,115");
    w.compose("");
    EXPECT_EQ(w.editorText(), "19.,115");
    expectUndone(w, "12", "19.,115");
}

TEST(FullWidthSigns, ReplaceWhatAnInputMethodAsksFor) {
    Window w;
    w.focusCell(2, Quantity);
    w.type("45");
    QInputMethodEvent event;
    event.setCommitString("１", -1, 1);
    QApplication::sendEvent(&w.editor(), &event);
    EXPECT_EQ(w.editorText(), "41");
    EXPECT_EQ(w.grid().Text(), "41");
}

TEST(FullWidthSigns, ArePastedAsTheirAsciiSelves) {
    Window w;
    w.focusCell(2, Quantity);
    w.type("7");
    paste(w, "×１，２３４．５０\r\n");
    EXPECT_EQ(w.editorText(), "7*1,234.50");
    expectCaret(w, 10);
    expectUndone(w, "12", "7*1,234.50");
    w.press(Qt::Key_Escape);
    paste(w, "１，２３４．５０");
    EXPECT_EQ(w.text(2, Quantity), "1234.5") << "onto the closed cell";
}

TEST(FullWidthSigns, AreTakenInDates) {
    Window w;
    w.grid().VsCtrl(Date)->i有效性判断(1);
    w.grid().VsCtrl(Date)->i字段有效性判断类型(ij日期型);
    w.focusCell(3, Date);
    w.type("２０２４０１０５");
    EXPECT_EQ(w.editorText(), "20240105");
    w.press(Qt::Key_Return);
    EXPECT_EQ(w.text(3, Date), "2024-01-05");
    w.grid().VsCtrl(Code)->i字段有效性判断类型(ij日期型);
    w.focusCell(3, Code);
    w.type("１／５");
    EXPECT_EQ(w.editorText(), "1/5");
}

TEST(FullWidthSigns, AreTakenInABoxOfSeveralLines) {
    Window w;
    w.grid().VsCtrl(Quantity)->b是否编辑多行(true);
    w.focusCell(2, Quantity);
    w.type("１");
    w.compose("", "＋２");
    paste(w, "×３");
    EXPECT_EQ(w.editorText(), "1+2*3");
    expectCaret(w, 5);
    expectUndone(w, "12", "1+2*3");
    w.press(Qt::Key_Tab);
    EXPECT_EQ(w.text(2, Quantity), "7");
}

TEST(FullWidthSigns, ThatComeInBesideTheBoxsOwnWaysAreShownAnew) {
    Window w;
    w.focusCell(2, Quantity);
    w.type("5");
    qobject_cast<QLineEdit*>(&w.editor())->insert("＋１");
    EXPECT_EQ(w.editorText(), "5+1");
    expectCaret(w, 3);
    EXPECT_EQ(w.grid().Text(), "5+1");
}

TEST(FullWidthSigns, StayInTextsAndInWhatCodePutsIn) {
    Window w;
    w.focusCell(2, Code);
    w.type("１，");
    w.compose("", "２。");
    paste(w, "×");
    EXPECT_EQ(w.editorText(), "１，２。×");
    w.press(Qt::Key_Return);
    EXPECT_EQ(w.text(2, Code), "１，２。×");
    w.focusCell(2, Quantity);
    w.press(Qt::Key_Space);
    w.grid().Text("１２");
    EXPECT_EQ(w.editorText(), "１２");
    w.press(Qt::Key_End);
    EXPECT_EQ(w.editorText(), "１２");
    w.press(Qt::Key_Escape);
    EXPECT_EQ(w.text(2, Quantity), "12");
}

TEST(FullWidthSigns, CountForTheLimitAsBefore) {
    Window w;
    w.grid().VsCtrl(Quantity)->iLimitLength(3);
    w.focusCell(2, Quantity);
    w.compose("", "１２３４");
    EXPECT_EQ(w.editorText(), "123");
    EXPECT_EQ(w.grid().Text(), "123");
    w.type("５");
    EXPECT_EQ(w.editorText(), "123");
}
}  // namespace kxVsGrid::qt::testing
