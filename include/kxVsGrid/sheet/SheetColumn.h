// A column of a sheet, as a host describes it: Sheet<Record>::text, number, code, ... answer one, and what is said
// of it counts from the first load on.
//
//     sheet.number("price", "单价", &Line::price).decimals(2).total();
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "kxVsGrid/sheet/ColumnPlan.h"

namespace kxVsGrid {

namespace sheet {

/// What can be said of every column; each answers the column itself, whichever kind it is.
template <class Column, class Record, class T>
class ColumnBuilder {
  public:
    ColumnBuilder(ColumnPlan& plan, T Record::*member) : plan_(plan), member_(member) {}

    /// The clerk cannot type there.
    Column& readOnly() { return put(plan_.readOnly, true); }
    /// Not shown at first.
    Column& hidden() { return put(plan_.hidden, true); }
    /// Summed in the total row.
    Column& total() { return put(plan_.total, true); }
    /// Takes what the other columns leave of the control's width.
    Column& stretch() { return put(plan_.stretch, true); }
    /// Numbers are rounded to so many decimals, halves away from zero, and shown with them.
    Column& decimals(int count) { return put(plan_.decimals, count); }
    /// How the values are shown (kxGrid::ColFormat), where decimals() is not enough.
    Column& format(std::string_view pattern) { return put(plan_.format, std::string(pattern)); }
    /// In twips, or as wide as a text in the font that shows it.
    Column& width(std::int32_t twips) { return put(plan_.width, twips); }
    Column& width(std::string_view sample) { return put(plan_.sample, std::string(sample)); }
    /// The most characters that can be typed.
    Column& limit(std::int16_t characters) { return put(plan_.limit, characters); }
    /// The smallest number that can be typed.
    Column& least(double number) { return put(plan_.least, number); }
    /// Where the texts stand in their cells. Without it numbers are on the right, dates and flags in the middle.
    Column& alignment(mEmflexAlign where) { return put(plan_.alignment, where); }
    /// Enter passes over a cell that is filled.
    Column& skipFilled() { return put(plan_.skipFilled, true); }
    /// What the clerk can do there, for a status line: Sheet::hint.
    Column& hint(std::string_view text) { return put(plan_.hint, std::string(text)); }
    /// An empty cell (a 0 where the member is not optional) of a line is a fault; of the lines alone of which
    /// `when` says so, where there is one. Such lines get what is preset by Sheet::commit.
    Column& required(std::function<bool(const Record&)> when = {}) {
        plan_.requiredWhen = {};
        if (when)
            plan_.requiredWhen = [when = std::move(when)](const void* record) {
                return when(*static_cast<const Record*>(record));
            };
        return put(plan_.required, true);
    }
    /// The same, and a 0 is a fault as well.
    Column& nonZero(std::function<bool(const Record&)> when = {}) {
        plan_.nonZero = true;
        return required(std::move(when));
    }
    /// Of what is missing here the control tells the clerk itself, in the way in which it tells of refused texts
    /// (GridOptions::Refusals): when such a fault is shown, and when kxGrid::IsValid is asked for a current cell of
    /// the column, whatever its line.
    Column& insists() { return put(plan_.insists, true); }
    /// What is said of a text that stands here and is no value, or not known, instead of the sheet's own words. %1
    /// is the text. Typed ones are refused in the words of refusal().
    Column& wrong(std::string_view text) { return put(plan_.wrong, std::string(text)); }
    /// What rows get that the clerk comes to. A row that becomes a line by a pasted block, where he has not been, gets
    /// its presets too, unless it has some already; the rest of the block comes after them.
    Column& preset(const T& value) {
        plan_.preset.clear();
        FieldText<T>::append(plan_.preset, value);
        return self();
    }
    /// Enter goes to the column of that name, in this row or in the next one.
    Column& enterTo(std::string_view name) {
        plan_.enterEndsRow = false;
        return put(plan_.enterTo, std::string(name));
    }
    Column& enterToNextRow(std::string_view name) {
        plan_.enterEndsRow = true;
        return put(plan_.enterTo, std::string(name));
    }
    /// Follows from the other members: made anew once for each step that has touched its row, in the order in
    /// which the computed columns were declared. The clerk cannot type there. Where it throws, the cell is empty
    /// and bears the reason as a problem.
    template <class Compute>
    Column& computed(Compute compute) {
        plan_.readOnly = true;
        plan_.computed = [member = member_, compute = std::move(compute)](void* record) {
            Record& line = *static_cast<Record*>(record);
            line.*member = compute(static_cast<const Record&>(line));
        };
        return self();
    }

  protected:
    template <class Value, class Given>
    Column& put(Value& place, Given&& value) {
        place = std::forward<Given>(value);
        return self();
    }
    Column& self() { return static_cast<Column&>(*this); }

    ColumnPlan& plan_;
    T Record::*member_;
};
}  // namespace sheet

template <class Record, class T>
class SheetColumn : public sheet::ColumnBuilder<SheetColumn<Record, T>, Record, T> {
  public:
    using sheet::ColumnBuilder<SheetColumn, Record, T>::ColumnBuilder;
};

/// A column of codes, whose records are a source's (Codes.h). What is typed is looked up: the cell gets the code as
/// the source writes it, with the name as its tag, and an unknown code is refused. F2 chooses from the source's list,
/// where it has one; suggestions come from the source too. A code that comes unchecked (by a fill, from code, with
/// what is loaded) and is unknown is a fault; it bears a mark from the step on that brings it.
///
/// Where the source throws, what the clerk typed is taken, and the cell is a fault and bears the reason as a mark.
/// The code is looked up again by the next step that touches the line, and when faults are asked for.
template <class Record, class T, class Code>
class CodeColumn : public sheet::ColumnBuilder<CodeColumn<Record, T, Code>, Record, T> {
  public:
    using sheet::ColumnBuilder<CodeColumn, Record, T>::ColumnBuilder;

    /// Other members follow from the code: called once whenever the code of a line has become another one, whoever
    /// has changed it, within the same step; what differs afterwards is written. In a pasted block it comes before
    /// the cells to the right of the code, and so it does where a record is put. Not for lines that are loaded,
    /// copied, or put back by undo or from a draft, nor for what code writes outside of steps.
    CodeColumn& found(std::function<void(Record&, const Code&)> follow) {
        this->plan_.found = [follow = std::move(follow)](void* record, const void* code) {
            follow(*static_cast<Record*>(record), *static_cast<const Code*>(code));
        };
        return *this;
    }
    /// The same for a code that was emptied. Without it the other members stay.
    CodeColumn& cleared(std::function<void(Record&)> follow) {
        this->plan_.cleared = [follow = std::move(follow)](void* record) {
            follow(*static_cast<Record*>(record));
        };
        return *this;
    }
    /// What is said of an unknown code. Without it 没有这个 and the caption.
    CodeColumn& refusal(std::string_view text) { return this->put(this->plan_.refusal, std::string(text)); }
    /// A code that bears a problem, one that is not found above all, is written in this colour. It comes and goes with
    /// the problem: by steps, by undo, with a draft, when faults are marked.
    CodeColumn& unknownColor(std::uint32_t rgb) { return this->put(this->plan_.unknownColor, rgb); }
};

/// A column of a few texts, which F2 offers. Another one is refused when it is typed, and a fault otherwise.
template <class Record, class T>
class ConstantsColumn : public sheet::ColumnBuilder<ConstantsColumn<Record, T>, Record, T> {
  public:
    using sheet::ColumnBuilder<ConstantsColumn, Record, T>::ColumnBuilder;

    /// Which other texts may stand in a line; the record has the text already. Where it throws nobody knows: what is
    /// typed is taken, and a fault.
    ConstantsColumn& also(std::function<bool(const Record&, const std::string& text)> may) {
        this->plan_.otherConstants = [may = std::move(may)](const void* record, const std::string& text) {
            return may(*static_cast<const Record*>(record), text);
        };
        return *this;
    }
    /// What a text is suggested by beside itself: a function of the member's type makes it.
    template <class Make>
    ConstantsColumn& initials(Make make) {
        this->plan_.otherName = [make = std::move(make)](const std::string& text) {
            T value{};
            std::string name;
            if (FieldText<T>::read(text, value)) FieldText<T>::append(name, make(value));
            return name;
        };
        return *this;
    }
    /// What is said of another text. Without it 只能是 and the texts.
    ConstantsColumn& refusal(std::string_view text) {
        return this->put(this->plan_.refusal, std::string(text));
    }
};
}  // namespace kxVsGrid
