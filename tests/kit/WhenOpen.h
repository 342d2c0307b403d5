// Waiting for windows, and for what must be true: never for a time that a busy machine may not keep.
#pragma once

#include <QApplication>
#include <QPointer>
#include <QTest>
#include <QTimer>
#include <functional>

namespace kxVsGrid::kit {

/// Milliseconds until a wait is given up; a slow machine is not an error.
inline constexpr int Patience = 60'000;

/// Waits, with events going on, until `isTrue`.
inline bool waitUntil(const std::function<bool()>& isTrue) {
    return QTest::qWaitFor(isTrue, Patience);
}

inline bool waitUntilClosed(QWidget& window) {
    const QPointer<QWidget> guarded(&window);
    return waitUntil([&] { return guarded.isNull() || !guarded->isVisible(); });
}

/// Runs `act` once, from the event loop, as soon as a modal window or a popup of the type stands open.
template <class Shown>
void whenOpen(const std::function<void(Shown&)>& act) {
    auto* look = new QTimer(qApp);
    QObject::connect(look, &QTimer::timeout, look, [look, act] {
        auto* shown = qobject_cast<Shown*>(QApplication::activePopupWidget());
        if (shown == nullptr) shown = qobject_cast<Shown*>(QApplication::activeModalWidget());
        if (shown == nullptr || !shown->isVisible()) return;
        look->stop();
        look->deleteLater();
        act(*shown);
    });
    look->start(1);
}
}  // namespace kxVsGrid::kit
