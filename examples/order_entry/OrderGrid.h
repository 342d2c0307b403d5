// How this host uses the grid: the columns of an order, what follows from what the clerk types, and the way
// between the grid's texts and an order's lines. Knows no window, so it works on any control.
#pragma once

#include <QDateTime>
#include <QObject>
#include <QString>
#include <QStringList>
#include <functional>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "Catalogue.h"
#include "Order.h"
#ifndef Q_MOC_RUN  // moc reads no Chinese identifiers
#include "kxVsGrid/kxGrid.h"
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

    // What the code checks of the columns ask for: two queries, and a list of this class's own.
    static constexpr const char* GoodsQuery = "SELECT code, name FROM goods";
    static constexpr const char* WarehouseQuery = "SELECT code, name FROM warehouse";
    static constexpr const char* UnitList = "units";

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
    ~OrderGrid() override;

    void mayDelete(MayDelete ask) { mayDelete_ = std::move(ask); }

    // Another order: nothing of the one before can be undone any more.
    /// An empty sheet; each row that the clerk comes to gets the preset warehouse and delivery date.
    void clear(const QDate& delivery);
    void show(const std::vector<OrderLine>& lines, const QDate& delivery);
    /// What is shown then can neither be typed into nor get other rows.
    void setReadOnly(bool readOnly);
    /// Another delivery date for rows that the clerk comes to, and for those of a sheet that is still empty.
    void presetDelivery(const QDate& delivery);
    /// The warehouse that rows get; empty: none.
    void presetWarehouse(const QString& name);

    /// The lines as they stand, without an editor that is still open. Lines that say nothing are left out.
    std::vector<OrderLine> lines() const;

    /// A cell that keeps the order from being saved.
    struct Problem {
        std::int32_t row = 0;
        std::int32_t col = 0;
        QString text;        ///< names row, column and reason
        bool shown = false;  ///< the control has told the clerk in a message box
    };
    /// The first one, row by row; to be asked after commit().
    std::optional<Problem> firstProblem();
    /// Marks all cells that keep the order from being saved, with the reasons, and answers how many. A mark
    /// goes when its cell is right, whatever has put it right, and with the order.
    int markProblems();
    /// Takes away all marks, those of refused texts too.
    void clearMarks();
    void select(std::int32_t row, std::int32_t col);

    /// Takes over what is being typed and what follows from it; false when it is refused and still in the
    /// editor.
    bool commit();
    /// What lines() are beside those of markSaved(), clear() or show(). What was undone has not changed, and
    /// neither has a row that says nothing.
    LineChanges unsaved() const;
    /// What is there now is saved: `lines` are those of lines(), with their ids. It can still be undone.
    void markSaved(const std::vector<OrderLine>& lines);

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
    void setUpRules();
    void connectEvents();
    void load(std::int32_t dataRows, const QDate& delivery, const std::function<void()>& fill);
    void write(std::int32_t row, const OrderLine& line);
    OrderLine read(std::int32_t row) const;
    QString text(std::int32_t row, Column col) const;
    QString tag(std::int32_t row, Column col) const;
    QString caption(Column col) const;
    void put(std::int32_t row, Column col, const QString& text, const QString& tag = {});
    void putDelivery(std::int32_t row, const QDate& delivery);
    void putPresets(std::int32_t row);
    void presetPasted(std::int32_t row);
    void presetRow(Column col, const QString& text);

    /// Answers a code check; an empty name refuses the text.
    CodeAndName confirm(const QString& query, const QString& codeField, const QString& nameField,
                        const QString& typed);
    CodeAndName confirmWarehouse(const QString& typed);
    CodeAndName confirmUnit(const QString& typed, const QString& goods);
    static bool breaksRule(const OrderLine& line, Column col);
    static QString whyUnsavable(const OrderLine& line, Column col, const QString& text);
    /// The text stands in the list of its column.
    bool isListed(const OrderLine& line, Column col);
    using ListedTexts = std::set<QString>;
    QString faultOf(std::int32_t row, const OrderLine& line, Column col, ListedTexts& listed);
    QString problemOf(std::int32_t row, const OrderLine& line, Column col, ListedTexts& listed);
    static QString ruleBroken(Column col);
    bool getsPreset(std::int32_t row, Column col) const;
    void mark(std::int32_t row, std::int32_t col, const QString& why);
    void judgeMarks(const kxVsGrid::StepChanges& step);

    bool mayDeleteRow(std::int32_t row);
    std::vector<std::int32_t> selectedRows() const;
    void deleteSelectedRows();
    bool hasMovedLines() const;

    /// All rows, where more has changed than could be kept.
    std::vector<std::int32_t> rowsOf(const kxVsGrid::StepChanges& step) const;
    void keepOrClearCopy(std::int32_t row, bool& keep);
    void settleAll();
    void settleStep(const kxVsGrid::StepChanges& step);
    void settle(std::int32_t row);
    void settleTyped(std::int32_t row, Column col);
    void settleSlot(std::int32_t row);
    void settleWarehouse(std::int32_t row);
    void settleBlanks(std::int32_t row);
    void settleGoods(std::int32_t row);
    void settleAmount(std::int32_t row);
    void markCodes(const kxVsGrid::StepChanges& step);
    void markCode(std::int32_t row);
    void putName(std::int32_t row, const QString& code, const std::optional<Goods>& goods);
    void putTerms(std::int32_t row, const QString& code, const std::optional<Goods>& goods);

    kxVsGrid::kxGrid& grid_;
    Services services_;
    MayDelete mayDelete_;
    std::map<kxVsGrid::RowId, OrderLine> saved_;  ///< the lines that have an id, by their rows
    std::vector<kxVsGrid::RowId> savedOrder_;     ///< their rows, as they stood then
    /// What markProblems() has marked, with the reasons.
    std::map<std::pair<kxVsGrid::RowId, std::int32_t>, std::string> marks_;
    enum class Deletion { Single, Asked, Agreed };
    Deletion deletion_ = Deletion::Single;
    std::vector<kxVsGrid::ScopedConnection> connections_;
};
