// Records on a grid: a host says once which member of its records stands in which column, and works with records
// from then on.
//
//     struct Line {
//         std::string name;
//         kxVsGrid::Decimal quantity, price, amount;
//     };
//     kxVsGrid::Sheet<Line> sheet(grid);
//     sheet.text("name", "品名", &Line::name);
//     sheet.number("quantity", "数量", &Line::quantity).decimals(3);
//     sheet.number("price", "单价", &Line::price).decimals(2);
//     sheet.number("amount", "金额", &Line::amount).decimals(2).total().computed([](const Line& line) {
//         return line.quantity * line.price;
//     });
//     sheet.load(std::vector<Line>{{"六角螺栓", 12, 3, 0}});
//     const std::vector<Line> lines = sheet.records();
//
// The grid's texts are the truth: a record is read from its row when somebody asks for it, and written back member
// by member, only what differs. Members without a column keep what was loaded, beside the grid: they are not copied
// with a row, and undo does not touch them. Lines begin below the fixed rows, columns after the fixed ones, in the
// order in which they are declared. A host may use the grid beside the sheet, which follows every step of changes;
// what code writes outside of steps (kxGrid::Step) is settled by recompute().
//
// The grid must outlive the sheet. A second sheet on one grid is refused with GridError, as a column that is declared
// after the first load is.
#pragma once

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <iterator>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

#include "kxVsGrid/sheet/Codes.h"
#include "kxVsGrid/sheet/RecordChanges.h"
#include "kxVsGrid/sheet/SheetBody.h"
#include "kxVsGrid/sheet/SheetColumn.h"

namespace kxVsGrid {

template <class Record>
class Sheet {
  public:
    explicit Sheet(kxGrid& grid) : body_(grid, &Sheet::make, ComputesTwice) {}

    // --- Columns
    // A name is the host's word for the column, the caption the clerk's. GridError for a name that is taken.
    template <class T>
    SheetColumn<Record, T> text(std::string_view name, std::string_view caption, T Record::*member) {
        return column<FieldKind::Text>(name, caption, member);
    }
    template <class T>
    SheetColumn<Record, T> number(std::string_view name, std::string_view caption, T Record::*member) {
        return column<FieldKind::Number>(name, caption, member);
    }
    template <class T>
    SheetColumn<Record, T> date(std::string_view name, std::string_view caption, T Record::*member) {
        return column<FieldKind::Date>(name, caption, member);
    }
    template <class T>
    SheetColumn<Record, T> moment(std::string_view name, std::string_view caption, T Record::*member) {
        return column<FieldKind::Moment>(name, caption, member);
    }
    /// Texts of a date and half of its day, as 2026-11-27 上午; checked as they are typed, with a calendar as help.
    /// Another text is a fault.
    template <class T>
    SheetColumn<Record, T> halfDay(std::string_view name, std::string_view caption, T Record::*member) {
        sheet::ColumnPlan& plan = planned<FieldKind::Text>(name, caption, member);
        plan.halfDay = true;
        return {plan, member};
    }
    /// A check box.
    template <class T>
    SheetColumn<Record, T> flag(std::string_view name, std::string_view caption, T Record::*member) {
        return column<FieldKind::Flag>(name, caption, member);
    }
    /// Codes of the records of a source: a text, or a number.
    template <class T, class Code>
    CodeColumn<Record, T, Code> code(std::string_view name, std::string_view caption, T Record::*member,
                                     const Codes<Code>& codes) {
        sheet::ColumnPlan& plan = chosen(name, caption, member);
        plan.codes = codes.source();
        return {plan, member};
    }
    /// A few texts, or numbers, as they stand in the cells.
    template <class T>
    ConstantsColumn<Record, T> constants(std::string_view name, std::string_view caption, T Record::*member,
                                         std::vector<std::string> texts) {
        sheet::ColumnPlan& plan = chosen(name, caption, member);
        plan.constants = std::move(texts);
        return {plan, member};
    }

    /// Where Enter goes from columns that the clerk can type into and of which nothing else is said.
    Sheet& enterToNextRow(std::string_view name) {
        body_.enterToNextRow(name);
        return *this;
    }

    // --- Lines
    /// Which rows are lines: fills end at the last one, checks and records() pass over the others. Without it a row
    /// is one that holds a text in some column that the clerk can type into and that has no preset.
    Sheet& inUse(std::function<bool(const Record&)> says) {
        body_.inUse([says = std::move(says)](const void* record) { return says(as(record)); });
        return *this;
    }
    /// What every line has to keep in the column: typing what breaks it is refused with the reason, and what breaks
    /// it otherwise is a fault.
    Sheet& rule(std::string_view name, std::function<bool(const Record&)> holds, std::string_view reason) {
        body_.rule(
            name, [holds = std::move(holds)](const void* record) { return holds(as(record)); }, reason, true);
        return *this;
    }
    /// The same for what a line has to be in the end: it can be typed otherwise, and is a fault then.
    Sheet& expects(std::string_view name, std::function<bool(const Record&)> holds, std::string_view reason) {
        body_.rule(
            name, [holds = std::move(holds)](const void* record) { return holds(as(record)); }, reason,
            false);
        return *this;
    }
    /// Called whenever the clerk has changed a cell of a row, within the same step: what differs in the record
    /// afterwards is written, with tags that were the cells' texts. Typing, toggling and pasting come here, with each
    /// cell, after what follows from a code; a fill of the menu too. What rows get by presets or as copies, undo, and
    /// what code writes do not.
    Sheet& edited(std::function<void(Record&, const sheet::Edited&)> follow) {
        body_.edited([follow = std::move(follow)](void* record, const sheet::Edited& cell) {
            follow(*static_cast<Record*>(record), cell);
        });
        return *this;
    }
    /// Called when a row has been made a copy of another one, within the same step: what differs in the record
    /// afterwards is written. False: it is to be an empty row.
    Sheet& copied(std::function<bool(Record&)> adapt) {
        body_.copied(
            [adapt = std::move(adapt)](void* record) { return adapt(*static_cast<Record*>(record)); });
        return *this;
    }
    /// Told, for the clerk, what does not work while he keys: why a code could not be looked up, why F2 shows nothing,
    /// and that a column has no help. Without it what lists of codes throw is a listener's fault, and F2 in a column
    /// without help does nothing.
    Sheet& failed(std::function<void(const std::string& why)> told) {
        body_.failed(std::move(told));
        return *this;
    }
    /// The reasons of faults in the host's own words; the sheet's are those of the fault that it is given.
    Sheet& wording(std::function<std::string(const Fault&)> says) {
        body_.wording(std::move(says));
        return *this;
    }
    /// Asked once before rows are deleted, with all of them, ascending: the current one, or those that are selected
    /// whole, which the Delete key deletes then too, as one step.
    Sheet& mayDelete(std::function<bool(const std::vector<std::int32_t>& rows)> asks) {
        body_.mayDelete(std::move(asks));
        return *this;
    }
    /// What reading makes of texts that are no values of their columns. Refused at first. They are faults of lines
    /// either way.
    Sheet& unreadable(sheet::Unreadable how) {
        body_.unreadable(how);
        return *this;
    }
    /// So many rows there are at least when lines have been loaded. 5 at first.
    Sheet& leastRows(std::int32_t rows) {
        body_.leastRows(rows);
        return *this;
    }
    /// The member that says which line it is: accept() demands one of every line that was added, which is another one
    /// than a new record has.
    template <class T>
    Sheet& identity(T Record::*member) {
        body_.identity(identified(member));
        return *this;
    }
    /// The member that counts the saves: accept() demands another one of every line that was changed.
    template <class T>
    Sheet& version(T Record::*member) {
        body_.version(identified(member));
        return *this;
    }
    /// The member that numbers the lines, from 1: with it a line that stands elsewhere has changed. Lines that were
    /// loaded with other numbers are not modified by that, and are among the changes of the next save.
    template <class T>
    Sheet& position(T Record::*member) {
        body_.position(
            {[member](void* record, std::int64_t number) {
                 static_cast<Record*>(record)->*member = static_cast<T>(number);
             },
             [member](const void* record) { return static_cast<std::int64_t>(as(record).*member); }});
        return *this;
    }

    /// What all lines have to keep together, debit and credit of a voucher for instance: answers why they do not,
    /// nothing where they do. save() asks it when no single cell is wrong.
    Sheet& together(std::function<std::string(const std::vector<Record>&)> why) {
        body_.together([why = std::move(why)](const std::vector<sheet::KeptRecord>& kept) {
            std::vector<Record> lines;
            lines.reserve(kept.size());
            for (const sheet::KeptRecord& line : kept) lines.push_back(as(line.get()));
            return why(lines);
        });
        return *this;
    }

    /// The lines of a range become the sheet's, and there is nothing to save or undo any more. Progress is asked now
    /// and then, and once when all lines are read; it ends it by False. When that happens, or the range throws,
    /// everything is as it was, what is being typed and what can be undone too. False when it was ended. What fails
    /// later, while the lines are put into the grid, comes through when all lines have gone, with nothing to save:
    /// memory that ends, a listener that throws.
    template <class Lines>
    requires(!std::is_invocable_v<Lines&>) bool load(const Lines& lines, sheet::Progress progress = {}) {
        sheet::SheetBody::Loading loading(body_, sizeOf(lines), std::move(progress));
        for (const auto& line : lines)
            if (!loading.add(std::make_shared<Record>(line))) return false;
        return loading.finish();
    }
    /// The same for lines that a function answers one by one, a query's for instance, until it answers none. `total` is
    /// what progress is told of their number.
    template <class Next>
    requires std::same_as<std::invoke_result_t<Next&>, std::optional<Record>>
    bool load(Next next, sheet::Progress progress = {}, std::size_t total = 0) {
        sheet::SheetBody::Loading loading(body_, total, std::move(progress));
        while (std::optional<Record> line = next())
            if (!loading.add(std::make_shared<Record>(*std::move(line)))) return false;
        return loading.finish();
    }

    /// The record of a row, zero-based. UnreadableCell where a text is no value of its column.
    Record record(std::int32_t row) const { return as(body_.record(row).get()); }
    /// The same of a row wherever it is; nothing when it has gone.
    std::optional<Record> find(RowId row) const {
        const sheet::KeptRecord found = body_.recordOf(row);
        return found ? std::optional<Record>(as(found.get())) : std::nullopt;
    }
    bool isInUse(std::int32_t row) const { return body_.isInUse(row); }
    /// The row behind the last line.
    std::int32_t endRow() const { return body_.endRow(); }
    /// All lines, as they stand.
    std::vector<Record> records() const {
        std::vector<Record> lines;
        for (const sheet::KeptRecord& line : body_.records()) lines.push_back(as(line.get()));
        return lines;
    }
    /// Writes what differs, as one step.
    void put(std::int32_t row, const Record& record) { body_.put(row, &record); }
    /// The same for what a function makes of the record.
    template <class Change>
    void edit(std::int32_t row, Change change) {
        Record line = record(row);
        change(line);
        put(row, line);
    }
    /// New lines below the last one, as one step. Answers their rows. What has no column is not taken along.
    template <class Lines>
    std::vector<std::int32_t> append(const Lines& lines) {
        std::vector<sheet::KeptRecord> records;
        for (const auto& line : lines) records.push_back(std::make_shared<const Record>(line));
        return body_.append(records);
    }
    /// Makes all computed columns anew, as one step: when they follow from something else than the line.
    void recompute() { body_.recompute(); }
    /// Of all lines, exact.
    Decimal sum(std::string_view name) const { return body_.sum(name); }
    /// What is being typed, and what follows from it, becomes part of the lines. False when it is refused, and still in
    /// the editor; the clerk has been told.
    bool commit() { return body_.commit(); }
    /// Before lines are saved: computed columns are made anew, and lines that lack something required get what is
    /// preset.
    void complete() { body_.complete(); }
    /// Makes a cell the current one and brings it into view; a row that is no line gets what is preset. It is nobody's
    /// step.
    void goTo(std::int32_t row, std::string_view name) { body_.goTo(row, name); }
    /// What was said of the current cell's column by hint(); empty where nothing was.
    std::string hint() const { return body_.hint(); }
    /// Another preset for the rows that the clerk comes to. Rows that are no lines, and hold the one of before or other
    /// presets, get it too, which is nobody's step; what is being typed is committed before. GridError for a value that
    /// is none of the column's type.
    template <class T>
    void preset(std::string_view name, const T& value) {
        std::string text;
        FieldText<T>::append(text, value);
        body_.preset(name, text);
    }
    /// Where the column is in the grid.
    std::int32_t col(std::string_view name) const { return body_.columnOf(name); }

    // --- What is to be saved
    /// Values are compared, not texts: 1.5 is 1.50. A line that moved has not changed, but for position().
    /// UnreadableCell where a text is no value of its column.
    RecordChanges<Record> changes() const { return typed(body_.changes()); }
    /// What was handed out is saved; the host has written ids and versions into it. What the clerk has typed
    /// meanwhile is still to be saved.
    void accept(const RecordChanges<Record>& changes) { body_.accept(untyped(changes)); }
    /// commit() and complete(), then looks for faults, has `write` save the changes, and accepts them: `write`
    /// gets them as RecordChanges<Record>&, which may be empty, and puts the new ids and versions in. What it
    /// throws comes through, but for LineRefused, and everything is still to be saved. It may load other lines,
    /// which are as they are saved then. Answers what kept it from saving, if anything did; the clerk has been
    /// taken to the cell.
    template <class Write>
    std::optional<Fault> save(Write write) {
        return body_.save([&](std::vector<sheet::AnyChange>& all) {
            RecordChanges<Record> changes = typed(all);
            write(changes);
            all = untyped(changes);
        });
    }
    /// Somebody else has saved a line as this: what the clerk has stays, is compared with it from now on, and takes its
    /// place with the next save; members without a column become those of the record. GridError for a line that was
    /// neither loaded nor saved.
    void storedAs(RowId row, const Record& record) {
        body_.storedAs(row, std::make_shared<const Record>(record));
    }
    /// There is something to save.
    bool modified() const { return body_.modified(); }
    /// Lines that were loaded or saved stand in another order than they did then. Not known to changes() without
    /// position().
    bool moved() const { return body_.moved(); }
    /// All lines are saved, as these, which are those of records() with what saving has written into them.
    template <class Lines>
    void saved(const Lines& lines) {
        std::vector<sheet::KeptRecord> all;
        for (const auto& line : lines) all.push_back(std::make_shared<const Record>(line));
        body_.saved(std::move(all));
    }
    /// Told when modified() has become another one, at the end of a step.
    Connection onModified(std::function<void(bool)> told) { return body_.onModified(std::move(told)); }
    /// Told at the end of each step that may have changed lines, and after each load: for sums and other answers about
    /// all lines.
    Connection onChanged(std::function<void()> told) { return body_.onChanged(std::move(told)); }

    // --- What is wrong
    /// The first cell that is not as it has to be, row by row. Moves nothing and asks the clerk nothing. Codes are
    /// looked up; what follows from one that could not be found before is written now, as one step.
    std::optional<Fault> firstFault() const { return body_.firstFault(); }
    std::vector<Fault> faults() const { return body_.faults(); }
    /// Marks the cells of all faults as problems, with the reasons, and answers how many there are. A mark changes and
    /// goes with its fault, whatever has put it right. A problem that a cell bears already, with a text that was
    /// refused there for instance, stays as it is.
    int markFaults() { return body_.markFaults(); }
    /// Takes all marks away, whoever has put them there.
    void clearMarks() { body_.clearMarks(); }

  private:
#ifdef NDEBUG
    static constexpr bool ComputesTwice = false;
#else
    static constexpr bool ComputesTwice = true;  // finds columns that do not settle
#endif

    static sheet::AnyRecord make(const void* original) {
        return original ? std::make_shared<Record>(as(original)) : std::make_shared<Record>();
    }
    static RecordChanges<Record> typed(const std::vector<sheet::AnyChange>& all) {
        RecordChanges<Record> changes;
        for (const sheet::AnyChange& change : all) {
            if (!change.before)
                changes.added.push_back({change.row, as(change.after.get())});
            else if (!change.after)
                changes.removed.push_back({change.row, as(change.before.get())});
            else
                changes.changed.push_back({change.row, as(change.before.get()), as(change.after.get())});
        }
        return changes;
    }
    static std::vector<sheet::AnyChange> untyped(const RecordChanges<Record>& changes) {
        const auto kept = [](const Record& record) { return std::make_shared<const Record>(record); };
        std::vector<sheet::AnyChange> all;
        for (const auto& line : changes.added) all.push_back({line.row, nullptr, kept(line.record)});
        for (const auto& line : changes.changed)
            all.push_back({line.row, kept(line.before), kept(line.after)});
        for (const auto& line : changes.removed) all.push_back({line.row, kept(line.before), nullptr});
        return all;
    }
    static const Record& as(const void* record) {
        return *static_cast<const Record*>(record);
    }
    template <class T>
    static sheet::Identity identified(T Record::*member) {
        return {
            [member](const void* record) { return !(as(record).*member == Record{}.*member); },
            [member](const void* one, const void* other) { return as(one).*member == as(other).*member; }};
    }
    template <class Lines>
    static std::size_t sizeOf(const Lines& lines) {
        if constexpr (requires { std::size(lines); })
            return static_cast<std::size_t>(std::size(lines));
        else
            return 0;
    }
    template <FieldKind Kind, class T>
    SheetColumn<Record, T> column(std::string_view name, std::string_view caption, T Record::*member) {
        return {planned<Kind>(name, caption, member), member};
    }
    template <FieldKind Kind, class T>
    sheet::ColumnPlan& planned(std::string_view name, std::string_view caption, T Record::*member) {
        static_assert(KnownField<T>,
                      "a sheet does not know the type of this member: specialise kxVsGrid::FieldText for it");
        if constexpr (KnownField<T>)
            static_assert(FieldText<T>::Kind == Kind,
                          "a sheet's column of this kind shows no member of this type");
        return body_.column(name, caption, field(member));
    }
    template <class T>
    sheet::ColumnPlan& chosen(std::string_view name, std::string_view caption, T Record::*member) {
        static_assert(KnownField<T>,
                      "a sheet does not know the type of this member: specialise kxVsGrid::FieldText for it");
        if constexpr (KnownField<T>)
            static_assert(FieldText<T>::Kind == FieldKind::Text || FieldText<T>::Kind == FieldKind::Number,
                          "codes and constants are texts or numbers");
        return body_.column(name, caption, field(member));
    }
    template <class T>
    static std::unique_ptr<sheet::Field> field(T Record::*member) {
        if constexpr (KnownField<T>)
            return std::make_unique<sheet::MemberField<Record, T>>(member);
        else
            return nullptr;
    }

    sheet::SheetBody body_;
};
}  // namespace kxVsGrid
