// What was not written when blocks were pasted or filled: a list below the lines, cell by cell with the reasons. It
// takes no keyboard of itself; a cell that has been put right leaves it. Closed, it can be opened again.
#pragma once

#include <QFrame>
#include <QTimer>
#include <optional>
#include <vector>

#ifndef Q_MOC_RUN  // moc reads no Chinese identifiers
#include "kxVsGrid/kxGrid.h"
#endif

class QLabel;
class QTreeWidget;

class RefusedList : public QFrame {
    Q_OBJECT

  public:
    /// Not shown until there is something to tell. The grid must outlive what is told of it.
    RefusedList(kxVsGrid::kxGrid& grid, QWidget* parent);

    /// Adds what was refused to what is still open of earlier blocks; of one cell the last refusal counts.
    void tell(const kxVsGrid::PasteReport& report);
    /// The grid may have changed: once it has come to rest, cells that are right by now, and rows that have gone,
    /// leave the list, which goes with the last of them.
    void follow();
    /// Shows it, also when it was closed, and gives it the keyboard, when there is something in it.
    void enter();
    void clear();

  signals:
    /// The clerk wants to go to a cell.
    void chosen(std::int32_t row, std::int32_t col);
    /// The clerk has closed it, or it has gone while it had the keyboard.
    void closed();
    /// The clerk wants the next problem, or the way back or forth, while the keyboard is here.
    void asksFor(kxVsGrid::Command command);
    /// There is something to be shown, or there is nothing any more.
    void holdsSomething(bool something);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

  private:
    bool isMended(const kxVsGrid::PasteReport::Refusal& entry) const;
    void dropReplaced(const kxVsGrid::PasteReport& report);
    void fill();
    void removeMended();
    void copy() const;
    std::optional<kxVsGrid::Command> commandOf(const QKeyEvent& event) const;
    void leave();
    void choose();
    void close();
    void clearMarks();

    kxVsGrid::kxGrid& grid_;
    std::vector<kxVsGrid::PasteReport::Refusal> entries_;
    std::int64_t unlisted_ = 0;
    QLabel* title_;
    QTreeWidget* list_;
    QTimer later_;
};
