// The window 销售订单录入: one order on the screen, and what can be done with it.
#pragma once

#include <QDate>
#include <QMainWindow>
#include <functional>
#include <memory>

#include "Catalogue.h"
#include "Database.h"
#include "OrderGrid.h"
#include "OrderGridHelp.h"
#include "OrderStore.h"
#include "Questions.h"

class ColumnWidths;
class ManualWindow;
class OrderHeader;
class QAction;
class QLabel;
class QSettings;

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

    /// From now on the widths that the user gives columns are kept in these settings; without them they
    /// are forgotten.
    void rememberColumns(std::unique_ptr<QSettings> settings);
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

    OrderHeader& header() { return *header_; }
    kxVsGrid::qt::kxGridWidget& gridWidget() { return *widget_; }
    QString message() const;

  protected:
    void closeEvent(QCloseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void layOut();
    OrderGrid::Services services();
    OrderGridHelp::Services helpServices();
    void connectParts();
    void addActions();
    void addStatus();

    bool connectDatabase();
    bool mayLeave();
    bool isUnsaved(const Order& order) const;
    void startNewOrder();
    void display(const Order& order);
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
    void refresh();
    void refreshHint();
    void fitGrid(int width);
    void fitBesideBar();
    void resetColumns();
    void showManual();
    void enterLines();

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
    std::unique_ptr<OrderGridHelp> help_;
    kxVsGrid::ScopedConnection placed_;
    bool barSeen_ = false;
    std::unique_ptr<ColumnWidths> widths_;
    QLabel* state_;
    QLabel* hint_;
    QLabel* message_;
    QLabel* totals_;
    ManualWindow* manual_ =
        nullptr;  ///< once it has been asked for; it keeps the place where the clerk reads
    std::vector<QAction*> changing_;  ///< what can be done to an order that is not closed
};
