#include "qt/designer/SettingsCommand.h"

#include <QCoreApplication>
#include <QDesignerPropertyEditorInterface>
#include <algorithm>

#include "grid/Settings.h"
#include "qt/designer/FormSettings.h"
#include "qt/settings/PropertyValues.h"

namespace kxVsGrid::qt::designer {

GridState stateOf(kxGrid& grid) {
    // While settings could not be read anywhere in the process nothing is written.
    kxVsGrid::grid::SettingsLoading::giveUp();
    GridState state;
    grid.WriteProperties(state.settings);
    for (std::int32_t col = 0; col < grid.Cols(); ++col)
        state.definitions.push_back(*grid.VsCtrl(static_cast<std::int16_t>(col)));
    return state;
}

/// Of the form, only what the page has changed is touched, and what was missing: what else it holds may be
/// written differently there, or be a setting that is never read.
SettingsCommand::SettingsCommand(DesignedGrid& grid, const GridState& before, const GridState& after)
    : QUndoCommand(QCoreApplication::translate("kxVsGrid::qt::designer", "列设置")),
      grid_(&grid),
      before_(valuesOf(before.definitions)),
      after_(valuesOf(after.definitions)) {
    const FormSettings form(grid.core(), grid);
    for (const MemoryBag::Entry& entry : after.settings.entries()) {
        const QVariant held = form.value(entry.name);
        const Variant* old = before.settings.find(entry.name);
        const bool changed = old == nullptr || *old != entry.value;
        const bool missing = !held.isValid() && grid.holdsEveryKey();
        if (!changed && !missing) continue;
        keys_.push_back({entry.name, held, toProperty(entry.value)});
    }
}

SettingsCommand::Values SettingsCommand::valuesOf(const std::vector<cVsControl>& definitions) {
    Values values;
    for (const cVsControl& definition : definitions) {
        std::vector<Variant> column;
        for (const Member& member : cVsControl::members()) column.push_back(definition.Get(member.name));
        values.push_back(std::move(column));
    }
    return values;
}

void SettingsCommand::undo() {
    put(&Key::before, before_);
}

void SettingsCommand::redo() {
    put(&Key::after, after_);
}

void SettingsCommand::put(QVariant Key::*value, const Values& definitions) {
    if (!grid_) return;
    FormSettings form(grid_->core(), *grid_);
    for (const Key& key : keys_) form.put(key.name, key.*value);
    kxGrid& grid = grid_->grid();
    const std::size_t columns = std::min<std::size_t>(definitions.size(), grid.Cols());
    for (std::size_t col = 0; col < columns; ++col) {
        const auto definition = grid.VsCtrl(static_cast<std::int16_t>(col));
        const auto members = cVsControl::members();
        for (std::size_t i = 0; i < members.size(); ++i)
            definition->Put(members[i].name, definitions[col][i]);
    }
    grid.ReDraw(true);
    grid_->follow();
    QDesignerPropertyEditorInterface* editor = grid_->core().propertyEditor();
    if (editor != nullptr && editor->object() == grid_) editor->setObject(grid_);
}
}  // namespace kxVsGrid::qt::designer
