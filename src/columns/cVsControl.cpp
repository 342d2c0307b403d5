#include "kxVsGrid/cVsControl.h"

#include "support/Text.h"

namespace kxVsGrid {

void cVsControl::sCellInput(std::string_view value) {
    sCellInput_ = support::lowerCase(support::trim(value));
    if (sCellInput_ == "row") sCellInput_ = "r";
    if (sCellInput_ == "col") sCellInput_ = "c";
}

void cVsControl::sDefaultText_Code(std::string_view value) {
    sDefaultText_Code_ = support::trim(value);
}

void cVsControl::sDefaultText_Name(std::string_view value) {
    sDefaultText_Name_ = support::trim(value);
}
}  // namespace kxVsGrid
