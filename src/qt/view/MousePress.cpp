#include "qt/view/MousePress.h"

#include <QCoreApplication>
#include <QPointer>
#include <QTimer>
#include <QWindow>
#include <utility>

namespace kxVsGrid::qt {
namespace {

bool isPress(const QEvent& event) {
    return event.type() == QEvent::MouseButtonPress || event.type() == QEvent::MouseButtonDblClick;
}
}  // namespace

BoxMeanwhile::BoxMeanwhile(const QWidget& pressed) {
    if (QWindow* window = pressed.window()->windowHandle()) window->installEventFilter(this);
}

bool BoxMeanwhile::eventFilter(QObject* object, QEvent* event) {
    if (event->type() == QEvent::WindowBlocked) cameUp_ = true;
    return QObject::eventFilter(object, event);
}

void makeUpForRelease(QWidget& pressed, const QMouseEvent& press) {
    QCoreApplication::postEvent(
        &pressed, new QMouseEvent(QEvent::MouseButtonRelease, press.position(), press.scenePosition(),
                                  press.globalPosition(), press.button(), press.buttons() & ~press.button(),
                                  press.modifiers(), press.pointingDevice()));
}

AwaitedPress::AwaitedPress(Work work) : work_(std::move(work)) {
    qApp->installEventFilter(this);
    // the press is delivered from the call under way; none comes when code has named the mouse as its reason
    QTimer::singleShot(0, this, [this] {
        if (state_ != State::Awaiting) return;
        end();
        if (const auto waiting = std::exchange(work_, nullptr)) waiting(nullptr);
    });
}

AwaitedPress::~AwaitedPress() = default;

bool AwaitedPress::eventFilter(QObject* object, QEvent* event) {
    if (!object->isWidgetType()) return false;
    switch (state_) {
        case State::Awaiting:
            return (isPress(*event) || event->type() == QEvent::Wheel) &&
                   settle(static_cast<QWidget&>(*object), *event);
        case State::HoldingBack:
            return holdBack(*event);
        default:
            return false;
    }
}

/// True when the event is used up.
bool AwaitedPress::settle(QWidget& target, QEvent& event) {
    const QPointer<QWidget> alive(&target);
    const BoxMeanwhile box(target);
    state_ = State::Working;
    const auto work = std::exchange(work_, nullptr);
    const bool goesOn = !work || work(&target);
    const bool press = isPress(event);
    if (goesOn || !press) {
        end();
    } else {
        state_ = State::HoldingBack;
        // what else follows the press (a context menu) still comes in this turn of the event loop
        if (box) QTimer::singleShot(0, this, [this] { end(); });
    }
    if (!alive) return true;
    if (goesOn && press && box) makeUpForRelease(target, static_cast<QMouseEvent&>(event));
    return !goesOn;
}

bool AwaitedPress::holdBack(const QEvent& event) {
    switch (event.type()) {
        case QEvent::MouseButtonPress:  // the release went astray: this is a press of its own
        case QEvent::MouseButtonDblClick:
            end();
            return false;
        case QEvent::MouseButtonRelease:
            end();
            return true;
        case QEvent::MouseMove:
            return static_cast<const QMouseEvent&>(event).buttons() != Qt::NoButton;
        case QEvent::ContextMenu:
            return true;
        default:
            return false;
    }
}

void AwaitedPress::end() {
    if (std::exchange(state_, State::Done) == State::Done) return;
    qApp->removeEventFilter(this);
    deleteLater();
}
}  // namespace kxVsGrid::qt
