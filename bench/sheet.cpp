// Records on a grid: loading them from a database, a key among many lines, what is to be saved, and what a host's
// compiler takes.
#include <sys/resource.h>

#include <QSqlDatabase>
#include <QSqlQuery>
#include <QSqlTableModel>
#include <QVariant>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "Contestants.h"
#include "Measure.h"
#include "Plan.h"
#include "kxVsGrid/sheet/Sheet.h"

namespace kxbench {
namespace {

using namespace kxVsGrid;

constexpr std::int32_t Lines = 100'000;
constexpr std::int32_t FewLines = 1'000;
constexpr std::int32_t ChangedLines = 100;

struct Line {
    std::int64_t id = 0;
    std::string code, name, spec, unit, place, batch, remark;
    std::optional<Decimal> counted;
    Decimal booked, price, difference, amount;
};

/// The rows that both read, in memory.
class Database {
  public:
    Database() : database_(QSqlDatabase::addDatabase("QSQLITE")) {
        database_.setDatabaseName(":memory:");
        if (!database_.open()) throw std::runtime_error("no database");
        QSqlQuery query;
        query.exec(
            "CREATE TABLE line (id INTEGER PRIMARY KEY, code TEXT, name TEXT, spec TEXT, unit TEXT, place "
            "TEXT, batch TEXT, remark TEXT, counted INTEGER, booked INTEGER, price INTEGER, difference "
            "INTEGER, amount INTEGER)");
        database_.transaction();
        query.prepare("INSERT INTO line VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)");
        for (std::int32_t i = 1; i <= Lines; ++i) insert(query, i);
        database_.commit();
    }
    ~Database() {
        database_.close();
        database_ = {};
        QSqlDatabase::removeDatabase(QSqlDatabase::defaultConnection);
    }
    Database(const Database&) = delete;
    Database& operator=(const Database&) = delete;

    static std::vector<Line> lines() {
        QSqlQuery query;
        query.setForwardOnly(true);
        query.exec(
            "SELECT id, code, name, spec, unit, place, batch, remark, counted, booked, price FROM line ORDER "
            "BY id");
        const auto text = [&](int field) { return query.value(field).toString().toStdString(); };
        const auto cents = [&](int field) { return Decimal::scaled(query.value(field).toLongLong(), 2); };
        std::vector<Line> lines;
        while (query.next()) {
            Line& line = lines.emplace_back();
            line.id = query.value(0).toLongLong();
            line.code = text(1);
            line.name = text(2);
            line.spec = text(3);
            line.unit = text(4);
            line.place = text(5);
            line.batch = text(6);
            line.remark = text(7);
            if (!query.isNull(8)) line.counted = cents(8);
            line.booked = cents(9);
            line.price = cents(10);
        }
        return lines;
    }

  private:
    static void insert(QSqlQuery& query, std::int32_t i) {
        const QString number = QString::number(i);
        const QString texts[] = {"G" + number,
                                 "六角螺栓 " + number,
                                 "M8 x 40",
                                 "只",
                                 "A-" + number,
                                 "2026-" + number,
                                 i % 7 == 0 ? QString("破损") : QString()};
        query.addBindValue(i);
        for (const QString& text : texts) query.addBindValue(text);
        query.addBindValue(i % 3 == 0 ? QVariant() : QVariant(100LL * i));
        query.addBindValue(100LL * (i - i % 5));
        query.addBindValue(250 + i % 1000);
        query.addBindValue(100LL * (i % 5));
        query.addBindValue((250 + i % 1000) * (i % 5));
        if (!query.exec()) throw std::runtime_error("a row was not inserted");
    }
    QSqlDatabase database_;
};

/// The rows, and what a host has made of them.
struct Records {
    Database database;
    std::vector<Line> lines = Database::lines();
};

struct OnSheet : OnWidget {
    Sheet<Line> sheet{grid};
    explicit OnSheet(bool totals = true) {
        sheet.identity(&Line::id);
        sheet.text("code", "货号", &Line::code);
        sheet.text("name", "品名", &Line::name).readOnly();
        sheet.text("spec", "规格", &Line::spec).readOnly();
        sheet.text("unit", "单位", &Line::unit);
        sheet.text("place", "库位", &Line::place);
        sheet.text("batch", "批号", &Line::batch);
        sheet.number("booked", "账面", &Line::booked).decimals(2);
        auto counted = sheet.number("counted", "实盘", &Line::counted);
        counted.decimals(2);
        sheet.number("difference", "差异", &Line::difference).decimals(2).computed([](const Line& line) {
            return line.counted ? *line.counted - line.booked : Decimal();
        });
        sheet.number("price", "单价", &Line::price).decimals(2);
        auto amount = sheet.number("amount", "差异金额", &Line::amount);
        amount.decimals(2).computed([](const Line& line) { return line.difference * line.price; });
        if (totals) {
            counted.total();
            amount.total();
        }
        sheet.text("remark", "备注", &Line::remark).computed([](const Line& line) {
            return line.amount == 0 ? std::string() : "差异 " + line.amount.text(2);
        });
        widget.resize(1000, 600);
        widget.show();
    }
};

/// Each time on a sheet of its own, or once more on one that was loaded before; the lines come from `read`.
template <class Read>
void addLoaded(const std::string& name, bool again, Read read) {
    measure(name, 1, 5, [again, read](benchmark::State& state) {
        Shared<Records>::get();
        OnSheet on;
        if (again) on.sheet.load(Shared<Records>::get().lines);
        for (auto _ : state) {
            state.SetIterationTime(seconds([&] {
                on.sheet.load(read());
                on.widget.repaint();
            }));
        }
        if (on.grid.Rows() != Lines + 2) state.SkipWithError("was not loaded");
    });
}

void addLoad() {
    const auto kept = []() -> const std::vector<Line>& { return Shared<Records>::get().lines; };
    addLoaded("sheet_load/sheet", false, kept);
    addLoaded("sheet_load/again", true, kept);
    addLoaded("sheet_load/read", false, &Database::lines);
    measure("sheet_load/table", 1, 5, [](benchmark::State& state) {
        Shared<Records>::get();
        for (auto _ : state) {
            QSqlTableModel model;
            QTableView view;
            view.resize(1000, 600);
            view.show();
            model.setTable("line");
            state.SetIterationTime(seconds([&] {
                model.select();
                while (model.canFetchMore()) model.fetchMore();
                view.setModel(&model);
                view.viewport()->repaint();
            }));
            if (model.rowCount() != Lines) state.SkipWithError("was not loaded");
        }
    });
}

/// So many of the lines.
template <std::int32_t Count, bool Totals>
struct LoadedSheet : OnSheet {
    LoadedSheet() : OnSheet(Totals) { load(); }
    void load() {
        const std::vector<Line>& all = Shared<Records>::get().lines;
        sheet.load(std::vector<Line>(all.begin(), all.begin() + Count));
    }
};
using ManyLines = LoadedSheet<Lines, false>;
using SomeLines = LoadedSheet<FewLines, false>;
using ManyLinesWithTotals = LoadedSheet<Lines, true>;

template <class On>
void addKeyed(const std::string& name) {
    measure(name, 200, 5, [](benchmark::State& state) {
        On& on = Shared<On>::get();
        on.grid.input()->focusMoved(FocusPlace::Grid);
        int value = 0;
        for (auto _ : state) {
            const auto input = on.grid.input();
            on.grid.Grid().Select(HeaderRows + 50, on.sheet.col("counted"));
            const std::string typed = std::to_string(++value % 9 + 1);
            state.SetIterationTime(seconds([&] {
                input->openForTyping();
                input->edited(typed, typed.size(), 0);
                input->key({static_cast<std::int16_t>(Key::Enter), 0, "\r"});
            }));
            if (on.grid.RawText(HeaderRows + 50, on.sheet.col("counted")) != typed)
                state.SkipWithError("was not typed");
        }
    });
}

/// The same number of lines has changed, among more or fewer.
template <class On, std::int32_t Count>
void addChanges(const std::string& name) {
    measure(name, 5, 3, [](benchmark::State& state) {
        On& on = Shared<On>::get();
        on.load();
        for (std::int32_t i = 0; i < ChangedLines; ++i)
            on.sheet.edit(HeaderRows + i * (Count / ChangedLines), [](Line& line) { line.counted = 123; });
        for (auto _ : state) {
            std::size_t found = 0;
            state.SetIterationTime(seconds([&] { found = on.sheet.changes().changed.size(); }));
            if (found != ChangedLines) state.SkipWithError("what has changed was not found");
        }
    });
}

/// Seconds of the compiler for one of the hosts in bench/hosts.
double compiled(const char* host) {
    const auto ofChildren = [] {
        rusage used{};
        getrusage(RUSAGE_CHILDREN, &used);
        return static_cast<double>(used.ru_utime.tv_sec + used.ru_stime.tv_sec) +
               static_cast<double>(used.ru_utime.tv_usec + used.ru_stime.tv_usec) * 1e-6;
    };
    const double before = ofChildren();
    const std::string command = std::string(KXBENCH_COMPILER) + " -std=c++20 -O2 -c -o /dev/null -I" +
                                KXBENCH_ROOT + "/include " + KXBENCH_ROOT + "/bench/hosts/" + host;
    if (std::system(command.c_str()) != 0) throw std::runtime_error("the host was not compiled");
    return ofChildren() - before;
}

void addCompiled(const std::string& name, const char* host) {
    measure(name, 1, 3, [host](benchmark::State& state) {
        for (auto _ : state) state.SetIterationTime(compiled(host));
    });
}
}  // namespace

void planSheet(Plan& plan) {
    addLoad();
    plan.push_back(
        {"sheet_load",
         {{"load 100,000 x 12 records that the host has, beside QSqlTableModel fetched from memory "
           "into a QTableView",
           "sheet_load/sheet", "sheet_load/table", Limit::Ratio, 1.0, Show::Milliseconds},
          {"the same, the host reading the records by QSqlQuery first", "sheet_load/read", "sheet_load/table",
           Limit::None, 0, Show::Milliseconds},
          {"the same in place of as many lines, beside the first load", "sheet_load/again",
           "sheet_load/sheet", Limit::None, 0, Show::Milliseconds}},
         [] { Shared<Records>::release(); }});
    addKeyed<ManyLines>("sheet_key/many");
    addKeyed<SomeLines>("sheet_key/few");
    addKeyed<ManyLinesWithTotals>("sheet_key/totals");
    addChanges<ManyLines, Lines>("sheet_key/changes_many");
    addChanges<SomeLines, FewLines>("sheet_key/changes_few");
    plan.push_back({"sheet_key",
                    {{"a typed number that three computed columns follow, among 100,000 lines, beside 1,000",
                      "sheet_key/many", "sheet_key/few", Limit::Ratio, 1.5, Show::Microseconds},
                     {"the same with two totals that are added up anew, beside 1,000 without",
                      "sheet_key/totals", "sheet_key/few", Limit::None, 0, Show::Microseconds},
                     {"changes: 100 changed lines of 100,000, beside 100 of 1,000", "sheet_key/changes_many",
                      "sheet_key/changes_few", Limit::Ratio, 3.0, Show::Microseconds}},
                    [] {
                        Shared<ManyLines>::release();
                        Shared<SomeLines>::release();
                        Shared<ManyLinesWithTotals>::release();
                        Shared<Records>::release();
                    }});
    addCompiled("sheet_compile/sheet", "SheetHost.cpp");
    addCompiled("sheet_compile/plain", "PlainHost.cpp");
    plan.push_back({"sheet_compile",
                    {{"compile a host with a sheet, beside one without", "sheet_compile/sheet",
                      "sheet_compile/plain", Limit::None, 0, Show::Milliseconds}},
                    {}});
}
}  // namespace kxbench
