// What becomes of a mouse press during which a modal box comes up. Qt forgets then who was pressed: without
// help the release reaches nobody, and the widget stays down.
#pragma once

#include <QMouseEvent>
#include <QObject>
#include <QWidget>
#include <functional>

namespace kxVsGrid::qt {

/// Made before a press is acted on; knows afterwards whether a modal box has come up before the window.
class BoxMeanwhile : public QObject {
  public:
    explicit BoxMeanwhile(const QWidget& pressed);
    explicit operator bool() const { return cameUp_; }

  protected:
    bool eventFilter(QObject* object, QEvent* event) override;

  private:
    bool cameUp_ = false;
};

/// Delivers the release that a press on `pressed` has lost, as soon as the press itself is done with.
void makeUpForRelease(QWidget& pressed, const QMouseEvent& press);

/// Does what the loss of the keyboard by a press (or by the wheel) asks for.
///
/// Qt moves the keyboard first and delivers the press right after. The work waits for the press: a box that
/// it opens stands outside of the move, where even a host that ends its window does no harm, and a press
/// whose text is refused can be held back. Deletes itself.
class AwaitedPress : public QObject {
  public:
    /// Is given the widget that is pressed, or nothing where no press comes; tells whether the press, and its
    /// release, may go there.
    using Work = std::function<bool(const QWidget* pressed)>;
    explicit AwaitedPress(Work work);
    ~AwaitedPress() override;

    /// The work is not to be done any more: the keyboard has come back, or the widget goes.
    void forget() { work_ = nullptr; }

  protected:
    bool eventFilter(QObject* object, QEvent* event) override;

  private:
    enum class State { Awaiting, Working, HoldingBack, Done };

    bool settle(QWidget& target, QEvent& event);
    bool holdBack(const QEvent& event);
    void end();

    Work work_;
    State state_ = State::Awaiting;
};
}  // namespace kxVsGrid::qt
