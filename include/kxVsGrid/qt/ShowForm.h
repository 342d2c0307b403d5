// Shows a dialog of the library's, for example the column page, in a window of its own.
//
//     kxVsGrid::GridColumns columns(widget->grid());
//     kxVsGrid::ControlPage page;
//     page.select({&columns});
//     kxVsGrid::qt::showForm(this, page);
#pragma once

#include <QWidget>

#ifndef Q_MOC_RUN  // whose scanner knows no names beyond ASCII
#include "kxVsGrid/Form.h"
#endif

namespace kxVsGrid::qt {

/// Shows the form in the middle of the window of `parent`, in its font and palette, modal to the program, and
/// returns when it has closed. Without a parent it stands in the middle of the screen. What the form's code
/// throws goes on to the caller.
void showForm(QWidget* parent, Form& form);
}  // namespace kxVsGrid::qt
