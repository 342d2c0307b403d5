#include "kxVsGrid/qt/ShowForm.h"

#include "qt/forms/FormDialog.h"

namespace kxVsGrid::qt {

void showForm(QWidget* parent, Form& form) {
    runForm(parent, form, {});
}
}  // namespace kxVsGrid::qt
