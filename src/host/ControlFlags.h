// The control's own switches, as its public properties show them.
#pragma once

namespace kxVsGrid::host {

struct ControlFlags {
    bool Editable = false;
    bool bIsShowZero = false;
    bool SumRow = false;
    bool ReDraw = false;
    /// The clerk has changed a cell; `bIsDirty` shows it while the control is editable.
    bool changed = false;
};
}  // namespace kxVsGrid::host
