// Plays a script of keys to whoever has the keyboard, as a clerk would type them; for demonstrations,
// pictures and tests from outside. One command per line; empty lines and lines that begin with # are skipped:
//
//     type TEXT       the characters of the text, Chinese ones included
//     key NAME        one key: Enter, Tab, Shift+Tab, F2, Ctrl+S, Alt+F, Down, Esc, Space, ...
//     compose TEXT    an input method shows this text as being composed, in place of what it showed before
//     commit TEXT     it ends with this text; without one the composition is dropped
//     wait MS         lets so many milliseconds pass
//     size W H        makes the window so large
//     play FILE       plays another script, then goes on with this one
//     picture FILE [PART]
//                     saves a picture of the window as it is now, with the boxes, lists and menus in front of
//                     it. PART is "X Y W H", or "around MARGIN": what stands in front and what has the
//                     keyboard
//
// Sizes and places are pixels of the window before it is scaled, files are found from the current folder.
#pragma once

#include <QObject>
#include <QStringList>
#include <QTimer>
#include <QWidget>
#include <optional>
#include <string>

class KeyPlayer : public QObject {
    Q_OBJECT

  public:
    KeyPlayer(QWidget& window, QStringList script);
    void start();

    /// The lines of a script; nothing when the file cannot be read.
    static std::optional<QStringList> linesOf(const QString& file);

  signals:
    /// The whole script was played, or a line of it was wrong: then `error` says which.
    void finished(const QString& error);

  private:
    void step();
    bool hasKeyboard();
    QString play(const QString& command, const QString& rest);
    QString playOther(const QString& file);
    QString resize(const QString& size);

    QWidget& window_;
    QStringList script_;
    qsizetype next_ = 0;
    std::u32string toType_;  ///< what is left of a type command
    int patience_ = 1000;    ///< steps to wait for the keyboard
    QTimer timer_;
};
