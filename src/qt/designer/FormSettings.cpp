#include "qt/designer/FormSettings.h"

#include <QDesignerDynamicPropertySheetExtension>
#include <QDesignerPropertySheetExtension>
#include <QExtensionManager>
#include <algorithm>

#include "kxVsGrid/StoredKeys.h"
#include "qt/settings/PropertyValues.h"
#include "qt/text/Encoding.h"

namespace kxVsGrid::qt::designer {
namespace {

bool isStoredKey(std::string_view name) {
    const auto keys = writtenGridKeys();
    const auto named = [name](const StoredKey& key) { return key.written == name; };
    return std::any_of(keys.begin(), keys.end(), named) || columnKeyParts(name).has_value();
}

}  // namespace

FormSettings::FormSettings(QDesignerFormEditorInterface& core, QWidget& grid)
    : grid_(grid),
      sheet_(qt_extension<QDesignerPropertySheetExtension*>(core.extensionManager(), &grid)),
      dynamic_(qt_extension<QDesignerDynamicPropertySheetExtension*>(core.extensionManager(), &grid)) {}

/// What the designer writes into the form's file.
bool FormSettings::isHeld(int index) const {
    return dynamic_->isDynamicProperty(index) ? sheet_->isVisible(index) : sheet_->isChanged(index);
}

MemoryBag FormSettings::read() const {
    MemoryBag settings;
    if (sheet_ == nullptr || dynamic_ == nullptr) return settings;
    for (int index = 0; index < sheet_->count(); ++index) {
        const QByteArray name = sheet_->propertyName(index).toUtf8();
        if (isStoredKey(name.toStdString()) && isHeld(index))
            settings.Write(name.toStdString(), fromProperty(grid_.property(name.constData())));
    }
    return settings;
}

QVariant FormSettings::value(const std::string& key) const {
    const int index = sheet_ != nullptr ? sheet_->indexOf(toQt(key)) : -1;
    if (index == -1 || dynamic_ == nullptr || !isHeld(index)) return {};
    return grid_.property(key.c_str());
}

void FormSettings::put(const std::string& key, const QVariant& value) {
    if (sheet_ == nullptr || dynamic_ == nullptr) return;
    const QString name = toQt(key);
    int index = sheet_->indexOf(name);
    const bool own = index != -1 && !dynamic_->isDynamicProperty(index) &&
                     grid_.metaObject()->indexOfProperty(key.c_str()) != -1;
    if (!value.isValid()) {
        if (own)
            sheet_->setChanged(index, false);
        else if (index != -1)
            dynamic_->removeDynamicProperty(index);
        return;
    }
    if (!own && dynamic_->canAddDynamicProperty(name)) index = dynamic_->addDynamicProperty(name, value);
    if (index == -1) return;
    sheet_->setProperty(index, value);
    sheet_->setChanged(index, true);
}
}  // namespace kxVsGrid::qt::designer
