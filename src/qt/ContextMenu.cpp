#include "qt/ContextMenu.h"

#include <QMenu>
#include <QPointer>
#include <map>

#include "qt/text/Encoding.h"

namespace kxVsGrid::qt {
namespace {

using Choices = std::map<const QAction*, MenuChoice>;

/// Submenus belong to the menu that they hang under.
void fill(QMenu& shown, const Menu& menu, const std::string& array, const std::vector<MenuItem>& items,
          Choices& choices) {
    shown.setAttribute(Qt::WA_WindowPropagation);  // it wears the palette and the font of the grid
    for (const MenuItem& item : items) {
        if (!item.visible) continue;
        const Submenu* const under = array == menu.array ? menu.under(item.index) : nullptr;
        QAction* action = nullptr;
        if (item.caption == "-") {
            shown.addSeparator();
        } else if (under) {
            QMenu* const next = shown.addMenu(toQt(item.caption));
            fill(*next, menu, under->array, under->items, choices);
            action = next->menuAction();
        } else {
            action = shown.addAction(toQt(item.caption));
            choices[action] = {array, item.index};
        }
        if (action) action->setEnabled(item.enabled);
    }
    // Styles draw margins that grow with the font, and measure them without that: large texts would be cut.
    shown.setMinimumWidth(shown.sizeHint().width() + shown.fontMetrics().height());
}
}  // namespace

MenuChoice chooseFrom(const Menu& menu, const QList<QPointer<QAction>>& hosts, QWidget* widget,
                      const QPoint& place) {
    const QPointer<QMenu> shown(new QMenu(widget));
    Choices choices;
    shown->setSeparatorsCollapsible(true);
    fill(*shown, menu, menu.array, menu.items, choices);
    QAction* const ruler = shown->addSeparator();
    for (const QPointer<QAction>& action : hosts)
        if (action) shown->addAction(action);
    if (shown->actions().last() == ruler) delete ruler;
    const QAction* const chosen = shown->exec(place);
    const auto found = choices.find(chosen);
    delete shown.data();  // unless its widget was destroyed meanwhile
    return found == choices.end() ? std::nullopt : found->second;
}
}  // namespace kxVsGrid::qt
