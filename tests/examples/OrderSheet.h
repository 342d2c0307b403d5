// The host's handling of the grid, on the machine without a window.
#pragma once

#include "OrderGrid.h"

#include <QCoreApplication>
#include <functional>
#include <map>

#include "OrderColumn.h"
#include "Scratch.h"
#include "kxVsGrid/headless/Desk.h"

using kxVsGrid::Key;

/// How often steps have changed something in a grid.
class ChangesOf {
  public:
    explicit ChangesOf(kxVsGrid::kxGrid& grid)
        : heard_(grid.Changes().After.connect([this](const kxVsGrid::StepChanges&) { ++count_; })) {}
    int count() const { return count_; }
    bool isEmpty() const { return count_ == 0; }

  private:
    int count_ = 0;
    kxVsGrid::ScopedConnection heard_;
};

/// The grid of an order, and what a window does with it.
class OrderGridInUse : public OrderGrid {
  public:
    struct Problem {
        QString text;
        bool shown = false;  ///< the control has told the clerk
    };
    OrderGridInUse(kxVsGrid::headless::Desk& desk, kxVsGrid::kxGrid& grid, Services services)
        : OrderGrid(grid, asking(std::move(services))), desk_(desk), grid_(grid) {}

    void clear(const QDate& delivery) { show({}, delivery); }
    void setReadOnly(bool readOnly) { grid_.Editable(!readOnly); }
    void presetWarehouse(const QString& name) { sheet().preset("warehouse", name); }
    void mayDelete(std::function<bool(const QString& rows)> ask) { mayDelete_ = std::move(ask); }
    void fitWidth(std::int32_t width) { desk_.resize(width, 8000); }

    std::vector<OrderLine> lines() { return sheet().records(); }
    void markSaved(const std::vector<OrderLine>& lines) { sheet().saved(lines); }
    bool commit() {
        const bool entered = sheet().commit();
        if (entered) sheet().complete();
        return entered;
    }
    int markProblems() { return sheet().markFaults(); }
    std::optional<Problem> firstProblem() {
        const auto fault = sheet().firstFault();
        if (!fault) return std::nullopt;
        return Problem{QString("第 %1 行的").arg(fault->row) + QString::fromStdString(fault->reason),
                       fault->show()};
    }

  private:
    Services asking(Services services) {
        services.mayDelete = [this](const QString& rows) { return !mayDelete_ || mayDelete_(rows); };
        return services;
    }

    kxVsGrid::headless::Desk& desk_;
    kxVsGrid::kxGrid& grid_;
    std::function<bool(const QString& rows)> mayDelete_;
};

class OrderSheet : public testing::Test {
  protected:
    OrderSheet() {
        desk.resize(18600, 8000);
        grid.clear(QDate(2026, 11, 27));
        desk.focusGrid();
    }

    std::string cell(int row, OrderColumn::Column col) { return control.Grid().DisplayText(row, col); }
    void at(int row, OrderColumn::Column col) { control.Grid().Select(row, col); }
    void enter(int row, OrderColumn::Column col, std::string_view text) {
        at(row, col);
        desk.type(text).press(Key::Enter);
    }

    static std::optional<Goods> find(const QString& code) {
        static const std::map<QString, Goods> known = {
            {"100001", {"100001", "六角螺栓", "M8×40", "个", 333}},
            {"100002", {"100002", "无缝钢管", "DN25", "米", 1850}},
        };
        if (code == "500") throw DatabaseError("查找商品", "orders.sqlite", "disk I/O error");
        const auto found = known.find(code);
        return found == known.end() ? std::nullopt : std::optional(found->second);
    }

    static std::optional<CodeAndName> findWarehouse(const QString& typed) {
        static const std::map<QString, QString> known = {
            {"C01", "主仓库"}, {"C02", "五金仓"}, {"C03", "钢材仓"}};
        if (typed == "C09") throw DatabaseError("核对编码", "orders.sqlite", "disk I/O error");
        for (const auto& [code, name] : known)
            if (typed.toUpper() == code || typed == name) return CodeAndName{code, name};
        return std::nullopt;
    }

    OrderGrid::Services services() {
        OrderGrid::Services result;
        result.goods = &OrderSheet::find;
        result.allGoods = [this] { return allGoods(); };
        result.editGoods = [this](const QString& code) { return editGoods(code); };
        result.warehouse = &OrderSheet::findWarehouse;
        result.warehouses = [] { return std::vector<CodeAndName>(); };
        result.chooseWarehouse = [this](std::int32_t x, std::int32_t y, const QString& typed) {
            return chooseWarehouse(x, y, typed);
        };
        result.now = [this] { return now; };
        result.say = [this](const QString& text, bool warning) {
            said = text;
            warned = warning;
        };
        return result;
    }
    virtual std::vector<Goods> allGoods() { return {}; }
    virtual std::optional<Goods> editGoods(const QString&) { return std::nullopt; }
    virtual std::optional<CodeAndName> chooseWarehouse(std::int32_t, std::int32_t, const QString&) {
        return std::nullopt;
    }

    // A line that is fit to be saved.
    void enterLine(int row, std::string_view code) {
        enter(row, OrderColumn::Code, code);
        enter(row, OrderColumn::Quantity, "5");
        enter(row, OrderColumn::Warehouse, "主仓库");
    }

    // The reasons of what was refused, as they came up at the editor or the cell; never a box.
    const std::vector<std::string>& told() {
        EXPECT_TRUE(desk.messages().empty());
        return desk.tips();
    }

    // What commit() and firstProblem() leave for the clerk to read.
    QString problem() {
        const auto found = grid.firstProblem();
        return found ? found->text : QString();
    }

    kxVsGrid::headless::Desk desk;
    kxVsGrid::kxGrid& control = desk.place();
    QDateTime now{QDate(2026, 11, 20), QTime(9, 30)};
    QString said;
    bool warned = false;
    OrderGridInUse grid{desk, control, services()};
};
