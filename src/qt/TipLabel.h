// A text of the control's own in the look of a tool tip, beside what it is about.
#pragma once

#include <QLabel>
#include <initializer_list>
#include <memory>
#include <optional>
#include <vector>

class QTextLayout;

namespace kxVsGrid::qt {

/// Plain text; presses go through it, and it takes neither the keyboard nor a key. A long text is broken into lines, also
/// within a word that is longer than a line.
class TipLabel : public QLabel {
  public:
    explicit TipLabel(QWidget* parent);
    ~TipLabel() override;

  protected:
    /// Shows the text under `anchor` (on the screen), above it where there is no room, at the next place where it can be
    /// read whole: in one of `homes`, in the order given; else as a window of its own on the screen. Screen readers
    /// are alerted when it was not there before.
    void showBeside(const QRect& anchor, int gap, const QString& text, std::initializer_list<QWidget*> homes);
    /// Tells screen readers that the text has come up.
    virtual void announce();
    void paintEvent(QPaintEvent* event) override;

  private:
    QSize breakLines(int width);
    int naturalWidth() const;
    QMargins around() const;
    void settleBeside(const QRect& anchor, int gap, std::initializer_list<QWidget*> homes);
    std::optional<QRect> placeIn(const QRect& room, const QRect& anchor, int gap, int width);
    void settleIn(QWidget* home, const QRect& place);

    std::vector<std::unique_ptr<QTextLayout>> paragraphs_;
};
}  // namespace kxVsGrid::qt
