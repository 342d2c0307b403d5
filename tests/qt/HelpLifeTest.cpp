// What the host does to its window while a help dialog stands before it.
#include <QPointer>
#include <QPushButton>
#include <QSignalSpy>
#include <QTimer>
#include <memory>
#include <stdexcept>

#include "qt/HelpWindow.h"

namespace kxVsGrid::qt::testing {
namespace {

const struct {
    const char* name;
    void (*end)(std::unique_ptr<HelpWindow>& host, const QPointer<kxGridWidget>& widget);
    bool dialogStays;
} waysToEnd[] = {
    {"deletes the window",
     [](std::unique_ptr<HelpWindow>& host, const QPointer<kxGridWidget>&) { host.reset(); }, false},
    {"deletes the widget",
     [](std::unique_ptr<HelpWindow>&, const QPointer<kxGridWidget>& widget) { delete widget; }, true},
    {"closes the window",
     [](std::unique_ptr<HelpWindow>& host, const QPointer<kxGridWidget>&) { host->window.close(); }, false},
    {"hides the widget",
     [](std::unique_ptr<HelpWindow>&, const QPointer<kxGridWidget>& widget) { widget->hide(); }, true},
};

void open(HelpWindow& w, bool byButton) {
    if (byButton)
        w.pressHelpButton();
    else
        w.press(Qt::Key_F2);
}
}  // namespace

TEST(HelpLife, OutlastsWhateverTheHostDoesToItsWindow) {
    for (const Column col : {Code, Date, Remark}) {
        for (const auto& way : waysToEnd) {
            for (const bool byButton : {false, true}) {
                SCOPED_TRACE(std::string(way.name) + " " + std::to_string(col));
                auto host = std::make_unique<HelpWindow>();
                const QPointer<kxGridWidget> widget(host->widget);
                Dialogs dialogs([&](Dialog& d) {
                    const QPointer<FormDialog> alive(&d.window);
                    way.end(host, widget);
                    Window::settle();
                    EXPECT_EQ(alive && alive->isVisible(), way.dialogStays);
                    if (alive && alive->isVisible()) d.press(Qt::Key_Return);
                });
                host->write(2, col, "1");
                open(*host, byButton);
                EXPECT_EQ(dialogs.count, 1);
                EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
                Window::settle();
            }
        }
    }
}

TEST(HelpLife, EndsWhenTheEditHandlerDestroysTheWindow) {
    for (const bool throws : {false, true}) {
        auto host = std::make_unique<HelpWindow>();
        host->editable = true;
        host->grid().GetHelpEdit.connect([&](const std::string&, Variant&) {
            host.reset();
            if (throws) throw std::runtime_error("destroyed");
        });
        Dialogs dialogs([](Dialog& d) { d.click("Bjcommand"); });
        host->write(2, Code, "x");
        host->press(Qt::Key_F2);
        EXPECT_EQ(dialogs.count, 1);
        EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
    }
}

TEST(HelpLife, ShowsNoDialogWhenTheHostEndsTheWidgetAsItIsAsked) {
    HelpWindow w;
    const QPointer<kxGridWidget> widget(w.widget);
    w.grid().GetHelpCodeInfo.connect([&](const Variant&, Variant&, Variant&, Variant&) { delete widget; });
    Dialogs dialogs([](Dialog&) {});
    w.write(2, Code, "x");
    w.press(Qt::Key_F2);
    EXPECT_EQ(dialogs.count, 0);
    EXPECT_TRUE(widget.isNull());
}

TEST(HelpLife, OfAHelpWithinAHelpLeavesTheOuterOneItsChoice) {
    HelpWindow outer;
    outer.editable = true;
    outer.grid().GetHelpEdit.connect([&](const std::string&, Variant&) {
        HelpWindow inner;
        inner.window.hide();
        inner.window.setWindowModality(Qt::ApplicationModal);
        inner.window.show();
        QApplication::setActiveWindow(&inner.window);
        inner.write(2, Remark, "x");
        inner.press(Qt::Key_F2);
        EXPECT_EQ(inner.editorText(), "1");
    });
    Dialogs dialogs([](Dialog& d) {
        if (d.window.objectName() == "XT_Const") {
            d.press(Qt::Key_Down);
            d.press(Qt::Key_Return);
            return;
        }
        d.click("Bjcommand");
        d.click("QdCommand");
    });
    outer.write(2, Code, "B0004");
    outer.press(Qt::Key_F2);
    EXPECT_EQ(dialogs.count, 2);
    EXPECT_EQ(outer.editorText(), "B0004");
}
}  // namespace kxVsGrid::qt::testing
