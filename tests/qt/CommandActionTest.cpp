// The commands as a host's window shows them: their actions in menus and tool bars, the context menu with the
// host's own items, and keys that both want.
#include <QAction>
#include <QClipboard>
#include <QMenuBar>
#include <QShortcut>
#include <memory>
#include <utility>

#include "qt/Menus.h"
#include "qt/Window.h"

namespace kxVsGrid::qt::testing {
namespace {

QList<QKeySequence> keysOf(Window& w, Command command) {
    return w.widget->action(command)->shortcuts();
}

/// The captions of the row menu, one behind the other.
std::string rowItems(Window& w) {
    Menus menus([](QMenu&) {});
    rightClick(w, 2, Code);
    return menus.seen.empty() ? "" : menus.seen.back().join(' ').toStdString();
}
}  // namespace

// --- States

TEST(CommandAction, IsEnabledWhereItsCommandCanBeDone) {
    Window w;
    QAction* paste = w.widget->action(Command::Paste);
    QAction* above = w.widget->action(Command::CopyFromAbove);
    QAction* today = w.widget->action(Command::Today);
    QAction* right = w.widget->action(Command::FillRight);
    w.focusCell(1, Code);
    EXPECT_TRUE(paste->isEnabled());
    EXPECT_FALSE(above->isEnabled());
    EXPECT_TRUE(today->isEnabled());
    w.press(Qt::Key_Down);
    EXPECT_TRUE(above->isEnabled());
    w.press(Qt::Key_Right);
    ASSERT_EQ(w.current(), "2,2");
    EXPECT_FALSE(above->isEnabled());  // read-only
    EXPECT_FALSE(today->isEnabled());
    w.click(2, Quantity);
    EXPECT_TRUE(above->isEnabled());
    EXPECT_FALSE(today->isEnabled());  // a number
    EXPECT_TRUE(right->isEnabled());
    w.grid().Editable(false);
    for (QAction* action : {paste, above, today, right}) EXPECT_FALSE(action->isEnabled());
    EXPECT_TRUE(w.widget->action(Command::Copy)->isEnabled());
    w.grid().Editable(true);
    for (QAction* action : {paste, above, right}) EXPECT_TRUE(action->isEnabled());
}

TEST(CommandAction, FollowsMovesThatTheHostMakes) {
    Window w;
    QAction* above = w.widget->action(Command::CopyFromAbove);
    w.focusCell(2, Code);
    EXPECT_TRUE(above->isEnabled());
    w.grid().Grid().Select(1, Code);
    w.settle();
    EXPECT_FALSE(above->isEnabled());
}

TEST(CommandAction, SaysInItsTipWhyItCannotBeDone) {
    Window w;
    w.grid().Options(Code).sortable(true);
    QAction* sort = w.widget->action(Command::SortUp);
    w.focusCell(1, Code);
    EXPECT_TRUE(sort->isEnabled());
    EXPECT_EQ(sort->toolTip(), sort->text());
    w.grid().MergeCells(flexMergeFixedOnly);
    w.grid().MergeCol(0, true);
    w.press(Qt::Key_Down);
    EXPECT_FALSE(sort->isEnabled());
    EXPECT_EQ(sort->toolTip(), QStringLiteral("行标题有合并的单元格，不能排序。"));
    w.grid().MergeCol(0, false);
    w.press(Qt::Key_Up);
    EXPECT_TRUE(sort->isEnabled());
    EXPECT_EQ(sort->toolTip(), sort->text());
}

TEST(CommandAction, DoesOnAClosedCellWhatItsKeyDoes) {
    Window w;
    w.focusCell(1, Code);
    w.before->setFocus();
    w.widget->action(Command::Copy)->trigger();
    EXPECT_EQ(QApplication::clipboard()->text(), "A001");
    EXPECT_TRUE(w.before->hasFocus());
    w.grid().Grid().Select(5, Code);
    w.widget->action(Command::Paste)->trigger();
    EXPECT_EQ(w.text(5, Code), "A001");
    w.widget->action(Command::Cut)->trigger();
    EXPECT_EQ(w.text(5, Code), "");
    w.widget->action(Command::SelectAll)->trigger();
    EXPECT_EQ(w.grid().Grid().SelectedAs(), SelectionKind::All);
}

TEST(CommandAction, ActsOnTheTextOfAnOpenEditor) {
    Window w;
    for (const Column col : {Code, Remark}) {
        SCOPED_TRACE(col);
        w.focusCell(3, col);
        w.type("abc");
        ASSERT_TRUE(w.editorShown());
        for (const Command command : {Command::SelectAll, Command::Copy, Command::Cut, Command::Paste})
            EXPECT_TRUE(w.widget->action(command)->isEnabled());
        QApplication::clipboard()->setText("x");
        w.widget->action(Command::SelectAll)->trigger();
        w.widget->action(Command::Copy)->trigger();
        EXPECT_EQ(QApplication::clipboard()->text(), "abc");
        w.widget->action(Command::Cut)->trigger();
        EXPECT_EQ(w.editorText(), "");
        EXPECT_EQ(w.grid().Text(), "");
        w.widget->action(Command::Paste)->trigger();
        w.widget->action(Command::Paste)->trigger();
        EXPECT_EQ(w.editorText(), "abcabc");
        EXPECT_EQ(w.grid().Text(), "abcabc");
        EXPECT_TRUE(w.editor().hasFocus());
        EXPECT_EQ(w.text(3, col), "");
        w.press(Qt::Key_Escape);
    }
}

TEST(CommandAction, CommitsTheOpenEditorFirstWhereItIsNoTexts) {
    Window w;
    w.grid().SetCell(2, Date, "2026-01-02", "");
    w.focusCell(2, Code);
    w.type("typed");
    w.widget->action(Command::FillDown)->trigger();
    EXPECT_FALSE(w.editorShown());
    EXPECT_EQ(w.text(2, Code), "A001");  // from above
    w.press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(w.text(2, Code), "typed");
}

/// The host that is asked about a lock may end the widget, and an action asks.
TEST(CommandAction, MayEndTheWidgetWhileItsStateIsAsked) {
    Window w;
    w.widget->action(Command::CopyFromAbove);
    w.widget->action(Command::Today);
    w.focusCell(1, Code);
    w.grid().Options().CellLocked.connect([&](std::int32_t row, std::int32_t, bool&) {
        if (row == 3) delete std::exchange(w.widget, nullptr);
    });
    w.press(Qt::Key_Down);
    ASSERT_NE(w.widget, nullptr);
    w.press(Qt::Key_Down);
    EXPECT_EQ(w.widget, nullptr);
}

TEST(CommandAction, GoesOnWhenItsStateCannotBeAsked) {
    Window w;
    int failures = 0;
    QObject::connect(w.widget, &kxGridWidget::handlerFailed, [&](const QString&) { ++failures; });
    QAction* above = w.widget->action(Command::CopyFromAbove);
    w.focusCell(1, Code);
    bool fails = true;
    w.grid().Options().CellLocked.connect([&](std::int32_t, std::int32_t, bool&) {
        if (fails) throw std::runtime_error("no answer");
    });
    w.press(Qt::Key_Down);
    EXPECT_GT(failures, 0);
    fails = false;
    w.press(Qt::Key_Down);
    EXPECT_EQ(w.current(), "3,1");
    EXPECT_TRUE(above->isEnabled());
}

// --- Keys

TEST(CommandAction, ShowsTheKeysThatItsCommandHas) {
    Window w;
    EXPECT_EQ(keysOf(w, Command::Paste), QList<QKeySequence>{QKeySequence("Ctrl+V")});
    EXPECT_EQ(keysOf(w, Command::DuplicateRow), QList<QKeySequence>());
    EXPECT_EQ(keysOf(w, Command::FillDown), QList<QKeySequence>{QKeySequence("Ctrl+D")});
    w.grid().Commands().Bind({Command::DuplicateRow, 'D', CtrlKey});
    EXPECT_EQ(keysOf(w, Command::DuplicateRow), QList<QKeySequence>{QKeySequence("Ctrl+D")});
    EXPECT_EQ(keysOf(w, Command::FillDown), QList<QKeySequence>());
    w.grid().Commands().Bind({Command::Copy, 'K', CtrlKey | ShiftKey});
    EXPECT_EQ(keysOf(w, Command::Copy),
              (QList<QKeySequence>{QKeySequence("Ctrl+C"), QKeySequence("Ctrl+Shift+K")}));
    w.grid().Commands().Unbind('D', CtrlKey);
    EXPECT_EQ(keysOf(w, Command::DuplicateRow), QList<QKeySequence>());
}

TEST(CommandAction, ActsByAKeyThatTheHostGaveIt) {
    Window w;
    w.grid().Commands().Bind({Command::Copy, 'K', CtrlKey});
    w.focusCell(1, Code);
    QApplication::clipboard()->setText("x");
    w.press(Qt::Key_K, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), "A001");
    w.grid().Commands().Unbind('K', CtrlKey);
    QApplication::clipboard()->setText("x");
    w.press(Qt::Key_K, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), "x");
}

/// Those that the desktop has for everybody, too.
TEST(CommandAction, DoesNothingByAKeyThatWasTakenFromIt) {
    Window w;
    w.focusCell(1, Code);
    QApplication::clipboard()->setText("x");
    w.grid().Commands().Unbind('C', CtrlKey);
    w.press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), "x");
    w.press(Qt::Key_Insert, Qt::ControlModifier);  // this one is still the desktop's
    EXPECT_EQ(QApplication::clipboard()->text(), "A001");
    w.grid().Commands().Unbind('V', CtrlKey);
    w.focusCell(2, Code);
    w.press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(w.text(2, Code), "A002");
    w.press(Qt::Key_Escape);
    w.grid().Commands().Unbind('Z', CtrlKey);
    w.grid().Run(Command::Paste);
    ASSERT_EQ(w.text(2, Code), "A001");
    w.press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(w.text(2, Code), "A001");
}

TEST(CommandKeys, AreTheGridsBeforeTheWindows) {
    Window w;
    QMenuBar bar(&w.window);
    bar.addMenu("表格")->addAction(w.widget->action(Command::FillDown));
    int heard = 0;
    QShortcut shortcut(QKeySequence("Ctrl+D"), &w.window);
    QObject::connect(&shortcut, &QShortcut::activated, [&] { ++heard; });
    w.focusCell(2, Code);
    w.press(Qt::Key_D, Qt::ControlModifier);
    EXPECT_EQ(heard, 0);
    EXPECT_EQ(w.text(2, Code), "A001");
    w.type("open");
    ASSERT_TRUE(w.editorShown());
    w.press(Qt::Key_D, Qt::ControlModifier);
    EXPECT_EQ(heard, 0);
    EXPECT_FALSE(w.editorShown());
    w.before->setFocus();
    w.press(Qt::Key_D, Qt::ControlModifier);
    EXPECT_EQ(heard, 1);
    EXPECT_EQ(w.text(2, Code), "A001");
}

TEST(CommandKeys, AreTheWindowsWhenTheyWereFreed) {
    Window w;
    QMenuBar bar(&w.window);
    QMenu* menu = bar.addMenu("表格");
    for (const Command command : {Command::FillDown, Command::Copy})
        menu->addAction(w.widget->action(command));
    QStringList heard;
    for (const char* key : {"Ctrl+D", "Ctrl+C"}) {
        auto* shortcut = new QShortcut(QKeySequence(key), &w.window);
        QObject::connect(shortcut, &QShortcut::activated, [&heard, key] { heard << key; });
    }
    w.grid().Commands().Unbind('D', CtrlKey);
    w.grid().Commands().Unbind('C', CtrlKey);
    w.focusCell(2, Code);
    w.press(Qt::Key_D, Qt::ControlModifier);
    w.press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(heard, (QStringList{"Ctrl+D", "Ctrl+C"}));
    EXPECT_EQ(w.text(2, Code), "A002");
}

TEST(CommandKeys, OfACommandThatCannotBeDoneAreUsedUp) {
    Window w;
    int heard = 0;
    QShortcut shortcut(QKeySequence("Ctrl+D"), &w.window);
    QObject::connect(&shortcut, &QShortcut::activated, [&] { ++heard; });
    w.grid().Editable(false);
    w.focusCell(2, Code);
    w.press(Qt::Key_D, Qt::ControlModifier);
    EXPECT_EQ(heard, 0);
    EXPECT_EQ(w.text(2, Code), "A002");
}

// --- The context menu

TEST(CommandMenu, ShowsTheHostsItemsBelowItsOwn) {
    Window w;
    const std::string own = rowItems(w);
    ASSERT_NE(own, "");
    QAction mine(QStringLiteral("我的"));
    w.widget->appendToMenu(&mine);
    w.widget->appendToMenu(w.widget->action(Command::Paste));
    EXPECT_EQ(rowItems(w), own + " - 我的 粘贴");
    EXPECT_EQ(rowItems(w), own + " - 我的 粘贴");  // each time anew
}

TEST(CommandMenu, TriggersTheHostsItems) {
    Window w;
    int mine = 0;
    QAction action(QStringLiteral("我的"));
    QObject::connect(&action, &QAction::triggered, [&] { ++mine; });
    w.widget->appendToMenu(&action);
    for (const Command command : {Command::Copy, Command::Paste, Command::SelectAll})
        w.widget->appendToMenu(w.widget->action(command));
    const auto choose = [&](std::int32_t row, const QString& text) {
        Menus menus([&](QMenu& menu) { chooseByKeys(menu, text); });
        rightClick(w, row, Code);
        EXPECT_EQ(menus.seen.size(), 1U);
    };
    choose(2, "我的");
    EXPECT_EQ(mine, 1);
    choose(1, "复制");
    EXPECT_EQ(QApplication::clipboard()->text(), "A001");
    choose(4, "粘贴");
    EXPECT_EQ(w.text(4, Code), "A001");
    choose(4, "全选");
    EXPECT_EQ(w.grid().Grid().SelectedAs(), SelectionKind::All);
    EXPECT_EQ(mine, 1);
    EXPECT_EQ(w.grid().Rows(), 30);
}

TEST(CommandMenu, LeavesOutItemsThatWereDeleted) {
    Window w;
    const std::string own = rowItems(w);
    auto mine = std::make_unique<QAction>(QStringLiteral("我的"));
    w.widget->appendToMenu(mine.get());
    w.widget->appendToMenu(nullptr);
    mine.reset();
    EXPECT_EQ(rowItems(w), own);
    delete w.widget->action(Command::Copy);
    w.widget->appendToMenu(w.widget->action(Command::Copy));
    EXPECT_EQ(rowItems(w), own + " - 复制");
}

TEST(CommandMenu, BearsAnItemThatIsDeletedWhileItStandsOpen) {
    Window w;
    const std::string own = rowItems(w);
    auto mine = std::make_unique<QAction>(QStringLiteral("我的"));
    w.widget->appendToMenu(mine.get());
    Menus menus([&](QMenu&) { mine.reset(); });
    rightClick(w, 2, Code);
    EXPECT_EQ(menus.seen.size(), 1U);
    EXPECT_EQ(w.text(2, Code), "A002");
}

TEST(CommandMenu, BearsAnItemThatEndsTheWidget) {
    Window w;
    QAction end(QStringLiteral("结束"));
    QObject::connect(&end, &QAction::triggered, [&] { delete std::exchange(w.widget, nullptr); });
    w.widget->appendToMenu(&end);
    Menus menus([](QMenu& menu) { chooseByKeys(menu, "结束"); });
    QTest::mousePress(&w.view(), Qt::RightButton, Qt::NoModifier, w.at(2, Code));
    EXPECT_EQ(w.widget, nullptr);
}

/// The grid's paste keys are not its menu's alone.
TEST(CommandMenu, DisablesWhatCannotBeDone) {
    Window w;
    w.widget->appendToMenu(w.widget->action(Command::Today));
    bool enabled = true;
    Menus menus([&](QMenu& menu) { enabled = item(menu, "今天的日期").isEnabled(); });
    rightClick(w, 2, Name);
    EXPECT_FALSE(enabled);
    rightClick(w, 2, Code);
    EXPECT_TRUE(enabled);
}
}  // namespace kxVsGrid::qt::testing
