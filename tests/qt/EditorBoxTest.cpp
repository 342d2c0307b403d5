// The text box that mirrors the core's editor.
#include <QMenu>
#include <QToolButton>

#include "qt/Boxes.h"
#include "qt/Window.h"
#include "qt/text/Encoding.h"

namespace kxVsGrid::qt::testing {

TEST(Encoding, CountsCodePoints) {
    const QString text = "a" + Rare + "b";
    EXPECT_EQ(characters(text), 3U);
    EXPECT_EQ(charactersBefore(text, 3, LineEnds::Single), 2U);
    EXPECT_EQ(positionOf(text, 2, LineEnds::Single), 3);
    EXPECT_EQ(positionOf(text, 9, LineEnds::Single), 4);
}

TEST(Encoding, CountsALineEndAsTheCoresTextHasIt) {
    EXPECT_EQ(charactersBefore("a\nb", 2, LineEnds::CarriageReturnAndLineFeed), 3U);
    EXPECT_EQ(positionOf("a\nb", 3, LineEnds::CarriageReturnAndLineFeed), 2);
}

TEST(Encoding, ShowsAByteThatIsNoTextAsOneCharacter) {
    EXPECT_EQ(toQt("a\xff"
                   "b"),
              QString("a") + QChar(0xFFFD) + "b");
    EXPECT_EQ(toQt("中\xe4\xb8"), QString("中") + QChar(0xFFFD) + QChar(0xFFFD));
}

TEST(EditorBox, LiesExactlyOverItsCell) {
    Window w;
    for (const std::int32_t twips : {900, 1007, 1013, 1022, 1111, 1499}) {
        w.grid().ColWidth(Code, twips);
        w.grid().ColWidth(Quantity, twips + 3);
        w.focusCell(2, Quantity);
        w.type("1");
        EXPECT_EQ(w.editor().geometry(), w.cell(2, Quantity)) << twips;
        w.press(Qt::Key_Escape);
    }
}

TEST(EditorBox, StaysOverItsCellWhenAColumnOrTheWindowChanges) {
    Window w;
    w.focusCell(2, Quantity);
    w.type("1");
    w.grid().Grid().userColWidth(Code, 2222);
    w.settle();
    EXPECT_EQ(w.editor().geometry(), w.cell(2, Quantity));
    w.window.resize(700, 300);
    w.settle();
    EXPECT_EQ(w.editor().geometry(), w.cell(2, Quantity));
}

TEST(EditorBox, LimitsTypingToSoManyCharacters) {
    Window w;
    w.grid().VsCtrl(Code)->iLimitLength(3);
    w.focusCell(3, Code);
    w.type("abcde");
    EXPECT_EQ(w.editorText(), "abc");
    EXPECT_EQ(w.grid().Text(), "abc");
    w.press(Qt::Key_Home);
    w.press(Qt::Key_Right, Qt::ShiftModifier);
    w.type("X");
    EXPECT_EQ(w.editorText(), "Xbc");
    EXPECT_EQ(w.grid().editorView().selStart, 1U);
}

TEST(EditorBox, CountsACharacterBeyondTheBasicPlaneOnceAndNeverHalvesIt) {
    Window w;
    w.grid().VsCtrl(Code)->iLimitLength(3);
    w.focusCell(3, Code);
    w.compose("", Rare + Rare + Rare + Rare);
    EXPECT_EQ(w.editorText(), Rare + Rare + Rare);
    EXPECT_EQ(w.grid().editorView().selStart, 3U);
}

TEST(EditorBox, NeverCutsATextSetByCode) {
    Window w;
    w.grid().VsCtrl(Code)->iLimitLength(3);
    w.grid().SetCell(1, Code, "ABCDEFG");
    w.focusCell(1, Code);
    w.doubleClick(1, Code);
    EXPECT_EQ(w.editorText(), "ABCDEFG");
    w.press(Qt::Key_End);
    w.type("x");
    EXPECT_EQ(w.editorText(), "ABCDEFG");
    w.press(Qt::Key_Backspace);
    EXPECT_EQ(w.grid().Text(), "ABCDEF");
}

TEST(EditorBox, KeepsTheBytesOfATextThatNobodyTouched) {
    Window w;
    const std::string raw =
        "a\xff"
        "b\u00a0c\r\nd";
    w.grid().VsCtrl(Remark)->iType(flexDTEmpty);
    w.grid().Grid().Text(2, Remark, raw);
    w.doubleClick(2, Remark);
    ASSERT_TRUE(w.editorShown());
    w.press(Qt::Key_End, Qt::ControlModifier);
    w.after->setFocus();
    EXPECT_EQ(w.text(2, Remark), raw);
}

TEST(EditorBox, KeepsNoBreakBlanksAndLineEndsOfATextOfSeveralLines) {
    Window w;
    w.grid().VsCtrl(Remark)->iType(flexDTEmpty);
    w.grid().Grid().Text(2, Remark, "b\u00a0c\r\nd");
    w.doubleClick(2, Remark);
    w.press(Qt::Key_End, Qt::ControlModifier);
    EXPECT_EQ(w.grid().editorView().selStart, 6U);
    w.type("e");
    EXPECT_EQ(w.grid().Text(), "b\u00a0c\r\nde");
    EXPECT_EQ(w.grid().editorView().selStart, 7U);
}

TEST(EditorBox, MirrorsWhatCodePutsIn) {
    Window w;
    w.focusCell(1, Code);
    w.type("x");
    w.grid().Text("另一个");
    EXPECT_EQ(w.editorText(), "另一个");
    w.type("y");
    EXPECT_EQ(w.grid().Text(), "y另一个");
}

TEST(EditorBox, ReportsTheSelection) {
    Window w;
    w.focusCell(1, Code);
    w.type("abcd");
    w.press(Qt::Key_Left, Qt::ShiftModifier);
    EXPECT_EQ(w.grid().editorView().selStart, 3U);
    EXPECT_EQ(w.grid().editorView().selLength, 1U);
    w.press(Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(w.grid().editorView().selLength, 4U);
}

TEST(EditorBox, LeavesByLeftOnlyFromTheStart) {
    Window w;
    w.focusCell(1, Quantity);
    w.type("12");
    w.press(Qt::Key_Left);
    EXPECT_TRUE(w.editorShown());
    w.press(Qt::Key_Home);
    w.press(Qt::Key_Left);
    EXPECT_FALSE(w.editorShown());
    EXPECT_EQ(w.current(), "1,1");
}

TEST(EditorBox, UndoesWhatWasTyped) {
    Window w;
    w.focusCell(1, Code);
    w.type("ab");
    w.press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_NE(w.grid().Text(), "ab");
    EXPECT_EQ(QString::fromStdString(w.grid().Text()), w.editorText());
}

TEST(EditorBox, HasAMenuInTheControlsOwnWords) {
    Window w;
    w.focusCell(1, Code);
    w.type("ab");
    QContextMenuEvent event(QContextMenuEvent::Mouse, QPoint(2, 2), w.editor().mapToGlobal(QPoint(2, 2)));
    QApplication::sendEvent(&w.editor(), &event);
    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    ASSERT_NE(menu, nullptr);
    QStringList captions;
    for (const QAction* action : menu->actions())
        if (!action->isSeparator()) captions << action->text().section(u'(', 0, 0);
    EXPECT_EQ(captions.join(u' '), "撤销 重做 剪切 复制 粘贴 删除 全选");
    menu->actions().last()->trigger();
    menu->close();
    w.settle();
    EXPECT_EQ(w.grid().editorView().selLength, 2U);
    EXPECT_TRUE(w.editorShown());
}

TEST(EditorBox, ShowsTheHelpButtonBesideIt) {
    Window w;
    Boxes boxes;  // nobody answers the help
    w.grid().VsCtrl(Code)->b是否提供帮助(true);
    w.focusCell(1, Code);
    w.type("x");
    auto* button = w.widget->findChild<QToolButton*>();
    ASSERT_TRUE(button->isVisible());
    const QRect cell = w.cell(1, Code);
    EXPECT_EQ(w.editor().geometry().united(button->geometry()), cell);
    EXPECT_FALSE(w.editor().geometry().intersects(button->geometry()));
    QTest::mouseClick(button, Qt::LeftButton);
    EXPECT_EQ(boxes.texts(), QStringList("当前的帮助编码返回错误，或找不到当前的帮助编码"));
    EXPECT_TRUE(w.editorShown());
    EXPECT_TRUE(w.editor().hasFocus());
    w.press(Qt::Key_Escape);
    EXPECT_FALSE(button->isVisible());
}

TEST(EditorBox, ShowsARefusalUntilTheTextChanges) {
    Window w;
    w.focusCell(1, Quantity);
    w.type("1+");
    w.press(Qt::Key_Enter);
    const auto redAtTheEdge = [&] {
        const QColor edge = w.editor().grab().toImage().pixelColor(0, 5);
        return edge.red() > 150 && edge.green() < 80;
    };
    EXPECT_TRUE(redAtTheEdge());
    w.type("2");
    EXPECT_FALSE(redAtTheEdge());
}
}  // namespace kxVsGrid::qt::testing
