// What the keys do that the editor takes for itself, and where the cursor goes after a commit.
#pragma once

#include <cstdint>

#include "editing/EditSession.h"
#include "kxVsGrid/Enumerations.h"

namespace kxVsGrid::editing {

class EditorKeys {
  public:
    EditorKeys(EditSession& session, const EditingContext& context) : session_(session), c_(context) {}

    /// True when the key was acted on; the text box must not see it then. Shift is not looked at.
    bool keyDown(Key key);

  private:
    bool multiLine() const;
    /// The key is for the lines of the text, not for the list or the cells.
    bool isTheTexts(Key key) const;
    bool page(std::ptrdiff_t suggestions);
    void escape();
    void enter();
    void up();
    void down();
    bool left();
    bool right();
    void focusToGrid() { c_.seat.giveFocus(FocusPlace::Grid); }

    EditSession& session_;
    const EditingContext& c_;
};
}  // namespace kxVsGrid::editing
