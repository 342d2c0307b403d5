#include "qt/actions/CommandActions.h"

#include <QIcon>

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
    for (const auto& [command, action] : actions_) {
        if (!action) continue;
        // A step's name marks no letter of the menu's.
        action->setText(toQt(stage_.grid().Commands().Caption(command)).replace(u'&', QStringLiteral("&&")));
        action->setEnabled(stage_.grid().CanRun(command));
        const QList<QKeySequence> keys = sequencesOf(command, stage_.grid().Commands());
        if (action->shortcuts() != keys) action->setShortcuts(keys);
    }
}
}  // namespace kxVsGrid::qt
