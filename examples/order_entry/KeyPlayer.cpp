#include "KeyPlayer.h"

#include <QApplication>
#include <QFile>
#include <QInputMethodEvent>
#include <QKeySequence>
#include <QTest>

#include "KeyboardOwner.h"
#include "WindowPicture.h"

using namespace Qt::StringLiterals;

namespace {
constexpr int StepMs = 5;  // between keys, so that everything that a key caused has happened

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
    } else if (command == u"size") {
        return resize(rest);
    } else if (command == u"play") {
        return playOther(rest.trimmed());
    } else if (command == u"picture") {
        const QString file = rest.section(u' ', 0, 0);
        const auto part = WindowPicture::partOf(window_, rest.section(u' ', 1));
        if (!part) return u"图片的范围有误 "_s + rest;
        if (!WindowPicture::save(window_, file, *part)) return u"无法写入图片 "_s + file;
    } else {
        return u"未知的命令 "_s + command;
    }
    return {};
}

QString KeyPlayer::resize(const QString& size) {
    const QSize wanted(size.section(u' ', 0, 0).toInt(), size.section(u' ', 1).toInt());
    if (wanted.isEmpty()) return u"大小有误 "_s + size;
    window_.resize(wanted);
    return {};
}

QString KeyPlayer::playOther(const QString& file) {
    const std::optional<QStringList> lines = linesOf(file);
    if (!lines) return u"无法读取 "_s + file;
    timer_.stop();
    auto* other = new KeyPlayer(window_, *lines);
    other->setParent(this);
    connect(other, &KeyPlayer::finished, this, [this, file, number = next_](const QString& error) {
        if (error.isEmpty())
            timer_.start();
        else
            emit finished(u"%1: %2:%3"_s.arg(QString::number(number), file, error));
    });
    other->start();
    return {};
}

std::optional<QStringList> KeyPlayer::linesOf(const QString& file) {
    QFile script(file);
    if (!script.open(QIODevice::ReadOnly | QIODevice::Text)) return std::nullopt;
    return QString::fromUtf8(script.readAll()).split(u'\n');
}
