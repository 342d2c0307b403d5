// Message boxes in front of the tests' window: what was seen of each, and how the clerk closes it.
#pragma once

#include <QMessageBox>
#include <functional>
#include <vector>

#include "qt/Window.h"

namespace kxVsGrid::qt::testing {

/// Notes every message box that comes up, and closes it as the clerk of the test does.
class Boxes : public QObject {
  public:
    /// What a box looked like while it stood open.
    struct Seen {
        QMessageBox::Icon icon = QMessageBox::NoIcon;
        QString title;
        QString text;
        QStringList buttons;
        QRect place;  ///< on the screen
        const QWidget* parent = nullptr;
        bool modal = false;
        bool inFront = false;    ///< it is the active window
        bool okFocused = false;  ///< its button has the keyboard
    };
    using Act = std::function<void(QMessageBox&)>;

    explicit Boxes(Act close = enter);
    ~Boxes() override;

    std::vector<Seen> seen;
    /// Called once for each box, from the event loop that the box runs.
    Act close;

    std::size_t count() const { return seen.size(); }
    QStringList texts() const;

    // --- How a clerk closes a box.
    static void enter(QMessageBox& box);
    static void keypadEnter(QMessageBox& box);
    static void space(QMessageBox& box);
    static void escape(QMessageBox& box);
    static void frame(QMessageBox& box);
    static void clickOk(QMessageBox& box);

  protected:
    bool eventFilter(QObject* object, QEvent* event) override;

  private:
    void opened(QMessageBox& box);
};
}  // namespace kxVsGrid::qt::testing
