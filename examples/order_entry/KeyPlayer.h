// Plays a script of keys to whoever has the keyboard, as a clerk would type them; for demonstrations,
// pictures and tests from outside. One command per line; empty lines and lines that begin with # are skipped:
//
//     type TEXT       the characters of the text, Chinese ones included
//     key NAME        one key: Enter, Tab, Shift+Tab, F2, Ctrl+S, Alt+F, Down, Esc, Space, ...
//     compose TEXT    an input method shows this text as being composed, in place of what it showed before
//     commit TEXT     it ends with this text; without one the composition is dropped
//     wait MS         lets so many milliseconds pass
//     picture FILE    saves a picture of the window as it is now
#pragma once

#include <QObject>
#include <QStringList>
#include <QTimer>
#include <QWidget>
#include <string>

class KeyPlayer : public QObject {
    Q_OBJECT

  public:
    KeyPlayer(QWidget& window, QStringList script);
    void start();

    /// The window with the boxes and menus in front of it.
    static bool savePicture(QWidget& window, const QString& file);

  signals:
    /// The whole script was played, or a line of it was wrong: then `error` says which.
    void finished(const QString& error);

  private:
    void step();
    bool hasKeyboard();
    QString play(const QString& command, const QString& rest);

    QWidget& window_;
    QStringList script_;
    qsizetype next_ = 0;
    std::u32string toType_;  ///< what is left of a type command
    int patience_ = 1000;    ///< steps to wait for the keyboard
    QTimer timer_;
};
