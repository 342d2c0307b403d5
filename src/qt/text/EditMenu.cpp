#include "qt/text/EditMenu.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMenu>
#include <functional>

#include "qt/Wording.h"
#include "qt/text/BoxParts.h"

namespace kxVsGrid::qt {

void showEditMenu(TextBoxPort& box, BoxEvents& events, const QPoint& place) {
    const BoxState state = box.state();
    const bool selected = state.length > 0;
    auto* menu = new QMenu(&box.widget());
    menu->setAttribute(Qt::WA_DeleteOnClose);
    const auto add = [&](const QString& caption, bool enabled, const std::function<void()>& work) {
        QAction* action = menu->addAction(caption);
        action->setEnabled(enabled);
        QObject::connect(action, &QAction::triggered, &box.widget(),
                         [&events, &box, work] { asClerk(events, box.widget(), work); });
    };
    add(wording::Undo, box.canUndo(), [&box] { box.undo(); });
    add(wording::Redo, box.canRedo(), [&box] { box.redo(); });
    menu->addSeparator();
    add(wording::Cut, selected, [&box] { box.cut(); });
    add(wording::Copy, selected, [&box] { box.copy(); });
    add(wording::Paste, !QGuiApplication::clipboard()->text().isEmpty(), [&box] { box.paste(); });
    add(wording::Delete, selected, [&box] { box.insert({}); });
    menu->addSeparator();
    add(wording::SelectAll, !state.text.isEmpty(), [&box] { box.selectAll(); });
    menu->popup(place);
}
}  // namespace kxVsGrid::qt
