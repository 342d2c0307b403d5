// The control's commands as actions for menus and toolbars.
#pragma once

#include <QAction>
#include <map>

#include "kxVsGrid/Command.h"
#include "kxVsGrid/Event.h"

namespace kxVsGrid::qt {

class Stage;

class CommandActions {
  public:
    explicit CommandActions(Stage& stage) : stage_(stage) {}

    /// Made when first asked for; the widget's child.
    QAction* action(Command command);
    /// Captions and states follow the control.
    void refresh();

  private:
    Stage& stage_;
    std::map<Command, QAction*> actions_;
    ScopedConnection changes_;
};
}  // namespace kxVsGrid::qt
