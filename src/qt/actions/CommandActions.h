// The control's commands as actions for menus and toolbars.
#pragma once

#include <QAction>
#include <QPointer>
#include <map>
#include <vector>

#include "kxVsGrid/Command.h"
#include "kxVsGrid/Event.h"

namespace kxVsGrid::qt {

class Stage;

class CommandActions {
  public:
    explicit CommandActions(Stage& stage) : stage_(stage) {}

    /// Made when first asked for, and again when it was deleted; the widget's child.
    QAction* action(Command command);
    /// Captions, states and keys follow the control.
    void refresh();
    /// Those of undo and redo, which a host's writes change without a word.
    void refreshWaysBack();

  private:
    void refresh(const std::vector<Command>& commands);

    Stage& stage_;
    std::map<Command, QPointer<QAction>> actions_;  ///< a host may delete them
    ScopedConnection changes_;
};
}  // namespace kxVsGrid::qt
