// Texts that are longer than any cell.
#include <QFontMetricsF>
#include <QHelpEvent>
#include <QToolTip>

#include "qt/Window.h"
#include "qt/text/Encoding.h"
#include "qt/view/ShownText.h"

namespace kxVsGrid::qt::testing {
namespace {

QFontMetricsF appMetrics() {
    return QFontMetricsF(QApplication::font());
}

std::string times(int count, const std::string& text) {
    std::string result;
    for (int i = 0; i < count; ++i) result += text;
    return result;
}
}  // namespace

TEST(ShownText, IsTheTextWhereThatFits) {
    EXPECT_EQ(shownText("e\u0301tude שלום", appMetrics(), QSize(400, 20)), QString("e\u0301tude שלום"));
    EXPECT_EQ(shownText("a\r\nb\rc\nd", appMetrics(), QSize(400, 400)), QString("a\nb\nc\nd"));
    EXPECT_EQ(shownText("a\n", appMetrics(), QSize(400, 400)), QString("a\n"));
}

TEST(ShownText, IsWhatQtWouldElideOfTheWholeText) {
    const QString text = QString("e\u0301 שלום 货物 ").repeated(500);
    for (const int width : {30, 100, 700})
        EXPECT_EQ(shownText(fromQt(text), appMetrics(), QSize(width, 20)),
                  appMetrics().elidedText(text, Qt::ElideRight, width));
}

TEST(ShownText, LeavesOutLinesThatDoNotFitAndSaysSo) {
    const int line = static_cast<int>(std::ceil(appMetrics().lineSpacing()));
    EXPECT_EQ(shownText("a\nb\nc", appMetrics(), QSize(400, 2 * line)), QString("a\nb…"));
    EXPECT_EQ(shownText("a\nb\nc", appMetrics(), QSize(400, 3)), QString("a…"));
    EXPECT_EQ(shownText(std::string(1'000'000, '\n'), appMetrics(), QSize(400, 2 * line)), QString("\n…"));
}

TEST(ShownText, HandsQtNoMoreThanCanShowOfAnyText) {
    const auto shown = [](const std::string& text) { return shownText(text, appMetrics(), QSize(100, 20)); };
    for (const char* piece : {"\u0301", "ش", "😀", "\u202E", "\xFF", "\t", "x", "货", "\u200D"}) {
        const QString seen = shown("a" + times(100'000, piece));
        EXPECT_LE(seen.size(), 64 + 2 * 100 + 1) << piece;
        EXPECT_TRUE(seen.startsWith(u'a')) << piece;
        EXPECT_TRUE(seen.endsWith(u'…')) << piece;
    }
}

TEST(ShownText, IsNotPartedWithinACharacter) {
    EXPECT_EQ(shortened("abe\u0301\u0302c", 4), QString("ab…"));
    EXPECT_EQ(shortened("abe\u0301\u0302c", 5), QString("abe\u0301\u0302…"));
    EXPECT_EQ(shortened("abc😀d", 4), QString("abc…"));
    EXPECT_EQ(shortened("abcd", 4), QString("abcd"));
    EXPECT_EQ(shortened("货货货货货", 4), QString("货货货货…"));
    EXPECT_FALSE(shortened(times(100, "😀"), 51).contains(QChar(0xFFFD)));
}

TEST(LongCellText, LeavesTheCellsTextWhole) {
    Window w;
    const std::string text = "a" + times(500'000, "\u0301");
    w.grid().Grid().Text(1, Name, text);
    w.settle();
    w.picture("marks-without-end");
    EXPECT_EQ(w.text(1, Name), text);
}

TEST(LongCellText, LooksAsItDoesUncut) {
    Window w;
    w.grid().RowHeight(1, 900);
    const auto looks = [&](const std::string& text) {
        w.grid().Grid().Text(1, Name, text);
        w.settle();
        return w.widget->grab(w.cell(1, Name)).toImage();
    };
    EXPECT_EQ(looks(times(100'000, "x")), looks(times(300, "x")));
    EXPECT_EQ(looks(times(100'000, "货")), looks(times(300, "货")));
    EXPECT_EQ(looks(times(100'000, "ש")), looks(times(400, "ש")));
    EXPECT_NE(looks(times(300, "x") + "\nsecond"), looks(times(300, "x") + "second"));
}

TEST(LongCellText, IsShownInATipAsFarAsAScreenHoldsIt) {
    Window w;
    w.grid().Grid().Text(1, Name, times(1'000'000, "x"));
    w.settle();
    QHelpEvent help(QEvent::ToolTip, w.at(1, Name), w.view().mapToGlobal(w.at(1, Name)));
    QApplication::sendEvent(&w.view(), &help);
    EXPECT_GT(QToolTip::text().size(), 1000);
    EXPECT_LT(QToolTip::text().size(), 5000);
    QToolTip::hideText();
}
}  // namespace kxVsGrid::qt::testing
