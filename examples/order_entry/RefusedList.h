// What was not written when a block was pasted or filled: a list below the lines, cell by cell with the reasons. It
// takes no keyboard of itself; a cell that has been put right leaves it.
#pragma once

#include <QFrame>
#include <QTimer>
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

    /// Takes the place of what was told before; nothing where nothing was refused.
    void tell(const kxVsGrid::PasteReport& report);
    /// The grid may have changed: once it has come to rest, cells that are right by now, and rows that have gone,
    /// leave the list, which goes with the last of them.
    void follow();
    /// Gives it the keyboard when there is something in it.
    void enter();
    void clear();

  signals:
    /// The clerk wants to go to a cell.
    void chosen(std::int32_t row, std::int32_t col);
    /// The clerk has closed it.
    void closed();

  protected:
    void keyPressEvent(QKeyEvent* event) override;

  private:
    void fill();
    void removeMended();
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
