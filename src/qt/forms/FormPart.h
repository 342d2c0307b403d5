// The native control that stands for one control of a form.
#pragma once

#include <QWidget>
#include <functional>

#include "kxVsGrid/Form.h"

namespace kxVsGrid::qt {

class FormDialog;

struct FormPart {
    FormControl* control = nullptr;
    QWidget* widget = nullptr;
    /// The one of its widgets that gets the keys, where it does not offer them to the form itself.
    QWidget* keys = nullptr;
    /// Shows what is particular to the type: caption, text, value.
    std::function<void()> mirror = [] {};
    /// Takes over what is half typed, before a key is acted on.
    std::function<void()> takeTyped = [] {};
};

/// A child of the dialog; without a widget for a type that is not shown.
FormPart makePart(FormDialog& dialog, FormControl& control);
/// The month calendar.
FormPart makeCalendar(FormDialog& dialog, FormControl& control);
}  // namespace kxVsGrid::qt
