// What a text box and its mirror ask and tell each other.
#pragma once

#include <QFocusEvent>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QString>
#include <QVariant>
#include <QWidget>
#include <optional>

#include "kxVsGrid/Command.h"
#include "kxVsGrid/Enumerations.h"

namespace kxVsGrid::qt {

/// What a text box asks and tells.
class BoxEvents {
  public:
    virtual ~BoxEvents() = default;
    /// A key, before the box acts on it. True when nothing is left to do.
    virtual bool keyDown(const QKeyEvent& event) = 0;
    /// The command that the key gives in the box.
    virtual std::optional<Command> commandOf(const QKeyEvent& event) const = 0;
    virtual void keyUp(const QKeyEvent& event) = 0;
    /// Brackets what the box does on behalf of the clerk; the outermost end looks at what has become of it.
    virtual void clerkActs(bool begins) = 0;
    virtual void inputMethod(QInputMethodEvent& event) = 0;
    virtual void focusGained() = 0;
    virtual void focusLost(const QFocusEvent& event) = 0;
    /// The caret is about to go where a composition cannot follow.
    virtual void endComposition() = 0;
    virtual bool leave(bool forward) = 0;
    virtual void menu(const QPoint& place) = 0;
    virtual void wheel(const QWheelEvent& event) = 0;
    virtual bool refused() const = 0;
    /// The clerk pastes the text in place of the selection; it is not in the box yet.
    virtual void pastes(const QString& text) { (void)text; }
};

/// A box's text and selection; positions in UTF-16 code units, lines end with a line feed.
struct BoxState {
    QString text;
    qsizetype start = 0;
    qsizetype length = 0;
    friend bool operator==(const BoxState&, const BoxState&) = default;
};

/// Either of the two.
class TextBoxPort {
  public:
    virtual ~TextBoxPort() = default;
    virtual QWidget& widget() = 0;
    virtual BoxState state() const = 0;
    virtual void setText(const QString& text) = 0;
    virtual void select(qsizetype start, qsizetype length) = 0;
    /// In place of the selection, as if typed.
    virtual void insert(const QString& text) = 0;
    /// From now on what the clerk enters shows full-width signs as their ASCII selves. What stands there stays.
    virtual void takePlainSigns(bool plain) = 0;
    virtual void setAlignment(mEmflexAlign alignment) = 0;
    virtual void applyInputMethod(QInputMethodEvent& event) = 0;
    virtual QVariant query(Qt::InputMethodQuery query) const = 0;
    /// Undo, redo, cut, copy, paste as the box's own keys do them.
    virtual void undo() = 0;
    virtual void redo() = 0;
    virtual void cut() = 0;
    virtual void copy() = 0;
    virtual void paste() = 0;
    void selectAll() { select(0, state().text.size()); }
    virtual bool canUndo() const = 0;
    virtual bool canRedo() const = 0;
};
}  // namespace kxVsGrid::qt
