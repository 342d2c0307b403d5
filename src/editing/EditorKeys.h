// What the keys do that the editor takes for itself, and where the cursor goes after a commit.
#pragma once

#include <cstdint>

#include "editing/Editor.h"
#include "kxVsGrid/Enumerations.h"

namespace kxVsGrid::editing {

class EditorKeys {
  public:
    explicit EditorKeys(Editor& editor) : editor_(editor) {}

    /// True when the key was acted on; the text box must not see it then. Shift is not looked at.
    bool keyDown(Key key);

  private:
    bool multiLine() const;
    void escape();
    void enter();
    void up();
    void down();
    bool left();
    bool right();
    /// Commits. Refused, it leaves the focus with the editor.
    bool commitOnKey();
    void focusToGrid();

    Editor& editor_;
};
}  // namespace kxVsGrid::editing
