#include "OrderWindow.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDir>
#include <QFileInfo>
#include <QLabel>
#include <QSettings>
#include <algorithm>
#include <utility>

#include "OrderGrid.h"
#include "OrderHeader.h"
#include "PlainTip.h"
#include "RecoveryBar.h"
#include "RefusedList.h"
#include "kxVsGrid/qt/kxGridWidget.h"

using namespace Qt::StringLiterals;

namespace {
constexpr int DeliveryDays = 7;
constexpr int TwipsPerInch = 1440;
constexpr QLatin1StringView ApprovedBadge(
    "background: #1b7f3b; color: white; font-weight: bold; padding: 3px 14px; border-radius: 4px");

QString money(Cents amount) {
    return QString::fromStdString(moneyText(amount));
}
}  // namespace

OrderWindow::OrderWindow(const QString& databaseFile, Questions& questions, Clock clock)
    : database_(databaseFile),
      catalogue_(database_),
      store_(database_),
      questions_(questions),
      clock_(std::move(clock)),
      header_(new OrderHeader(this)),
      widget_(new kxVsGrid::qt::kxGridWidget(this)),
      grid_(std::make_unique<OrderGrid>(widget_->grid(), services())),
      bar_(new RecoveryBar(this)),
      state_(new QLabel(this)),
      hint_(new QLabel(this)),
      message_(new QLabel(this)),
      totals_(new QLabel(this)),
      refused_(new RefusedList(widget_->grid(), this)) {
    layOut();
    addActions();
    addStatus();
    connectParts();
    rememberColumns(nullptr);
    resize(1264, 720);
}

OrderGrid::Services OrderWindow::services() {
    OrderGrid::Services result;
    result.goods = [this](const QString& code) { return catalogue_.goods(code); };
    result.allGoods = [this] { return catalogue_.allGoods(); };
    // In front of the list that its edit button belongs to.
    result.editGoods = [this](const QString& code) {
        QWidget* list = QApplication::activeModalWidget();
        const QString stored = questions_.editGoods(list ? list : this, catalogue_, code);
        return stored.isEmpty() ? std::nullopt : catalogue_.goods(stored);
    };
    result.warehouse = [this](const QString& typed) { return catalogue_.warehouse(typed); };
    result.warehouses = [this] { return catalogue_.warehouses(); };
    result.chooseWarehouse = [this](std::int32_t x, std::int32_t y, const QString& typed) {
        const auto pixel = [this](std::int32_t twips) {
            return qRound(double(twips) * widget_->logicalDpiX() / TwipsPerInch);
        };
        return questions_.chooseWarehouse(this, catalogue_.warehouses(), typed, {pixel(x), pixel(y)});
    };
    result.now = clock_;
    result.mayDelete = [this](const QString& rows) {
        return questions_.confirm(this, u"删除"_s + rows.trimmed() + u"?"_s, u"删除(&D)"_s);
    };
    result.say = [this](const QString& text, bool warning) { say(text, warning); };
    return result;
}

// The grid's host goes before the grid: what the control still raises while it goes finds nobody.
OrderWindow::~OrderWindow() {
    laidOut_.disconnect();
    heard_.clear();
    grid_.reset();
}

void OrderWindow::connectGrid() {
    kxVsGrid::kxGrid& grid = widget_->grid();
    heard_.push_back(grid.Changes().After.connect([this](const kxVsGrid::StepChanges& step) {
        refresh();
        forgetReport(step);
    }));
    heard_.push_back(grid.Filters().Changed.connect([this] { refresh(); }));
    heard_.push_back(grid.RowColChange.connect([this] { refreshHint(); }));
    heard_.push_back(grid.SelChange.connect([this] { showTotals(); }));
    heard_.push_back(grid.Commands().Reported.connect(
        [this](const kxVsGrid::PasteReport& report) { tellReport(report); }));
    heard_.push_back(grid.Grid().MarksChanged.connect([this] { refused_->follow(); }));
}

void OrderWindow::connectParts() {
    connectGrid();
    connect(refused_, &RefusedList::asksFor, this, &OrderWindow::runFromList);
    connect(refused_, &RefusedList::chosen, this, [this](std::int32_t row, std::int32_t col) {
        enterLines();
        widget_->grid().Grid().Select(row, col);
    });
    connect(refused_, &RefusedList::closed, this, [this] {
        if (!widget_->grid().editorView().visible) enterLines();  // it has the keyboard
    });
    connect(widget_, &kxVsGrid::qt::kxGridWidget::handlerFailed, this,
            [this](const QString& why) { say(u"内部错误:"_s + why, true); });
    connect(header_, &OrderHeader::changed, this, [this] {
        refresh();
        keepHead();
    });
    connect(header_, &OrderHeader::done, this, &OrderWindow::enterLines);
    connect(header_, &OrderHeader::dateChanged, this, [this](const QDate& date) {
        renumber(date);
        keepHead();
        grid_->presetDelivery(deliveryFor(date));
    });
    connect(bar_, &RecoveryBar::goesOn, this, [this] {
        bar_->hide();
        if (widget_->grid().editorView().visible) return;  // it has the keyboard
        if (onScreen().customer == 0)
            header_->focus(OrderHeader::Field::Customer);
        else
            enterLines();
    });
    connect(bar_, &RecoveryBar::givesUp, this, &OrderWindow::giveUpRecovered);
}

// --- The database.

void OrderWindow::start() {
    connectDatabase();
    startNewOrder();
    tellWhetherReadOnly();
}

bool OrderWindow::connectDatabase() {
    if (database_.isOpen()) return true;
    try {
        database_.open();
        header_->setCustomers(catalogue_.customers());
        presetWarehouse();
        return true;
    } catch (const DatabaseError& error) {
        return report(error, u"可以继续录入;排除原因后保存时会再次连接数据库。"_s);
    }
}

// The first of the list is the main one.
void OrderWindow::presetWarehouse() {
    const std::vector<CodeAndName> all = catalogue_.warehouses();
    grid_->sheet().preset("warehouse", all.empty() ? QString() : all.front().name);
}

void OrderWindow::tellWhetherReadOnly() {
    if (!database_.isReadOnly()) return;
    const QString why = u"数据库是只读的,现在不能保存订单:\n"_s + QDir::toNativeSeparators(database_.file());
    say(why.simplified(), true);
    questions_.problem(this, why + u"\n\n可以继续录入;文件可以写入之后就能保存。"_s);
}

bool OrderWindow::report(const DatabaseError& error, const QString& consolation) {
    say(error.text().simplified(), true);
    questions_.problem(this, error.text() + u"\n\n"_s + consolation);
    return false;
}

// --- One order after the other.

bool OrderWindow::newOrder() {
    if (!mayLeave()) return false;
    startNewOrder();
    return true;
}

void OrderWindow::startNewOrder() {
    Order order;
    order.date = clock_().date();
    say({});
    try {
        if (database_.isOpen()) order.number = store_.nextNumber(order.date);
    } catch (const DatabaseError& error) {
        say(error.text().simplified(), true);
    }
    display(order);
    header_->focus(order.number.isEmpty() ? OrderHeader::Field::Number : OrderHeader::Field::Customer);
}

// A number that the window proposed follows the date; one that the clerk chose stays.
void OrderWindow::renumber(const QDate& date) {
    if (saved_.id != 0 || header_->number() != saved_.number || !database_.isOpen()) return;
    try {
        saved_.number = store_.nextNumber(date);
        header_->showNumber(saved_.number);
    } catch (const DatabaseError& error) {
        say(error.text().simplified(), true);
    }
}

bool OrderWindow::chooseOrder() {
    if (!connectDatabase()) return false;
    try {
        const std::optional<qint64> id = questions_.chooseOrder(this, store_);
        return id && openOrder(*id);
    } catch (const DatabaseError& error) {
        return report(error, u"屏幕上的订单没有改变。"_s);
    }
}

bool OrderWindow::openOrder(qint64 id) {
    return mayLeave() && showStored(id);
}

bool OrderWindow::showStored(qint64 id) {
    try {
        const std::optional<Order> order = store_.load(id);
        if (!order) return refuse(u"这张订单已被删除"_s);
        display(*order);
    } catch (const DatabaseError& error) {
        return report(error, u"屏幕上的订单没有改变。"_s);
    }
    enterLines();
    say(u"已打开订单 "_s + saved_.number);
    return true;
}

void OrderWindow::display(const Order& order) {
    showOrder(order);
    beginDraft();
}

QDate OrderWindow::deliveryFor(const QDate& date) {
    return date.addDays(DeliveryDays);
}

void OrderWindow::showOrder(const Order& order) {
    refused_->clear();
    header_->show(order);
    widget_->grid().Editable(!order.approved);  // an open one gets the presets
    grid_->show(order.id == 0 ? std::vector<OrderLine>() : order.lines, deliveryFor(order.date));
    saved_ = order;
    saved_.lines.clear();
    showWhetherApproved();
}

void OrderWindow::showWhetherApproved() {
    header_->setReadOnly(saved_.approved);
    widget_->grid().Editable(!saved_.approved);
    for (QAction* action : changing_) action->setEnabled(!saved_.approved);
    refresh();
    refreshHint();
}

bool OrderWindow::deleteOrder() {
    if (refusedAsApproved()) return false;
    const bool stored = saved_.id != 0;
    const QString what = stored ? u"删除订单 %1?删除后不能恢复。"_s.arg(saved_.number)
                                : u"放弃尚未保存的订单 %1?"_s.arg(header_->number());
    if (!questions_.confirm(this, what, stored ? u"删除(&D)"_s : u"放弃(&D)"_s)) return false;
    try {
        if (stored) store_.remove(saved_);
    } catch (const DatabaseError& error) {
        return report(error, u"屏幕上的订单没有改变。"_s);
    }
    const QString number = saved_.number;
    startNewOrder();
    say(stored ? u"订单 %1 已删除"_s.arg(number) : u"已放弃"_s);
    return true;
}

bool OrderWindow::approveOrder() {
    if (refusedAsApproved() || !connectDatabase() || !readyToSave()) return false;
    if (!questions_.confirm(this, u"保存并审核订单 %1?审核后不能再修改。"_s.arg(header_->number()),
                            u"审核(&A)"_s))
        return false;
    const qint64 asked = saved_.id;
    if (isUnsaved(onScreen()) && !save()) return false;
    // Kept as another order, which nobody was asked about.
    if (asked != 0 && saved_.id != asked) return false;
    try {
        store_.approve(saved_);
    } catch (const DatabaseError& error) {
        return report(error, u"订单没有审核,屏幕上的内容没有改变。"_s);
    }
    grid_->sheet().clearMarks();
    refused_->clear();
    beginDraft();
    showWhetherApproved();
    say(u"订单 %1 已审核"_s.arg(saved_.number));
    return true;
}

bool OrderWindow::refusedAsApproved() {
    if (saved_.approved) say(u"订单 %1 已审核,不能修改"_s.arg(saved_.number), true);
    return saved_.approved;
}

// --- Saving.

Order OrderWindow::onScreen() const {
    Order order = saved_;
    header_->read(order);
    order.lines = grid_->sheet().records();
    return order;
}

bool OrderWindow::hasUnsavedWork() const {
    return isUnsaved(onScreen());
}

bool OrderWindow::isUnsaved(const Order& order) const {
    return !order.hasHeadOf(saved_) || header_->customerUnclear() || !grid_->unsaved().none();
}

bool OrderWindow::refuse(const QString& why) {
    say(why, true);
    questions_.problem(this, why);
    return false;
}

bool OrderWindow::readyToSave() {
    if (!grid_->sheet().commit()) {
        say(u"当前单元格的输入有误,没有保存"_s, true);
        widget_->setFocus();
        return false;
    }
    grid_->sheet().complete();
    const Order order = onScreen();
    const auto missing = [&](OrderHeader::Field field, const QString& what) {
        header_->focus(field);
        return refuse(what);
    };
    if (order.number.isEmpty()) return missing(OrderHeader::Field::Number, u"请输入单号"_s);
    if (order.customer == 0)
        return missing(OrderHeader::Field::Customer,
                       header_->customerUnclear() ? u"没有这个客户,请重新选择"_s : u"请选择客户"_s);
    if (order.lines.empty()) {
        enterLines();
        return refuse(u"订单还没有明细"_s);
    }
    const auto problem = grid_->sheet().firstFault();
    // The control tells of what is missing, beside the cell.
    const bool told = problem && problem->show();
    const int problems = grid_->sheet().markFaults();
    if (problem) {
        const QString text = u"第 %1 行的"_s.arg(problem->row) + QString::fromStdString(problem->reason);
        enterLines();
        if (!told) refuse(text);
        const QString others =
            problems > 1 ? u";有问题的格子共 %1 个,按 F8 逐个查看"_s.arg(problems) : QString();
        if (told || problems > 1) say(text + u",订单没有保存"_s + others, true);
        return false;
    }
    return true;
}

bool OrderWindow::save() {
    if (refusedAsApproved() || !connectDatabase() || !readyToSave()) return false;
    Order order = onScreen();
    const QString proposed = order.number;
    try {
        store(order);
    } catch (const OrderChanged& error) {
        return saveAsNew(error.text());
    } catch (const DatabaseError& error) {
        if (error.isDuplicate()) header_->focus(OrderHeader::Field::Number);
        return report(error, u"没有保存任何内容,屏幕上的订单没有改变;排除原因后可以再次保存。"_s);
    }
    saved_ = order;
    saved_.lines.clear();
    header_->showNumber(order.number);
    grid_->sheet().saved(order.lines);
    beginDraft();
    refresh();
    const QString done = u"订单 %1 已保存:%2 行,金额 %3"_s.arg(
        order.number, QString::number(order.lines.size()), money(order.total()));
    if (order.number == proposed) {
        say(done);
        return true;
    }
    const QString other = u"单号 %1 已被另一张订单使用,本单改为 %2"_s.arg(proposed, order.number);
    say(other + u";"_s + done, true);
    questions_.information(this, u"单号已改变"_s, other + u"。"_s);
    return true;
}

// A number that this window proposed may have been given to another order since: the next one is taken.
void OrderWindow::store(Order& order) {
    constexpr int MostTries = 20;
    const bool proposed = order.id == 0 && order.number == saved_.number;
    const LineChanges changes = grid_->unsaved();
    for (int left = proposed ? MostTries : 1;; --left) {
        try {
            return store_.save(order, changes);
        } catch (const DatabaseError& error) {
            if (!error.isDuplicate() || left <= 1) throw;
        }
        order.number = store_.nextNumber(order.date);
    }
}

// Somebody else has changed or deleted the order: what is on the screen can still be kept beside it.
bool OrderWindow::saveAsNew(const QString& why) {
    say(why.simplified(), true);
    if (!questions_.confirm(this, why + u"\n\n把屏幕上的内容另存为一张新订单吗?"_s, u"另存(&S)"_s))
        return false;
    try {
        const QString number = store_.nextNumber(header_->date());
        saved_ = {};
        saved_.number = number;
        header_->showNumber(number);
    } catch (const DatabaseError& error) {
        return report(error, u"屏幕上的订单没有改变。"_s);
    }
    return save();
}

bool OrderWindow::mayLeave() {
    const bool entered = grid_->sheet().commit();
    if (entered && !hasUnsavedWork()) return true;
    const QString what = u"订单 %1 有未保存的修改。"_s.arg(header_->number());
    switch (questions_.unsavedWork(this, what)) {
        case Questions::Leave::Save:
            return save();
        case Questions::Leave::Discard:
            return true;
        case Questions::Leave::Stay:
            break;
    }
    return false;
}

void OrderWindow::closeEvent(QCloseEvent* event) {
    const bool leaves = mayLeave();
    if (leaves && draft_) draft_->finish();
    event->setAccepted(leaves);
}

// --- What the window shows.

QString OrderWindow::message() const {
    return message_->text();
}

QString OrderWindow::total() const {
    return QString::fromStdString(widget_->grid().Grid_Sum().DisplayText(0, grid_->sheet().col("amount")));
}

void OrderWindow::say(const QString& text, bool warning) {
    const bool dark = palette().color(QPalette::Window).lightness() < 128;
    message_->setStyleSheet(!warning ? QString() : dark ? u"color: #ffb4ab"_s : u"color: #b3261e"_s);
    saysReport_ = false;
    message_->setText(text);
    message_->setToolTip(plainTip(text));
}

void OrderWindow::refresh() {
    const Order order = onScreen();
    const bool unsaved = isUnsaved(order);
    Thousandths quantity = 0;
    for (const OrderLine& line : order.lines) quantity += line.quantity.value_or(0);
    const kxVsGrid::Filters& filters = widget_->grid().Filters();
    const QString hidden = filters.On() ? u"(筛选隐藏 %1 行)"_s.arg(filters.HiddenRows()) : QString();
    orderTotals_ = u"共 %1 行%2    数量 %3    金额 ¥ %4"_s.arg(QString::number(order.lines.size()), hidden,
                                                               QString::fromStdString(quantityText(quantity)),
                                                               money(order.total()));
    showTotals();
    refused_->follow();
    state_->setText(unsaved          ? u"未保存"_s
                    : order.id == 0  ? u"新订单"_s
                    : order.approved ? u"已审核"_s
                                     : u"已保存"_s);
    state_->setStyleSheet(order.approved ? QString(ApprovedBadge) : QString());
    const QString what = conflict_.isEmpty() ? order.number : u"草稿 %1 保存冲突"_s.arg(conflict_);
    setWindowTitle(u"销售订单录入 - "_s + what + u"[*]"_s);
    setWindowModified(unsaved);
}

void OrderWindow::refreshHint() {
    hint_->setText(saved_.approved ? u"订单已审核,不能修改;Ctrl+C 复制选中的格子"_s
                                   : QString::fromStdString(grid_->sheet().hint()));
}

void OrderWindow::enterLines() {
    widget_->setFocus(Qt::TabFocusReason);
}

// In the line where the clerk is. A text that is refused stays where it is typed.
void OrderWindow::enterColumn(const char* name) {
    kxVsGrid::kxGrid& grid = widget_->grid();
    enterLines();
    grid.ReadCell(grid.Row(), grid.Col());  // commits what is being typed
    if (!grid.editorView().visible) grid.Grid().Select(grid.Row(), grid_->sheet().col(name));
}

// Where the next line is keyed.
void OrderWindow::goBehindLines() {
    kxVsGrid::Sheet<OrderLine>& sheet = grid_->sheet();
    sheet.goTo(std::min(sheet.endRow(), widget_->grid().Rows() - 1), "code");
}
