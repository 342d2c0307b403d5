// How this host uses the grid: the columns of an order as those of a sheet, and what follows from what the clerk
// types. Knows no window, so it works on any control.
#pragma once

#include <QDateTime>
#include <QObject>
#include <QString>
#include <functional>
#include <optional>
#include <vector>

#include "Catalogue.h"
#include "OrderFields.h"
#ifndef Q_MOC_RUN  // moc reads no Chinese identifiers
#include "kxVsGrid/sheet/Sheet.h"
#endif

class OrderGrid : public QObject {
    Q_OBJECT

  public:
    enum Column {
        RowNumber,
        Code,
        Name,
        Spec,
        Unit,
        Quantity,
        Price,
        Amount,
        Warehouse,
        Delivery,
        Slot,
        Gift,
        Remark,
        Entered,
        ColumnCount
    };

    /// The units that the help offers, as a list of constants. Goods may bring others of their own.
    static constexpr const char* Units = "个|百个|件|只|套|台|把|副|盒|箱|桶|卷|根|片|张|米|平方米|千克|吨";
    static constexpr const char* WarehouseQuery = "SELECT code, name FROM warehouse";

    /// What the grid's host needs of the world. The first two answer nothing for an unknown code, and may
    /// throw DatabaseError.
    struct Services {
        std::function<std::optional<Goods>(const QString& code)> goods;
        /// The record of a query whose code field holds the text.
        std::function<std::optional<CodeAndName>(const QString& query, const QString& codeField,
                                                 const QString& nameField, const QString& text)>
            find;
        std::function<QDateTime()> now;
    };
    /// Whether a row with content may go, or several rows some of which have content; the text names them.
    using MayDelete = std::function<bool(const QString& rows)>;

    /// The grid must outlive this; sets up its columns.
    OrderGrid(kxVsGrid::kxGrid& grid, Services services);

    void mayDelete(MayDelete ask) { mayDelete_ = std::move(ask); }

    // Another order: nothing of the one before can be undone any more.
    /// An empty sheet; each row that the clerk comes to gets the preset warehouse and delivery date.
    void clear(const QDate& delivery);
    void show(const std::vector<OrderLine>& lines, const QDate& delivery);
    /// What is shown then can neither be typed into nor get other rows.
    void setReadOnly(bool readOnly) { grid_.Editable(!readOnly); }
    /// Another delivery date for rows that the clerk comes to, and for those that say nothing yet.
    void presetDelivery(const QDate& delivery);
    /// The warehouse that rows get; empty: none.
    void presetWarehouse(const QString& name);

    /// The lines as they stand, without an editor that is still open. Lines that say nothing are left out.
    std::vector<OrderLine> lines() const { return sheet_.records(); }

    /// A cell that keeps the order from being saved.
    struct Problem {
        std::int32_t row = 0;
        std::int32_t col = 0;
        QString text;        ///< names row, column and reason
        bool shown = false;  ///< the control has told the clerk
    };
    /// The first one, row by row; to be asked after commit().
    std::optional<Problem> firstProblem();
    /// Marks all cells that keep the order from being saved, with the reasons, and answers how many. A mark
    /// goes when its cell is right, whatever has put it right, and with the order.
    int markProblems() { return sheet_.markFaults(); }
    /// Takes away all marks, those of refused texts too.
    void clearMarks() { sheet_.clearMarks(); }
    void select(std::int32_t row, std::int32_t col) { grid_.Grid().Select(row, col); }

    /// Takes over what is being typed and what follows from it; false when it is refused and still in the
    /// editor.
    bool commit();
    /// What lines() are beside those of markSaved(), clear() or show(). What was undone has not changed, and
    /// neither has a row that says nothing.
    LineChanges unsaved() const;
    /// What is there now is saved: `lines` are those of lines(), with their ids. It can still be undone.
    void markSaved(const std::vector<OrderLine>& lines) { sheet_.saved(lines); }

    /// The control has been put into the state of a draft: colours and proposals follow, nothing can be undone.
    void recovered(const QDate& delivery);
    /// Makes a cell the current one, which is nobody's step.
    void goTo(std::int32_t row, std::int32_t col);
    /// To the code of the row behind the last line, which gets the presets.
    void selectEnd();

    /// What can be done in the current cell.
    QString hint() const;
    /// Gives the remark column what the others leave of the control's width, in twips.
    void fitWidth(std::int32_t width);
    int shownColumns() const;

  signals:
    /// For the status line.
    void said(const QString& text, bool warning);
    /// The lines may be different now.
    void changed();
    /// The current cell is another one.
    void moved();
    /// Other cells are selected.
    void selected();

  private:
    void setUpColumns();
    void setUpKeys();
    void connectEvents();
    void edited(OrderLine& line, const kxVsGrid::sheet::Edited& cell);
    void putPresets(OrderLine& line) const;
    void putPresets(std::int32_t row);
    bool mayDeleteRows(const std::vector<std::int32_t>& rows);
    void colourCode(std::int32_t row);
    std::optional<Goods> goodsOf(const QString& code);
    std::optional<CodeAndName> warehouseOf(const QString& typed) const;
    std::string wordsOf(const kxVsGrid::Fault& fault) const;

    kxVsGrid::kxGrid& grid_;
    Services services_;
    MayDelete mayDelete_;
    OrderLine preset_;  ///< what rows get that the clerk comes to
    kxVsGrid::Sheet<OrderLine> sheet_;
    std::vector<kxVsGrid::ScopedConnection> connections_;
};
