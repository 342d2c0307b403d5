// Mirrors the core's editor in a text box, and reports what the clerk does in it.
//
// The core owns text and selection. What it shows is put into the box; only what the clerk changes is
// reported, so that a text nobody touched keeps its bytes. While an input method composes nothing is
// reported; the committed text counts as one edit, a dropped one as none.
#pragma once

#include <QString>
#include <memory>
#include <optional>

#include "kxVsGrid/Platform.h"
#include "qt/Composition.h"
#include "qt/Encoding.h"
#include "qt/TextBoxes.h"

namespace kxVsGrid::qt {

class Stage;

class EditorBox : private BoxEvents, private Composition::Listener {
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

    /// Types or pastes in place of the selection.
    void insert(const QString& text);
    void paste();

    // --- Input method, also for the grid, which composes in the box while it keeps the keyboard.
    void compose(QInputMethodEvent& event);
    bool composing() const { return composition_.underway(); }
    /// Commits what is being composed, exactly once.
    void endComposition() override;
    QVariant query(Qt::InputMethodQuery query) const;

  private:
    struct Known {
        std::string text;
        std::size_t selStart = 0;
        std::size_t selLength = 0;
        friend bool operator==(const Known&, const Known&) = default;
    };

    bool keyDown(const QKeyEvent& event) override;
    void keyUp(const QKeyEvent& event) override;
    void clerkActs(bool begins) override;
    void inputMethod(QInputMethodEvent& event) override;
    void focusGained() override;
    void focusLost(const QFocusEvent& event) override;
    bool leave(bool forward) override;
    void menu(const QPoint& place) override;
    void wheel(const QWheelEvent& event) override;
    bool refused() const override { return view_.refused; }

    void choose(bool multiLine);
    void hide();
    void mirrorText(const EditorView& view);
    void mirrorSelection(const EditorView& view);
    bool look();
    void limitTyping(const QString& before);
    Known known(const BoxState& state) const;
    bool report();
    void composes(bool underway) override;
    bool committed() override;

    Stage& stage_;
    LineBox& line_;
    LinesBox* lines_ = nullptr;  // made when a column first needs it
    TextBoxPort* port_;
    EditorView view_;
    LineEnds lineEnds_ = LineEnds::Single;
    BoxState shown_;  ///< of the box, as the core knows it
    Known known_;     ///< the same in the core's own terms
    int acting_ = 0;
    bool mirroring_ = false;
    Composition composition_{*this};
};
}  // namespace kxVsGrid::qt
