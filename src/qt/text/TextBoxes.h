// The two text boxes that the editor is shown as: one line, several lines.
#pragma once

#include <QLineEdit>
#include <QPlainTextEdit>

#include "qt/text/ClerkBox.h"

namespace kxVsGrid::qt {

class LineBox : public ClerkBox<QLineEdit> {
  public:
    LineBox(BoxEvents& events, QWidget* parent);

    BoxState state() const override;
    void setText(const QString& text) override { QLineEdit::setText(text); }
    void select(qsizetype start, qsizetype length) override;
    void insert(const QString& text) override { QLineEdit::insert(text); }
    void setAlignment(mEmflexAlign alignment) override;
    /// Line ends of what is pasted become blanks; those at its end, which tables put there, are left out.
    void paste() override;
    bool canUndo() const override { return isUndoAvailable(); }
    bool canRedo() const override { return isRedoAvailable(); }

  protected:
    bool takeKey(QKeyEvent& key) override;
    void loseFocus(QFocusEvent& event) override;
};

class LinesBox : public ClerkBox<QPlainTextEdit> {
  public:
    LinesBox(BoxEvents& events, QWidget* parent);

    BoxState state() const override;
    void setText(const QString& text) override { setPlainText(text); }
    void select(qsizetype start, qsizetype length) override;
    void insert(const QString& text) override { insertPlainText(text); }
    void setAlignment(mEmflexAlign alignment) override;
    bool canUndo() const override { return document()->isUndoAvailable(); }
    bool canRedo() const override { return document()->isRedoAvailable(); }

  protected:
    QWidget& surface() override { return *viewport(); }
    void insertFromMimeData(const QMimeData* source) override;
};
}  // namespace kxVsGrid::qt
