#include "qt/actions/CommandActions.h"

#include <QIcon>
#include <memory>

#include "kxVsGrid/qt/kxGridWidget.h"
#include "qt/KeyMap.h"
#include "qt/Stage.h"
#include "qt/text/Encoding.h"

namespace kxVsGrid::qt {

QAction* CommandActions::action(Command command) {
    QPointer<QAction>& action = actions_[command];
    if (action) return action;
    if (!changes_.connected()) changes_ = stage_.grid().Commands().Changed.connect([this] { refresh(); });
    action =
        new QAction(QIcon::fromTheme(toQt(iconNameOf(command))), toQt(captionOf(command)), &stage_.widget());
    action->setIconText(action->text());  // a toolbar keeps its width whatever the step is called
    // The grid takes the keys itself; in the text fields beside it they are the text's own.
    action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
    QObject::connect(action, &QAction::triggered, &stage_.widget(),
                     [this, command] { stage_.guarded([&](Input& input) { input.command(command); }); });
    refresh();
    return action;
}

void CommandActions::refresh() {
    std::vector<Command> asked;
    for (const auto& [command, action] : actions_) asked.push_back(command);
    refresh(asked);
}

void CommandActions::refreshWaysBack() {
    refresh({Command::Undo, Command::Redo});
}

/// A host that is asked whether a cell can be edited may delete actions, or the widget.
void CommandActions::refresh(const std::vector<Command>& commands) {
    const std::shared_ptr<Machine> machine = stage_.machine();
    for (const Command command : commands) {
        const auto known = actions_.find(command);
        if (known == actions_.end() || !known->second) continue;
        const QPointer<QAction> action = known->second;
        const bool can = machine->grid->CanRun(command);
        if (machine->stage == nullptr) return;
        if (!action) continue;
        // A step's name marks no letter of the menu's.
        action->setText(toQt(machine->grid->Commands().Caption(command)).replace(u'&', QStringLiteral("&&")));
        // Without a tip of its own it has its text.
        action->setToolTip(toQt(machine->grid->Commands().WhyNot(command)));
        action->setEnabled(can);
        const QList<QKeySequence> keys = sequencesOf(command, machine->grid->Commands());
        if (action && action->shortcuts() != keys) action->setShortcuts(keys);
    }
}
}  // namespace kxVsGrid::qt
