// What is being handled, whatever it is: hosts may throw anything.
#pragma once

#include <exception>
#include <string>

namespace kxVsGrid::support {

/// What the exception that a `catch (...)` handles says of itself.
inline std::string currentError() {
    try {
        throw;
    } catch (const std::exception& error) {
        return error.what();
    } catch (...) {
        return "未知错误";
    }
}
}  // namespace kxVsGrid::support
