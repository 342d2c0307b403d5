// The box that shows how far a paste has come that takes its time: it comes up, cancels, and goes, with the
// window or the widget when those go first.
#include <QClipboard>
#include <QElapsedTimer>
#include <QLabel>
#include <QProgressDialog>
#include <QPushButton>
#include <QThread>
#include <functional>
#include <memory>
#include <utility>

#include "qt/Window.h"

namespace kxVsGrid::qt::testing {
namespace {

constexpr std::int32_t ManyRows = 20'000;

/// A box that stands open.
QProgressDialog* progressBox() {
    for (QWidget* window : QApplication::topLevelWidgets())
        if (auto* box = qobject_cast<QProgressDialog*>(window); box != nullptr && box->isVisible())
            return box;
    return nullptr;
}

/// A paste into many cells, whose host takes its time with each until the clerk has acted on the box.
struct LongPaste {
    std::unique_ptr<Window> w = std::make_unique<Window>();
    int boxes = 0;
    int edits = 0;
    std::vector<PasteReport> reports;

    LongPaste() {
        kxGrid& grid = w->grid();
        grid.Rows(ManyRows);
        grid.AfterEdit.connect([this](std::int32_t, std::int32_t) {
            ++edits;
            if (boxes == 0) QThread::msleep(1);
        });
        grid.Commands().Reported.connect([this](const PasteReport& report) { reports.push_back(report); });
        QApplication::clipboard()->setText("pasted");
        w->focusCell(1, Code);
        grid.Grid().SelectRange(1, Code, ManyRows - 1, Code);
    }

    /// `act` is called from the events that the box lets through, as soon as it stands.
    void run(const std::function<void(QProgressDialog&)>& act) {
        QTimer look;
        QObject::connect(&look, &QTimer::timeout, &look, [&] {
            QProgressDialog* box = progressBox();
            if (box == nullptr || boxes > 0) return;
            ++boxes;
            act(*box);
        });
        look.start(0);
        w->press(Qt::Key_V, Qt::ControlModifier);
        look.stop();
        EXPECT_EQ(boxes, 1);
        EXPECT_EQ(progressBox(), nullptr);
    }

    void expectTakenBack() {
        EXPECT_EQ(w->text(1, Code), "A001");
        EXPECT_EQ(w->text(2, Code), "A002");
        EXPECT_EQ(w->text(3, Code), "");
        EXPECT_EQ(w->text(ManyRows - 1, Code), "");
        EXPECT_FALSE(w->grid().CanRun(Command::Undo));
        EXPECT_GT(edits, 0);
        EXPECT_LT(edits, ManyRows - 1);
        ASSERT_EQ(reports.size(), 1U);
        EXPECT_TRUE(reports[0].cancelled);
        EXPECT_EQ(reports[0].written, 0);
    }
};

QPushButton& cancelButton(QProgressDialog& box) {
    auto* button = box.findChild<QPushButton*>();
    if (button == nullptr) throw std::logic_error("the box has no button");
    return *button;
}
}  // namespace

TEST(ProgressBox, DoesNotComeUpForAPasteThatIsDoneAtOnce) {
    LongPaste paste;
    paste.boxes = 1;  // nobody waits
    paste.w->grid().Rows(200);
    paste.w->grid().Grid().SelectRange(1, Code, 199, Code);
    bool seen = false;
    QTimer look;
    QObject::connect(&look, &QTimer::timeout, &look, [&] { seen = seen || progressBox() != nullptr; });
    look.start(0);
    paste.w->press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_FALSE(seen);
    EXPECT_EQ(paste.w->text(199, Code), "pasted");
}

TEST(ProgressBox, ShowsHowFarALongPasteHasCome) {
    LongPaste paste;
    QString label;
    paste.run([&](QProgressDialog& box) {
        label = box.labelText();
        EXPECT_EQ(cancelButton(box).text(), "取消");
        EXPECT_TRUE(box.isModal());
        EXPECT_EQ(box.parentWidget(), &paste.w->window);
        EXPECT_GT(box.value(), 0);
        EXPECT_LT(box.value(), box.maximum());
        paste.w->picture("progress", &box);
    });
    EXPECT_EQ(label, "粘贴 19999 格");
    EXPECT_EQ(paste.edits, ManyRows - 1);
    EXPECT_EQ(paste.w->text(ManyRows - 1, Code), "pasted");
    ASSERT_EQ(paste.reports.size(), 1U);
    EXPECT_FALSE(paste.reports[0].cancelled);
    EXPECT_EQ(paste.reports[0].written, ManyRows - 1);
    EXPECT_TRUE(waitUntil([&] { return paste.w->view().hasFocus(); }));
    paste.w->press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(paste.w->text(1, Code), "A001");
}

TEST(ProgressBox, TakesEverythingBackByItsButton) {
    LongPaste paste;
    paste.run([](QProgressDialog& box) { QTest::mouseClick(&cancelButton(box), Qt::LeftButton); });
    paste.expectTakenBack();
}

TEST(ProgressBox, TakesEverythingBackByEscape) {
    LongPaste paste;
    paste.run([](QProgressDialog& box) {
        EXPECT_TRUE(waitUntil([&] { return box.isActiveWindow(); }));
        QTest::keyClick(&box, Qt::Key_Escape);
    });
    paste.expectTakenBack();
}

TEST(ProgressBox, TakesEverythingBackWhenItIsClosed) {
    LongPaste paste;
    paste.run([](QProgressDialog& box) { box.close(); });
    paste.expectTakenBack();
}

TEST(ProgressBox, TakesEverythingBackWhenTheWindowIsClosed) {
    LongPaste paste;
    paste.run([&](QProgressDialog&) { paste.w->window.close(); });
    paste.expectTakenBack();
}

TEST(ProgressBox, TakesEverythingBackWhenItIsDestroyed) {
    LongPaste paste;
    paste.run([](QProgressDialog& box) { delete &box; });
    paste.expectTakenBack();
}

TEST(ProgressBox, GoesWithTheWidget) {
    LongPaste paste;
    paste.run([&](QProgressDialog&) { delete std::exchange(paste.w->widget, nullptr); });
    EXPECT_EQ(paste.w->widget, nullptr);
    EXPECT_LT(paste.edits, ManyRows - 1);
    EXPECT_TRUE(paste.reports.empty());
}

/// The box is the window's, and goes with it in the middle of its own work.
TEST(ProgressBox, GoesWithTheWindow) {
    LongPaste paste;
    auto* window = new QWidget;
    auto* layout = new QVBoxLayout(window);
    layout->addWidget(paste.w->widget);
    window->show();
    QApplication::setActiveWindow(window);
    paste.w->widget->setFocus();
    paste.run([&](QProgressDialog& box) {
        EXPECT_EQ(box.parentWidget(), window);
        delete window;
        paste.w->widget = nullptr;
    });
    EXPECT_LT(paste.edits, ManyRows - 1);
}

TEST(ProgressBox, KeepsKeysFromTheGrid) {
    LongPaste paste;
    paste.run([&](QProgressDialog& box) {
        EXPECT_TRUE(waitUntil([&] { return box.isActiveWindow(); }));
        EXPECT_FALSE(paste.w->view().hasFocus());
        const QPoint place = paste.w->view().mapTo(&paste.w->window, paste.w->at(5, Date));
        QTest::mouseClick(paste.w->window.windowHandle(), Qt::LeftButton, Qt::NoModifier, place);
        EXPECT_NE(paste.w->current(), "5,5");
    });
    EXPECT_EQ(paste.edits, ManyRows - 1);
}

/// Timers of the host go on meanwhile, and so do its actions in other windows.
TEST(ProgressBox, BearsCommandsWhileItStands) {
    for (const Command command : {Command::Paste, Command::Undo, Command::ClearCells, Command::DeleteRows,
                                  Command::Copy, Command::FillDown}) {
        for (const bool cancel : {false, true}) {
            SCOPED_TRACE(std::string(captionOf(command)) + (cancel ? ", cancelled" : ""));
            LongPaste paste;
            paste.run([&](QProgressDialog& box) {
                paste.w->widget->action(command)->trigger();
                if (cancel) box.cancel();
            });
            EXPECT_TRUE(!cancel || paste.w->text(2, Code) == "A002");
            paste.w->grid().Run(Command::Undo);
            EXPECT_EQ(paste.w->text(2, Code), "A002");
        }
    }
}

TEST(ProgressBox, BearsRowsThatGoMeanwhile) {
    LongPaste paste;
    paste.run([&](QProgressDialog&) { paste.w->grid().Rows(10); });
    EXPECT_EQ(paste.w->grid().Rows(), 10);
    ASSERT_EQ(paste.reports.size(), 1U);
    EXPECT_TRUE(paste.reports[0].cutShort);
}

TEST(ProgressBox, GoesWhenAHandlerFails) {
    LongPaste paste;
    int failures = 0;
    QObject::connect(paste.w->widget, &kxGridWidget::handlerFailed, [&](const QString&) { ++failures; });
    paste.w->grid().AfterEdit.connect([&](std::int32_t, std::int32_t) {
        if (paste.boxes > 0) throw std::runtime_error("no more");
    });
    paste.run([](QProgressDialog&) {});
    EXPECT_EQ(failures, 1);
    ASSERT_EQ(paste.reports.size(), 1U);
    EXPECT_TRUE(paste.reports[0].cutShort);
    EXPECT_FALSE(paste.reports[0].cancelled);
}
}  // namespace kxVsGrid::qt::testing
