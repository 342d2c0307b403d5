// Mirrors the core's editor in a text box of one line or of several, and reports what the clerk does in it.
#pragma once

#include <QString>
#include <memory>
#include <optional>

#include "kxVsGrid/Platform.h"
#include "qt/text/BoxMirror.h"
#include "qt/text/Encoding.h"
#include "qt/text/TextBoxes.h"

namespace kxVsGrid::qt {

class Stage;

class EditorBox : private BoxMirror {
  public:
    EditorBox(Stage& stage, QWidget& parent);
    ~EditorBox() override;

    /// Mirrors the core's editor.
    void show(const EditorView& view);
    /// Places the box again after the screen's scale has changed.
    void place();
    bool visible() const { return view_.visible; }
    /// Why the text was refused, while that is to be shown.
    QString tip() const { return toQt(view_.tip); }
    /// The box that is or was shown last.
    QWidget& widget() const { return port_->widget(); }

    /// Types in place of the selection.
    void insert(const QString& text);
    /// Copy, Cut, Paste or SelectAll, as the box's own keys do it.
    void carryOut(Command command);

    // --- Input method, also for the grid, which composes in the box while it keeps the keyboard.
    void compose(QInputMethodEvent& event);
    bool composing() const { return composition_.underway(); }
    void endComposition() override { BoxMirror::endComposition(); }
    QVariant query(Qt::InputMethodQuery query) const;

  private:
    TextBoxPort& port() override { return *port_; }
    bool tell(const CoreText& told, bool sameText) override;
    const std::string& coreText() const override { return known_.text; }
    bool watching() const override { return view_.visible; }
    void textChanging(const QString& before) override;
    bool keyToCore(const QKeyEvent& event) override;
    std::optional<Command> commandOf(const QKeyEvent& event) const override;
    void keyUp(const QKeyEvent& event) override;
    void focusGained() override;
    void focusLost(const QFocusEvent& event) override;
    bool leave(bool forward) override;
    void wheel(const QWheelEvent& event) override;
    bool refused() const override { return view_.refused; }
    void pastes(const QString& text) override;

    void choose(bool multiLine);
    void hide();
    bool undoOrRedo(const QKeyEvent& event);
    void mirrorText(const EditorView& view);
    void mirrorSelection(const EditorView& view);
    void composes(bool underway) override;

    Stage& stage_;
    LineBox& line_;
    LinesBox* lines_ = nullptr;  // made when a column first needs it
    TextBoxPort* port_;
    EditorView view_;
    CoreText known_;  ///< what the box shows, in the core's own terms
};
}  // namespace kxVsGrid::qt
