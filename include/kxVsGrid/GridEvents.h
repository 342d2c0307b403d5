// The 24 events that a control raises to its host, in the order of their numbers.
//
// References can be changed by the listener; they arrive with the preset value that is named here. An
// exception that leaves a listener ends the routine that raised the event at that step: what it did before
// stays, what follows is not done, and the control goes on working.
#pragma once

#include <cstdint>
#include <string>

#include "kxVsGrid/Event.h"
#include "kxVsGrid/Variant.h"

namespace kxVsGrid {

struct GridEvents {
    /// The current cell is about to be left or its text checked. pReturnValue (preset 0) is not used.
    Event<std::int16_t&> ValidData{1};
    /// Before the editor opens.
    Event<> BeforeTextEdit{2};
    /// pCurrentRow, pbReturn: a row is about to be deleted; preset False refuses, True consents.
    Event<std::int32_t, bool&> DeleteVsRow{3};
    Event<> AfterDeleteVsRow{4};
    /// plCurrentRow, pbReturn: a row is about to be added. From the keyboard and while typing on the last row
    /// the preset is False (refused unless the host consents); from the row commands it is True.
    Event<std::int32_t, bool&> AddVsRow{5};
    /// psSqlString, psField_Code, psField_Name, psText; the host returns sReturnField_Code and
    /// sReturnField_Name, both preset empty. An empty name refuses the text.
    Event<const std::string&, const std::string&, const std::string&, const std::string&, std::string&,
          std::string&>
        TxtValidBmS{6};
    /// psGridCode; Grid_code, GridInfo, GridData: the code help needs its tables.
    Event<const Variant&, Variant&, Variant&, Variant&> GetHelpCodeInfo{7};
    /// px, py (twips of the screen), psText, pvarValue: the host shows its own help.
    Event<std::int32_t, std::int32_t, std::string&, Variant&> UserHelpEvent{8};
    /// Row, Col: after each commit of the editor, and after a Boolean cell was toggled.
    Event<std::int32_t, std::int32_t> AfterEdit{9};
    /// After the current cell has changed and was brought into view.
    Event<> RowColChange{10};
    /// psProgID, GridData: the edit button of the code lookup was pressed.
    Event<const std::string&, Variant&> GetHelpEdit{11};
    Event<> Click{12};
    /// Button, Shift, X, Y (twips), Cancel (preset False): True keeps the context menu away.
    Event<std::int16_t, std::int16_t, float, float, bool&> MouseDown{13};
    /// OldRow, OldCol, NewRow, NewCol, Cancel (preset False): True stops the move.
    Event<std::int32_t, std::int32_t, std::int32_t, std::int32_t, bool&> BeforeRowColChange{14};
    /// OldRow, OldCol, NewRow, NewCol: after default texts were filled into the entered row.
    Event<std::int32_t, std::int32_t, std::int32_t, std::int32_t> AfterRowColChange{15};
    Event<> SelChange{16};
    /// Row, Col: after a cell's text or tag has changed; one event for each of the two.
    Event<std::int32_t, std::int32_t> CellChanged{17};
    /// KeyCode, Shift: keys while the control itself, not its grid or editor, has the focus.
    Event<std::int16_t&, std::int16_t&> KeyUp{18};
    Event<std::int16_t&, std::int16_t&> keyDown{19};
    Event<std::int16_t&> KeyPress{20};
    /// After the editor was loaded from the entered cell.
    Event<> EnterCell{21};
    /// After the editor was opened by the double click.
    Event<> DblClick{22};
    /// Button, Shift, X, Y (twips).
    Event<std::int16_t&, std::int16_t&, float&, float&> MouseMove{23};
    /// pbReturn (preset False; True keeps copied data), piRow, pbCopyData, piSourceRow: a row command has
    /// added a row.
    Event<bool&, std::int32_t, bool, std::int32_t> AfterAddRow{24};
};
}  // namespace kxVsGrid
