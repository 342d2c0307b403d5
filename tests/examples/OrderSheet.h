// The host's handling of the grid, on the machine without a window.
#pragma once

#include "OrderGrid.h"

#include <QCoreApplication>
#include <QSignalSpy>
#include <map>

#include "Scratch.h"
#include "kxVsGrid/headless/Desk.h"

using kxVsGrid::Key;

class OrderSheet : public testing::Test {
  protected:
    OrderSheet() {
        desk.resize(18600, 8000);
        grid.clear(QDate(2026, 11, 27));
        desk.focusGrid();
        QObject::connect(&grid, &OrderGrid::said, [this](const QString& text, bool warning) {
            said = text;
            warned = warning;
        });
    }

    std::string cell(int row, OrderGrid::Column col) { return control.Grid().DisplayText(row, col); }
    void at(int row, OrderGrid::Column col) { control.Grid().Select(row, col); }
    void enter(int row, OrderGrid::Column col, std::string_view text) {
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

    // By the field that is compared; answers it first.
    static std::optional<CodeAndName> warehouse(const QString& field, const QString& text) {
        static const std::map<QString, QString> known = {
            {"C01", "主仓库"}, {"C02", "五金仓"}, {"C03", "钢材仓"}};
        if (text == "C09") throw DatabaseError("核对编码", "orders.sqlite", "disk I/O error");
        for (const auto& [code, name] : known) {
            if (field == "code" && text == code) return CodeAndName{code, name};
            if (field == "name" && text == name) return CodeAndName{name, code};
        }
        return std::nullopt;
    }

    static std::optional<CodeAndName> confirm(const QString& query, const QString& codeField,
                                              const QString& nameField, const QString& text) {
        if (query == QString("SELECT code, name FROM warehouse")) return warehouse(codeField, text);
        EXPECT_EQ(query, QString("SELECT code, name FROM goods"));
        EXPECT_EQ(codeField, QString("code"));
        EXPECT_EQ(nameField, QString("name"));
        const std::optional<Goods> found = find(text);
        return found ? std::optional(CodeAndName{found->code, found->name}) : std::nullopt;
    }

    // A line that is fit to be saved.
    void enterLine(int row, std::string_view code) {
        enter(row, OrderGrid::Code, code);
        enter(row, OrderGrid::Quantity, "5");
        enter(row, OrderGrid::Warehouse, "主仓库");
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
    OrderGrid grid{control, {&OrderSheet::find, &OrderSheet::confirm, [this] { return now; }}};
    QString said;
    bool warned = false;
};
