// What the form's code and its host may do while the window is open: throw, and destroy the window.
#include <QPointer>
#include <QPushButton>
#include <QTimer>
#include <memory>
#include <stdexcept>

#include "qt/AnyForm.h"
#include "qt/Dialogs.h"

namespace kxVsGrid::qt::testing {
namespace {

/// What a clerk does, and the word by which the form hears of it.
const struct Way {
    const char* word;
    void (*act)(AnyForm& form, Dialog& d);
} ways[] = {
    {"press Extra", [](AnyForm&, Dialog& d) { d.click("Extra"); }},
    {"press Ok", [](AnyForm&, Dialog& d) { d.press(Qt::Key_Return); }},
    {"text abcx",
     [](AnyForm& form, Dialog& d) {
         form.giveFocusTo("Text");
         d.press(Qt::Key_End);
         d.type("x");
     }},
    {"text abc品",
     [](AnyForm& form, Dialog& d) {
         form.giveFocusTo("Text");
         d.press(Qt::Key_End);
         d.compose("pin");
         d.compose("", "品");
     }},
    {"F5 in Text",
     [](AnyForm& form, Dialog& d) {
         form.giveFocusTo("Text");
         d.press(Qt::Key_F5);
     }},
    {"F5 in Time",
     [](AnyForm& form, Dialog& d) {
         form.giveFocusTo("Time");
         d.press(Qt::Key_F5);
     }},
    {"check",
     [](AnyForm& form, Dialog& d) {
         form.giveFocusTo("Check");
         d.press(Qt::Key_Space);
     }},
    {"double List",
     [](AnyForm& form, Dialog& d) { Dialog::twice(d.inner("List"), d.cell(form.grid, 3, 0)); }},
};

const struct Way throwing[] = {
    {"pick 件",
     [](AnyForm& form, Dialog& d) {
         form.giveFocusTo("Combo");
         d.press(Qt::Key_Down);
     }},
    {"day 2026-11-21",
     [](AnyForm& form, Dialog& d) {
         form.giveFocusTo("Month");
         d.press(Qt::Key_Right);
     }},
    {"time 9:30:0",
     [](AnyForm& form, Dialog& d) {
         form.giveFocusTo("Time");
         d.press(Qt::Key_Up);
     }},
    {"resized", [](AnyForm&, Dialog& d) { d.window.resize(d.window.size() + QSize(30, 30)); }},
    {"unload", [](AnyForm&, Dialog& d) { d.closeByFrame(); }},
};

void throwsWhen(AnyForm& form, const char* word) {
    form.at = [word](AnyForm&, const std::string& heard) {
        if (heard == word) throw std::runtime_error(word);
    };
}

void expectThrown(const Way& way) {
    SCOPED_TRACE(way.word);
    AnyForm form;
    Window w;
    throwsWhen(form, way.word);
    Dialogs dialogs([&](Dialog& d) { way.act(form, d); });
    try {
        runForm(w.widget, form, {});
        ADD_FAILURE() << "nothing was thrown";
    } catch (const std::runtime_error& error) {
        EXPECT_STREQ(error.what(), way.word);
    }
    EXPECT_EQ(dialogs.count, 1);
    EXPECT_EQ(form.heard.back(), "unload");
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
    EXPECT_EQ(w.window.findChildren<FormDialog*>().size(), 0);
}
}  // namespace

// --- Throwing

TEST(FormFailure, ClosesTheWindowAndGoesOnToWhoOpenedIt) {
    for (const Way& way : ways) expectThrown(way);
    for (const Way& way : throwing) expectThrown(way);
}

TEST(FormFailure, WhileLoadingShowsNothing) {
    AnyForm form;
    Window w;
    throwsWhen(form, "load");
    Dialogs dialogs([](Dialog&) {});
    EXPECT_THROW(runForm(w.widget, form, {}), std::runtime_error);
    EXPECT_EQ(dialogs.count, 0);
    EXPECT_EQ(form.words(), "load, unload");
}

TEST(FormFailure, OfTheGridsListenersAndOfIdleTimeIsTheSame) {
    const std::function<void(AnyForm&, Dialog&)> acts[] = {
        [](AnyForm& form, Dialog& d) { screen::click(d.inner("List"), d.cell(form.grid, 3, 0)); },
        [](AnyForm& form, Dialog& d) {
            form.giveFocusTo("List");
            d.press(Qt::Key_Down);
        },
        [](AnyForm& form, Dialog& d) {
            form.whenIdle([]() -> bool { throw std::runtime_error("idle"); });
            waitUntilClosed(d.window);
        },
        [](AnyForm& form, Dialog& d) {
            form.grid.ComputedText(2, 0, []() -> std::string { throw std::runtime_error("damaged"); });
            d.inner("List").update();
            waitUntilClosed(d.window);
        },
    };
    for (const auto& act : acts) {
        AnyForm form;
        Window w;
        form.grid.RowColChange.connect([] { throw std::runtime_error("moved"); });
        Dialogs dialogs([&](Dialog& d) { act(form, d); });
        EXPECT_THROW(runForm(w.widget, form, {}), std::runtime_error);
        EXPECT_EQ(dialogs.count, 1);
        EXPECT_EQ(form.words(), "load, unload");
    }
}

// --- Destroying

TEST(FormLife, EndsWithTheHostsWindow) {
    for (const Way& way : ways) {
        SCOPED_TRACE(way.word);
        AnyForm form;
        auto host = std::make_unique<Window>();
        form.at = [&](AnyForm&, const std::string& word) {
            if (word == way.word) host.reset();
        };
        Dialogs dialogs([&](Dialog& d) {
            const QPointer<FormDialog> alive(&d.window);
            way.act(form, d);
            EXPECT_TRUE(alive.isNull());
        });
        runForm(host->widget, form, {});
        EXPECT_EQ(dialogs.count, 1);
        EXPECT_EQ(form.heard.back(), "unload");
        EXPECT_EQ(std::count(form.heard.begin(), form.heard.end(), "unload"), 1);
    }
}

TEST(FormLife, EndsWithAHandlerThatDestroysTheWindowAndThrows) {
    AnyForm form;
    auto host = std::make_unique<Window>();
    form.at = [&](AnyForm&, const std::string& word) {
        if (word != "press Extra") return;
        host.reset();
        throw std::runtime_error("destroyed");
    };
    Dialogs dialogs([&](Dialog& d) { d.click("Extra"); });
    EXPECT_THROW(runForm(host->widget, form, {}), std::runtime_error);
    EXPECT_EQ(form.heard.back(), "unload");
}

TEST(FormLife, EndsInASliceThatDestroysTheWindow) {
    AnyForm form;
    auto host = std::make_unique<Window>();
    Dialogs dialogs([&](Dialog& d) {
        form.whenIdle([&] {
            host.reset();
            return true;
        });
        waitUntilClosed(d.window);
    });
    runForm(host->widget, form, {});
    EXPECT_EQ(form.words(), "load, unload");
}

TEST(FormLife, EndsWithATimerOfTheHosts) {
    const std::function<void(std::unique_ptr<Window>&)> ends[] = {
        [](std::unique_ptr<Window>& host) { host.reset(); },
        [](std::unique_ptr<Window>& host) { host->window.close(); },
        [](std::unique_ptr<Window>& host) { host->window.hide(); },
    };
    for (const auto& end : ends) {
        AnyForm form;
        auto host = std::make_unique<Window>();
        Dialogs dialogs([&](Dialog& d) {
            d.compose("pin");
            QTimer::singleShot(0, qApp, [&] { end(host); });
            waitUntilClosed(d.window);
        });
        runForm(host->widget, form, {});
        EXPECT_EQ(dialogs.count, 1);
        EXPECT_EQ(form.words(), "load, unload");
    }
}

TEST(FormLife, NeedsNoHostsWindow) {
    AnyForm form;
    Dialogs dialogs([](Dialog& d) { d.press(Qt::Key_Return); });
    runForm(nullptr, form, {});
    EXPECT_EQ(form.words(), "load, press Ok, unload");
}
}  // namespace kxVsGrid::qt::testing
