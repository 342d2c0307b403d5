#include "qt/TipLabel.h"

#include <QAccessible>
#include <QGuiApplication>
#include <QPainter>
#include <QRegularExpression>
#include <QScreen>
#include <QTextLayout>
#include <algorithm>
#include <cmath>

namespace kxVsGrid::qt {
namespace {

/// Between the frame and the text.
constexpr int Padding = 3;
/// So many characters of full width are comfortable to read in one line.
constexpr int ComfortableCharacters = 40;

QStringList paragraphsOf(const QString& text) {
    static const QRegularExpression ends(QStringLiteral("\r\n|[\r\n\u2028\u2029]"));
    return text.split(ends);
}

/// Lays the paragraph out from `top` on, and answers where it ends.
double layOut(QTextLayout& paragraph, double width, double top) {
    paragraph.beginLayout();
    for (QTextLine line = paragraph.createLine(); line.isValid(); line = paragraph.createLine()) {
        line.setLineWidth(width);
        line.setPosition(QPointF(0, top));
        top += line.height();
    }
    paragraph.endLayout();
    return top;
}

double widthOf(const QTextLayout& paragraph) {
    double width = 0;
    for (int i = 0; i < paragraph.lineCount(); ++i)
        width = std::max(width, paragraph.lineAt(i).naturalTextWidth());
    return width;
}

QScreen* screenOf(const QWidget& widget, const QRect& anchor) {
    QScreen* at = QGuiApplication::screenAt(anchor.center());
    return at != nullptr ? at : widget.screen();
}

/// What of the widget can be seen, on the screen. A window that begins beyond the screen counts as if all of it were there.
QRect roomOf(const QWidget& home, const QRect& anchor) {
    QRect room(home.mapToGlobal(QPoint()), home.size());
    for (const QWidget* around = &home; !around->isWindow() && around->parentWidget() != nullptr;) {
        around = around->parentWidget();
        room &= QRect(around->mapToGlobal(QPoint()), around->size());
    }
    const QRect seen = room & screenOf(home, anchor)->availableGeometry();
    return seen.intersects(anchor) ? seen : room;
}
}  // namespace

TipLabel::TipLabel(QWidget* parent) : QLabel(parent) {
    setTextFormat(Qt::PlainText);
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setAttribute(Qt::WA_ShowWithoutActivating);
    setFocusPolicy(Qt::NoFocus);
    setMargin(Padding);
    setFrameStyle(static_cast<int>(QFrame::Box) | static_cast<int>(QFrame::Plain));
    setAutoFillBackground(true);
    setForegroundRole(QPalette::ToolTipText);
    setBackgroundRole(QPalette::ToolTipBase);
}

TipLabel::~TipLabel() = default;

/// Breaks the text into lines of so many pixels, and answers how large the label has to be.
QSize TipLabel::breakLines(int width) {
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    paragraphs_.clear();
    double bottom = 0;
    double widest = 0;
    for (const QString& text : paragraphsOf(this->text())) {
        auto& paragraph = paragraphs_.emplace_back(std::make_unique<QTextLayout>(text, font(), this));
        paragraph->setTextOption(option);
        bottom = layOut(*paragraph, width, bottom);
        widest = std::max(widest, widthOf(*paragraph));
    }
    return {static_cast<int>(std::ceil(widest)), static_cast<int>(std::ceil(bottom))};
}

QMargins TipLabel::around() const {
    return contentsMargins() + QMargins(margin(), margin(), margin(), margin());
}

/// Of the text with no breaks but its own.
int TipLabel::naturalWidth() const {
    double widest = 0;
    for (const QString& text : paragraphsOf(this->text())) {
        QTextLayout line(text, font(), this);
        layOut(line, QWIDGETSIZE_MAX, 0);
        widest = std::max(widest, widthOf(line));
    }
    return static_cast<int>(std::ceil(widest));
}

/// Below or above the anchor, whole; nothing where neither is possible with lines of so many pixels.
std::optional<QRect> TipLabel::placeIn(const QRect& room, const QRect& anchor, int gap, int width) {
    width = std::min(width, room.width() - around().left() - around().right());
    if (width < fontMetrics().averageCharWidth() * 4) return std::nullopt;
    const QSize size = breakLines(width).grownBy(around());
    const int left =
        std::clamp(anchor.left(), room.left(), std::max(room.left(), room.right() + 1 - size.width()));
    const int below = anchor.bottom() + 1 + gap;
    const int above = anchor.top() - gap - size.height();
    if (below + size.height() <= room.bottom() + 1) return QRect(QPoint(left, below), size);
    if (above >= room.top()) return QRect(QPoint(left, above), size);
    return std::nullopt;
}

/// Without a home it is a window, which belongs to that of its parent.
void TipLabel::settleIn(QWidget* home, const QRect& place) {
    if (home == nullptr) {
        if (!isWindow())
            setParent(parentWidget()->window(),
                      Qt::ToolTip | Qt::WindowTransparentForInput | Qt::WindowDoesNotAcceptFocus);
        setGeometry(place);
    } else {
        if (isWindow() || parentWidget() != home) setParent(home);
        setGeometry(QRect(home->mapFromGlobal(place.topLeft()), place.size()));
    }
}

/// First as wide as it is read best, then as wide as there is room; last wherever the screen has room at all.
void TipLabel::settleBeside(const QRect& anchor, int gap, std::initializer_list<QWidget*> homes) {
    const int comfortable = std::min(naturalWidth(), fontMetrics().height() * ComfortableCharacters);
    for (const int width : {comfortable, QWIDGETSIZE_MAX}) {
        for (QWidget* home : homes) {
            const QRect room = roomOf(*home, anchor);
            if (width == comfortable && room.width() < width + around().left() + around().right()) continue;
            if (const auto place = placeIn(room, anchor, gap, width)) return settleIn(home, *place);
        }
    }
    const QRect screen = screenOf(*this, anchor)->availableGeometry();
    auto place = placeIn(screen, anchor, gap, comfortable);
    if (!place) place = placeIn(screen, anchor, gap, screen.width());
    settleIn(nullptr, place.value_or(screen));
}

void TipLabel::showBeside(const QRect& anchor, int gap, const QString& text,
                          std::initializer_list<QWidget*> homes) {
    const bool news = isHidden() || text != this->text();
    setText(text);
    setAccessibleName(text);
    settleBeside(anchor, gap, homes);
    show();
    raise();
    update();
    if (news) announce();
}

void TipLabel::announce() {
    QAccessibleEvent alert(this, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
}

void TipLabel::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    drawFrame(&painter);
    painter.setPen(palette().color(foregroundRole()));
    const QPointF origin = contentsRect().topLeft() + QPoint(margin(), margin());
    for (const auto& paragraph : paragraphs_) paragraph->draw(&painter, origin);
}
}  // namespace kxVsGrid::qt
