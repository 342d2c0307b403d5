// What the two text boxes do alike around Qt's own handling.
#pragma once

#include <QCoreApplication>
#include <QPainter>
#include <QPointer>

#include "qt/KeyMap.h"
#include "qt/text/BoxEvents.h"
#include "qt/view/Scale.h"

namespace kxVsGrid::qt {

/// Runs Qt's own code for something that the clerk does.
template <class Work>
void asClerk(BoxEvents& events, const QWidget& box, Work work) {
    const QPointer<const QWidget> alive(&box);
    events.clerkActs(true);
    work();
    if (alive) events.clerkActs(false);
}

/// Keys that the core or the box acts on must not set off a shortcut of the window.
/// Those for finding are left to a window that has a use of its own for them.
inline bool claims(const QKeyEvent& event, const std::optional<Command>& command) {
    const bool finds = command == Command::Find || command == Command::FindNext ||
                       command == Command::FindPrevious || command == Command::Replace;
    if (command && !finds) return true;
    const auto modifiers = event.modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier);
    if (modifiers != Qt::NoModifier) return false;
    const KeyStroke stroke = strokeOf(event);
    return !stroke.character.empty() || stroke.code == static_cast<std::int16_t>(Key::F2) ||
           (stroke.code >= static_cast<std::int16_t>(Key::PageUp) &&
            stroke.code <= static_cast<std::int16_t>(Key::Delete));
}

inline bool isTab(const QKeyEvent& event) {
    const auto modifiers = event.modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier);
    return (event.key() == Qt::Key_Tab || event.key() == Qt::Key_Backtab) && modifiers == Qt::NoModifier;
}

inline bool isForward(const QKeyEvent& tab) {
    return tab.key() == Qt::Key_Tab && !tab.modifiers().testFlag(Qt::ShiftModifier);
}

/// Handles what comes before a box's own event handling. True when the event is done with.
inline bool beforeBox(BoxEvents& events, QWidget& box, QEvent& event) {
    switch (event.type()) {
        case QEvent::FocusAboutToChange:
            events.endComposition();
            return false;
        case QEvent::ShortcutOverride: {
            const auto& key = static_cast<QKeyEvent&>(event);
            if (!claims(key, events.commandOf(key))) return false;
            event.accept();
            return true;
        }
        case QEvent::KeyPress: {
            auto& key = static_cast<QKeyEvent&>(event);
            if (!isTab(key)) return false;
            key.accept();
            const bool forward = isForward(key);
            const QPointer<QWidget> alive(&box);
            if (!events.keyDown(key) && alive) events.leave(forward);
            return true;
        }
        default:
            return false;
    }
}

/// The key event that the box shall see, with the text that it puts in: the keypad's decimal types what the core
/// was offered.
inline QKeyEvent asOffered(const QKeyEvent& event, const QString& text) {
    const QString typed = QString::fromStdString(strokeOf(event).character);
    const bool decimal = typed == QLatin1String(".") && event.text() != typed;
    return QKeyEvent(event.type(), decimal ? int{Qt::Key_Period} : event.key(), event.modifiers(),
                     decimal ? typed : text, event.isAutoRepeat(), static_cast<ushort>(event.count()));
}

/// The edge of the box: in the selection's colour, red while its text is refused.
inline void paintEdge(QPainter& painter, const QWidget& box, const QRect& rect, bool refused) {
    const Scale scale(box);
    const QColor color = refused ? QColor(0xD0, 0x20, 0x20) : box.palette().color(QPalette::Highlight);
    const double pen = scale.deviceLength(refused ? 2 : 1) / scale.ratio();
    const QRectF edge(rect);
    painter.fillRect(QRectF(edge.left(), edge.top(), edge.width(), pen), color);
    painter.fillRect(QRectF(edge.left(), edge.bottom() - pen, edge.width(), pen), color);
    painter.fillRect(QRectF(edge.left(), edge.top(), pen, edge.height()), color);
    painter.fillRect(QRectF(edge.right() - pen, edge.top(), pen, edge.height()), color);
}
}  // namespace kxVsGrid::qt
