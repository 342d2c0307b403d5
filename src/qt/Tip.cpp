#include "qt/Tip.h"

#include <QApplication>
#include <QKeyEvent>
#include <QTimer>
#include <QToolTip>
#include <algorithm>
#include <chrono>

namespace kxVsGrid::qt {
namespace {

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
    setFont(QToolTip::font());
    setPalette(QToolTip::palette());
    showBeside(anchor, 0, text, {owner.window()});
    qApp->installEventFilter(this);
    QTimer::singleShot(lifeOf(text), this, [this] { hide(); });
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
