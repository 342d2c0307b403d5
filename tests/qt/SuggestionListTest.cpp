// The list of suggestions under the editor: where it lies, what its keys, presses and turns of the wheel do, and
// when it goes.
#include <QAccessible>
#include <QPointer>
#include <QScrollBar>
#include <QWheelEvent>

#include "qt/Palettes.h"
#include "qt/ScreenMouse.h"
#include "qt/Suggested.h"

namespace kxVsGrid::qt::testing {
namespace {

QRect placeOf(const QWidget& part, const QWidget& window) {
    return {part.mapTo(&window, QPoint()), part.size()};
}

bool turnWheel(QWidget& target, int notches) {
    const QPoint at = target.rect().center();
    QWheelEvent event(at, target.mapToGlobal(at), {}, {0, -120 * notches}, Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(&target, &event);
    return event.isAccepted();
}
}  // namespace

TEST(SuggestedInTheWindow, LieUnderTheEditorAndTakeNoKeyboard) {
    SuggestingWindow w;
    w.suggestAt(3, "lj");
    ASSERT_TRUE(w.listShown());
    EXPECT_FALSE(w.list().isWindow());
    EXPECT_EQ(w.list().window(), &w.window);
    EXPECT_TRUE(w.editor().hasFocus());
    EXPECT_EQ(w.list().focusPolicy(), Qt::NoFocus);
    const QRect editor = placeOf(w.editor(), w.window);
    EXPECT_EQ(w.list().geometry().topLeft(), QPoint(editor.left(), editor.bottom() + 1));
    EXPECT_GE(w.list().width(), editor.width());
    EXPECT_TRUE(w.window.rect().contains(w.list().geometry()));
    EXPECT_EQ(w.rows(), 2);
    EXPECT_FALSE(w.list().verticalScrollBar()->isVisible());
    EXPECT_EQ(w.highlighted(), "");
}

TEST(SuggestedInTheWindow, AreMovedThroughByKeysAndTakenByEnterWhichGoesOn) {
    SuggestingWindow w;
    w.suggestAt(3, "lj");
    w.press(Qt::Key_Down);
    EXPECT_EQ(w.highlighted(), "100001");
    w.press(Qt::Key_Down);
    EXPECT_EQ(w.highlighted(), "100002");
    EXPECT_EQ(w.editorText(), "lj");
    w.press(Qt::Key_Return);
    EXPECT_FALSE(w.listShown());
    EXPECT_FALSE(w.editorShown());
    EXPECT_EQ(w.text(3, Code), "100002");
    EXPECT_EQ(w.grid().Grid().Data(3, Code), "二");
    EXPECT_NE(w.current(), "3,1");
}

TEST(SuggestedInTheWindow, AreTenRowsAtMostAndShowTheOneThatTheClerkWentTo) {
    SuggestingWindow w;
    w.window.resize(640, 700);
    w.settle();
    w.suggestAt(1, "pd");
    EXPECT_EQ(w.rows(), 40);
    EXPECT_TRUE(w.list().verticalScrollBar()->isVisible());
    const int row = w.list().visualRect(w.list().model()->index(0, 0)).height();
    EXPECT_EQ(w.list().viewport()->height(), 10 * row);
    for (int i = 0; i < 25; ++i) w.press(Qt::Key_Down);
    EXPECT_EQ(w.highlighted(), "300034");
    EXPECT_TRUE(w.list().viewport()->rect().contains(w.inRow(24)));
}

TEST(SuggestedInTheWindow, GoWithEscWhichLeavesTheTextInTheEditor) {
    SuggestingWindow w;
    w.suggestAt(3, "lj");
    w.press(Qt::Key_Escape);
    EXPECT_FALSE(w.listShown());
    EXPECT_EQ(w.editorText(), "lj");
    w.type("l");
    EXPECT_FALSE(w.listShown());
    w.press(Qt::Key_Escape);
    EXPECT_FALSE(w.editorShown());
}

TEST(SuggestedInTheWindow, ArePressedWithoutTheEditorLosingTheKeyboard) {
    SuggestingWindow w;
    std::vector<std::string> committed;
    const auto edits = w.grid().AfterEdit.connect(
        [&](std::int32_t row, std::int32_t col) { committed.push_back(w.text(row, col)); });
    w.window.setFocusPolicy(Qt::StrongFocus);  // a host's window that takes presses that nobody wants
    w.suggestAt(3, "lj");
    screen::press(*w.list().viewport(), w.inRow(1));
    EXPECT_EQ(committed, (std::vector<std::string>{"100002"}));
    EXPECT_FALSE(w.listShown());
    const std::string went = w.current();
    screen::release(w.window, w.list().geometry().center());
    w.settle();
    EXPECT_EQ(w.current(), went);
    EXPECT_TRUE(w.view().hasFocus());
}

TEST(SuggestedInTheWindow, StayForPressesOfOtherButtonsAndBesideTheRows) {
    SuggestingWindow w;
    w.window.setFocusPolicy(Qt::StrongFocus);
    w.suggestAt(3, "lj");
    for (const Qt::MouseButton button : {Qt::RightButton, Qt::MiddleButton})
        QTest::mouseClick(w.list().viewport(), button, {}, w.inRow(0));
    QTest::mouseClick(&w.list(), Qt::LeftButton, {}, QPoint(0, 0));  // its frame
    QTest::mousePress(w.list().viewport(), Qt::LeftButton, {}, QPoint(5, 4000));
    EXPECT_TRUE(w.listShown());
    EXPECT_TRUE(w.editor().hasFocus());
    EXPECT_EQ(w.editorText(), "lj");
}

TEST(SuggestedInTheWindow, ScrollByTheWheelWithoutTheGrid) {
    SuggestingWindow w;
    w.suggestAt(1, "pd");
    const std::int32_t top = w.grid().Grid().TopRow();
    EXPECT_TRUE(turnWheel(*w.list().viewport(), 1));
    EXPECT_GT(w.list().verticalScrollBar()->value(), 0);
    for (int i = 0; i < 40; ++i) EXPECT_TRUE(turnWheel(*w.list().viewport(), 1));
    EXPECT_EQ(w.list().verticalScrollBar()->value(), w.list().verticalScrollBar()->maximum());
    EXPECT_EQ(w.grid().Grid().TopRow(), top);
    EXPECT_TRUE(w.listShown());
    EXPECT_EQ(w.highlighted(), "");
    QTest::mousePress(w.list().viewport(), Qt::LeftButton, {}, w.list().viewport()->rect().center());
    EXPECT_NE(w.text(1, Code), "A001");
}

TEST(SuggestedInTheWindow, ScrollByTheirBarWhileTheEditorKeepsTheKeyboard) {
    SuggestingWindow w;
    w.suggestAt(1, "pd");
    QScrollBar& bar = *w.list().verticalScrollBar();
    screen::click(bar, QPoint(bar.width() / 2, bar.height() - 3));
    EXPECT_GT(bar.value(), 0);
    EXPECT_TRUE(w.listShown());
    EXPECT_TRUE(w.editor().hasFocus());
    EXPECT_EQ(w.editorText(), "pd");
}

TEST(SuggestedInTheWindow, LieAboveTheEditorWhereThereIsMoreRoom) {
    SuggestingWindow w;
    w.suggestAt(10, "pd");
    ASSERT_TRUE(w.listShown());
    EXPECT_LT(w.list().geometry().bottom(), placeOf(w.editor(), w.window).top());
    EXPECT_TRUE(w.window.rect().contains(w.list().geometry()));
    w.picture("suggestions-above");
}

TEST(SuggestedInTheWindow, StayInsideOfASmallWindow) {
    for (const QSize size : {QSize(120, 360), QSize(640, 150), QSize(90, 60)}) {
        SuggestingWindow w;
        w.window.setMinimumSize(1, 1);
        w.window.layout()->setSizeConstraint(QLayout::SetNoConstraint);
        w.window.resize(size);
        w.settle();
        w.suggestAt(1, "pd");
        ASSERT_TRUE(w.listShown());
        EXPECT_TRUE(w.window.rect().contains(w.list().geometry()));
    }
}

TEST(SuggestedInTheWindow, AreAMillionAtOnce) {
    SuggestingWindow w;
    w.grid().Options(Code).suggest([](const SuggestionRequest& request) {
        std::vector<Suggestion> all(1'000'000);
        for (std::size_t i = 0; i < all.size(); ++i) all[i].text = request.text + std::to_string(i);
        request.answer(std::move(all));
    });
    w.suggestAt(3, "g");
    ASSERT_TRUE(w.listShown());
    EXPECT_EQ(w.rows(), 1'000'000);
    w.list().scrollToBottom();
    w.settle();
    EXPECT_EQ(w.list().indexAt(QPoint(5, w.list().viewport()->height() - 3)).data().toString(), "g999999");
    w.press(Qt::Key_Down);
    w.press(Qt::Key_Return);
    EXPECT_EQ(w.text(3, Code), "g0");
}

TEST(SuggestedInTheWindow, GoWhenTheirWindowChangesAndAreNoLongerTaken) {
    using Change = std::function<void(SuggestingWindow&)>;
    const std::vector<Change> changes{
        [](SuggestingWindow& w) { w.window.resize(700, 400); },
        [](SuggestingWindow& w) { w.window.move(w.window.pos() + QPoint(10, 10)); },
        [](SuggestingWindow& w) {
            QEvent inactive(QEvent::WindowDeactivate);
            QApplication::sendEvent(&w.window, &inactive);
        },
        [](SuggestingWindow& w) { w.widget->move(w.widget->pos() + QPoint(0, 5)); },
    };
    for (std::size_t i = 0; i < changes.size(); ++i) {
        SCOPED_TRACE(i);
        SuggestingWindow w;
        w.suggestAt(5, "ljls");
        ASSERT_TRUE(w.listShown());
        changes[i](w);
        w.settle();
        EXPECT_FALSE(w.listShown());
        if (!w.editorShown()) continue;
        EXPECT_EQ(w.editorText(), "ljls");
        w.type("x");
        w.press(Qt::Key_Backspace);
        EXPECT_TRUE(w.listShown());
        w.window.resize(w.window.size() + QSize(10, 0));
        w.press(Qt::Key_Return);
        EXPECT_EQ(w.text(5, Code), "ljls");
    }
}

TEST(SuggestedInTheWindow, GoWithTheEditorAndWithTheKeyboard) {
    SuggestingWindow w;
    w.suggestAt(3, "lj");
    w.click(5, Name);
    EXPECT_FALSE(w.listShown());
    EXPECT_EQ(w.text(3, Code), "lj");
    w.suggestAt(4, "lj");
    w.after->setFocus();
    w.settle();
    EXPECT_FALSE(w.listShown());
    w.suggestAt(6, "lj");
    w.widget->hide();
    EXPECT_FALSE(w.listShown());
}

TEST(SuggestedInTheWindow, BringTheirTagToATextTypedWholeThoughAPressElsewhereCommitsIt) {
    SuggestingWindow w;
    w.suggestAt(3, "100001");
    screen::click(*w.after);
    w.settle();
    EXPECT_EQ(w.text(3, Code), "100001");
    EXPECT_EQ(w.grid().Grid().Data(3, Code), "一");
}

TEST(SuggestedInTheWindow, ComeLaterWhenTheirSourceAnswersLater) {
    SuggestingWindow w;
    SuggestionAnswer answer;
    w.grid().Options(Code).suggest([&](const SuggestionRequest& request) { answer = request.answer; });
    w.suggestAt(3, "g");
    EXPECT_FALSE(w.listShown());
    answer({{"g1", "", ""}, {"g2", "", ""}});
    EXPECT_TRUE(w.listShown());
    w.press(Qt::Key_Escape);
    w.press(Qt::Key_Escape);
    answer({{"g1", "", ""}});
    EXPECT_FALSE(w.listShown());
}

TEST(SuggestedInTheWindow, OutliveNoWidget) {
    for (const bool byAPress : {true, false}) {
        SuggestingWindow w;
        const auto edits = w.grid().AfterEdit.connect([&](std::int32_t, std::int32_t) { delete w.widget; });
        w.suggestAt(3, "lj");
        const QPointer<QListView> list = &w.list();
        if (byAPress)
            screen::press(*list->viewport(), w.inRow(0));
        else
            w.press(Qt::Key_Down), w.press(Qt::Key_Return);
        EXPECT_TRUE(list.isNull() || list->isHidden());
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        EXPECT_TRUE(list.isNull());
    }
    auto w = std::make_unique<SuggestingWindow>();
    w->suggestAt(3, "lj");
    delete w->widget;
    w->settle();
    w.reset();
    w = std::make_unique<SuggestingWindow>();
    w->suggestAt(3, "lj");
    w.reset();
}

TEST(SuggestedInTheWindow, FollowTheWidgetIntoAnotherWindow) {
    SuggestingWindow w;
    w.suggestAt(3, "lj");
    w.press(Qt::Key_Escape);
    w.press(Qt::Key_Escape);
    QWidget other;
    other.resize(600, 400);
    w.widget->setParent(&other);
    w.widget->setGeometry(other.rect());
    w.widget->show();
    other.show();
    QApplication::setActiveWindow(&other);
    w.focusCell(3, Code);
    w.type("lj");
    ASSERT_NE(listOf(other), nullptr);
    EXPECT_TRUE(listOf(other)->isVisible());
    EXPECT_EQ(listOf(other)->parentWidget(), &other);
    w.widget->setParent(&w.window);
}

// --- While an input method composes

TEST(SuggestedWhileComposing, AreNotMovedThroughNorTaken) {
    SuggestingWindow w;
    w.suggestAt(3, "l");
    ASSERT_TRUE(w.listShown());
    w.compose("jiao");
    for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Return, Qt::Key_Tab, Qt::Key_Escape, Qt::Key_PageDown})
        w.press(key);
    EXPECT_TRUE(w.listShown());
    EXPECT_EQ(w.highlighted(), "");
    EXPECT_EQ(w.current(), "3,1");
    EXPECT_TRUE(w.editorShown());
    w.compose("", "jl");
    EXPECT_EQ(w.editorText(), "ljl");
    EXPECT_EQ(w.rows(), 2);
    w.compose("", "s");
    EXPECT_EQ(w.rows(), 1);
    w.press(Qt::Key_Return);
    EXPECT_EQ(w.text(3, Code), "100001");
}

TEST(SuggestedWhileComposing, ComeUpForWhatIsCommittedOnTheClosedCell) {
    SuggestingWindow w;
    w.focusCell(3, Code);
    w.compose("liu");
    EXPECT_FALSE(w.listShown());
    w.compose("", "六角");
    ASSERT_TRUE(w.listShown());
    EXPECT_EQ(w.rows(), 2);
    EXPECT_TRUE(w.editor().hasFocus());
    w.press(Qt::Key_Down);
    w.press(Qt::Key_Return);
    EXPECT_EQ(w.text(3, Code), "100001");
}

TEST(SuggestedWhileComposing, AreTakenByAPressAsTheyStandWhereTheTextStillLeadsThere) {
    SuggestingWindow w;
    w.suggestAt(3, "l");
    w.compose("jlm");
    screen::click(*w.list().viewport(), w.inRow(1));
    EXPECT_EQ(w.text(3, Code), "100002");
    w.suggestAt(5, "l");
    w.compose("zzz");
    screen::click(*w.list().viewport(), w.inRow(0));
    EXPECT_EQ(w.editorText(), "lzzz");
    EXPECT_FALSE(w.listShown());
}

// --- Look

TEST(SuggestedLook, FollowsPaletteAndFontOfTheEditor) {
    for (const bool dark : {false, true}) {
        SuggestingWindow w;
        if (dark) w.window.setPalette(darkPalette());
        QFont larger = w.widget->font();
        larger.setPointSize(14);
        if (dark) w.widget->setFont(larger);
        w.suggestAt(2, "lj");
        w.press(Qt::Key_Down);
        ASSERT_TRUE(w.listShown());
        EXPECT_EQ(w.list().font(), w.editor().font());
        EXPECT_EQ(w.list().palette().color(QPalette::Base), w.editor().palette().color(QPalette::Base));
        const QImage picture = w.list().viewport()->grab().toImage();
        const QPoint second = w.inRow(1) * w.window.devicePixelRatioF();
        EXPECT_EQ(picture.pixelColor(picture.width() - 2, second.y()),
                  w.editor().palette().color(QPalette::Base));
        const QPoint first = w.inRow(0) * w.window.devicePixelRatioF();
        EXPECT_EQ(picture.pixelColor(picture.width() - 2, first.y()),
                  w.editor().palette().color(QPalette::Highlight));
        w.picture(dark ? "suggestions-dark" : "suggestions");
    }
}

TEST(SuggestedLook, ChangesWithThePaletteWhileTheListIsOpen) {
    SuggestingWindow w;
    w.suggestAt(2, "pd");
    w.window.setPalette(darkPalette());
    w.settle();
    if (!w.listShown()) w.type("q");
    EXPECT_EQ(w.list().palette().color(QPalette::Base), darkPalette().color(QPalette::Base));
    w.picture("suggestions-turned-dark");
}

TEST(SuggestedLook, LeavesOutWhatIsTooLongAndShowsOneLine) {
    SuggestingWindow w;
    w.grid().Options(Code).suggest([](const SuggestionRequest& request) {
        request.answer({{std::string(100'000, 'x'), "", std::string(100'000, 'y')},
                        {"two\nlines", "", "n\r\no\tte"},
                        {"a", "", ""},
                        {"<b>b</b>", "", "&amp;"}});
    });
    w.suggestAt(2, "pd");
    ASSERT_TRUE(w.listShown());
    EXPECT_TRUE(w.window.rect().contains(w.list().geometry()));
    EXPECT_EQ(w.list().model()->index(1, 0).data().toString(), "two lines");
    w.picture("suggestions-long");
}

// --- Screen readers

TEST(SuggestedToScreenReaders, AreAListWhoseItemsHaveNameAndNote) {
    SuggestingWindow w;
    w.suggestAt(3, "lj");
    QAccessibleInterface* list = QAccessible::queryAccessibleInterface(&w.list());
    ASSERT_NE(list, nullptr);
    EXPECT_EQ(list->role(), QAccessible::List);
    EXPECT_EQ(list->text(QAccessible::Name), "建议");
    ASSERT_EQ(list->childCount(), 2);
    EXPECT_EQ(list->child(1)->role(), QAccessible::ListItem);
    EXPECT_EQ(list->child(1)->text(QAccessible::Name), "100002");
    EXPECT_EQ(list->child(1)->text(QAccessible::Description), "六角螺母  M8");
    w.press(Qt::Key_Down);
    EXPECT_TRUE(list->child(0)->state().selected);
    EXPECT_TRUE(list->child(0)->state().focused) << "told as what the clerk works at";
    EXPECT_FALSE(list->child(1)->state().selected);
    EXPECT_TRUE(w.editor().hasFocus());
}
}  // namespace kxVsGrid::qt::testing
