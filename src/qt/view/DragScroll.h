// Repeats the last move of a mouse that is held beside the cells, so that dragging scrolls on.
#pragma once

#include <QTimer>
#include <functional>
#include <utility>

namespace kxVsGrid::qt {

class DragScroll : public QObject {
  public:
    explicit DragScroll(QObject* parent) : QObject(parent) {
        timer_.setInterval(IntervalMs);
        QObject::connect(&timer_, &QTimer::timeout, this, [this] {
            const auto again = again_;  // it may come to another move, or be the last thing done here
            again();
        });
    }

    /// After a move: `again` reports it once more, and says so here.
    void moved(bool scrolls, std::function<void()> again) {
        if (!scrolls) return stop();
        again_ = std::move(again);
        if (!timer_.isActive()) timer_.start();
    }
    void stop() { timer_.stop(); }

  private:
    static constexpr int IntervalMs = 50;

    QTimer timer_;
    std::function<void()> again_;
};
}  // namespace kxVsGrid::qt
