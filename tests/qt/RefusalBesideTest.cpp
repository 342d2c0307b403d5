// Refusals that are told beside the editor, under the keys and presses of a clerk.
#include <QAccessible>

#include "qt/InterruptedClick.h"
#include "qt/Palettes.h"
#include "qt/Tip.h"
#include "qt/text/EditorTip.h"
#include "qt/view/SystemColors.h"

namespace kxVsGrid::qt::testing {
namespace {

const QString LongReason = QStringLiteral(
    "商品目录中没有这个货号。可能已经停用，也可能还没有审核；请向采购部确认，或者按 F2 "
    "从目录中选择一个相近的商品，"
    "然后在备注中写明客户原来要的是什么。\n"
    "GB/"
    "T5782-2000-M12x80-8.8-ZINC-PLATED-LEFT-HANDED-WITH-CAPTIVE-WASHER-AND-NUT-PACKED-BY-HUNDREDS-IN-BOXES "
    "was not found either.");

class BesideWindow : public CheckedWindow {
  public:
    explicit BesideWindow(const QString& why = QStringLiteral("没有此货号")) : reason(why) {
        grid().Options().Refusals(GridOptions::RefusalStyle::Beside);
        grid().VsCtrl(Code)->s错误提示信息(reason.toStdString());
        grid().VsCtrl(Remark)->s错误提示信息(reason.toStdString());
    }
    TipLabel* bubble() {
        for (QWidget* any : QApplication::allWidgets())
            if (auto* found = dynamic_cast<EditorTip*>(any); found && found->isVisible()) return found;
        return nullptr;
    }
    /// No box; the reason stands wholly beside the editor, which has the keyboard and all of its text.
    void expectTold() {
        EXPECT_EQ(boxes.count(), 0U);
        ASSERT_NE(bubble(), nullptr);
        EXPECT_EQ(bubble()->text(), reason);
        EXPECT_TRUE(editor().hasFocus());
        EXPECT_TRUE(onScreen(*bubble()).intersected(onScreen(editor())).isEmpty());
        const QRect room = bubble()->isWindow() ? bubble()->screen()->availableGeometry() : onScreen(window);
        EXPECT_TRUE(room.contains(onScreen(*bubble())));
        expectWhole();
    }
    static QRect onScreen(const QWidget& widget) { return {widget.mapToGlobal(QPoint()), widget.size()}; }

    const QString reason;
    Boxes boxes;

  private:
    /// Nothing is written on the edges of what the bubble shows.
    void expectWhole() {
        const QImage shown = bubble()->grab().toImage();
        const QRgb ground = shown.pixel(3, shown.height() / 2);
        int written = 0;
        for (int y = 0; y < shown.height(); ++y) {
            for (int x = 0; x < shown.width(); ++x) {
                if (contrast(shown.pixel(x, y), ground) < 3) continue;
                ++written;
            }
        }
        EXPECT_GT(written, 20 * reason.size());
        EXPECT_GE(bubble()->height(), bubble()->fontMetrics().height() * linesAtLeast());
    }
    qsizetype linesAtLeast() {
        qsizetype lines = 0;
        for (const QString& line : reason.split(u'\n'))
            lines += 1 + bubble()->fontMetrics().horizontalAdvance(line) / (bubble()->width() + 1);
        return lines;
    }
};
}  // namespace

TEST(RefusalBeside, StandsAtTheEditorForEveryKeyThatCommits) {
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Tab, Qt::Key_Up, Qt::Key_Down}) {
        BesideWindow w;
        w.fill(1, Code, "B9");
        w.press(key);
        w.settle();
        w.expectTold();
        w.expectAllSelected("B9");
        EXPECT_EQ(w.current(), "1,1");
        EXPECT_EQ(w.asked, 1);
    }
}

TEST(RefusalBeside, GoesWithTheNextChangeWhichIsNotLost) {
    BesideWindow w;
    w.refuseCode();
    w.settle();
    w.expectTold();
    w.press(Qt::Key_End);
    w.expectTold();
    w.press(Qt::Key_Backspace);
    EXPECT_EQ(w.bubble(), nullptr);
    EXPECT_EQ(w.editorText(), "B");
    w.press(Qt::Key_Home);
    w.type("A");
    w.press(Qt::Key_Return);
    EXPECT_EQ(w.text(1, Code), "AB");
    EXPECT_EQ(w.boxes.count(), 0U);
}

TEST(RefusalBeside, GoesWithWhatAnInputMethodComposes) {
    BesideWindow w;
    w.refuseCode();
    w.compose({}, "A品");
    EXPECT_EQ(w.bubble(), nullptr);
    w.press(Qt::Key_Return);
    EXPECT_EQ(w.text(1, Code), "A品");
}

TEST(RefusalBeside, GoesWithEsc) {
    BesideWindow w;
    w.refuseCode();
    w.press(Qt::Key_Escape);
    EXPECT_EQ(w.bubble(), nullptr);
    EXPECT_EQ(w.text(1, Code), "A001");
}

TEST(RefusalBeside, KeepsTheKeyboardAndHoldsThePressBackOnce) {
    BesideWindow w;
    w.fill(1, Code, "B9");
    screen::click(*w.save);
    w.settle();
    EXPECT_EQ(w.saved, 0);
    EXPECT_FALSE(w.save->isDown());
    w.expectTold();
    w.expectAllSelected("B9");
    screen::click(*w.save);
    w.settle();
    EXPECT_EQ(w.saved, 1);
    EXPECT_TRUE(w.save->hasFocus());
    EXPECT_TRUE(w.editorShown());
    EXPECT_EQ(w.bubble(), nullptr) << "nobody needs it while the keyboard is elsewhere";
    screen::click(w.view(), w.at(3, Quantity));
    w.settle();
    w.expectTold();
    EXPECT_EQ(w.asked, 1);
}

TEST(RefusalBeside, KeepsTheKeyboardThatCodeTakes) {
    BesideWindow w;
    w.fill(1, Code, "B9");
    w.after->setFocus(Qt::TabFocusReason);
    w.settle();
    w.expectTold();
}

TEST(RefusalBeside, IsAwayWhileAnotherWindowIsInFront) {
    BesideWindow w;
    w.refuseCode();
    QWidget other;
    other.show();
    QApplication::setActiveWindow(&other);
    w.settle();
    EXPECT_EQ(w.bubble(), nullptr);
    QApplication::setActiveWindow(&w.window);
    w.settle();
    w.expectTold();
}

TEST(RefusalBeside, OfABooleanCellStandsAtTheCell) {
    BesideWindow w;
    w.grid().Options(Paid).accepts([](std::int32_t, std::string_view) { return std::string("不能勾选。"); });
    w.focusCell(2, Paid);
    w.press(Qt::Key_Space);
    const Tip* tip = w.window.findChild<Tip*>();
    for (const QObject* child : w.window.children())
        if (const auto* found = dynamic_cast<const Tip*>(child)) tip = found;
    ASSERT_NE(tip, nullptr);
    EXPECT_TRUE(tip->isVisible());
    EXPECT_EQ(tip->text(), "不能勾选。");
    EXPECT_EQ(QApplication::focusWidget(), &w.view());
    EXPECT_EQ(w.boxes.count(), 0U);
}

// --- Where it lies.

TEST(RefusalBeside, IsReadWholeAtEveryEdgeHoweverLongItIs) {
    struct {
        std::int32_t col;
        const char* bad;
        QSize size;
    } const places[] = {
        {Code, "B9", {640, 420}},    {Code, "B9", {360, 420}}, {Remark, "aX", {640, 420}},
        {Remark, "aX", {1000, 300}}, {Code, "B9", {300, 260}},
    };
    for (const QString& reason :
         {QStringLiteral("没有此货号"), QStringLiteral("第一行\n第二行"), LongReason}) {
        for (const auto& place : places) {
            BesideWindow w(reason);
            w.window.resize(place.size);
            w.settle();
            const std::int32_t shown = w.grid().Grid().ClientHeight() / w.grid().RowHeight(1);
            for (const std::int32_t row : {1, 3, shown - 3}) {
                if (row < 1) continue;
                SCOPED_TRACE(::testing::Message() << "row " << row << ", column " << place.col << ", window "
                                                  << place.size.width() << "x" << place.size.height());
                w.fill(row, place.col, place.bad);
                w.press(Qt::Key_Tab);
                w.settle();
                w.expectTold();
                w.press(Qt::Key_Escape);
            }
        }
    }
}

TEST(RefusalBeside, StaysAtItsEditorAsTheWindowChanges) {
    BesideWindow w(LongReason);
    w.refuseCode();
    w.settle();
    for (const QSize size : {QSize(400, 500), QSize(900, 400), QSize(330, 240), QSize(640, 420)}) {
        w.window.resize(size);
        w.settle();
        w.expectTold();
    }
}

TEST(RefusalBeside, GoesWithItsGridWhereverItLies) {
    for (const QString& reason : {QStringLiteral("没有此货号"), LongReason}) {
        BesideWindow w(reason);
        w.window.resize(360, 260);
        w.refuseCode();
        w.settle();
        ASSERT_NE(w.bubble(), nullptr);
        delete w.widget;
        w.settle();
        EXPECT_EQ(w.bubble(), nullptr);
    }
}

// --- Screen readers.

TEST(RefusalBeside, DescribesTheEditorToScreenReadersWhileItStands) {
    BesideWindow w;
    w.refuseCode();
    w.settle();
    QAccessibleInterface* editor = QAccessible::queryAccessibleInterface(&w.editor());
    EXPECT_EQ(editor->text(QAccessible::Description), w.reason);
    EXPECT_EQ(QAccessible::queryAccessibleInterface(w.bubble())->text(QAccessible::Name), w.reason);
    w.press(Qt::Key_End);
    EXPECT_EQ(editor->text(QAccessible::Description), w.reason);
    w.press(Qt::Key_Backspace);
    EXPECT_EQ(editor->text(QAccessible::Description), "");
    w.press(Qt::Key_Return);
    w.settle();
    EXPECT_EQ(editor->text(QAccessible::Description), w.reason);
}

/// Offscreen there is no screen reader to hear what Qt sends.
TEST(TipLabel, IsAnnouncedWhenItComesUpAndWhenItsTextIsAnother) {
    struct Heard : TipLabel {
        using TipLabel::TipLabel;
        void say(const QString& text) {
            showBeside({parentWidget()->mapToGlobal(QPoint(20, 20)), QSize(80, 20)}, 2, text,
                       {parentWidget()->window()});
        }
        void announce() override {
            said << accessibleName();
            TipLabel::announce();
        }
        QStringList said;
    };
    Window w;
    Heard tip(&w.window);
    tip.say("a");
    tip.say("a");
    EXPECT_EQ(tip.said, QStringList{"a"});
    tip.say("b");
    tip.hide();
    tip.say("b");
    EXPECT_EQ(tip.said, (QStringList{"a", "b", "b"}));
}

// --- Pictures.

TEST(RefusalBeside, CanBeReadInLightAndDark) {
    struct {
        const char* name;
        QString reason;
        std::int32_t row;
        std::int32_t col;
        QSize size;
    } const pictures[] = {
        {"refusal-beside", "没有此货号", 2, Code, {640, 420}},
        {"refusal-beside-long", LongReason, 1, Code, {640, 420}},
        {"refusal-beside-lowest", LongReason, 9, Remark, {640, 420}},
        {"refusal-beside-narrow", LongReason, 2, Code, {320, 420}},
        {"refusal-beside-window", LongReason, 3, Code, {300, 240}},
    };
    const QPalette light = QApplication::palette();
    for (const bool dark : {false, true}) {
        if (dark) QApplication::setPalette(darkPalette());
        for (const auto& picture : pictures) {
            BesideWindow w(picture.reason);
            w.window.resize(picture.size);
            w.settle();
            w.fill(picture.row, picture.col, picture.col == Code ? "B9" : "aX");
            w.press(Qt::Key_Tab);
            w.settle();
            w.expectTold();
            QWidget* apart = w.bubble() != nullptr && w.bubble()->isWindow() ? w.bubble() : nullptr;
            w.picture(QLatin1String(picture.name) + QLatin1String(dark ? "-dark" : ""), apart);
            EXPECT_GT(contrast(w.bubble()->palette().color(QPalette::ToolTipText).rgb(),
                               w.bubble()->palette().color(QPalette::ToolTipBase).rgb()),
                      4.5);
        }
    }
    QApplication::setPalette(light);
}
}  // namespace kxVsGrid::qt::testing
