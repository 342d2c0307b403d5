// The windows of the program: the one that it starts with, and one for each order that a crash has left unsaved.
#pragma once

#include <QSettings>
#include <functional>
#include <memory>
#include <vector>

#include "OrderWindow.h"

class OrderDesk {
  public:
    struct Services {
        QString database;
        OrderWindow::Clock clock;
        QString drafts;  ///< the folder of the drafts; without one none are kept
        std::function<std::unique_ptr<QSettings>()> settings;  ///< of each window
    };

    /// Shows the first window. `questions` must outlive this.
    OrderDesk(Services services, Questions& questions);

    /// Opens the database in the first window, and offers what was left behind: in the first window while
    /// nothing has been done in it, in others beside it.
    void start();

    OrderWindow& first() { return *windows_.front(); }
    /// Also those that have been closed.
    const std::vector<std::unique_ptr<OrderWindow>>& windows() const { return windows_; }

  private:
    std::unique_ptr<OrderWindow> make();
    void offer(const OrderDraft::Kept& kept);
    void offerBeside(const OrderDraft::Kept& kept);
    OrderWindow* recoverInWindow(const OrderDraft::Kept& kept);
    OrderWindow* recoverInNewWindow(const OrderDraft::Kept& kept);

    Services services_;
    Questions& questions_;
    std::vector<std::unique_ptr<OrderWindow>> windows_;
};
