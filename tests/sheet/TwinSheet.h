// A sheet of records with a member of every kind, beside a plain reading of its cells and a database that is told
// what was saved.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <map>
#include <optional>
#include <ostream>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "kit/Random.h"
#include "kxVsGrid/headless/Desk.h"
#include "kxVsGrid/sheet/Sheet.h"

namespace kxVsGrid::testing {

struct TwinEntry {
    std::int64_t id = 0;
    std::int32_t version = 0;
    std::string key;
    std::string note;
    std::optional<Decimal> quantity;
    Decimal price;
    std::int64_t count = 0;
    std::optional<std::int16_t> pieces;
    std::optional<Date> due;
    std::optional<DateTime> at;
    bool gift = false;
    Decimal amount;
    Decimal tax;
    std::string secret;  ///< without a column, as the next one
    std::int32_t number = 0;

    friend bool operator==(const TwinEntry&, const TwinEntry&) = default;
    friend std::ostream& operator<<(std::ostream& out, const TwinEntry& e) {
        out << "#" << e.id << "v" << e.version << " " << e.key << "," << e.note << ","
            << (e.quantity ? e.quantity->text() : "-") << "," << e.price.text() << "," << e.count << ","
            << (e.pieces ? std::to_string(*e.pieces) : "-") << "," << (e.due ? e.due->text() : "-") << ","
            << (e.at ? e.at->text() : "-") << "," << e.gift << " =" << e.amount.text() << ",";
        return out << e.tax.text() << " (" << e.secret << " " << e.number << ")";
    }
};

/// A row as the test reads it.
struct TwinRow {
    std::int32_t row = 0;
    RowId id{};
    TwinEntry entry;               ///< as far as its cells can be read
    std::set<std::int32_t> wrong;  ///< columns of cells that cannot be
    std::map<std::int32_t, std::string> texts;
};

/// Whether the host says which rows are lines, and whether they are numbered.
struct TwinKind {
    bool saysLines;
    bool numbered;
};

class TwinSheet : public ::testing::TestWithParam<TwinKind> {
  protected:
    enum Column : std::int32_t {
        Number,
        Key,
        Note,
        Quantity,
        Price,
        Count,
        Pieces,
        Due,
        At,
        Gift,
        Amount,
        Tax,
        Columns
    };

    TwinSheet() {
        sheet.identity(&TwinEntry::id).version(&TwinEntry::version);
        sheet.text("key", "键", &TwinEntry::key);
        sheet.text("note", "备注", &TwinEntry::note);
        sheet.number("quantity", "数量", &TwinEntry::quantity).decimals(3).total();
        sheet.number("price", "单价", &TwinEntry::price).decimals(2).required();
        sheet.number("count", "件数", &TwinEntry::count);
        sheet.number("pieces", "个数", &TwinEntry::pieces);
        sheet.date("due", "日期", &TwinEntry::due);
        sheet.moment("at", "时刻", &TwinEntry::at);
        sheet.flag("gift", "赠品", &TwinEntry::gift);
        sheet.number("amount", "金额", &TwinEntry::amount).decimals(2).total().computed(amountOf);
        sheet.number("tax", "税额", &TwinEntry::tax).decimals(2).computed(taxOf);
        sheet.rule("quantity", quantityHolds, "数量不能为零");
        if (GetParam().saysLines) sheet.inUse([](const TwinEntry& e) { return !e.key.empty(); });
        if (GetParam().numbered) sheet.position(&TwinEntry::number);
    }

    // --- What follows from a record, and what it has to keep.
    static Decimal amountOf(const TwinEntry& e) { return e.quantity.value_or(0) * e.price; }
    static Decimal taxOf(const TwinEntry& e) { return e.amount * Decimal("0.13"); }
    static bool quantityHolds(const TwinEntry& e) { return e.quantity != Decimal(0); }

    /// Columns of computed cells that cannot be made; the others are put into the entry.
    static std::set<std::int32_t> compute(TwinEntry& e) {
        std::set<std::int32_t> failed;
        const auto put = [&](std::int32_t col, Decimal TwinEntry::*member,
                             Decimal (*make)(const TwinEntry&)) {
            try {
                e.*member = make(e).rounded(2);
            } catch (const DecimalError&) {
                e.*member = 0;
                failed.insert(col);
            }
        };
        put(Amount, &TwinEntry::amount, amountOf);
        put(Tax, &TwinEntry::tax, taxOf);
        return failed;
    }

    TwinEntry entry(std::string key, std::string secret) {
        TwinEntry e;
        e.id = ++lastId;
        e.version = 1;
        e.key = std::move(key);
        e.secret = std::move(secret);
        return e;
    }

    // --- Reading, cell by cell.
    template <class T>
    static bool readNumber(const std::string& text, T& value) {
        if (text.empty()) return value = T(), true;
        try {
            std::size_t end = 0;
            const long long number = std::stoll(text, &end);
            if (end != text.size() || !(text[0] == '-' || (text[0] >= '0' && text[0] <= '9'))) return false;
            if (number < std::numeric_limits<T>::min() || number > std::numeric_limits<T>::max())
                return false;
            value = static_cast<T>(number);
            return true;
        } catch (const std::logic_error&) {
            return false;
        }
    }
    template <class T, class Read>
    static bool readOptional(const std::string& text, std::optional<T>& value, Read read) {
        value.reset();
        if (text.empty()) return true;
        T known{};
        if (!read(text, known)) return false;
        value = known;
        return true;
    }
    static bool readDecimal(const std::string& text, Decimal& value) {
        value = 0;
        if (text.empty()) return true;
        const auto known = Decimal::read(text);
        if (known) value = *known;
        return known.has_value();
    }
    template <class T>
    static bool readCalendar(const std::string& text, T& value) {
        const auto known = T::read(text);
        if (known) value = *known;
        return known.has_value();
    }
    /// A day alone is its midnight.
    static bool readMoment(const std::string& text, DateTime& value) {
        return readCalendar(text.size() == 10 ? text + " 00:00:00" : text, value);
    }
    static bool readCell(std::int32_t col, const std::string& text, TwinEntry& e) {
        switch (col) {
            case Key:
                return e.key = text, true;
            case Note:
                return e.note = text, true;
            case Quantity:
                return readOptional(text, e.quantity, readDecimal);
            case Price:
                return readDecimal(text, e.price);
            case Count:
                return readNumber(text, e.count);
            case Pieces:
                return readOptional(text, e.pieces, readNumber<std::int16_t>);
            case Due:
                return readOptional(text, e.due, readCalendar<Date>);
            case At:
                return readOptional(text, e.at, readMoment);
            case Gift:
                return e.gift = !text.empty() && text != "0", true;
            case Amount:
                return readDecimal(text, e.amount);
            default:
                return readDecimal(text, e.tax);
        }
    }
    TwinRow read(std::int32_t row) {
        TwinRow read{row, vs().IdOf(row), {}, {}, {}};
        if (const auto kept = saved.find(read.id); kept != saved.end()) read.entry = kept->second;
        for (std::int32_t col = Key; col < Columns; ++col) {
            read.texts[col] = vs().Text(row, col);
            if (!readCell(col, read.texts[col], read.entry)) read.wrong.insert(col);
        }
        return read;
    }
    std::vector<TwinRow> readAll() {
        std::vector<TwinRow> rows;
        std::int32_t number = 0;
        for (std::int32_t row = grid.FixedRows(); row < grid.Rows(); ++row) {
            rows.push_back(read(row));
            if (GetParam().numbered && inUse(rows.back())) rows.back().entry.number = ++number;
        }
        return rows;
    }
    static bool inUse(const TwinRow& row) {
        if (GetParam().saysLines) return !row.entry.key.empty();
        return std::any_of(row.texts.begin(), row.texts.end(),
                           [](const auto& cell) { return cell.first < Amount && !cell.second.empty(); });
    }

    // --- What is saved.
    RecordChanges<TwinEntry> expectedChanges(const std::vector<TwinRow>& rows) {
        RecordChanges<TwinEntry> changes;
        std::set<RowId> lines;
        for (const TwinRow& row : rows) {
            if (!inUse(row)) continue;
            lines.insert(row.id);
            const auto kept = saved.find(row.id);
            if (kept == saved.end())
                changes.added.push_back({row.id, row.entry});
            else if (!(kept->second == row.entry))
                changes.changed.push_back({row.id, kept->second, row.entry});
        }
        for (const auto& [id, line] : saved)
            if (!lines.contains(id)) changes.removed.push_back({id, line});
        return sayNoMoreThanTheirPlaces(changes, rows) ? RecordChanges<TwinEntry>() : changes;
    }
    /// Lines were loaded with gaps between their numbers, and stand as they did.
    bool sayNoMoreThanTheirPlaces(const RecordChanges<TwinEntry>& changes, const std::vector<TwinRow>& rows) {
        if (!changes.added.empty() || !changes.removed.empty()) return false;
        for (const auto& line : changes.changed) {
            TwinEntry after = line.after;
            after.number = line.before.number;
            if (!(after == line.before)) return false;
        }
        std::int32_t number = 0;
        return std::all_of(rows.begin(), rows.end(), [&](const TwinRow& row) {
            const auto kept = saved.find(row.id);
            return kept == saved.end() || std::exchange(number, kept->second.number) < kept->second.number;
        });
    }
    /// Writes changes into the database, as a host does, and ids and versions into them.
    void store(RecordChanges<TwinEntry>& changes) {
        for (auto& line : changes.added) {
            ASSERT_EQ(line.record.id, 0);
            ASSERT_EQ(line.record.version, 0);
            line.record.id = ++lastId;
            line.record.version = 1;
            line.record.secret = "secret of " + std::to_string(line.record.id);
            table[line.record.id] = line.record;
        }
        for (auto& line : changes.changed) {
            ASSERT_EQ(table.at(line.before.id), line.before);
            ++line.after.version;
            table.at(line.before.id) = line.after;
        }
        for (const auto& line : changes.removed) {
            ASSERT_EQ(table.at(line.before.id), line.before);
            table.erase(line.before.id);
        }
    }
    /// What the sheet has to take for saved from now on.
    void take(const RecordChanges<TwinEntry>& changes) {
        for (const auto& line : changes.added) saved[line.row] = line.record;
        for (const auto& line : changes.changed) saved[line.row] = line.after;
        for (const auto& line : changes.removed) saved.erase(line.row);
    }
    void load(std::vector<TwinEntry> lines) {
        std::int32_t number = 0;  // with gaps, as lines that were deleted elsewhere leave them
        for (TwinEntry& line : lines) line.number = number += 1 + static_cast<std::int32_t>(line.id % 2);
        ASSERT_TRUE(sheet.load(lines));
        saved.clear();
        table.clear();
        std::int32_t row = grid.FixedRows();
        for (TwinEntry line : lines) {
            compute(line);
            saved[vs().IdOf(row++)] = line;
            table[line.id] = line;
        }
        heard = false;
    }

    CellGrid& vs() { return grid.Grid(); }

    headless::Desk desk;
    kxGrid& grid = desk.place();
    Sheet<TwinEntry> sheet{grid};
    std::map<RowId, TwinEntry> saved;         ///< as it was loaded or accepted
    std::map<std::int64_t, TwinEntry> table;  ///< the database
    std::int64_t lastId = 100;
    bool heard = false;  ///< the sheet is modified, as far as it has told
};
}  // namespace kxVsGrid::testing
