// One Apply of the column page in the history of a form: what the form holds, and the definitions of the
// grid's columns, before and after.
#pragma once

#include <QPointer>
#include <QUndoCommand>
#include <QVariant>
#include <string>
#include <vector>

#include "kxVsGrid/MemoryBag.h"
#include "kxVsGrid/cVsControl.h"
#include "qt/designer/DesignedGrid.h"

namespace kxVsGrid::qt::designer {

/// What the grid on a form has been set to: the stored settings, and the definitions with what is not stored.
struct GridState {
    MemoryBag settings;
    std::vector<cVsControl> definitions;
};
GridState stateOf(kxGrid& grid);

class SettingsCommand : public QUndoCommand {
  public:
    /// The grid is in the state `after` already; pushing the command puts it into the form.
    SettingsCommand(DesignedGrid& grid, const GridState& before, const GridState& after);

    /// Nothing has been changed.
    bool isEmpty() const { return keys_.empty() && before_ == after_; }
    void undo() override;
    void redo() override;

  private:
    struct Key {
        std::string name;
        QVariant before;
        QVariant after;
    };
    using Values = std::vector<std::vector<Variant>>;

    static Values valuesOf(const std::vector<cVsControl>& definitions);
    void put(QVariant Key::*value, const Values& definitions);

    QPointer<DesignedGrid> grid_;
    std::vector<Key> keys_;  ///< those whose values the two differ in
    Values before_;          ///< of the definitions, in the order of their members
    Values after_;
};
}  // namespace kxVsGrid::qt::designer
