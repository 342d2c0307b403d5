// Keeps the controls of a form in proportion when the form is resized.
//
//     cResize resize;
//     resize.py_Init(form);            // once, when the controls stand where they were designed
//     resize.ResizeForm(form);         // whenever the form has another size
//
// Labels, check boxes, option buttons and shapes only move; text-like controls stretch in width; everything
// else stretches both ways. The recorded places are kept in the controls' `Tag`, whose former content is
// lost.
#pragma once

#include <cstdint>

#include "kxVsGrid/Form.h"

namespace kxVsGrid {

class cResize {
  public:
    /// False: ResizeForm does nothing.
    bool py_bIsCanResize() const { return canResize_; }
    void py_bIsCanResize(bool value) { canResize_ = value; }

    /// Records the form's present inner size and the place of each of its controls. Sizes other than 0 are
    /// recorded instead of the form's own (twips).
    void py_Init(Form& form, std::int32_t height = 0, std::int32_t width = 0);
    /// Moves and stretches the controls to the form's present inner size. A control whose Tag does not hold
    /// its record is left where it is.
    void ResizeForm(Form& form) const;
    /// The place of a form of this outer size in the middle of `screen`; its left top where it is larger.
    static Rect sbFormCenter(std::int32_t width, std::int32_t height, const Rect& screen);

  private:
    bool canResize_ = true;
    std::int32_t height_ = 0;
    std::int32_t width_ = 0;
};
}  // namespace kxVsGrid
