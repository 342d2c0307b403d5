#include "qt/text/HelpButton.h"

#include <QMouseEvent>

#include "qt/Stage.h"
#include "qt/Wording.h"

namespace kxVsGrid::qt {

HelpButton::HelpButton(Stage& stage, QWidget* parent) : QToolButton(parent), stage_(stage) {
    setText(QStringLiteral("…"));
    setAccessibleName(wording::Help);
    setFocusPolicy(Qt::NoFocus);  // the editor keeps the keyboard: nothing is committed by the press
    setContextMenuPolicy(Qt::PreventContextMenu);  // nor do other buttons open anything but the help
    hide();
}

/// Help opens on the press, of any button. The button is not drawn as pressed: the dialog would get to see
/// the release.
void HelpButton::mousePressEvent(QMouseEvent* event) {
    event->accept();
    stage_.endComposition();
    stage_.guarded([](Input& input) { input.helpButtonPressed(); });
}

void HelpButton::mouseReleaseEvent(QMouseEvent* event) {
    event->accept();
}

void HelpButton::mouseDoubleClickEvent(QMouseEvent* event) {
    event->accept();
}

void HelpButton::focusInEvent(QFocusEvent* event) {
    QToolButton::focusInEvent(event);
    stage_.focusEntered(FocusPlace::HelpButton);
}

void HelpButton::focusOutEvent(QFocusEvent* event) {
    QToolButton::focusOutEvent(event);
    stage_.focusLeft(*event);
}
}  // namespace kxVsGrid::qt
