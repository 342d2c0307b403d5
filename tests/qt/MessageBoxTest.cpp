// The boxes that tell of a refused text: what they say, where they stand, how they are closed.
#include <QLabel>
#include <QRegularExpression>
#include <QScreen>
#include <QTimer>
#include <QWindow>

#include "qt/Boxes.h"
#include "qt/CheckedWindow.h"
#include "qt/Palettes.h"
#include "qt/ScreenMouse.h"

namespace kxVsGrid::qt::testing {
namespace {

const struct {
    const char* name;
    Boxes::Act close;
} waysToClose[] = {{"Enter", Boxes::enter},     {"Enter of the keypad", Boxes::keypadEnter},
                   {"Space", Boxes::space},     {"Esc", Boxes::escape},
                   {"its frame", Boxes::frame}, {"a click on its button", Boxes::clickOk}};

void sendKey(QWidget& target, Qt::Key key, const QString& text, bool repeated) {
    for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
        QKeyEvent event(type, key, Qt::NoModifier, text, repeated);
        QApplication::sendEvent(&target, &event);
    }
}
}  // namespace

TEST(MessageBox, TellsARefusedCodeInFrontOfTheWindow) {
    CheckedWindow w;
    Boxes boxes;
    w.refuseCode();
    ASSERT_EQ(boxes.count(), 1U);
    const Boxes::Seen& box = boxes.seen[0];
    EXPECT_EQ(box.icon, QMessageBox::Critical);
    EXPECT_EQ(box.title, "错误：");
    EXPECT_EQ(box.text, "没有这个货号！");
    EXPECT_EQ(box.buttons, QStringList{"确定"});
    EXPECT_EQ(box.parent, &w.window);
    EXPECT_TRUE(box.modal);
    EXPECT_TRUE(box.inFront);
    EXPECT_TRUE(box.okFocused);
    EXPECT_EQ(w.asked, 1);
    EXPECT_EQ(w.edited, 0);
    EXPECT_EQ(w.text(1, Code), "A001");
}

TEST(MessageBox, TellsTheFormOfADate) {
    const struct {
        gEmJudgeType type;
        const char* form;
        const char* pattern;
    } forms[] = {
        {ij日期型, "yyyy-MM-dd", R"(^非法公历日期!\(格式:(\d{4}-\d\d-\d\d)\)$)"},
        {ij半日型, "yyyy-MM-dd", R"(^非法公历日期!\(格式:(\d{4}-\d\d-\d\d) (?:上午|下午)\)$)"},
        {ij时间型, "yyyy-MM-dd HH:mm:ss", R"(^非法公历日期!\(格式:(\d{4}-\d\d-\d\d \d\d:\d\d:\d\d)\)$)"}};
    for (const auto& form : forms) {
        CheckedWindow w;
        Boxes boxes;
        w.grid().VsCtrl(Date)->i字段有效性判断类型(form.type);
        w.fill(1, Date, "2011-02-30");
        const QDateTime before = QDateTime::currentDateTime().addSecs(-1);
        w.press(Qt::Key_Return);
        ASSERT_EQ(boxes.count(), 1U);
        EXPECT_EQ(boxes.seen[0].icon, QMessageBox::Information);
        EXPECT_EQ(boxes.seen[0].title, "提示：");
        const auto match = QRegularExpression(form.pattern).match(boxes.seen[0].text);
        ASSERT_TRUE(match.hasMatch()) << boxes.seen[0].text.toStdString();
        const QDateTime told = QDateTime::fromString(match.captured(1), form.form);
        EXPECT_GE(told.date(), before.date());
        EXPECT_LE(told, QDateTime::currentDateTime());
        w.expectAllSelected("2011-02-30");
    }
}

TEST(MessageBox, TellsThatAValueMustNotBeEmptyOrZero) {
    for (const bool zero : {false, true}) {
        CheckedWindow w;
        Boxes boxes;
        w.grid().VsCtrl(Code)->i是否允许为空(zero ? i字段不能为零 : i字段不能为空);
        w.grid().SetCell(1, Code, "A001", "");
        w.focusCell(1, Code);
        w.press(Qt::Key_Insert);
        w.type("A2");
        EXPECT_FALSE(w.grid().ValidTextData());
        w.settle();
        ASSERT_EQ(boxes.count(), 1U);
        EXPECT_EQ(boxes.seen[0].text, zero ? "货号不能为零!" : "货号不能为空!");
        EXPECT_EQ(boxes.seen[0].title, "提示：");
        EXPECT_EQ(boxes.seen[0].icon, QMessageBox::Information);
        EXPECT_EQ(QApplication::focusWidget(), &w.editor());
        EXPECT_EQ(w.editorText(), "A2");
        EXPECT_EQ(w.asked, 0);
    }
}

TEST(MessageBox, StandsOverTheWindowWhereverThatIs) {
    CheckedWindow w;
    Boxes boxes;
    const QMargins FrameGuess(8, 40, 8, 8);  // of the box, which Qt does not know before it is shown
    const QRect screen = w.window.screen()->availableGeometry();
    const QPoint places[] = {screen.topLeft() + QPoint(60, 60), screen.topLeft() - QPoint(300, 100),
                             screen.bottomRight() - QPoint(200, 100), QPoint(screen.right() - 300, 10)};
    for (const QPoint& place : places) {
        w.window.move(place);
        w.settle();
        boxes.seen.clear();
        w.refuseCode();
        ASSERT_EQ(boxes.count(), 1U);
        const QRect box = boxes.seen[0].place;
        const QRect window = w.window.frameGeometry();
        EXPECT_TRUE(screen.marginsAdded(FrameGuess).contains(box)) << place.x() << "," << place.y();
        EXPECT_TRUE(window.intersects(box)) << place.x() << "," << place.y();
        if (screen.contains(window)) {
            EXPECT_NEAR(box.center().x(), window.center().x(), FrameGuess.left());
            EXPECT_NEAR(box.center().y(), window.center().y(), FrameGuess.top());
        }
        w.press(Qt::Key_Escape);
    }
}

TEST(MessageBox, GivesTheRefusedTextBackWhollySelectedHoweverItIsClosed) {
    for (const auto& way : waysToClose) {
        SCOPED_TRACE(way.name);
        CheckedWindow w;
        Boxes boxes(way.close);
        w.refuseCode();
        EXPECT_EQ(boxes.count(), 1U);
        w.expectAllSelected("B9");
        w.type("A5");
        EXPECT_EQ(w.editorText(), "A5");
        w.press(Qt::Key_Return);
        EXPECT_FALSE(w.editorShown());
        EXPECT_EQ(w.text(1, Code), "A5");
        EXPECT_EQ(boxes.count(), 1U);
    }
}

TEST(MessageBox, GivesTheRefusedTextOfSeveralLinesBackInOneLineWhollySelected) {
    for (const auto& way : waysToClose) {
        SCOPED_TRACE(way.name);
        CheckedWindow w;
        Boxes boxes(way.close);
        w.fill(2, Remark, "aX");
        w.press(Qt::Key_Return);
        EXPECT_EQ(boxes.count(), 0U);
        w.type("b");
        w.press(Qt::Key_Tab);
        w.settle();
        EXPECT_EQ(boxes.texts(), QStringList{"备注里不能有 X！"});
        w.expectAllSelected("aXb");
        w.type("c");
        EXPECT_EQ(w.editorText(), "c");
        w.press(Qt::Key_Tab);
        EXPECT_EQ(w.text(2, Remark), "c");
        EXPECT_EQ(boxes.count(), 1U);
    }
}

TEST(MessageBox, IsNotClosedByTheKeyThatIsStillHeldDown) {
    CheckedWindow w;
    bool stayed = false;
    Boxes boxes([&](QMessageBox& box) {
        for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Escape, Qt::Key_Space})
            sendKey(focused(), key, QString(), true);
        Window::settle();
        stayed = box.isVisible();
        sendKey(focused(), Qt::Key_Return, "\r", false);
    });
    w.refuseCode();
    EXPECT_TRUE(stayed);
    w.expectAllSelected("B9");
}

TEST(MessageBox, ShowsItsTextAsItIs) {
    CheckedWindow w;
    const QString text = "<b>A</b> & 货号\n第二行";
    QString shown;
    Boxes boxes([&](QMessageBox& box) {
        const auto* label = box.findChild<QLabel*>("qt_msgbox_label");
        ASSERT_NE(label, nullptr);
        EXPECT_EQ(label->textFormat(), Qt::PlainText);
        shown = label->text();
        Boxes::enter(box);
    });
    w.grid().VsCtrl(Code)->s错误提示信息(text.toStdString());
    w.refuseCode();
    EXPECT_EQ(shown, text);
}

TEST(MessageBox, BreaksALongTextIntoLinesThatFitTheScreen) {
    CheckedWindow w;
    Boxes boxes;
    w.grid().VsCtrl(Code)->s错误提示信息(
        QString("此货号在商品目录中不存在，请核对后重新输入。").repeated(8).toStdString());
    w.refuseCode();
    ASSERT_EQ(boxes.count(), 1U);
    const QSize screen = w.window.screen()->availableSize();
    constexpr int UsualBox = 560;  // no narrower for a long text, however small the screen
    EXPECT_LE(boxes.seen[0].place.width(), std::max(screen.width(), UsualBox));
    EXPECT_LE(boxes.seen[0].place.height(), screen.height());
}

TEST(MessageBox, WearsThePaletteAndTheFontOfTheWindow) {
    CheckedWindow w;
    QFont large = w.window.font();
    large.setPointSizeF(large.pointSizeF() * 1.5);
    w.window.setFont(large);
    w.window.setPalette(darkPalette());
    Boxes boxes([&](QMessageBox& box) {
        EXPECT_EQ(box.palette().color(QPalette::Window), darkPalette().color(QPalette::Window));
        EXPECT_EQ(box.buttons().front()->font().pointSizeF(), large.pointSizeF());
        Boxes::enter(box);
    });
    w.refuseCode();
    EXPECT_EQ(boxes.count(), 1U);
}

TEST(MessageBox, LeavesAnotherWindowInFrontThatTheClerkWentTo) {
    CheckedWindow w;
    QWidget other;
    other.show();
    w.settle();
    QApplication::setActiveWindow(&w.window);
    Boxes boxes([&](QMessageBox& box) {
        QApplication::setActiveWindow(&other);
        box.accept();
    });
    w.refuseCode();
    EXPECT_EQ(QApplication::activeWindow(), &other);
    QApplication::setActiveWindow(&w.window);
    w.settle();
    w.expectAllSelected("B9");
}
}  // namespace kxVsGrid::qt::testing
