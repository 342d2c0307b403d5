// What the clerk is told of what a host's function has thrown.
#pragma once

#include <exception>
#include <string>
#include <string_view>

#include "kxVsGrid/support/Decimal.h"

namespace kxVsGrid::sheet {

/// Of the exception that is being handled; `otherwise` where it says nothing. A number that did not fit says it in
/// words for programmers.
inline std::string thrownReason(std::string_view otherwise) {
    try {
        throw;
    } catch (const DecimalError&) {
        return "结果太大，或者不能计算";
    } catch (const std::exception& error) {
        return *error.what() ? error.what() : std::string(otherwise);
    } catch (...) {
        return std::string(otherwise);
    }
}
}  // namespace kxVsGrid::sheet
