#include "editing/EditorFace.h"

#include <limits>

#include "editing/EditorPlaces.h"
#include "editing/InputForms.h"

namespace kxVsGrid::editing {

void EditorFace::show(const TextBox& box, bool refused, std::string_view tip) {
    const CellGrid& grid = c_.grid;
    const cVsControl& column = c_.columns.at(grid.Col());
    EditorView view;
    view.visible = true;
    view.helpButton = column.b是否提供帮助();
    view.multiLine = column.b是否编辑多行();
    view.limit = column.iLimitLength();
    view.readsDigits = column.iType() == flexDTDouble || column.iType() == flexDTDate;
    view.plainSigns = takesPlainSigns(column);
    view.refused = refused;
    view.tip = tip;
    view.alignment = grid.EffectiveAlignment(grid.Row(), grid.Col());
    view.rect = grid.CellRect(grid.Row(), grid.Col());
    if (view.rect != placedOver_) buttonOutside_ = false;
    placedOver_ = view.rect;
    if (view.helpButton) placeWithButton(view, box.text());
    view.text = box.text();
    view.selStart = box.selStart();
    view.selLength = box.selLength();
    view_ = view;
    c_.seat.showEditor(view_);
}

void EditorFace::hide() {
    view_ = {};
    c_.seat.showEditor(view_);
}

void EditorFace::follow(const TextBox& box) {
    view_.text = box.text();
    view_.selStart = box.selStart();
    view_.selLength = box.selLength();
}

bool EditorFace::misplaced() const {
    return c_.grid.CellRect(c_.grid.Row(), c_.grid.Col()) != placedOver_;
}

/// A button that has made room for a long text stays where it is: it shall not jump while the clerk types.
void EditorFace::placeWithButton(EditorView& view, std::string_view text) {
    const Rect client{0, 0, c_.grid.ClientWidth(), c_.grid.ClientHeight()};
    const std::int32_t needed = buttonOutside_ ? std::numeric_limits<std::int32_t>::max()
                                               : roomForText(c_.platform.textMetrics(), text);
    const EditorPlaces places = placesWithButton(placedOver_, client, needed);
    view.rect = places.text;
    view.helpRect = places.button;
    buttonOutside_ = places.outside;
}

bool EditorFace::buttonInTheWay() const {
    return view_.visible && view_.helpButton && !buttonOutside_ &&
           roomForText(c_.platform.textMetrics(), view_.text) > view_.rect.width;
}
}  // namespace kxVsGrid::editing
