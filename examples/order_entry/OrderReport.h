// Writes down what is on the screen: once at the beginning, and after each step of the clerk's. A program that is
// ended from outside has reported what it had done by then.
#pragma once

#include <QFile>
#include <vector>

#include "OrderWindow.h"

class OrderReport {
  public:
    /// One line of JSON each, behind those that are in the file; every line is given to the system at once.
    explicit OrderReport(const QString& file);

    bool isOpen() const { return file_.isOpen(); }
    /// The window must outlive this.
    void follow(OrderWindow& window);

  private:
    void write(const OrderWindow& window);

    QFile file_;
    std::vector<kxVsGrid::ScopedConnection> steps_;
};
