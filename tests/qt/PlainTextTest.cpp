// Data that looks like markup stays text wherever the library shows it.
#include <QHelpEvent>
#include <QTextDocumentFragment>
#include <QToolTip>

#include "qt/Window.h"

namespace kxVsGrid::qt::testing {
namespace {

/// What the tip over a cell says, as the clerk reads it.
QString tipOver(Window& w, std::int32_t row, std::int32_t col, const QString& text) {
    w.grid().Grid().Text(row, col, text.toStdString());
    const QPoint at = w.at(row, col);
    QHelpEvent event(QEvent::ToolTip, at, w.view().mapToGlobal(at));
    QApplication::sendEvent(&w.view(), &event);
    const QString tip = QToolTip::text();
    const bool markup = Qt::mightBeRichText(tip);
    if (markup) {
        EXPECT_FALSE(tip.contains("<img"));
    }
    return markup ? QTextDocumentFragment::fromHtml(tip).toPlainText() : tip;
}
}  // namespace

TEST(PlainText, InATipIsNeitherLoadedAsMarkupNorShownEscaped) {
    Window w;
    w.grid().ColWidth(Code, 400);
    for (const QString& text : {QString("<img src='file:///secret.png'>看这里这里"),
                                QString("A & B < C 加急加急"), QString("a &lt; b 加急加急加急")})
        EXPECT_EQ(tipOver(w, 2, Code, text), text);
    QToolTip::hideText();
}
}  // namespace kxVsGrid::qt::testing
