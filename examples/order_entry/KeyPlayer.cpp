#include "KeyPlayer.h"

#include <QApplication>
#include <QInputMethodEvent>
#include <QKeySequence>
#include <QPainter>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {
constexpr int StepMs = 5;  // between keys, so that everything that a key caused has happened

QWidget* keyboardOwner(QWidget& window) {
    if (QWidget* popup = QApplication::activePopupWidget()) return popup;
    if (QWidget* focused = QApplication::focusWidget()) return focused;
    if (QWidget* modal = QApplication::activeModalWidget()) return modal;
    return &window;
}

void typeCharacter(QWidget& window, char32_t character) {
    const bool capital = character >= U'A' && character <= U'Z';
    Qt::Key key = Qt::Key_unknown;
    if (character >= U'a' && character <= U'z')
        key = static_cast<Qt::Key>(character - U'a' + Qt::Key_A);
    else if (character >= U' ' && character <= U'~')
        key = static_cast<Qt::Key>(character);
    QTest::sendKeyEvent(QTest::Click, keyboardOwner(window), key, QString::fromUcs4(&character, 1),
                        capital ? Qt::ShiftModifier : Qt::NoModifier);
}

bool pressKey(QWidget& window, const QString& name) {
    const QKeySequence keys = QKeySequence::fromString(name, QKeySequence::PortableText);
    if (keys.count() != 1 || keys[0].key() == Qt::Key_unknown) return false;
    // The Enter of a script is the main key; Qt calls that one Return.
    const Qt::Key key = keys[0].key() == Qt::Key_Enter ? Qt::Key_Return : keys[0].key();
    QTest::keyClick(keyboardOwner(window), key, keys[0].keyboardModifiers());
    return true;
}

void compose(QWidget& window, const QString& preedit, const QString& committed) {
    QList<QInputMethodEvent::Attribute> attributes;
    if (!preedit.isEmpty())
        attributes << QInputMethodEvent::Attribute(QInputMethodEvent::Cursor,
                                                   static_cast<int>(preedit.size()), 1);
    QInputMethodEvent event(preedit, attributes);
    if (!committed.isEmpty()) event.setCommitString(committed);
    QCoreApplication::sendEvent(keyboardOwner(window), &event);
}
}  // namespace

KeyPlayer::KeyPlayer(QWidget& window, QStringList script) : window_(window), script_(std::move(script)) {
    // A timer that goes on inside the event loops of boxes and menus.
    timer_.setInterval(StepMs);
    connect(&timer_, &QTimer::timeout, this, &KeyPlayer::step);
}

void KeyPlayer::start() {
    timer_.start();
}

void KeyPlayer::step() {
    timer_.setInterval(StepMs);
    if (!hasKeyboard()) return;
    if (!toType_.empty()) {
        const char32_t character = toType_.front();
        toType_.erase(0, 1);
        typeCharacter(window_, character);
        return;
    }
    if (next_ >= script_.size()) {
        timer_.stop();
        emit finished({});
        return;
    }
    QString line = script_[next_++];
    if (line.endsWith(u'\r')) line.chop(1);
    if (line.trimmed().isEmpty() || line.startsWith(u'#')) return;
    const qsizetype blank = line.indexOf(u' ');
    const QString command = blank < 0 ? line : line.left(blank);
    const qsizetype number = next_;
    const QString error = play(command, blank < 0 ? QString() : line.mid(blank + 1));
    if (error.isEmpty()) return;
    timer_.stop();
    emit finished(u"%1: %2"_s.arg(QString::number(number), error));
}

// A window that has just been shown gets the keyboard when the desktop is ready to give it. A desktop without
// a window manager has to be asked to give it back after a box, and may leave it with a list that is gone.
bool KeyPlayer::hasKeyboard() {
    if (QApplication::activePopupWidget()) return true;
    QWidget* modal = QApplication::activeModalWidget();
    const QWidget* active = QApplication::activeWindow();
    // A box that has just been opened blocks the window before it gets the keyboard.
    if (QApplication::focusWidget() && active && active->isVisible() && (!modal || active == modal->window()))
        return true;
    (modal ? modal : &window_)->activateWindow();
    return patience_-- <= 0;
}

QString KeyPlayer::play(const QString& command, const QString& rest) {
    if (command == u"type") {
        toType_ = rest.toStdU32String();
    } else if (command == u"key") {
        if (!pressKey(window_, rest.trimmed())) return u"未知的键 "_s + rest;
    } else if (command == u"compose") {
        compose(window_, rest, {});
    } else if (command == u"commit") {
        compose(window_, {}, rest);
    } else if (command == u"wait") {
        timer_.setInterval(std::max(StepMs, rest.toInt()));
    } else if (command == u"picture") {
        if (!savePicture(window_, rest.trimmed())) return u"无法写入图片 "_s + rest;
    } else {
        return u"未知的命令 "_s + command;
    }
    return {};
}

bool KeyPlayer::savePicture(QWidget& window, const QString& file) {
    QPixmap picture = window.grab();
    QPainter painter(&picture);
    for (QWidget* other : QApplication::topLevelWidgets()) {
        if (other == &window || !other->isVisible()) continue;
        const QPoint place = other->mapToGlobal(QPoint()) - window.mapToGlobal(QPoint());
        painter.drawPixmap(place, other->grab());
        painter.drawRect(QRect(place, other->size()).adjusted(-1, -1, 0, 0));  // for the desktop's frame
    }
    painter.end();
    return picture.save(file, "PNG");
}
