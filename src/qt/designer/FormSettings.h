// The settings of a grid as its form in the designer holds them: what the form's file carries under the
// stored keys. The designer's own property sheet is where they live; the grid on the form only shows them.
#pragma once

#include <QDesignerFormEditorInterface>
#include <QVariant>
#include <QWidget>
#include <string>

#include "kxVsGrid/MemoryBag.h"

class QDesignerDynamicPropertySheetExtension;
class QDesignerPropertySheetExtension;

namespace kxVsGrid::qt::designer {

class FormSettings {
  public:
    FormSettings(QDesignerFormEditorInterface& core, QWidget& grid);

    /// Every stored key that the form holds, with its value.
    MemoryBag read() const;
    /// The value under a stored key; an invalid one when the form holds none.
    QVariant value(const std::string& key) const;
    /// Puts a value; an invalid one removes the key from the form.
    void put(const std::string& key, const QVariant& value);

  private:
    bool isHeld(int index) const;

    QWidget& grid_;
    QDesignerPropertySheetExtension* sheet_;
    QDesignerDynamicPropertySheetExtension* dynamic_;
};
}  // namespace kxVsGrid::qt::designer
