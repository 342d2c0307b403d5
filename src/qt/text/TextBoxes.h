// The two text boxes that the editor is shown as: one line, several lines. Both tell the mirror what happens
// to them and leave every decision to it.
#pragma once

#include <QFocusEvent>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPlainTextEdit>

#include "kxVsGrid/Enumerations.h"

namespace kxVsGrid::qt {

/// What a text box asks and tells.
class BoxEvents {
  public:
    virtual ~BoxEvents() = default;
    /// A key, before the box acts on it. True when nothing is left to do.
    virtual bool keyDown(const QKeyEvent& event) = 0;
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
    virtual void setAlignment(mEmflexAlign alignment) = 0;
    virtual void applyInputMethod(QInputMethodEvent& event) = 0;
    virtual QVariant query(Qt::InputMethodQuery query) const = 0;
    /// Undo, redo, cut, copy, paste as the box's own keys do them.
    virtual void undo() = 0;
    virtual void redo() = 0;
    virtual void cut() = 0;
    virtual void copy() = 0;
    virtual void paste() = 0;
    virtual bool canUndo() const = 0;
    virtual bool canRedo() const = 0;
};

class LineBox : public QLineEdit, public TextBoxPort {
  public:
    LineBox(BoxEvents& events, QWidget* parent);

    QWidget& widget() override { return *this; }
    BoxState state() const override;
    void setText(const QString& text) override { QLineEdit::setText(text); }
    void select(qsizetype start, qsizetype length) override;
    void insert(const QString& text) override { QLineEdit::insert(text); }
    void setAlignment(mEmflexAlign alignment) override;
    void applyInputMethod(QInputMethodEvent& event) override { QLineEdit::inputMethodEvent(&event); }
    QVariant query(Qt::InputMethodQuery query) const override { return QLineEdit::inputMethodQuery(query); }
    void undo() override { QLineEdit::undo(); }
    void redo() override { QLineEdit::redo(); }
    void cut() override { QLineEdit::cut(); }
    void copy() override { QLineEdit::copy(); }
    /// Line ends of what is pasted become blanks; those at its end, which tables put there, are left out.
    void paste() override;
    bool canUndo() const override { return isUndoAvailable(); }
    bool canRedo() const override { return isRedoAvailable(); }

  protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    bool focusNextPrevChild(bool next) override;

  private:
    BoxEvents& events_;
};

class LinesBox : public QPlainTextEdit, public TextBoxPort {
  public:
    LinesBox(BoxEvents& events, QWidget* parent);

    QWidget& widget() override { return *this; }
    BoxState state() const override;
    void setText(const QString& text) override { setPlainText(text); }
    void select(qsizetype start, qsizetype length) override;
    void insert(const QString& text) override { insertPlainText(text); }
    void setAlignment(mEmflexAlign alignment) override;
    void applyInputMethod(QInputMethodEvent& event) override { QPlainTextEdit::inputMethodEvent(&event); }
    QVariant query(Qt::InputMethodQuery query) const override {
        return QPlainTextEdit::inputMethodQuery(query);
    }
    void undo() override { QPlainTextEdit::undo(); }
    void redo() override { QPlainTextEdit::redo(); }
    void cut() override { QPlainTextEdit::cut(); }
    void copy() override { QPlainTextEdit::copy(); }
    void paste() override { QPlainTextEdit::paste(); }
    bool canUndo() const override { return document()->isUndoAvailable(); }
    bool canRedo() const override { return document()->isRedoAvailable(); }

  protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    bool focusNextPrevChild(bool next) override;

  private:
    BoxEvents& events_;
};
}  // namespace kxVsGrid::qt
