// The list of suggestions at a text box. It is a part of the window, above its other parts, and takes neither
// the keyboard nor a key.
//
// It belongs to the place where it came up: it goes when the text box goes or moves, and when the window moves,
// changes its size or is not the active one any more. Who owns the box puts the list away when the keyboard goes.
#pragma once

#include <QEvent>
#include <QListView>
#include <QMouseEvent>
#include <QPointer>
#include <functional>

#include "qt/suggestions/SuggestionPainter.h"
#include "qt/suggestions/SuggestionRows.h"

namespace kxVsGrid::qt {

class SuggestionBox : public QListView {
  public:
    static constexpr int MostRowsShown = 10;

    struct Acts {
        /// A row was pressed.
        std::function<void(std::size_t index)> pressed;
        /// It has gone by itself.
        std::function<void()> gone;
    };
    SuggestionBox(QWidget& window, Acts acts);

    /// Under the editor, above it where there is no room. The candidates have to stay until the next ones are
    /// put, or it is put away.
    void showAt(QWidget& editor, const SuggestionView& view);
    void putAway();
    /// Nothing is told any more.
    void forget() { acts_ = {}; }
    const SuggestionRows& rows() const { return rows_; }

  protected:
    bool eventFilter(QObject* object, QEvent* event) override;
    bool viewportEvent(QEvent* event) override;

  private:
    void watch(QWidget* editor);
    bool endsAt(const QObject& object, QEvent::Type type) const;
    void end();
    void adoptLook();
    void place();
    void moveTo(std::ptrdiff_t current);
    void press(const QMouseEvent& event);

    Acts acts_;
    SuggestionRows rows_{this};
    SuggestionPainter painter_{this};
    QPointer<QWidget> editor_;
    QList<QPointer<QWidget>> watched_;  ///< the editor and what it stands in
};
}  // namespace kxVsGrid::qt
