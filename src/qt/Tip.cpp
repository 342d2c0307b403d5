#include "qt/Tip.h"

#include <QApplication>
#include <QKeyEvent>
#include <QTimer>
#include <QToolTip>
#include <algorithm>
#include <chrono>

namespace kxVsGrid::qt {
namespace {

constexpr int Padding = 3;

/// Long texts stay longer.
std::chrono::milliseconds lifeOf(const QString& text) {
    using namespace std::chrono_literals;
    return 10s + 40ms * std::max(0, static_cast<int>(text.size()) - 100);
}

/// What the clerk does next. A key that is held down was pressed before.
bool isNextAct(const QEvent& event) {
    switch (event.type()) {
        case QEvent::KeyPress:
            return !static_cast<const QKeyEvent&>(event).isAutoRepeat();
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonDblClick:
        case QEvent::Wheel:
        case QEvent::InputMethod:
            return true;
        default:
            return false;
    }
}
}  // namespace

Tip::Tip(QWidget& owner, const QRect& anchor, const QString& text) : TipLabel(owner.window()) {
    setText(text);
    setFont(QToolTip::font());
    setPalette(QToolTip::palette());
    setMargin(Padding);
    place(anchor);
    qApp->installEventFilter(this);
    QTimer::singleShot(lifeOf(text), this, [this] { hide(); });
    show();
    raise();
}

void Tip::place(const QRect& anchor) {
    const QRect room = parentWidget()->rect();
    setWordWrap(sizeHint().width() > room.width());
    const int width = std::min(sizeHint().width(), room.width());
    const QSize size(width, wordWrap() ? heightForWidth(width) : sizeHint().height());
    const QRect beside(parentWidget()->mapFromGlobal(anchor.topLeft()), anchor.size());
    const bool fitsBelow = beside.bottom() + 1 + size.height() <= room.bottom() + 1;
    const int top = fitsBelow ? beside.bottom() + 1 : beside.top() - size.height();
    const int left = std::clamp(beside.left(), 0, std::max(0, room.width() - size.width()));
    setGeometry({{left, std::max(0, top)}, size});
}

bool Tip::eventFilter(QObject* object, QEvent* event) {
    if (isNextAct(*event)) hide();
    return TipLabel::eventFilter(object, event);
}

void Tip::hideEvent(QHideEvent* event) {
    TipLabel::hideEvent(event);
    if (!event->spontaneous()) deleteLater();
}
}  // namespace kxVsGrid::qt
