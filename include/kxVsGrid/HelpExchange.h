// What the help of a column and its dialogs hand each other.
#pragma once

#include <string>

#include "kxVsGrid/Variant.h"

namespace kxVsGrid {

/// One record serves the whole program. A help that a host opens from inside another one's events leaves the
/// outer one's record as it was.
struct HelpExchange {
    std::string ReturnCode;  ///< what was chosen; both empty when nothing was
    std::string ReturnName;
    std::string SearchText;  ///< the editor's text
    std::string HelpCode;    ///< the column's sHelp_Code; the code lookup takes it over and clears it here
    Variant Grid_code;       ///< the host's answer to GetHelpCodeInfo
    Variant GridInfo;
    Variant GridData;
    /// While GetHelpEdit is raised: the code of the record that is highlighted, as OK would return it; empty
    /// without one. The code that the host leaves here is highlighted once the list is filled again.
    std::string RowCode;

    static HelpExchange& shared();
};
}  // namespace kxVsGrid
