// A column of a sheet, as a host describes it: Sheet<Record>::text, number, ... answer one, and what is said of
// it counts from the first load on.
//
//     sheet.number("price", "单价", &Line::price).decimals(2).total();
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <utility>

#include "kxVsGrid/sheet/ColumnPlan.h"

namespace kxVsGrid {

template <class Record, class T>
class SheetColumn {
  public:
    SheetColumn(sheet::ColumnPlan& plan, T Record::*member) : plan_(plan), member_(member) {}

    /// The clerk cannot type there.
    SheetColumn& readOnly() { return put(plan_.readOnly, true); }
    /// Not shown at first.
    SheetColumn& hidden() { return put(plan_.hidden, true); }
    /// Summed in the total row.
    SheetColumn& total() { return put(plan_.total, true); }
    /// Takes what the other columns leave of the control's width.
    SheetColumn& stretch() { return put(plan_.stretch, true); }
    /// Numbers are rounded to so many decimals, halves away from zero, and shown with them.
    SheetColumn& decimals(int count) { return put(plan_.decimals, count); }
    /// How the values are shown (kxGrid::ColFormat), where decimals() is not enough.
    SheetColumn& format(std::string_view pattern) { return put(plan_.format, std::string(pattern)); }
    /// In twips, or as wide as a text in the font that shows it.
    SheetColumn& width(std::int32_t twips) { return put(plan_.width, twips); }
    SheetColumn& width(std::string_view sample) { return put(plan_.sample, std::string(sample)); }
    /// The most characters that can be typed.
    SheetColumn& limit(std::int16_t characters) { return put(plan_.limit, characters); }
    /// An empty cell (a 0 where the member is not optional) of a line is a fault.
    SheetColumn& required() { return put(plan_.required, true); }
    /// What rows get that the clerk comes to.
    SheetColumn& preset(const T& value) {
        plan_.preset.clear();
        FieldText<T>::append(plan_.preset, value);
        return *this;
    }
    /// Enter goes to the column of that name, in this row or in the next one.
    SheetColumn& enterTo(std::string_view name) {
        plan_.enterEndsRow = false;
        return put(plan_.enterTo, std::string(name));
    }
    SheetColumn& enterToNextRow(std::string_view name) {
        plan_.enterEndsRow = true;
        return put(plan_.enterTo, std::string(name));
    }
    /// Follows from the other members: made anew once for each step that has touched its row, in the order in
    /// which the computed columns were declared. The clerk cannot type there. Where it throws, the cell is empty
    /// and bears the reason as a problem.
    template <class Compute>
    SheetColumn& computed(Compute compute) {
        plan_.readOnly = true;
        plan_.computed = [member = member_, compute = std::move(compute)](void* record) {
            Record& line = *static_cast<Record*>(record);
            line.*member = compute(static_cast<const Record&>(line));
        };
        return *this;
    }

  protected:
    template <class Value, class Given>
    SheetColumn& put(Value& place, Given&& value) {
        place = std::forward<Given>(value);
        return *this;
    }
    sheet::ColumnPlan& plan_;
    T Record::*member_;
};
}  // namespace kxVsGrid
