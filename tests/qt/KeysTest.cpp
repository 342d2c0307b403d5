// Keys of a clerk, as Qt delivers them.
#include <QClipboard>

#include "qt/KeyMap.h"
#include "qt/Window.h"

namespace kxVsGrid::qt::testing {
namespace {

KeyStroke stroke(int key, Qt::KeyboardModifiers modifiers, const QString& text = {}) {
    return strokeOf(QKeyEvent(QEvent::KeyPress, key, modifiers, text));
}
}  // namespace

TEST(KeyMap, GivesLettersTheirCapitalWhateverTheShift) {
    EXPECT_EQ(stroke(Qt::Key_A, Qt::NoModifier, "a").code, 'A');
    EXPECT_EQ(stroke(Qt::Key_A, Qt::NoModifier, "a").character, "a");
    EXPECT_EQ(stroke(Qt::Key_A, Qt::ShiftModifier, "A").character, "A");
    EXPECT_EQ(stroke(Qt::Key_A, Qt::ShiftModifier, "A").shift, ShiftKey);
}

TEST(KeyMap, TakesTheKeypadForTheMainKeys) {
    EXPECT_EQ(stroke(Qt::Key_7, Qt::KeypadModifier, "7").code, '7');
    EXPECT_EQ(stroke(Qt::Key_7, Qt::KeypadModifier, "7").character, "7");
    EXPECT_EQ(stroke(Qt::Key_Asterisk, Qt::KeypadModifier, "*").character, "*");
    EXPECT_EQ(stroke(Qt::Key_Enter, Qt::KeypadModifier, "\r").code, 13);
    EXPECT_EQ(stroke(Qt::Key_Enter, Qt::KeypadModifier, "\r").character, "\r");
}

TEST(KeyMap, TypesAPointForTheKeypadsDecimalInEveryLocale) {
    EXPECT_EQ(stroke(Qt::Key_Comma, Qt::KeypadModifier, ",").character, ".");
    EXPECT_EQ(stroke(Qt::Key_Period, Qt::KeypadModifier, ".").character, ".");
    EXPECT_EQ(stroke(Qt::Key_Comma, Qt::NoModifier, ",").character, ",");
}

TEST(KeyMap, KeepsPunctuationApartFromTheKeysThatMove) {
    const int moving[] = {33, 34, 35, 36, 37, 38, 39, 40, 45, 46};
    const struct {
        Qt::Key key;
        const char* text;
    } signs[] = {{Qt::Key_Period, "."},     {Qt::Key_Apostrophe, "'"}, {Qt::Key_ParenLeft, "("},
                 {Qt::Key_Percent, "%"},    {Qt::Key_Ampersand, "&"},  {Qt::Key_Minus, "-"},
                 {Qt::Key_NumberSign, "#"}, {Qt::Key_Dollar, "$"},     {Qt::Key_Exclam, "!"}};
    for (const auto& sign : signs) {
        const KeyStroke found = stroke(sign.key, Qt::NoModifier, QString::fromLatin1(sign.text));
        EXPECT_EQ(std::count(std::begin(moving), std::end(moving), found.code), 0) << sign.text;
        EXPECT_EQ(found.character, sign.text);
    }
}

TEST(KeyMap, GivesControlCharactersForCtrlAndALetter) {
    EXPECT_EQ(stroke(Qt::Key_C, Qt::ControlModifier, "\x03").character, "\x03");
    EXPECT_EQ(stroke(Qt::Key_C, Qt::ControlModifier, "c").character, "\x03");
    EXPECT_EQ(stroke(Qt::Key_1, Qt::ControlModifier, "1").character, "");
    EXPECT_EQ(stroke(Qt::Key_X, Qt::AltModifier, "x").character, "");
}

TEST(KeyMap, GivesNoCharacterForKeysThatTypeNone) {
    for (const int key : {Qt::Key_Left, Qt::Key_F2, Qt::Key_Insert, Qt::Key_Delete, Qt::Key_Tab})
        EXPECT_EQ(stroke(key, Qt::NoModifier, key == Qt::Key_Delete ? "\x7f" : "").character, "");
}

TEST(KeyMap, HasACodeThatIsNotZeroForKeysWithoutOne) {
    EXPECT_EQ(stroke(Qt::Key_unknown, Qt::NoModifier, "品").code, OtherKey);
    EXPECT_EQ(stroke(Qt::Key_unknown, Qt::NoModifier, "品").character, "品");
}

TEST(Keys, OpenTheEditorWithTheTypedCharacter) {
    Window w;
    w.focusCell(1, Code);
    w.type("x");
    ASSERT_TRUE(w.editorShown());
    EXPECT_EQ(w.editorText(), "x");
    EXPECT_TRUE(w.editor().hasFocus());
    w.type("yz");
    EXPECT_EQ(w.editorText(), "xyz");
    EXPECT_EQ(w.grid().Text(), "xyz");
}

TEST(Keys, OpenTheEditorWithATypedChineseCharacter) {
    Window w;
    w.focusCell(1, Code);
    w.type("品");
    EXPECT_EQ(w.editorText(), "品");
}

TEST(Keys, CommitAnExpressionByEnterAndMoveOn) {
    Window w;
    w.focusCell(1, Quantity);
    w.type("2*3+1");
    w.press(Qt::Key_Return);
    EXPECT_EQ(w.text(1, Quantity), "7");
    EXPECT_FALSE(w.editorShown());
    EXPECT_EQ(w.current(), "1,4");
    EXPECT_TRUE(w.view().hasFocus());
}

TEST(Keys, CommitByTheKeypadsEnter) {
    Window w;
    w.focusCell(1, Quantity);
    QTest::sendKeyEvent(QTest::Click, &focused(), Qt::Key_4, "4", Qt::KeypadModifier);
    QTest::sendKeyEvent(QTest::Click, &focused(), Qt::Key_Comma, ",", Qt::KeypadModifier);
    QTest::sendKeyEvent(QTest::Click, &focused(), Qt::Key_5, "5", Qt::KeypadModifier);
    QTest::sendKeyEvent(QTest::Click, &focused(), Qt::Key_Enter, "\r", Qt::KeypadModifier);
    EXPECT_EQ(w.text(1, Quantity), "4.5");
}

TEST(Keys, TypeAPointInsideTheEditorForTheKeypadsDecimal) {
    Window w;
    w.focusCell(1, Code);
    w.type("1");
    QTest::sendKeyEvent(QTest::Click, &focused(), Qt::Key_Comma, ",", Qt::KeypadModifier);
    EXPECT_EQ(w.editorText(), "1.");
}

TEST(Keys, DropTheEditByEsc) {
    Window w;
    w.focusCell(1, Code);
    w.type("zzz");
    w.press(Qt::Key_Escape);
    EXPECT_FALSE(w.editorShown());
    EXPECT_EQ(w.text(1, Code), "A001");
    EXPECT_TRUE(w.view().hasFocus());
}

TEST(Keys, MoveTheCellByArrows) {
    Window w;
    w.focusCell(1, Code);
    w.press(Qt::Key_Down);
    w.press(Qt::Key_Right);
    EXPECT_EQ(w.current(), "2,2");
}

TEST(Keys, ToggleABooleanCellOnceByABlank) {
    Window w;
    w.focusCell(2, Paid);
    w.press(Qt::Key_Space);
    EXPECT_EQ(w.text(2, Paid), "-1");
    w.type("x");
    EXPECT_EQ(w.text(2, Paid), "0");
    EXPECT_FALSE(w.editorShown());
}

TEST(Keys, AreNotDoubledWhenTheyGoBackToTheGrid) {
    Window w;
    w.focusCell(1, Date);
    w.press(Qt::Key_Left);  // to the Boolean cell
    ASSERT_EQ(w.current(), "1,4");
    EXPECT_EQ(w.text(1, Paid), "-1");
    w.focusCell(1, Quantity);
    w.type("1");
    w.press(Qt::Key_Enter);  // commits, goes to the Boolean cell, and must not toggle it
    EXPECT_EQ(w.current(), "1,4");
    EXPECT_EQ(w.text(1, Paid), "-1");
}

TEST(Keys, CopyTheDisplayedTextOfAClosedCell) {
    Window w;
    w.focusCell(1, Quantity);
    w.press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), "1,234.50");
    EXPECT_FALSE(w.editorShown());
    w.focusCell(1, Paid);
    w.press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(w.text(1, Paid), "-1");
}

TEST(Keys, PasteIntoAClosedCellAsIfItHadBeenTyped) {
    Window w;
    QApplication::clipboard()->setText("贴上");
    w.focusCell(1, Code);
    w.press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_FALSE(w.editorShown());
    EXPECT_EQ(w.text(1, Code), "贴上");
    EXPECT_EQ(w.grid().Text(), "贴上");
}

TEST(Keys, OpenTheEditorWithAValueThatTheCellRefuses) {
    Window w;
    QApplication::clipboard()->setText("12*");
    w.focusCell(1, Quantity);
    w.press(Qt::Key_V, Qt::ControlModifier);
    ASSERT_TRUE(w.editorShown());
    EXPECT_EQ(w.editorText(), "12*");
    EXPECT_EQ(w.grid().Text(), "12*");
    EXPECT_TRUE(w.editor().hasFocus());
    w.press(Qt::Key_2);
    w.press(Qt::Key_Enter);
    EXPECT_EQ(w.text(1, Quantity), "24");
}

TEST(Keys, PasteACellOfATableWithoutItsLineEnd) {
    Window w;
    QApplication::clipboard()->setText("12\r\n");
    w.focusCell(1, Quantity);
    w.press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(w.grid().Text(), "12");
    w.press(Qt::Key_F2);
    w.press(Qt::Key_End);
    QApplication::clipboard()->setText("\n3\r\n4\n");
    w.press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(w.grid().Text(), "12 3 4");
}

TEST(Keys, PasteNothingIntoAReadOnlyOrBooleanCell) {
    Window w;
    QApplication::clipboard()->setText("x");
    w.focusCell(1, Name);
    w.press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_FALSE(w.editorShown());
    w.focusCell(1, Paid);
    w.press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(w.text(1, Paid), "-1");
}

TEST(Keys, CopyAndPasteByInsertAsInTheEditorAndAskForNoRow) {
    Window w;
    int asked = 0;
    w.grid().AddVsRow.connect([&](std::int32_t row, bool&) { asked += row < 29 ? 1 : 0; });
    w.focusCell(1, Quantity);
    w.press(Qt::Key_Insert, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), "1,234.50");
    w.focusCell(2, Code);
    w.press(Qt::Key_Insert, Qt::ShiftModifier);
    EXPECT_EQ(w.text(2, Code), "1,234.50");
    EXPECT_EQ(asked, 0);
}

TEST(Keys, CutByDeleteDeletesNoRow) {
    Window w;
    int asked = 0;
    w.grid().DeleteVsRow.connect([&](std::int32_t, bool&) { ++asked; });
    w.focusCell(1, Code);
    w.press(Qt::Key_Delete, Qt::ShiftModifier);
    EXPECT_EQ(asked, 0);
    w.press(Qt::Key_Delete);
    EXPECT_EQ(asked, 1);
}

TEST(Keys, AreTheWindowsWhenTheGridHasNoUseForThem) {
    Window w;
    int heard = 0;
    QObject filter;
    class Listener : public QWidget {
      public:
        explicit Listener(int& count) : count_(count) {}
        void keyPressEvent(QKeyEvent*) override { ++count_; }

      private:
        int& count_;
    };
    Listener host(heard);
    auto* layout = new QVBoxLayout(&host);
    layout->addWidget(w.widget);
    host.show();
    QApplication::setActiveWindow(&host);
    w.focusCell(1, Code);
    w.press(Qt::Key_F5);
    EXPECT_EQ(heard, 1);
    w.press(Qt::Key_Down);
    EXPECT_EQ(heard, 1);
    w.press(Qt::Key_Delete);
    w.press(Qt::Key_Insert);
    EXPECT_EQ(heard, 3);
    heard = 1;
    w.grid().AddVsRow.connect([](std::int32_t, bool&) {});
    w.grid().DeleteVsRow.connect([](std::int32_t, bool& consent) { consent = true; });
    w.press(Qt::Key_Delete);
    w.press(Qt::Key_Insert);
    EXPECT_EQ(heard, 1);
    w.type("a");
    w.press(Qt::Key_Enter);
    EXPECT_EQ(heard, 1);
    w.type("b");
    w.press(Qt::Key_Escape);
    EXPECT_EQ(heard, 1);
    w.press(Qt::Key_Escape);
    EXPECT_TRUE(w.grid().editorView().visible);
    EXPECT_EQ(heard, 1);
    w.press(Qt::Key_Escape);
    w.grid().Editable(false);
    w.press(Qt::Key_Escape);
    EXPECT_EQ(heard, 2);
    w.widget->setParent(nullptr);
    delete w.widget;
}

TEST(Keys, TypedInALineOfSeveralLinesAddLines) {
    Window w;
    w.focusCell(1, Remark);
    w.type("a");
    w.press(Qt::Key_Return);
    w.type("b");
    EXPECT_EQ(w.grid().Text(), "a\nb");
    EXPECT_TRUE(w.editorShown());
}
}  // namespace kxVsGrid::qt::testing
