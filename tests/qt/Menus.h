// Menus that pop up in front of the tests' window: what was seen of each, and what the clerk does with it.
#pragma once

#include <QMenu>
#include <QPointer>
#include <QTimer>
#include <functional>
#include <stdexcept>

#include "qt/Window.h"

namespace kxVsGrid::qt::testing {

/// What the clerk does with every menu that pops up, and what was seen of it.
class Menus : public QObject {
  public:
    using Act = std::function<void(QMenu&)>;

    explicit Menus(Act act) : act_(std::move(act)) { qApp->installEventFilter(this); }

    std::vector<QStringList> seen;
    QPoint place;

  protected:
    bool eventFilter(QObject* object, QEvent* event) override {
        auto* menu = qobject_cast<QMenu*>(object);
        if (menu && event->type() == QEvent::Show && !qobject_cast<QMenu*>(menu->parentWidget()))
            QTimer::singleShot(0, menu, [this, menu] { opened(*menu); });
        return QObject::eventFilter(object, event);
    }

  private:
    void opened(QMenu& menu) {
        QStringList texts;
        for (const QAction* action : menu.actions())
            texts << (action->isSeparator() ? QStringLiteral("-") : action->text());
        seen.push_back(texts);
        place = menu.pos();
        const QPointer<QMenu> shown(&menu);
        act_(menu);
        if (shown) shown->close();
    }
    Act act_;
};

inline QAction& item(QMenu& menu, const QString& text) {
    for (QAction* action : menu.actions())
        if (action->text() == text) return *action;
    throw std::logic_error("the menu has no such item");
}

inline void chooseByKeys(QMenu& menu, const QString& text) {
    menu.setActiveAction(&item(menu, text));
    QTest::keyClick(&menu, Qt::Key_Return);
}

/// Fills the column with copies, by keys.
inline void chooseCopies(QMenu& menu) {
    QMenu* fills = item(menu, "填充列").menu();
    menu.setActiveAction(fills->menuAction());
    QTest::keyClick(&menu, Qt::Key_Right);
    QTest::keyClick(fills, Qt::Key_C);
}

inline void rightClick(Window& w, std::int32_t row, std::int32_t col, Qt::KeyboardModifiers modifiers = {}) {
    QTest::mouseClick(&w.view(), Qt::RightButton, modifiers, w.at(row, col));
}
}  // namespace kxVsGrid::qt::testing
