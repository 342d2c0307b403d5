// What a host may do to its window, from a timer, while a box stands before it.
#include <QPointer>
#include <QSignalSpy>
#include <memory>
#include <stdexcept>

#include "qt/Boxes.h"
#include "qt/CheckedWindow.h"
#include "qt/ScreenMouse.h"

namespace kxVsGrid::qt::testing {
namespace {

/// A window of the host's with a code in its editor that is going to be refused.
struct Host {
    Host() : window(std::make_unique<CheckedWindow>()), widget(window->widget) {
        window->fill(1, Code, "B9");
    }
    ~Host() {
        window.reset();
        if (QGuiApplication::mouseButtons() == Qt::NoButton) return;
        QWidget elsewhere;  // where the clerk lets go of the button
        elsewhere.show();
        screen::release(elsewhere, {});
    }
    Host(const Host&) = delete;
    Host& operator=(const Host&) = delete;

    std::unique_ptr<CheckedWindow> window;
    QPointer<kxGridWidget> widget;
};

const struct {
    const char* name;
    void (*start)(Host& host);
} waysToABox[] = {
    {"Enter", [](Host& host) { QTest::keyPress(host.window->window.windowHandle(), Qt::Key_Return); }},
    {"Tab", [](Host& host) { QTest::keyPress(host.window->window.windowHandle(), Qt::Key_Tab); }},
    {"a press on another cell",
     [](Host& host) { screen::press(host.window->view(), host.window->at(3, Quantity)); }},
    {"a press on another control",
     [](Host& host) { screen::press(*host.window->save, host.window->save->rect().center()); }},
    {"a question of the host's",
     [](Host& host) {
         CheckedWindow& w = *host.window;
         w.save->setFocusPolicy(Qt::NoFocus);
         QObject::connect(w.save, &QPushButton::clicked, w.save,
                          [grid = &w.grid()] { EXPECT_FALSE(grid->ValidTextData()); });
         screen::click(*w.save);
     }},
    {"a call of the host's own", [](Host& host) { host.window->grid().ValidTextData(); }},
};

const struct {
    const char* name;
    void (*end)(Host& host);
    bool widgetEnds;
    bool boxStays;
} waysToEnd[] = {
    {"deletes the window", [](Host& host) { host.window.reset(); }, true, false},
    {"deletes the widget", [](Host& host) { delete host.widget; }, true, true},
    {"deletes the widget later", [](Host& host) { host.widget->deleteLater(); }, true, true},
    {"closes the window", [](Host& host) { host.window->window.close(); }, false, false},
    {"hides the widget", [](Host& host) { host.widget->hide(); }, false, true},
    {"disables the widget", [](Host& host) { host.widget->setEnabled(false); }, false, true},
};
}  // namespace

TEST(BoxLife, OutlastsWhateverTheHostDoesToItsWindow) {
    for (const auto& start : waysToABox) {
        for (const auto& end : waysToEnd) {
            SCOPED_TRACE(std::string(start.name) + ", " + end.name);
            Host host;
            bool stayed = false;
            Boxes boxes([&](QMessageBox& box) {
                const QPointer<QMessageBox> alive(&box);
                end.end(host);
                QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
                Window::settle();
                stayed = alive && alive->isVisible();
                if (stayed) Boxes::enter(*alive);
            });
            start.start(host);
            Window::settle();
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
            EXPECT_EQ(boxes.count(), 1U);
            EXPECT_EQ(stayed, end.boxStays);
            EXPECT_EQ(host.widget.isNull(), end.widgetEnds);
            EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
        }
    }
}

TEST(BoxLife, ClosedWindowShowsTheRefusedTextWhenItComesBack) {
    CheckedWindow w;
    Boxes boxes([&](QMessageBox&) { w.window.close(); });
    w.refuseCode();
    EXPECT_EQ(boxes.count(), 1U);
    w.window.show();
    QApplication::setActiveWindow(&w.window);
    w.settle();
    w.expectAllSelected("B9");
}

TEST(BoxLife, HostThatDeletesTheWidgetWhenAskedForACodeGetsNoBox) {
    for (const auto& start : waysToABox) {
        if (std::string(start.name).ends_with("own") || std::string(start.name).ends_with("host's")) continue;
        SCOPED_TRACE(start.name);
        Host host;
        Boxes boxes;
        host.window->grid().TxtValidBmS.connect([&](const std::string&, const std::string&,
                                                    const std::string&, const std::string&, std::string&,
                                                    std::string&) { delete host.widget; });
        start.start(host);
        Window::settle();
        EXPECT_TRUE(host.widget.isNull());
        EXPECT_EQ(boxes.count(), 0U);
    }
}

TEST(BoxLife, HostThatThrowsWhenAskedForACodeIsReportedAndTheTextStays) {
    for (const bool byMouse : {false, true}) {
        CheckedWindow w;
        Boxes boxes;
        QSignalSpy failed(w.widget, &kxGridWidget::handlerFailed);
        w.grid().TxtValidBmS.connect([](const std::string&, const std::string&, const std::string&,
                                        const std::string&, std::string&,
                                        std::string&) { throw std::runtime_error("数据库已断开"); });
        w.fill(1, Code, "A7");
        if (byMouse)
            screen::click(*w.save);
        else
            w.press(Qt::Key_Return);
        ASSERT_EQ(failed.size(), 1);
        EXPECT_EQ(failed[0][0].toString(), "数据库已断开");
        EXPECT_EQ(boxes.count(), 0U);
        ASSERT_TRUE(w.editorShown());
        EXPECT_EQ(w.editorText(), "A7");
        EXPECT_EQ(w.text(1, Code), "A001");
        EXPECT_EQ(w.saved, byMouse ? 1 : 0);
        EXPECT_FALSE(w.save->isDown());
    }
}
}  // namespace kxVsGrid::qt::testing
