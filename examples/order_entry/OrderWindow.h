// The window 销售订单录入: one order on the screen, and what can be done with it.
#pragma once

#include <QDate>
#include <QMainWindow>
#include <functional>
#include <initializer_list>
#include <memory>
#include <optional>
#include <vector>

#include "Catalogue.h"
#include "Database.h"
#include "OrderDraft.h"
#include "OrderGrid.h"
#include "OrderStore.h"
#include "Questions.h"

class ManualWindow;
class OrderHeader;
class QAction;
class QLabel;
class QMenu;
class QSettings;
class RecoveryBar;
class RefusedList;

namespace kxVsGrid::qt {
class kxGridWidget;
}

class OrderWindow : public QMainWindow {
    Q_OBJECT

  public:
    /// The current date and time.
    using Clock = std::function<QDateTime()>;

    /// `questions` must outlive the window.
    OrderWindow(const QString& databaseFile, Questions& questions, Clock clock);
    ~OrderWindow() override;

    /// The columns are laid out as these settings keep it, and what the user makes of them from now on is kept
    /// there; without settings it is forgotten.
    void rememberColumns(std::unique_ptr<QSettings> settings);
    /// From now on what is keyed and not saved is kept in this folder, and survives the program. Before start().
    void keepDrafts(const QString& folder);
    /// Opens the database, reporting what goes wrong; without one everything but saving works. Called once
    /// the window is shown.
    void start();

    /// Each of these asks about unsaved work first; false when the clerk stays or something failed.
    bool newOrder();
    bool chooseOrder();
    bool openOrder(qint64 id);
    bool deleteOrder();
    /// Saves the order and closes it for good.
    bool approveOrder();

    bool save();
    /// What is on the screen, as it would be saved; an editor that is still open is left alone.
    Order onScreen() const;
    bool hasUnsavedWork() const;

    /// What has become of the order of a draft.
    enum class Fit {
        New,      ///< it was never saved
        Same,     ///< it is as it was when the draft began
        Changed,  ///< somebody has saved or approved it since
        Gone,
        Unknown  ///< the draft or the database cannot be read
    };
    Fit judge(const OrderDraft::Kept& kept) const;
    /// Takes the place of what is on the screen, and says in a bar what has come back. An order that has
    /// changed is not touched: the draft is to be saved as another one. False when there was nothing in it that
    /// the database lacks, or when it cannot be recovered, which message() tells; it stays then.
    bool recover(const OrderDraft::Kept& kept);
    /// Puts the keyboard where the clerk goes on with what was recovered, with the text that stood in the editor.
    void goOnKeying();
    bool isConnected() const { return database_.isOpen(); }
    /// A new order in which nothing has been done.
    bool untouched() const;
    void warn(const QString& text) { say(text, true); }

    OrderHeader& header() { return *header_; }
    kxVsGrid::qt::kxGridWidget& gridWidget() { return *widget_; }
    QString message() const;
    /// The total of the amounts, as the total row shows it.
    QString total() const;

  protected:
    void closeEvent(QCloseEvent* event) override;

  private:
    void layOut();
    OrderGrid::Services services();
    void connectParts();
    void connectGrid();
    void addActions();
    void addCommands(QMenu& menu, std::initializer_list<std::optional<kxVsGrid::Command>> commands);
    void addStatus();

    bool connectDatabase();
    bool mayLeave();
    bool isUnsaved(const Order& order) const;
    void startNewOrder();
    void display(const Order& order);
    void showOrder(const Order& order);
    bool showStored(qint64 id);
    static QDate deliveryFor(const QDate& date);

    OrderDraft::Head head() const;
    void beginDraft();
    void keepHead();
    std::optional<kxVsGrid::qt::DraftFile::Recovery> recoverAs(const OrderDraft::Kept& kept, Fit fit);
    bool isKnown(const OrderDraft::Kept& kept, Fit fit) const;
    void tellRecovered(const OrderDraft::Kept& kept, Fit fit, const kxVsGrid::qt::DraftFile::Recovery& back);
    void giveUpRecovered();
    bool hasNeighbour() const;

    bool readyToSave();
    bool saveAsNew(const QString& why);
    void store(Order& order);
    void presetWarehouse();
    void tellWhetherReadOnly();
    bool refusedAsApproved();
    void showWhetherApproved();
    bool refuse(const QString& why);
    void renumber(const QDate& date);
    bool report(const DatabaseError& error, const QString& consolation);

    void say(const QString& text, bool warning = false);
    void tellReport(const kxVsGrid::PasteReport& report);
    void forgetReport(const kxVsGrid::StepChanges& step);
    void runFromList(kxVsGrid::Command command);
    void refresh();
    void showTotals();
    void refreshHint();
    void keepColumns();
    void resetColumns();
    void showManual();
    void enterLines();
    void enterColumn(const char* name);
    void goBehindLines();

    Database database_;
    Catalogue catalogue_;
    OrderStore store_;
    Questions& questions_;
    Clock clock_;
    /// The head that the database holds; for a new order what the window proposed. The grid knows of the lines.
    Order saved_;

    OrderHeader* header_;
    kxVsGrid::qt::kxGridWidget* widget_;
    std::unique_ptr<OrderGrid> grid_;
    std::unique_ptr<OrderDraft> draft_;  ///< when drafts are kept
    QString conflict_;                   ///< the number of the order that this draft must not overwrite
    std::vector<kxVsGrid::ScopedConnection> heard_;  ///< of the grid
    std::unique_ptr<QSettings> columnSettings_;      ///< when the layout of the columns is kept
    kxVsGrid::ScopedConnection laidOut_;
    RecoveryBar* bar_;
    QLabel* state_;
    QLabel* hint_;
    QLabel* message_;
    QLabel* totals_;
    QString orderTotals_;  ///< of the lines, shown while no cells are selected
    RefusedList* refused_;
    bool saysReport_ = false;  ///< the message tells of a block that was written
    ManualWindow* manual_ =
        nullptr;  ///< once it has been asked for; it keeps the place where the clerk reads
    std::vector<QAction*> changing_;  ///< what can be done to an order that is not closed
};
