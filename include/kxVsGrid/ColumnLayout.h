// How the clerk has laid out the columns: the widths that he has given them, those that he has hidden, and up to
// which one they are frozen. It is kept by the names of the columns, so that it outlives new, moved and dropped ones.
//
//     grid.ReDraw(true);                                        // the columns as they are designed
//     grid.Layout().Read(bag);                                  // as the clerk has left them
//     grid.Layout().Changed.connect([&] { grid.Layout().Write(bag); });
//
// A column is named by its definition's sName, else by the caption in the last header row; blanks around it do not
// count. Of two columns of the same name the first has it; the other, and one without a name, are not kept.
//
// What is kept is, in any PropertyBag, beside whatever else it holds:
//
// - ColumnLayout.Width.<name>    Int32: twips from Narrowest to Widest; 0 as designed
// - ColumnLayout.Hidden.<name>   Boolean: hidden by the clerk
// - ColumnLayout.Frozen          Text: the name of the last frozen column, empty for none; Empty as designed
//
// Each of them stands for itself: what is not there, or makes no sense, changes nothing, and what has another name
// is not looked at.
//
// "As designed" is what a width or the number of frozen columns was before the clerk, or Read, changed it first. What
// the host puts afterwards is designed anew: the clerk's change is over then. Columns that the host hides (ColHidden,
// bIsVisible) are not the clerk's, whoever hid them before; a set-up (ReDraw) leaves those of the clerk hidden.
#pragma once

#include <cstdint>

#include "kxVsGrid/Event.h"
#include "kxVsGrid/PropertyBag.h"

namespace kxVsGrid {

namespace columns {
class ClerkColumns;
}

class ColumnLayout {
  public:
    static constexpr std::int32_t Narrowest = 150;  ///< twips
    static constexpr std::int32_t Widest = 15'000;

    explicit ColumnLayout(columns::ClerkColumns& columns) : columns_(columns) {}
    ColumnLayout(const ColumnLayout&) = delete;
    ColumnLayout& operator=(const ColumnLayout&) = delete;

    /// Lays out the columns as it was kept; one that the bag does not know stays as it is. What the bag cannot
    /// give is passed over, whatever it throws but for want of memory. Where no data column would be left to be
    /// seen, none is hidden or shown. An open editor is committed first, and a current cell whose column is hidden
    /// goes to the next one that is shown, as by a key of the clerk's; where the host keeps it there, that column
    /// is not hidden.
    void Read(PropertyBag& bag);
    /// Keeps the layout of the columns that there are; others stay in the bag as they are. A width beyond Narrowest
    /// or Widest is kept as these. Lets through what the bag throws.
    void Write(PropertyBag& bag) const;
    /// Widths and frozen columns as designed; what the clerk has hidden is shown. An open editor is committed first.
    void Reset();

    /// The clerk has changed something of it: an edge dragged or double-clicked, a command, the header's menu.
    Event<> Changed;

  private:
    columns::ClerkColumns& columns_;
};
}  // namespace kxVsGrid
