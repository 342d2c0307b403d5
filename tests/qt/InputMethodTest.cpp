// An input method at work: nothing typed is lost, nothing is committed raw.
#include "qt/Window.h"

namespace kxVsGrid::qt::testing {

TEST(InputMethod, ComposingOnTheClosedCellOpensTheEditorAndLosesNothing) {
    Window w;
    w.focusCell(1, Code);
    w.compose("p");
    ASSERT_TRUE(w.editorShown());
    EXPECT_TRUE(w.view().hasFocus());
    EXPECT_EQ(w.grid().Text(), "A001");
    w.compose("pin");
    EXPECT_TRUE(w.view().hasFocus());
    w.compose("", "品");
    EXPECT_EQ(w.editorText(), "品");
    EXPECT_EQ(w.grid().Text(), "品");
    EXPECT_TRUE(w.editor().hasFocus());
    w.press(Qt::Key_Enter);
    EXPECT_EQ(w.text(1, Code), "品");
}

TEST(InputMethod, CommittingWithoutComposingTypes) {
    Window w;
    w.focusCell(1, Code);
    w.compose("", "，");
    ASSERT_TRUE(w.editorShown());
    EXPECT_EQ(w.grid().Text(), "，");
    EXPECT_TRUE(w.editor().hasFocus());
    w.compose("", "好");
    EXPECT_EQ(w.grid().Text(), "，好");
}

TEST(InputMethod, ComposesInsideTheOpenEditor) {
    Window w;
    w.focusCell(1, Code);
    w.type("a");
    w.compose("ni");
    EXPECT_EQ(w.grid().Text(), "a");
    w.compose("", "你");
    EXPECT_EQ(w.grid().Text(), "a你");
    EXPECT_EQ(w.grid().editorView().selStart, 2U);
}

TEST(InputMethod, ReportsNothingAndActsOnNoKeyWhileComposing) {
    Window w;
    int edits = 0;
    w.grid().AfterEdit.connect([&](std::int32_t, std::int32_t) { ++edits; });
    w.focusCell(1, Code);
    w.compose("p");
    w.press(Qt::Key_Enter);
    w.press(Qt::Key_Escape);
    w.press(Qt::Key_Down);
    w.press(Qt::Key_Tab);
    EXPECT_TRUE(w.editorShown());
    EXPECT_EQ(edits, 0);
    EXPECT_EQ(w.current(), "1,1");
    w.compose("", "品");
    w.compose("zh");
    w.press(Qt::Key_Enter);
    EXPECT_TRUE(w.editorShown());
    EXPECT_EQ(w.grid().Text(), "品");
}

TEST(InputMethod, DroppedOnTheClosedCellLeavesTheEditorWithTheCellsTextSelected) {
    Window w;
    w.focusCell(1, Code);
    w.compose("p");
    w.compose("");
    ASSERT_TRUE(w.editorShown());
    EXPECT_EQ(w.editorText(), "A001");
    EXPECT_EQ(w.grid().Text(), "A001");
    EXPECT_EQ(w.grid().editorView().selStart, 0U);
    EXPECT_EQ(w.grid().editorView().selLength, 4U);
    EXPECT_EQ(dynamic_cast<QLineEdit&>(w.editor()).selectedText(), "A001");
    EXPECT_TRUE(w.editor().hasFocus());
}

TEST(InputMethod, DroppedInTheEditorBringsBackTextAndSelection) {
    Window w;
    w.focusCell(1, Code);
    w.type("abcd");
    w.press(Qt::Key_Home);
    w.press(Qt::Key_Right, Qt::ShiftModifier);
    w.compose("x");
    w.compose("");
    EXPECT_EQ(w.editorText(), "abcd");
    EXPECT_EQ(w.grid().editorView().selStart, 0U);
    EXPECT_EQ(w.grid().editorView().selLength, 1U);
    w.type("Z");
    EXPECT_EQ(w.editorText(), "Zbcd");
}

TEST(InputMethod, MayCommitOneSyllableWhileComposingTheNext) {
    Window w;
    w.focusCell(1, Code);
    w.compose("h");
    w.compose("g", "한");
    EXPECT_TRUE(w.view().hasFocus());
    EXPECT_EQ(w.grid().Text(), "한");
    w.compose("", "글");
    EXPECT_EQ(w.grid().Text(), "한글");
    EXPECT_TRUE(w.editor().hasFocus());
}

TEST(InputMethod, MayCommitOnceMoreWhenItSeesTheKeyboardMove) {
    class Eager : public QObject {
      public:
        bool eventFilter(QObject* object, QEvent* event) override {
            if (event->type() != QEvent::FocusAboutToChange) return false;
            QInputMethodEvent again;
            again.setCommitString("品");
            QApplication::sendEvent(object, &again);
            return false;
        }
    } eager;
    Window w;
    w.focusCell(1, Code);
    w.view().installEventFilter(&eager);
    w.compose("pin");
    w.compose("", "品");
    EXPECT_EQ(w.grid().Text(), "品");
    EXPECT_EQ(w.editorText(), "品");
    EXPECT_TRUE(w.editor().hasFocus());
    w.view().removeEventFilter(&eager);
}

TEST(InputMethod, LeavingCommitsExactlyOnce) {
    Window w;
    int edits = 0;
    w.grid().AfterEdit.connect([&](std::int32_t, std::int32_t) { ++edits; });
    w.focusCell(1, Code);
    w.compose("pin");
    w.after->setFocus();
    EXPECT_EQ(w.text(1, Code), "pin");
    EXPECT_EQ(edits, 1);
    EXPECT_FALSE(w.editorShown());
    EXPECT_TRUE(w.after->hasFocus());
}

TEST(InputMethod, LeavingTheEditorCommitsExactlyOnce) {
    Window w;
    int edits = 0;
    w.grid().AfterEdit.connect([&](std::int32_t, std::int32_t) { ++edits; });
    w.focusCell(1, Code);
    w.type("a");
    w.compose("pin");
    w.after->setFocus();
    EXPECT_EQ(w.text(1, Code), "apin");
    EXPECT_EQ(edits, 1);
}

TEST(InputMethod, PressInTheGridEndsTheComposition) {
    Window w;
    w.focusCell(1, Code);
    w.compose("pin");
    w.click(3, Code);
    EXPECT_EQ(w.text(1, Code), "pin");
    EXPECT_EQ(w.current(), "3,1");
    EXPECT_FALSE(w.editorShown());
}

TEST(InputMethod, IsOffWhereNothingIsTyped) {
    Window w;
    w.focusCell(1, Code);
    EXPECT_TRUE(w.view().inputMethodQuery(Qt::ImEnabled).toBool());
    EXPECT_TRUE(w.view().testAttribute(Qt::WA_InputMethodEnabled));
    for (const Column col : {Name, Paid}) {
        w.focusCell(1, col);
        EXPECT_FALSE(w.view().inputMethodQuery(Qt::ImEnabled).toBool());
        EXPECT_FALSE(w.view().testAttribute(Qt::WA_InputMethodEnabled));
    }
    w.focusCell(1, Code);
    w.grid().Editable(false);
    EXPECT_FALSE(w.view().inputMethodQuery(Qt::ImEnabled).toBool());
}

TEST(InputMethod, ComposesNothingOnCellsThatAreNotTypedInto) {
    Window w;
    w.focusCell(1, Name);
    w.compose("p");
    w.compose("", "品");
    EXPECT_FALSE(w.editorShown());
    EXPECT_EQ(w.text(1, Name), "苹果汁");
    w.focusCell(1, Paid);
    w.compose("p");
    EXPECT_EQ(w.text(1, Paid), "-1");
    w.focusCell(1, Code);
    w.compose("", "好");
    EXPECT_EQ(w.grid().Text(), "好");
}

TEST(InputMethod, PrefersDigitsForNumbersAndDates) {
    Window w;
    for (const Column col : {Quantity, Date}) {
        w.focusCell(1, col);
        EXPECT_TRUE(w.view().inputMethodQuery(Qt::ImHints).toInt() & Qt::ImhPreferNumbers);
        w.type("1");
        EXPECT_TRUE(w.editor().inputMethodHints() & Qt::ImhPreferNumbers);
        EXPECT_TRUE(w.editor().testAttribute(Qt::WA_InputMethodEnabled));
        w.press(Qt::Key_Escape);
    }
    w.focusCell(1, Code);
    EXPECT_FALSE(w.view().inputMethodQuery(Qt::ImHints).toInt() & Qt::ImhPreferNumbers);
}

TEST(InputMethod, FindsTheCaretInTheCell) {
    Window w;
    w.focusCell(2, Code);
    const QRectF closed = w.view().inputMethodQuery(Qt::ImCursorRectangle).toRectF();
    EXPECT_TRUE(QRectF(w.cell(2, Code)).contains(closed.center()));
    w.compose("pinyin");
    const QRectF open = w.view().inputMethodQuery(Qt::ImCursorRectangle).toRectF();
    EXPECT_TRUE(QRectF(w.cell(2, Code)).contains(open.center()));
    EXPECT_GT(open.left(), closed.left());
}

TEST(InputMethod, ComposesSeveralLines) {
    Window w;
    w.focusCell(1, Remark);
    w.compose("bei");
    EXPECT_TRUE(w.view().hasFocus());
    w.compose("", "备");
    EXPECT_EQ(w.grid().Text(), "备");
    w.compose("zhu");
    w.compose("");
    EXPECT_EQ(w.grid().Text(), "备");
    EXPECT_EQ(w.editorText(), "备");
}

TEST(InputMethod, ObeysTheLengthLimit) {
    Window w;
    w.grid().VsCtrl(Code)->iLimitLength(2);
    w.focusCell(3, Code);
    w.compose("yiersansi");
    w.compose("", "一二三四");
    EXPECT_EQ(w.grid().Text(), "一二");
}

TEST(InputMethod, IsDroppedWhenCodeHidesTheEditor) {
    Window w;
    w.focusCell(1, Code);
    w.compose("pin");
    w.grid().Clear();
    EXPECT_FALSE(w.editorShown());
    w.focusCell(1, Code);
    w.type("x");
    EXPECT_EQ(w.editorText(), "x");
}
/// What an input method has committed waits in the program's queue while the next key is there already.
void commitLate(const QString& text) {
    QMetaObject::invokeMethod(
        qApp,
        [text] {
            QInputMethodEvent event;
            event.setCommitString(text);
            QCoreApplication::sendEvent(QApplication::focusWidget(), &event);
        },
        Qt::QueuedConnection);
}

TEST(InputMethod, HasItsLastWordInTheCellBeforeEnterClosesIt) {
    Window w;
    w.focusCell(1, Code);
    w.type("1");
    commitLate("你好");
    QTest::keyClick(w.window.windowHandle(), Qt::Key_Return);
    EXPECT_EQ(w.text(1, Code), "1你好");
    EXPECT_FALSE(w.editorShown());
}

TEST(InputMethod, OpensAClosedCellBeforeTheKeyThatIsForItsEditor) {
    Window w;
    w.focusCell(1, Code);
    commitLate("你好");
    QTest::keyClick(w.window.windowHandle(), Qt::Key_Return);
    EXPECT_EQ(w.text(1, Code), "你好");
    EXPECT_FALSE(w.editorShown());
}
}  // namespace kxVsGrid::qt::testing
