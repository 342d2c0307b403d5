// What the machine shows of the editor: the text box over the current cell, and its help button.
#pragma once

#include <string_view>

#include "editing/EditingContext.h"
#include "editing/TextBox.h"

namespace kxVsGrid::editing {

class EditorFace {
  public:
    explicit EditorFace(const EditingContext& context) : c_(context) {}

    const EditorView& view() const { return view_; }

    /// Shows the text box over the current cell, which there is. A refused text is framed; a tip says why.
    void show(const TextBox& box, bool refused, std::string_view tip);
    void hide();
    /// The clerk has typed or selected: the machine shows that already.
    void follow(const TextBox& box);
    /// The help button stands where the text needs the room: the face has to be shown anew.
    bool buttonInTheWay() const;
    /// Another text begins.
    void begin() { buttonOutside_ = false; }
    /// The current cell is no longer where the box was put over it.
    bool misplaced() const;

  private:
    void placeWithButton(EditorView& view, std::string_view text);

    EditingContext c_;
    EditorView view_;
    Rect placedOver_;             ///< the cell, as it was when the editor was placed last
    bool buttonOutside_ = false;  ///< the help button has been put beside the cell
};
}  // namespace kxVsGrid::editing
