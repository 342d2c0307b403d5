// What governs moves of the current cell and what they bring with them.
#pragma once

namespace kxVsGrid::events {

struct MoveFlags {
    /// While False every move is refused. Changes of the editor's text set it True; nothing sets it False.
    bool MoveAllowed = true;
    /// Entered rows receive the columns' default texts.
    bool AutoDefault = true;
    /// The control itself moves the current cell out of the fixed area: the moves bring nothing with them.
    bool MovingInternally = false;
    /// A row/column change is being handled, or a typed key passed to the editor. A change under
    /// MovingInternally leaves it set until the next one clears it.
    bool ChangingRow = false;
    /// A press is delivered whose row its own commit has taken away: it leads nowhere and opens no menu.
    bool PressedRowGone = false;
};
}  // namespace kxVsGrid::events
