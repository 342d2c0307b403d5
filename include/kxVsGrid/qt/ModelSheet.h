// A Qt model shown and edited in a grid: a table of a database by QSqlTableModel, any other model of rows and columns,
// a proxy.
//
//     auto* sheet = new kxVsGrid::qt::ModelSheet(widget->grid(), *model, this);
//     sheet->column("code").caption("货号").width("A0000000").required();
//     sheet->column("name").caption("品名").stretch();
//     sheet->column("price").caption("单价").decimals(2);
//     sheet->column("arrived").caption("到货日期").date();
//     sheet->setReason([this] { return whyTheModelRefused(); });  // of a QSqlTableModel: lastError().databaseText()
//
// Rows below the root are rows of the grid, and one more to key on in. What the clerk does goes to the model when his
// step ends, undo and redo alike: changed cells by setData, removed rows by removeRows. A new row goes there whole,
// by insertRow and setData for each filled cell, when he leaves it; one that was pasted, or brought back by undo, at
// once. When he leaves a row that was changed, the model is asked to submit(). What the model makes of a value is
// what the cell holds then. What it refuses is put back, with the reason as a mark on the cell; a new row that it
// refuses stays as it was typed, bears the mark, and is tried again when he has changed it and leaves it, and by
// submit().
//
// What becomes of the model is shown at once, and is no step: undo goes back over what the clerk has done, and passes
// over rows that have gone.
//
// Nothing is copied up front. Texts are fetched where the clerk looks, the rest in idle time, with what the model
// itself fetches only when asked (canFetchMore). Sorting, filters and totals wait until all is there; selecting,
// searching and fills fetch what they need. Code that looks at cells far from the clerk calls fetchAll() before.
//
// The grid must have no other owner. Grid and model may be destroyed before the sheet: what is shown stays then, and
// nothing can be edited. GridError for what does not fit; no slot throws.
#pragma once

#include <QAbstractItemModel>
#include <QObject>
#include <QString>
#include <functional>
#include <memory>

#ifndef Q_MOC_RUN  // whose scanner knows no names beyond ASCII
#include "kxVsGrid/kxGrid.h"
#endif

namespace kxVsGrid::qt {

class ModelColumn;

class ModelSheet : public QObject {
    Q_OBJECT

  public:
    /// GridError when the grid has an owner already.
    ModelSheet(kxGrid& grid, QAbstractItemModel& model, QObject* parent = nullptr);
    ~ModelSheet() override;

    /// A column of the model, to say how it is shown; by the text of its header before any caption is given here, or
    /// by its number. Words count at once. GridError for one that is none.
    ModelColumn column(const QString& name);
    ModelColumn column(int index);

    /// Whether rows may come and go here, as far as the model lets them. True at first.
    void mayInsert(bool may);
    void mayRemove(bool may);
    /// Why the model has just refused something, in words for the clerk; an empty text or function: the sheet's own.
    void setReason(std::function<QString()> reason);

    /// Takes over what is being typed, hands over what waits, new rows too, those that were refused among them, and
    /// has the model submit. False when something was refused, or cannot be taken over.
    bool submit();
    /// Rows were typed that the model does not have.
    bool hasUnsent() const;

    /// All texts are there.
    bool whole() const;
    /// Fetches them now. Takes a time that grows with the cells of the model.
    void fetchAll();

    /// Where a cell of the model is in the grid; -1 where it is not.
    std::int32_t gridRow(const QModelIndex& index) const;
    std::int32_t gridCol(const QModelIndex& index) const;
    /// Of a cell of the grid; invalid for headings and rows that the model does not have.
    QModelIndex indexAt(std::int32_t row, std::int32_t col) const;

  Q_SIGNALS:
    /// The model did not take something; the cell of the grid that bears the mark, and the reason.
    void refused(int row, int col, const QString& reason);
    /// All texts are there, for the first time or again.
    void fetched();

  private:
    class Link;
    friend class Link;
    friend class ModelColumn;
    std::shared_ptr<Link> link_;  // a call of it may be underway when the sheet goes
};

/// What is said of a column. Each word answers the column itself. Nothing happens when the sheet or its grid has gone.
class ModelColumn {
  public:
    ModelColumn& caption(const QString& text);
    /// What the values are; without it a few of them say it: numbers, truth values, dates and times, else texts.
    ModelColumn& text();
    ModelColumn& number();
    ModelColumn& date();
    ModelColumn& moment();
    ModelColumn& flag();
    /// The clerk cannot type there.
    ModelColumn& readOnly();
    ModelColumn& hidden();
    /// An empty cell is refused.
    ModelColumn& required();
    /// An emptied cell is an empty text to the model; without it no value at all (a null).
    ModelColumn& keepsEmpty();
    /// Numbers are rounded to so many decimals when they are entered, and shown with them.
    ModelColumn& decimals(int count);
    /// The smallest number that can be typed.
    ModelColumn& least(double number);
    /// How the values are shown (kxGrid::ColFormat), where decimals() is not enough. GridError for no format.
    ModelColumn& format(const QString& pattern);
    /// In twips, or as wide as a text.
    ModelColumn& width(std::int32_t twips);
    ModelColumn& width(const QString& sample);
    /// Takes what the other columns leave of the control's width.
    ModelColumn& stretch();
    /// Summed in the total row, once all texts are there.
    ModelColumn& total();
    /// The most characters that can be typed.
    ModelColumn& limit(int characters);
    ModelColumn& alignment(mEmflexAlign where);

  private:
    friend class ModelSheet;
    ModelColumn(std::weak_ptr<ModelSheet::Link> link, int column) : link_(std::move(link)), column_(column) {}
    template <class Change>
    ModelColumn& change(Change change);

    std::weak_ptr<ModelSheet::Link> link_;
    int column_;
};
}  // namespace kxVsGrid::qt
