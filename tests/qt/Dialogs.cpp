#include "qt/Dialogs.h"

#include <QAbstractButton>
#include <QDir>
#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <QTimer>
#include <QWheelEvent>
#include <QWindow>

#include "qt/view/Scale.h"

namespace kxVsGrid::qt::testing {
namespace {

QString textOf(const QWidget& part) {
    if (const auto* label = qobject_cast<const QLabel*>(&part)) return label->text();
    const auto* button = qobject_cast<const QAbstractButton*>(&part);
    return button != nullptr ? button->text() : QString();
}

/// What a control covers: a label its text alone.
QRect inkOf(const QWidget& part) {
    QRect place = part.geometry();
    if (qobject_cast<const QLabel*>(&part)) place.setWidth(part.sizeHint().width());
    return place;
}
}  // namespace

void Dialog::press(Qt::Key key, Qt::KeyboardModifiers modifiers) const {
    QTest::keyClick(window.windowHandle(), key, modifiers);
}

void Dialog::type(const QString& text) const {
    for (const QChar character : text) {
        const bool ascii = character.unicode() < 0x80;
        const Qt::Key key = ascii ? QTest::asciiToKey(character.toLatin1()) : Qt::Key_unknown;
        QTest::sendKeyEvent(QTest::Click, &testing::focused(), key, QString(character), Qt::NoModifier);
    }
}

void Dialog::compose(const QString& preedit, const QString& commit) const {
    QInputMethodEvent event(preedit, {});
    event.setCommitString(commit);
    QApplication::sendEvent(&testing::focused(), &event);
}

QPoint Dialog::cell(const CellGrid& grid, std::int32_t row, std::int32_t col) const {
    return Scale(window).pixels(grid.CellRect(row, col)).center();
}

void Dialog::twice(QWidget& target, const QPoint& at) {
    screen::doubleClick(target, at);
}

void Dialog::wheel(QWidget& target, int notches) {
    const QPointF at = target.rect().center();
    QWheelEvent event(at, target.mapToGlobal(at), {}, {0, -120 * notches}, Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(&target, &event);
}

QImage Dialog::picture(const QString& name) const {
    Window::settle();
    const QImage image = window.grab().toImage();
    const QString folder = QStringLiteral(KX_PICTURES);
    QDir().mkpath(folder);
    const int percent = qRound(window.devicePixelRatioF() * 100);
    EXPECT_TRUE(image.save(QStringLiteral("%1/%2-%3.png").arg(folder, name).arg(percent)));
    return image;
}

void expectWhole(const Dialog& d) {
    QList<QWidget*> shown;
    for (auto* part : d.window.findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly))
        if (part->isVisible()) shown << part;
    for (const QWidget* part : shown) {
        const std::string name = part->objectName().toStdString();
        const int letters = part->fontMetrics().horizontalAdvance(textOf(*part));
        const bool button = qobject_cast<const QPushButton*>(part) != nullptr;
        EXPECT_GE(part->width(), button ? letters + 8 : letters) << name;
        EXPECT_TRUE(button || part->width() >= part->minimumSizeHint().width()) << name;
        EXPECT_GE(part->height(), part->minimumSizeHint().height()) << name;
        EXPECT_TRUE(d.window.rect().contains(part->geometry())) << name;
        for (const QWidget* other : shown)
            EXPECT_TRUE(other == part || !inkOf(*other).intersects(inkOf(*part)))
                << name << " and " << other->objectName().toStdString();
    }
}

Dialogs::Dialogs(Act act) : act_(std::move(act)) {
    qApp->installEventFilter(this);
}

Dialogs::~Dialogs() {
    qApp->removeEventFilter(this);
}

bool Dialogs::eventFilter(QObject* object, QEvent* event) {
    auto* window = event->type() == QEvent::Show ? dynamic_cast<FormDialog*>(object) : nullptr;
    if (window != nullptr) QTimer::singleShot(0, window, [this, window] { opened(*window); });
    return false;
}

void Dialogs::opened(FormDialog& window) {
    EXPECT_TRUE(waitUntil([&] { return window.isActiveWindow(); }));
    ++count;
    const QPointer<FormDialog> alive(&window);
    Dialog dialog(window);
    try {
        act_(dialog);
    } catch (const std::exception& error) {
        ADD_FAILURE() << error.what();
    }
    Window::settle();
    if (!alive || !alive->isVisible()) return;
    ADD_FAILURE() << "the dialog did not close: " << window.windowTitle().toStdString();
    window.done(0);
}

void work(Form& form, const Dialogs::Act& act, const Rect& anchor) {
    Window w;
    Dialogs dialogs(act);
    runForm(w.widget, form, anchor);
    EXPECT_EQ(dialogs.count, 1);
}
}  // namespace kxVsGrid::qt::testing
