// A widget whose settings were loaded looks the same whenever that was done.
#include <QWheelEvent>

#include "qt/Settings.h"
#include "qt/Window.h"
#include "qt/settings/PropertyValues.h"

namespace kxVsGrid::qt::testing {
namespace {

void set(kxGridWidget& widget, const MemoryBag& bag) {
    for (const MemoryBag::Entry& entry : bag.entries())
        widget.setProperty(entry.name.c_str(), toProperty(entry.value));
}

void turnWheel(kxGridWidget& widget, int notches) {
    const QPointF at(widget.rect().center());
    QWheelEvent event(at, widget.mapToGlobal(at), QPoint(), QPoint(0, -120 * notches), Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(&widget, &event);
}

QImage shown(kxGridWidget& widget) {
    Window::settle();
    return widget.grab().toImage();
}
}  // namespace

TEST(LoadedSettings, LookTheSameByNameAndAtRunTime) {
    MemoryBag bag = orderSettings();
    QWidget window;
    kxGridWidget byName(&window);
    set(byName, bag);
    kxGridWidget later(&window);
    QLineEdit keyboard(&window);
    for (kxGridWidget* widget : {&byName, &later}) widget->resize(420, 260);
    keyboard.setFocus();
    window.show();
    Window::settle();
    later.grid().ReadProperties(bag);
    const QImage picture = shown(byName);
    EXPECT_EQ(picture, shown(later));
    EXPECT_TRUE(later.grid().totalRowShown());
    for (kxGridWidget* widget : {&byName, &later}) widget->grid().ReDraw(true);
    EXPECT_EQ(shown(byName), shown(later));
    EXPECT_NE(shown(byName), picture);  // column 3 is hidden by the full set-up
}

TEST(LoadedSettings, ScrollWithTheWheel) {
    for (const bool atRunTime : {false, true}) {
        MemoryBag bag = orderSettings();
        bag.Write("Rows", std::int32_t{60});
        kxGridWidget widget;
        if (!atRunTime) set(widget, bag);
        widget.resize(420, 260);
        widget.show();
        Window::settle();
        if (atRunTime) widget.grid().ReadProperties(bag);
        const QImage before = shown(widget);
        turnWheel(widget, 2);
        EXPECT_EQ(widget.grid().Grid().TopRow(), 2 + 6) << atRunTime;
        EXPECT_NE(shown(widget), before);
        turnWheel(widget, -5);
        EXPECT_EQ(widget.grid().Grid().TopRow(), 2);
        EXPECT_EQ(shown(widget), before);
    }
}

TEST(LoadedSettings, AreTypedIntoAtOnceByAClerkWhoIsInTheGrid) {
    MemoryBag bag = orderSettings();
    Window w;
    w.focusCell(1, Code);
    w.grid().ReadProperties(bag);
    w.type("x");
    EXPECT_EQ(w.current(), "2,1");
    EXPECT_EQ(w.editorText(), "x");
}

TEST(LoadedSettings, HaveRowsThatHoldALargeFont) {
    for (const bool atRunTime : {false, true}) {
        MemoryBag bag = orderSettings();
        kxGridWidget widget;
        QFont font = widget.font();
        font.setPointSize(30);
        widget.setFont(font);
        if (!atRunTime) set(widget, bag);
        widget.resize(420, 260);
        widget.show();
        if (atRunTime) widget.grid().ReadProperties(bag);
        widget.grab();
        EXPECT_GT(widget.grid().Grid().RowHeight(3), 450) << atRunTime;
        EXPECT_GT(widget.grid().Grid().RowHeightMin(), 450);
        font.setPointSize(7);
        widget.setFont(font);
        EXPECT_EQ(widget.grid().Grid().RowHeightMin(), 300) << "the least height that settings bring";
    }
}

TEST(LoadedSettings, KeepTheHostsOwnLeastRowHeight) {
    Window w;
    w.grid().Grid().RowHeightMin(600);
    w.settle();
    QFont font = w.widget->font();
    font.setPointSize(60);
    w.widget->setFont(font);
    EXPECT_GT(w.grid().Grid().RowHeightMin(), 900);
    font.setPointSize(9);
    w.widget->setFont(font);
    EXPECT_EQ(w.grid().Grid().RowHeightMin(), 600);
}
}  // namespace kxVsGrid::qt::testing
