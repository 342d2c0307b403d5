// The find bar under the grid, by keys and mouse.
#include "qt/find/FindBar.h"

#include <QAction>
#include <QPushButton>

#include "qt/Boxes.h"
#include "qt/Palettes.h"
#include "qt/Window.h"
#include "qt/view/Scale.h"

namespace kxVsGrid::qt::testing {
namespace {

class FindWindow : public Window {
  public:
    FindWindow() {
        grid().SetCell(3, Code, "B001");
        grid().SetCell(7, Code, "A0017");
        focusCell(1, Code);
        settle();
    }
    FindBar& bar() {
        for (QObject* child : widget->children())
            if (auto* found = dynamic_cast<FindBar*>(child)) return *found;
        throw std::logic_error("there is no bar");
    }
    bool barShown() {
        for (QObject* child : widget->children())
            if (auto* found = dynamic_cast<FindBar*>(child)) return found->isVisible();
        return false;
    }
    template <class Part = QWidget>
    Part& part(const QString& name) {
        for (auto* one : bar().findChildren<QWidget*>())
            if (one->accessibleName() == name) return dynamic_cast<Part&>(*one);
        throw std::logic_error("the bar has no such part");
    }
    QString told() { return bar().findChild<QLabel*>()->text(); }
    void open() { press(Qt::Key_F, Qt::ControlModifier); }
    /// Until the search is done.
    void look(const QString& text) {
        type(text);
        waitUntil([this] { return grid().Find().State().complete; });
        settle();
    }
};
}  // namespace

TEST(FindBar, OpensUnderTheGridWithTheKeyboard) {
    FindWindow w;
    const int before = w.view().height();
    w.open();
    EXPECT_TRUE(w.barShown());
    EXPECT_EQ(QApplication::focusWidget(), &w.part("查找"));
    EXPECT_EQ(w.view().height() + w.bar().height(), before);
    EXPECT_EQ(w.bar().geometry().bottom(), w.widget->rect().bottom());
    EXPECT_EQ(Scale(*w.widget).pixel(w.grid().Grid().ClientHeight()), w.view().height());
    EXPECT_FALSE(w.part("替换为").isVisible());
}

TEST(FindBar, ShowsTheFirstMatchWhileTypingAndMovesNothing) {
    FindWindow w;
    w.open();
    w.look("001");
    EXPECT_EQ(w.current(), "1,1");
    EXPECT_EQ(w.told(), "1/3");
    w.type("7");
    waitUntil([&] { return w.told() == "1/1"; });
    EXPECT_EQ(w.grid().Find().State().match, (FoundCell{7, Code}));
    EXPECT_EQ(w.current(), "1,1");
}

TEST(FindBar, GoesOnByEnterAndBackByShiftEnter) {
    FindWindow w;
    w.open();
    w.look("001");
    w.press(Qt::Key_Return);
    EXPECT_EQ(w.current(), "1,1");
    w.press(Qt::Key_Enter);
    EXPECT_EQ(w.current(), "3,1");
    w.press(Qt::Key_F3);
    EXPECT_EQ(w.current(), "7,1");
    w.press(Qt::Key_Return);
    EXPECT_EQ(w.current(), "1,1");
    EXPECT_EQ(w.told(), "1/3  已从头继续");
    w.press(Qt::Key_Return, Qt::ShiftModifier);
    EXPECT_EQ(w.current(), "7,1");
    EXPECT_EQ(w.told(), "3/3  已从末尾继续");
    w.press(Qt::Key_F3, Qt::ShiftModifier);
    EXPECT_EQ(w.current(), "3,1");
    EXPECT_EQ(w.told(), "2/3");
    EXPECT_EQ(QApplication::focusWidget(), &w.part("查找"));
}

TEST(FindBar, GoesByItsEscWithTheCurrentCellWhereItIs) {
    FindWindow w;
    const int before = w.view().height();
    w.open();
    w.look("A0017");
    w.press(Qt::Key_Escape);
    EXPECT_FALSE(w.barShown());
    EXPECT_EQ(QApplication::focusWidget(), &w.view());
    EXPECT_EQ(w.current(), "1,1");
    EXPECT_EQ(w.view().height(), before);
    EXPECT_FALSE(w.grid().Find().Underway());
    w.press(Qt::Key_F3);
    EXPECT_EQ(w.current(), "7,1");
}

TEST(FindBar, SaysThatNothingIsFound) {
    FindWindow w;
    w.open();
    const QColor ground = w.part("查找").palette().color(QPalette::Base);
    w.look("nowhere");
    EXPECT_EQ(w.told(), "未找到");
    EXPECT_NE(w.part("查找").palette().color(QPalette::Base), ground);
    w.press(Qt::Key_Return);
    EXPECT_EQ(w.current(), "1,1");
    w.part<QLineEdit>("查找").clear();
    Window::settle();
    EXPECT_EQ(w.told(), "");
    EXPECT_EQ(w.part("查找").palette().color(QPalette::Base), ground);
    w.window.setPalette(darkPalette());
    Window::settle();
    EXPECT_EQ(w.part("查找").palette().color(QPalette::Base), darkPalette().color(QPalette::Base));
}

TEST(FindBar, ItsBoxesNarrowTheSearch) {
    FindWindow w;
    w.open();
    w.look("a001");
    EXPECT_EQ(w.grid().Find().State().count, 2);
    QTest::mouseClick(&w.part("整格"), Qt::LeftButton, {}, QPoint(8, w.part("整格").height() / 2));
    waitUntil([&] { return w.told() == "1/1"; });
    EXPECT_EQ(QApplication::focusWidget(), &w.part("查找"));
    w.part<QCheckBox>("区分大小写").click();
    waitUntil([&] { return w.told() == "未找到"; });
}

TEST(FindBar, KeepsTheLastTextSelectedForTheNextTime) {
    FindWindow w;
    w.open();
    w.look("B0");
    w.press(Qt::Key_Escape);
    w.open();
    EXPECT_EQ(w.part<QLineEdit>("查找").selectedText(), "B0");
    EXPECT_TRUE(w.grid().Find().Underway());
    w.look("A");
    EXPECT_EQ(w.part<QLineEdit>("查找").text(), "A");
    w.press(Qt::Key_F, Qt::ControlModifier);
    EXPECT_EQ(w.part<QLineEdit>("查找").selectedText(), "A");
}

TEST(FindBar, CommitsTheEditorBeforeItOpens) {
    FindWindow w;
    w.type("x");
    ASSERT_TRUE(w.editorShown());
    w.open();
    EXPECT_FALSE(w.editorShown());
    EXPECT_EQ(w.text(1, Code), "x");
    EXPECT_TRUE(w.barShown());
    EXPECT_EQ(QApplication::focusWidget(), &w.part("查找"));
}

TEST(FindBar, CommitsTheEditorThatIsLeftForIt) {
    FindWindow w;
    w.open();
    w.focusCell(2, Code);
    w.type("typed");
    ASSERT_TRUE(w.editorShown());
    int commits = 0;
    w.grid().AfterEdit.connect([&](std::int32_t, std::int32_t) { ++commits; });
    QTest::mouseClick(&w.part("查找"), Qt::LeftButton);
    w.part("查找").setFocus();
    waitUntil([&] { return !w.editorShown(); });
    EXPECT_EQ(w.text(2, Code), "typed");
    EXPECT_EQ(commits, 1);
    EXPECT_EQ(QApplication::focusWidget(), &w.part("查找"));
}

TEST(FindBar, TheControlKeepsTheKeyboardWhileTheBarHasIt) {
    FindWindow w;
    EXPECT_TRUE(w.grid().IsActive());
    w.open();
    EXPECT_TRUE(w.grid().IsActive());
    w.after->setFocus();
    EXPECT_FALSE(w.grid().IsActive());
    w.part("查找").setFocus();
    EXPECT_TRUE(w.grid().IsActive());
}

TEST(FindBar, TabGoesThroughItAndStaysInIt) {
    FindWindow w;
    w.press(Qt::Key_H, Qt::ControlModifier);
    QStringList names;
    for (int i = 0; i < 10; ++i) {
        names << focused().accessibleName();
        w.press(Qt::Key_Tab);
    }
    EXPECT_EQ(names, (QStringList{"查找", "替换为", "上一个", "下一个", "整格", "区分大小写", "本列", "替换",
                                  "全部替换", "关闭"}));
    EXPECT_EQ(focused().accessibleName(), "查找");
    w.press(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(focused().accessibleName(), "关闭");
    w.press(Qt::Key_Return);
    EXPECT_FALSE(w.barShown());
}

TEST(FindBar, TabInTheGridLeavesItBesideTheBar) {
    FindWindow w;
    w.open();
    w.focusCell(29, Remark);
    for (int i = 0; i < 5 && QApplication::focusWidget() == &w.view(); ++i) w.press(Qt::Key_Tab);
    EXPECT_EQ(QApplication::focusWidget(), w.after);
}

TEST(FindBar, ReplacesOneAfterTheOther) {
    FindWindow w;
    w.open();
    w.look("001");
    w.press(Qt::Key_H, Qt::ControlModifier);
    EXPECT_EQ(focused().accessibleName(), "替换为");
    w.type("9");
    w.press(Qt::Key_Return);
    EXPECT_EQ(w.text(1, Code), "A9");
    Window::settle();
    EXPECT_EQ(w.grid().Find().State().match, (FoundCell{3, Code}));
    w.part<QToolButton>("替换").click();
    EXPECT_EQ(w.text(3, Code), "B9");
    w.part<QToolButton>("全部替换").click();
    EXPECT_EQ(w.text(7, Code), "A97");
    EXPECT_EQ(w.told(), "已替换 1 格");
}

TEST(FindBar, SaysWhatWasNotReplaced) {
    FindWindow w;
    w.grid().SetCell(4, Name, "A001");
    w.press(Qt::Key_H, Qt::ControlModifier);
    w.look("001");
    w.part<QToolButton>("全部替换").click();
    EXPECT_EQ(w.told(), "替换 3 格，跳过只读 1 格。");
    EXPECT_EQ(w.text(4, Name), "A001");
}

TEST(FindBar, AReadOnlyGridIsNotReplacedIn) {
    FindWindow w;
    w.grid().Editable(false);
    w.press(Qt::Key_H, Qt::ControlModifier);
    EXPECT_FALSE(w.barShown());
    w.open();
    EXPECT_TRUE(w.barShown());
    w.press(Qt::Key_H, Qt::ControlModifier);
    EXPECT_FALSE(w.part("替换为").isVisible());
}

TEST(FindBar, WhatIsComposedIsLookedForWhenItIsThere) {
    FindWindow w;
    w.open();
    w.compose("ping");
    EXPECT_EQ(w.grid().Find().Rule().text, "");
    w.compose({}, "苹果");
    EXPECT_EQ(w.grid().Find().Rule().text, "苹果");
    waitUntil([&] { return w.told() == "1/1"; });
    EXPECT_EQ(w.grid().Find().State().match, (FoundCell{1, Name}));
}

TEST(FindBar, KeysOfTheGridsCommandsDoNothingInIt) {
    FindWindow w;
    w.widget->action(Command::FillDown);
    w.widget->action(Command::DeleteRows);
    w.widget->action(Command::Paste);
    w.grid().Grid().Select(2, Code);
    w.open();
    w.type("ab");
    w.press(Qt::Key_D, Qt::ControlModifier);
    w.press(Qt::Key_Minus, Qt::ControlModifier);
    w.press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(w.text(2, Code), "A002");
    EXPECT_EQ(w.grid().Rows(), 30);
    EXPECT_EQ(w.part<QLineEdit>("查找").text(), "");
}

TEST(FindBar, AWindowsOwnKeysForFindingWin) {
    FindWindow w;
    QAction own(&w.window);
    own.setShortcuts({QKeySequence(Qt::Key_F3), QKeySequence(Qt::CTRL | Qt::Key_F)});
    w.window.addAction(&own);
    int asked = 0;
    QObject::connect(&own, &QAction::triggered, [&] { ++asked; });
    w.grid().Find().Rule({.text = "001"});
    QTest::keyClick(&w.view(), Qt::Key_F, Qt::ControlModifier);
    QTest::keyClick(&w.view(), Qt::Key_F3);
    EXPECT_EQ(asked, 2);
    EXPECT_FALSE(w.barShown());
    EXPECT_EQ(w.current(), "1,1");
}

TEST(FindBar, TheCurrentCellStaysInViewWhenItComes) {
    FindWindow w;
    std::int32_t last = 1;
    while (w.view().height() > w.cell(last + 1, Code).bottom() + w.cell(1, Code).height() * 2) ++last;
    w.focusCell(last, Code);
    w.open();
    EXPECT_LT(w.cell(last, Code).bottom(), w.view().height());
    EXPECT_TRUE(w.grid().Grid().RowIsVisible(last));
}

TEST(FindBar, StaysWholeInNarrowWindows) {
    FindWindow w;
    w.press(Qt::Key_H, Qt::ControlModifier);
    w.look("001");
    for (const int width : {900, 640, 420, 300, 220}) {
        w.window.resize(width, 420);
        Window::settle();
        QList<QWidget*> parts;
        for (auto* part : w.bar().findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
            if (!part->isVisible()) continue;
            EXPECT_TRUE(w.bar().rect().contains(part->geometry()))
                << width << part->accessibleName().toStdString();
            const bool box = qobject_cast<QLineEdit*>(part) != nullptr;
            EXPECT_TRUE(box || part->width() >= part->sizeHint().width())
                << width << part->accessibleName().toStdString();
            for (const QWidget* other : parts)
                EXPECT_FALSE(other->geometry().intersects(part->geometry())) << width;
            parts << part;
        }
    }
}

TEST(FindBar, OutlivesAHostThatDeletesTheWidgetInTheMove) {
    auto w = std::make_unique<FindWindow>();
    w->open();
    w->look("B001");
    const QPointer<kxGridWidget> widget = w->widget;
    w->grid().RowColChange.connect([&] { delete w->widget; });
    w->press(Qt::Key_Return);
    Window::settle();
    EXPECT_TRUE(widget.isNull());
}

TEST(FindBar, OutlivesAHostThatDeletesTheWidgetWhileItOpens) {
    auto w = std::make_unique<FindWindow>();
    std::int32_t last = 1;
    while (w->view().height() > w->cell(last + 1, Code).bottom()) ++last;
    w->focusCell(last, Code);
    const QPointer<kxGridWidget> widget = w->widget;
    w->grid().Grid().AfterScroll.connect([&](auto...) { delete w->widget; });
    w->open();
    Window::settle();
    EXPECT_TRUE(widget.isNull());
}

TEST(FindBar, OutlivesAHostThatDeletesTheWidgetWhileItLooks) {
    auto w = std::make_unique<FindWindow>();
    w->grid().Rows(500);
    w->grid().SetCell(400, Code, "far");
    w->open();
    QPointer<kxGridWidget> widget = w->widget;
    w->grid().Grid().AfterScroll.connect([&](auto...) { delete w->widget; });
    w->type("far");
    waitUntil([&] { return widget.isNull(); });
    Window::settle();
    EXPECT_TRUE(widget.isNull());
}
}  // namespace kxVsGrid::qt::testing
