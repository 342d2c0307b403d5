// A form's window: size and place, its end, idle time.
#include <QElapsedTimer>
#include <QPushButton>
#include <QScreen>

#include "qt/AnyForm.h"
#include "qt/Dialogs.h"
#include "qt/view/Scale.h"

namespace kxVsGrid::qt::testing {
namespace {

QRect room() {
    return QGuiApplication::primaryScreen()->availableGeometry();
}

/// A cell at a place on the screen, in logical pixels, as the control hands it over.
Rect cellAt(const QRect& pixels) {
    const QWidget any;
    const Scale scale(any);
    const std::int32_t left = scale.twips(pixels.left());
    const std::int32_t top = scale.twips(pixels.top());
    return {left, top, scale.twips(pixels.width()), scale.twips(pixels.height())};
}

/// What is left can be as small as any form.
void leaveTextAndList(const AnyForm& form) {
    for (const auto& control : form.controls())
        control->visible = control->name == "Text" || control->name == "List";
}

/// Where the window of a form of half its size stands.
QRect placeFor(const Rect& anchor) {
    AnyForm form;
    leaveTextAndList(form);
    form.startSize(1, 1);
    QRect place;
    work(
        form,
        [&](Dialog& d) {
            place = d.window.frameGeometry();
            d.closeByFrame();
        },
        anchor);
    return place;
}

void busyFor(int milliseconds) {
    QElapsedTimer timer;
    timer.start();
    while (timer.elapsed() < milliseconds) {
    }
}
}  // namespace

// --- Place

TEST(FormWindow, StandsUnderTheCell) {
    EXPECT_EQ(placeFor(cellAt({100, 50, 80, 20})).topLeft(), QPoint(100, 70));
}

TEST(FormWindow, StandsAboveTheCellWithoutRoomBelow) {
    const int top = room().bottom() - 29;
    const QRect place = placeFor(cellAt({100, top, 80, 20}));
    EXPECT_EQ(place.left(), 100);
    EXPECT_EQ(place.bottom() + 1, top);
}

TEST(FormWindow, StandsWhollyOnTheScreen) {
    for (const QPoint at : {QPoint(room().right() - 10, 40), QPoint(-50, 40), QPoint(100, room().bottom()),
                            QPoint(room().right() + 500, room().bottom() + 500)}) {
        const QRect place = placeFor(cellAt({at, QSize(80, 20)}));
        EXPECT_TRUE(room().contains(place)) << at.x() << ' ' << at.y();
    }
}

TEST(FormWindow, StandsInTheMiddleOfTheHostsWindowWithoutACell) {
    Window w;
    w.window.setGeometry(40, 20, 300, 220);
    AnyForm form;
    form.startSize(1, 1);
    Dialogs dialogs([&](Dialog& d) {
        EXPECT_LE((d.window.frameGeometry().center() - w.window.frameGeometry().center()).manhattanLength(),
                  2);
        d.press(Qt::Key_Escape);
    });
    runForm(w.widget, form, {});
    EXPECT_EQ(dialogs.count, 1);
}

TEST(FormWindow, IsNoLargerThanTheScreen) {
    AnyForm form;
    form.startSize(200'000, 200'000);
    work(
        form,
        [&](Dialog& d) {
            EXPECT_EQ(d.window.frameGeometry(), room());
            const Scale scale(d.window);
            EXPECT_EQ(form.ScaleWidth(), scale.twips(d.window.width()));
            EXPECT_EQ(form.ScaleHeight(), scale.twips(d.window.height()));
            EXPECT_LE(d.part("Cancel").geometry().bottom(), d.window.height());
            d.press(Qt::Key_Escape);
        },
        cellAt({100, 50, 80, 20}));
}

TEST(FormWindow, BelongsToTheHostsWindowAndIsModal) {
    AnyForm form;
    Window w;
    Dialogs dialogs([&](Dialog& d) {
        EXPECT_EQ(d.window.parentWidget(), &w.window);
        EXPECT_EQ(QApplication::activeModalWidget(), &d.window);
        screen::click(w.view(), w.at(3, Code));
        EXPECT_EQ(w.current(), "1,1");
        d.press(Qt::Key_Escape);
    });
    runForm(w.widget, form, {});
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
    EXPECT_TRUE(waitUntil([&] { return w.window.isActiveWindow(); }));
}

// --- Size

TEST(FormWindow, HasTheFormsSizeAndNoLessThanHalfOfIt) {
    AnyForm form;
    leaveTextAndList(form);
    form.startSize(4500, 3600);
    work(form, [&](Dialog& d) {
        const Scale scale(d.window);
        EXPECT_EQ(d.window.size(), QSize(scale.pixel(4500), scale.pixel(3600)));
        EXPECT_EQ(d.window.minimumSize(), QSize(scale.pixel(2700), scale.pixel(2700)));
        d.window.resize(10, 10);
        EXPECT_EQ(d.window.size(), d.window.minimumSize());
        EXPECT_EQ(form.ScaleWidth(), 2700);
        d.closeByFrame();
    });
    EXPECT_EQ(form.words(), "load, resized, resized, unload");
}

TEST(FormWindow, GetsNoSmallerThanItsControlsCanBe) {
    AnyForm form;
    form.startSize(1, 1);
    work(form, [&](Dialog& d) {
        EXPECT_EQ(d.window.size(), d.window.minimumSize());
        EXPECT_EQ(form.ScaleWidth(), Scale(d.window).twips(d.window.width()));
        for (const char* name : {"Month", "Time", "Combo"}) {
            const QSize needed = d.part(name).minimumSizeHint();
            EXPECT_GE(d.part(name).width(), needed.width()) << name;
            EXPECT_GE(d.part(name).height(), needed.height()) << name;
        }
        for (const char* name : {"Ok", "Cancel", "Extra"})
            EXPECT_LE(d.part(name).geometry().top() + d.part(name).minimumSizeHint().height(),
                      d.window.height())
                << name;
        d.press(Qt::Key_Escape);
    });
}

TEST(FormWindow, MovesAndStretchesTheControlsInProportion) {
    AnyForm form;
    work(form, [&](Dialog& d) {
        d.window.setMinimumSize(1, 1);
        d.window.resize(360, 360);
        const auto place = [&](const char* name) { return d.part(name).geometry(); };
        std::map<std::string, QRect> before;
        for (const auto& control : form.controls())
            if (d.window.findChild<QWidget*>(QString::fromStdString(control->name)))
                before[control->name] = place(control->name.c_str());
        d.window.resize(720, 720);
        for (const char* name : {"Month", "List", "Extra"}) {
            const QRect was = before[name];
            EXPECT_EQ(place(name), QRect(was.topLeft() * 2, was.size() * 2)) << name;
        }
        for (const char* name : {"Text", "Combo", "Time", "Ok", "Cancel"}) {
            const QRect was = before[name];
            EXPECT_EQ(place(name).left(), was.left() * 2) << name;
            EXPECT_EQ(place(name).size(), QSize(was.width() * 2, was.height())) << name;
        }
        for (const char* name : {"Caption", "Check"}) {
            EXPECT_EQ(place(name).left(), before[name].left() * 2) << name;
            EXPECT_EQ(place(name).size(), before[name].size()) << name;
        }
        EXPECT_EQ(place("Line").width(), before["Line"].width() * 2);
        d.press(Qt::Key_Escape);
    });
}

TEST(FormWindow, GivesItsGridTheNewSize) {
    AnyForm form;
    work(form, [&](Dialog& d) {
        const std::int32_t before = form.grid.Width();
        d.window.resize(d.window.width() * 3 / 2, d.window.height());
        Window::settle();
        EXPECT_NEAR(form.grid.Width(), before * 3 / 2, 30);
        EXPECT_EQ(form.grid.ClientWidth(), Scale(d.window).twips(d.inner("List").width()));
        d.press(Qt::Key_Escape);
    });
}

// --- The end

TEST(FormWindow, ClosesByItsFrameWithoutAButton) {
    AnyForm form;
    work(form, [&](Dialog& d) {
        form.heard.clear();
        d.closeByFrame();
    });
    EXPECT_EQ(form.words(), "unload");
}

TEST(FormWindow, TellsTheFormNothingMoreOnceItHasClosed) {
    AnyForm form;
    work(form, [&](Dialog& d) {
        form.heard.clear();
        form.end();
        d.part<QPushButton>("Extra").click();
        d.part<QLineEdit>("Text").setText("zu spät");
        d.window.resize(300, 300);
        d.window.close();
    });
    EXPECT_EQ(form.words(), "unload");
    EXPECT_EQ(form.control("Text").text, "abc");
}

TEST(FormWindow, IsNotShownForAFormThatClosesAsItLoads) {
    AnyForm form;
    form.at = [](AnyForm& f, const std::string& word) {
        if (word == "load") f.end();
    };
    Window w;
    Dialogs dialogs([](Dialog&) {});
    runForm(w.widget, form, {});
    EXPECT_EQ(dialogs.count, 0);
    EXPECT_EQ(form.words(), "load, unload");
}

// --- Idle time

TEST(FormIdle, RunsSlicesUntilTheyAreDone) {
    AnyForm form;
    int first = 0;
    int second = 0;
    form.at = [&](AnyForm& f, const std::string& word) {
        if (word != "load") return;
        f.whenIdle([&] { return ++first < 5; });
        f.whenIdle([&] { return ++second < 3; });
    };
    work(form, [&](Dialog& d) {
        EXPECT_TRUE(waitUntil([&] { return first == 5 && second == 3; }));
        QTest::qWait(20);
        EXPECT_EQ(first, 5);
        EXPECT_EQ(second, 3);
        form.whenIdle([&] { return ++first < 7; });
        EXPECT_TRUE(waitUntil([&] { return first == 7; }));
        d.press(Qt::Key_Escape);
    });
}

TEST(FormIdle, LetsKeysAndPaintsGoFirst) {
    AnyForm form;
    int slices = 0;
    form.at = [&](AnyForm& f, const std::string& word) {
        if (word != "load") return;
        f.whenIdle([&] {
            ++slices;
            busyFor(3);
            return true;
        });
    };
    work(form, [&](Dialog& d) {
        EXPECT_TRUE(waitUntil([&] { return slices > 3; }));
        form.giveFocusTo("Text");
        form.heard.clear();
        const QString typed = "hundert";
        int before = slices;
        for (const QChar character : typed) {
            const int key = QTest::asciiToKey(character.toLatin1());
            QCoreApplication::postEvent(&d.part("Text"),
                                        new QKeyEvent(QEvent::KeyPress, key, {}, QString(character)));
        }
        EXPECT_TRUE(waitUntil([&] { return form.heard.size() >= 7; }));
        EXPECT_EQ(form.control("Text").text, "abchundert");
        EXPECT_LE(slices - before, 3);
        struct Paints : QObject {
            int count = 0;
            bool eventFilter(QObject*, QEvent* event) override {
                count += event->type() == QEvent::Paint ? 1 : 0;
                return false;
            }
        } paints;
        QTest::qWait(20);
        d.inner("List").installEventFilter(&paints);
        before = slices;
        form.grid.Select(6, 0);
        EXPECT_TRUE(waitUntil([&] { return paints.count > 0; }));
        EXPECT_LE(slices - before, 10);
        d.press(Qt::Key_Escape);
    });
    const int atTheEnd = slices;
    QTest::qWait(20);
    EXPECT_EQ(slices, atTheEnd);
}

TEST(FormIdle, EndsWithASliceThatClosesTheForm) {
    AnyForm form;
    int slices = 0;
    form.at = [&](AnyForm& f, const std::string& word) {
        if (word == "load")
            f.whenIdle([&] {
                if (++slices == 20) f.end();
                return true;
            });
    };
    Window w;
    runForm(w.widget, form, {});
    EXPECT_EQ(slices, 20);
    EXPECT_EQ(form.words(), "load, unload");
}
}  // namespace kxVsGrid::qt::testing
