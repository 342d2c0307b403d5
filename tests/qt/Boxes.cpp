#include "qt/Boxes.h"

#include <QPointer>
#include <QPushButton>
#include <QTimer>
#include <QWindow>

#include "qt/ScreenMouse.h"

namespace kxVsGrid::qt::testing {

Boxes::Boxes(Act closeBy) : close(std::move(closeBy)) {
    qApp->installEventFilter(this);
}

Boxes::~Boxes() {
    qApp->removeEventFilter(this);
}

QStringList Boxes::texts() const {
    QStringList texts;
    for (const Seen& box : seen) texts << box.text;
    return texts;
}

bool Boxes::eventFilter(QObject* object, QEvent* event) {
    auto* box = event->type() == QEvent::Show ? qobject_cast<QMessageBox*>(object) : nullptr;
    if (box != nullptr) QTimer::singleShot(0, box, [this, box] { opened(*box); });
    return false;
}

void Boxes::opened(QMessageBox& box) {
    EXPECT_TRUE(waitUntil([&] { return box.isActiveWindow(); }));
    Seen now;
    now.icon = box.icon();
    now.title = box.windowTitle();
    now.text = box.text();
    for (const QAbstractButton* button : box.buttons()) now.buttons << button->text();
    now.place = box.frameGeometry();
    now.parent = box.parentWidget();
    now.modal = box.isModal() && QApplication::activeModalWidget() == &box;
    now.inFront = QApplication::activeWindow() == &box;
    now.okFocused = !box.buttons().isEmpty() && QApplication::focusWidget() == box.buttons().front();
    seen.push_back(now);
    const QPointer<QMessageBox> alive(&box);
    close(box);
    Window::settle();
    if (!alive || !alive->isVisible()) return;
    ADD_FAILURE() << "the box did not close: " << box.text().toStdString();
    box.done(0);
}

void Boxes::enter(QMessageBox& box) {
    QTest::keyClick(box.windowHandle(), Qt::Key_Return);
}

void Boxes::keypadEnter(QMessageBox& box) {
    QTest::keyClick(box.windowHandle(), Qt::Key_Enter, Qt::KeypadModifier);
}

void Boxes::space(QMessageBox& box) {
    QTest::keyClick(box.windowHandle(), Qt::Key_Space);
}

void Boxes::escape(QMessageBox& box) {
    QTest::keyClick(box.windowHandle(), Qt::Key_Escape);
}

void Boxes::frame(QMessageBox& box) {
    box.windowHandle()->close();
}

void Boxes::clickOk(QMessageBox& box) {
    screen::click(*box.buttons().front());
}
}  // namespace kxVsGrid::qt::testing
