// Marks on cells as they are seen, read under the mouse, and told to screen readers; and locked cells.
#include <QAccessible>
#include <QHelpEvent>
#include <QTextDocumentFragment>
#include <QToolTip>
#include <stdexcept>

#include "qt/Palettes.h"
#include "qt/Window.h"
#include "qt/view/Scale.h"
#include "qt/view/SystemColors.h"

namespace kxVsGrid::qt::testing {
namespace {

using MarkKind = CellMark::Kind;

/// The mouse rests over a cell.
QString markTipOver(Window& w, std::int32_t row, std::int32_t col) {
    QToolTip::hideText();
    const QPoint at = w.at(row, col);
    QTest::mouseMove(&w.view(), at);
    QHelpEvent event(QEvent::ToolTip, at, w.view().mapToGlobal(at));
    QApplication::sendEvent(&w.view(), &event);
    QString tip = QToolTip::text();
    if (Qt::mightBeRichText(tip)) tip = QTextDocumentFragment::fromHtml(tip).toPlainText();
    return tip;
}

/// An earlier tip goes after a while.
bool hasNoTip(Window& w, std::int32_t row, std::int32_t col) {
    markTipOver(w, row, col);
    return waitUntil([] { return QToolTip::text().isEmpty(); });
}

/// A pixel well inside of the corner of a cell where its mark is.
QColor cornerOf(Window& w, const QImage& image, std::int32_t row, std::int32_t col) {
    const QRect cell = w.cell(row, col).translated(w.widget->pos());
    const double ratio = image.devicePixelRatio();
    return image.pixelColor(static_cast<int>((cell.right() - 2) * ratio),
                            static_cast<int>((cell.top() + 1.5) * ratio));
}

void markAll(Window& w) {
    w.grid().Mark(1, Code, CellMark{MarkKind::Problem, "没有这个货号。"});
    w.grid().Mark(2, Quantity, CellMark{MarkKind::Warning, "比平时多。"});
    w.grid().Mark(2, Code, CellMark{MarkKind::Note, "新品。"});
    w.grid().Mark(1, Paid, CellMark{MarkKind::Problem, "先收款。"});
    w.grid().Mark(3, Name, CellMark{MarkKind::Warning, "名称不全。"});
    w.grid().Mark(0, Date, CellMark{MarkKind::Note, "交货日期。"});
}

QAccessibleInterface* accessible(Window& w, std::int32_t row, std::int32_t col) {
    return QAccessible::queryAccessibleInterface(&w.view())->tableInterface()->cellAt(row, col);
}
}  // namespace

TEST(CellMarks, AreSeenInLightAndDark) {
    for (const bool dark : {false, true}) {
        Window w;
        if (dark) w.window.setPalette(darkPalette());
        w.focusCell(2, Code);
        markAll(w);
        const QImage image = w.picture(dark ? "marks-dark" : "marks");
        const QRgb ground = w.widget->palette().color(QPalette::Base).rgb();
        const QColor problem = cornerOf(w, image, 1, Code);
        const QColor warning = cornerOf(w, image, 2, Quantity);
        const QColor none = cornerOf(w, image, 3, Code);
        EXPECT_EQ(none.rgb(), ground);
        EXPECT_GE(contrast(problem.rgb(), ground), 2.5) << problem.name().toStdString();
        EXPECT_GE(contrast(warning.rgb(), ground), 2.5) << warning.name().toStdString();
        EXPECT_GT(problem.red(), problem.blue() + 50);
        EXPECT_GT(warning.green(), warning.blue() + 50);
    }
}

TEST(CellMarks, AreRepaintedAsTheyComeAndGo) {
    Window w;
    const auto corner = [&] {
        Window::settle();
        return cornerOf(w, w.window.grab().toImage(), 3, Code).rgb();
    };
    const QRgb before = corner();
    w.grid().Mark(3, Code, CellMark{});
    EXPECT_NE(corner(), before);
    w.grid().ClearMarks();
    EXPECT_EQ(corner(), before);
}

TEST(CellMarks, ShowTheirTextWhereTheMouseRests) {
    Window w;
    markAll(w);
    EXPECT_EQ(markTipOver(w, 1, Code), "没有这个货号。");
    EXPECT_EQ(markTipOver(w, 2, Code), "新品。");
    EXPECT_EQ(markTipOver(w, 1, Paid), "先收款。");
    EXPECT_EQ(markTipOver(w, 0, Date), "交货日期。");
    EXPECT_TRUE(hasNoTip(w, 2, Paid));
    w.grid().Mark(1, Code, std::nullopt);
    EXPECT_TRUE(hasNoTip(w, 1, Code));
    QToolTip::hideText();
}

TEST(CellMarks, ShowTheirTextAsItIs) {
    Window w;
    w.grid().Mark(1, Code, CellMark{MarkKind::Problem, "<b>不对</b> & <img src='x.png'>"});
    EXPECT_EQ(markTipOver(w, 1, Code), "<b>不对</b> & <img src='x.png'>");
    QToolTip::hideText();
}

TEST(CellMarks, ShowTheirTextBeforeThatOfACutCell) {
    Window w;
    w.grid().ColWidth(Code, 400);
    w.grid().Grid().Text(2, Code, "一个放不下的文本");
    w.grid().Mark(2, Code, CellMark{MarkKind::Problem, "不对。"});
    EXPECT_EQ(markTipOver(w, 2, Code), "不对。\n一个放不下的文本");
    QToolTip::hideText();
}

TEST(CellMarks, AreToldToScreenReaders) {
    Window w;
    markAll(w);
    w.focusCell(1, Code);
    EXPECT_EQ(accessible(w, 1, Code)->text(QAccessible::Description), "没有这个货号。");
    EXPECT_EQ(accessible(w, 3, Code)->text(QAccessible::Description), "");
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&w.view())->focusChild()->text(QAccessible::Description),
              "没有这个货号。");
}

TEST(CellMarks, OfAProblemEndWithTheClerksCommit) {
    Window w;
    w.focusCell(1, Code);
    w.grid().Mark(1, Code, CellMark{MarkKind::Problem, "不对。"});
    w.type("A7");
    w.press(Qt::Key_Return);
    EXPECT_EQ(w.grid().Mark(1, Code), nullptr);
}

TEST(LockedCells, AreNotTypedInto) {
    Window w;
    w.grid().Options().CellLocked.connect(
        [](std::int32_t row, std::int32_t, bool& locked) { locked = row == 2; });
    w.focusCell(2, Code);
    EXPECT_FALSE(w.view().inputMethodQuery(Qt::ImEnabled).toBool());
    w.type("x");
    w.press(Qt::Key_F2);
    w.compose("ni", "你");
    EXPECT_FALSE(w.editorShown());
    w.doubleClick(2, Code);
    EXPECT_FALSE(w.editorShown());
    EXPECT_TRUE(accessible(w, 2, Code)->state().readOnly);
    EXPECT_FALSE(accessible(w, 1, Code)->state().readOnly);
    w.focusCell(1, Code);
    EXPECT_TRUE(w.view().inputMethodQuery(Qt::ImEnabled).toBool());
    w.type("x");
    EXPECT_TRUE(w.editorShown());
}

TEST(LockedCells, MayBeAskedOfAHostThatFails) {
    Window w;
    w.focusCell(2, Code);
    int failures = 0;
    QObject::connect(w.widget, &kxGridWidget::handlerFailed, w.widget, [&] { ++failures; });
    Connection failing = w.grid().Options().CellLocked.connect(
        [](std::int32_t, std::int32_t, bool&) { throw std::runtime_error("host"); });
    w.type("x");
    w.press(Qt::Key_F2);
    EXPECT_TRUE(accessible(w, 2, Code)->state().readOnly);
    EXPECT_FALSE(w.editorShown());
    EXPECT_GT(failures, 0);
    failing.disconnect();
    w.type("x");
    EXPECT_TRUE(w.editorShown());
}

TEST(LockedCells, MayBeAskedOfAHostThatEndsTheWidget) {
    for (const Qt::Key key : {Qt::Key_X, Qt::Key_F2, Qt::Key_Return, Qt::Key_Tab, Qt::Key_Down}) {
        Window w;
        w.focusCell(2, Code);
        bool gone = false;
        w.grid().Options().CellLocked.connect([&](std::int32_t, std::int32_t, bool&) {
            gone = true;
            delete w.widget;
        });
        QTest::keyClick(&w.view(), key);
        EXPECT_TRUE(gone) << key;
    }
    Window w;
    QAccessibleInterface* cell = accessible(w, 2, Code);
    w.grid().Options().CellLocked.connect([&](std::int32_t, std::int32_t, bool&) { delete w.widget; });
    EXPECT_TRUE(cell->state().readOnly);
}
}  // namespace kxVsGrid::qt::testing
