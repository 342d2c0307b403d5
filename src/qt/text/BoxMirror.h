// The mirror between a text box and the core, whichever window it stands in.
//
// The core owns text and selection. What it shows is put into the box; only what the clerk changes is told, so
// that a text nobody touched keeps its bytes. While an input method composes nothing is told, and keys are the
// input method's; the committed text counts as one edit, a dropped one as none.
#pragma once

#include <cstddef>
#include <string>

#include "qt/KeyMap.h"
#include "qt/text/BoxEvents.h"
#include "qt/text/Composition.h"
#include "qt/text/Encoding.h"

namespace kxVsGrid::qt {

/// A box's text and selection in the core's own terms.
struct CoreText {
    std::string text;
    std::size_t selStart = 0;  ///< in characters
    std::size_t selLength = 0;
    friend bool operator==(const CoreText&, const CoreText&) = default;
};

class BoxMirror : protected BoxEvents, protected Composition::Listener {
  protected:
    virtual TextBoxPort& port() = 0;
    /// Tells the core what the clerk has changed; of the selection alone, `told` has the text as the core knows
    /// it. False when the mirror was destroyed meanwhile.
    virtual bool tell(const CoreText& told, bool sameText) = 0;
    /// The text as the core knows it.
    virtual const std::string& coreText() const = 0;
    /// The box shows what the core has given it.
    virtual bool watching() const { return true; }
    /// The text has become another one and is about to be told; it was `before`.
    virtual void textChanging(const QString& before) { (void)before; }
    /// A key that no input method takes. True when nothing is left to do.
    virtual bool keyToCore(const QKeyEvent& event) = 0;

    void clerkActs(bool begins) override;
    bool keyDown(const QKeyEvent& event) override;
    std::optional<Command> commandOf(const QKeyEvent& event) const override {
        return desktopCommandOf(event, CommandKey::Where::EditorToo);
    }
    void inputMethod(QInputMethodEvent& event) override;
    /// Commits what is being composed, exactly once.
    void endComposition() override;
    void menu(const QPoint& place) override;
    void composes(bool underway) override { (void)underway; }
    bool committed() override;

    /// Puts a text of the core's into the box.
    void put(const QString& text);
    CoreText known(const BoxState& state) const;

    Composition composition_{*this};
    BoxState shown_;  ///< of the box, as the core knows it
    LineEnds lineEnds_ = LineEnds::Single;
    bool mirroring_ = false;

  private:
    bool look();

    int acting_ = 0;
};
}  // namespace kxVsGrid::qt
