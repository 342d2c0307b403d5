// What host handlers may do to the widget: throw, destroy it, and start anything anew.
#include <QHelpEvent>
#include <QInputDialog>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <QSignalSpy>
#include <QTimer>
#include <stdexcept>

#include "qt/Window.h"

namespace kxVsGrid::qt::testing {

TEST(Failure, OfAHandlerIsReportedAndGoesNoFurther) {
    Window w;
    QSignalSpy failed(w.widget, &kxGridWidget::handlerFailed);
    Connection throwing = w.grid().AfterEdit.connect(
        [](std::int32_t, std::int32_t) { throw std::runtime_error("账套已关闭"); });
    w.focusCell(1, Code);
    w.type("x");
    w.press(Qt::Key_Enter);
    ASSERT_EQ(failed.size(), 1);
    EXPECT_EQ(failed[0][0].toString(), "账套已关闭");
    throwing.disconnect();
    w.press(Qt::Key_Enter);
    EXPECT_FALSE(w.editorShown());
    EXPECT_EQ(w.text(1, Code), "x");
}

TEST(Failure, OfAnUnknownKindIsReported) {
    Window w;
    QSignalSpy failed(w.widget, &kxGridWidget::handlerFailed);
    w.grid().Click.connect([] { throw 7; });
    w.click(2, Code);
    EXPECT_EQ(failed.size(), 1);
}

TEST(Failure, OfAListenerToTheReportGoesNoFurther) {
    Window w;
    w.grid().Click.connect([] { throw std::runtime_error("first"); });
    int heard = 0;
    QObject::connect(w.widget, &kxGridWidget::handlerFailed, w.widget, [&] {
        ++heard;
        throw std::runtime_error("second");
    });
    w.click(2, Code);
    w.click(3, Code);
    EXPECT_EQ(heard, 2);
    EXPECT_EQ(w.current(), "3,1");
}

TEST(Failure, OfATextThatIsPaintedIsReportedOnce) {
    Window w;
    QSignalSpy failed(w.widget, &kxGridWidget::handlerFailed);
    bool broken = true;
    w.grid().Grid().ComputedText(1, Name, [&]() -> std::string {
        if (broken) throw std::runtime_error("no price list");
        return "苹果汁";
    });
    w.settle();
    w.widget->grab();
    w.widget->grab();
    w.settle();
    ASSERT_EQ(failed.size(), 1);
    EXPECT_EQ(failed[0][0].toString(), "no price list");
    broken = false;
    w.grid().Grid().damageAll();
    w.settle();
    EXPECT_EQ(failed.size(), 1);
    broken = true;
    w.grid().Grid().damageAll();
    w.settle();
    EXPECT_EQ(failed.size(), 2);
}

TEST(Failure, OfATextThatIsPaintedLeavesTheGround) {
    Window w;
    const QRgb ground = qRgb(10, 200, 30);
    w.grid().BackColorBkg(0x1EC80A);
    w.grid().Grid().ComputedText(2, Name, []() -> std::string { throw std::runtime_error("broken"); });
    const QImage image = w.widget->grab().toImage();
    EXPECT_EQ(image.pixel(image.width() / 2, image.height() / 3), ground);
    w.settle();
}

TEST(Failure, OfATextThatIsCopiedOrShownInATipIsReported) {
    Window w;
    w.focusCell(2, Name);
    w.grid().Grid().Redraw(0);
    w.grid().Grid().ComputedText(2, Name, []() -> std::string { throw std::runtime_error("broken"); });
    QSignalSpy failed(w.widget, &kxGridWidget::handlerFailed);
    w.press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(failed.size(), 1);
    const QPoint at = w.at(2, Name);
    QHelpEvent event(QEvent::ToolTip, at, w.view().mapToGlobal(at));
    QApplication::sendEvent(&w.view(), &event);
    EXPECT_EQ(failed.size(), 2);
}

TEST(Failure, ThereIsNoneInAGridWithoutColumns) {
    Window w;
    QSignalSpy failed(w.widget, &kxGridWidget::handlerFailed);
    w.grid().Cols(0);
    w.settle();
    w.widget->setFocus();
    w.type("x");
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Right, Qt::Key_Down, Qt::Key_Tab}) {
        w.widget->setFocus();
        w.press(key);
    }
    QTest::mouseClick(&w.view(), Qt::LeftButton, Qt::NoModifier, QPoint(20, 20));
    QTest::mouseDClick(&w.view(), Qt::LeftButton, Qt::NoModifier, QPoint(20, 20));
    w.window.resize(500, 300);
    w.settle();
    EXPECT_EQ(failed.size(), 0);
    w.grid().Cols(7);
    w.settle();
    w.focusCell(1, Code);
    w.type("x");
    EXPECT_EQ(w.editorText(), "x");
}

TEST(Life, EndsWhenAHandlerDeletesTheWidgetLater) {
    Window w;
    QPointer<kxGridWidget> widget(w.widget);
    w.grid().AfterEdit.connect([&](std::int32_t, std::int32_t) { widget->deleteLater(); });
    w.focusCell(1, Code);
    w.type("x");
    w.press(Qt::Key_Enter);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(widget.isNull());
}

TEST(Life, EndsWhenAHandlerDeletesTheWidgetAtOnce) {
    for (const bool byKey : {true, false}) {
        Window w;
        QPointer<kxGridWidget> widget(w.widget);
        w.grid().AfterEdit.connect([&](std::int32_t, std::int32_t) { delete widget; });
        w.focusCell(1, Code);
        w.type("x");
        if (byKey)
            w.press(Qt::Key_Enter);
        else
            w.after->setFocus();
        EXPECT_TRUE(widget.isNull());
        w.settle();
    }
}

TEST(Life, EndsWhenAMoveDeletesTheWidgetAtOnce) {
    Window w;
    QPointer<kxGridWidget> widget(w.widget);
    w.focusCell(1, Code);
    w.grid().RowColChange.connect([&] { delete widget; });
    w.press(Qt::Key_Down);
    EXPECT_TRUE(widget.isNull());
    w.settle();
}

TEST(Life, EndsWithTheEditorOpenAndTheKeyboardInIt) {
    Window w;
    w.focusCell(1, Code);
    w.type("x");
    delete w.widget;
    w.settle();
    EXPECT_EQ(w.window.findChildren<kxGridWidget*>().size(), 0);
}

TEST(Life, EndsWhileComposing) {
    Window w;
    w.focusCell(1, Code);
    w.compose("pin");
    delete w.widget;
    w.settle();
    EXPECT_EQ(w.window.findChildren<kxGridWidget*>().size(), 0);
}

TEST(Settings, AreReportedByName) {
    Window w;
    QSignalSpy changed(w.widget, &kxGridWidget::settingChanged);
    w.grid().FixedCols(2);
    ASSERT_FALSE(changed.isEmpty());
    EXPECT_EQ(changed[0][0].toString(), "FixedCols");
}

TEST(Boxes, CarryTheSameWordsInEveryLocale) {
    QLocale::setDefault(QLocale::German);
    Window w;
    QStringList words;
    QTimer::singleShot(0, [&] {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        if (box == nullptr) return;
        words << box->windowTitle() << box->text();
        for (const auto* button : box->buttons()) words << button->text();
        box->accept();
    });
    w.grid().Grid_Sum().ComputedText(0, Quantity,
                                     []() -> std::string { throw std::runtime_error("damaged"); });
    EXPECT_EQ(w.grid().ReadSum(Quantity), "");
    EXPECT_EQ(words.join(u'|'), "错误：|CellErrordamaged|确定");
    QLocale::setDefault(QLocale::c());
}
}  // namespace kxVsGrid::qt::testing
