#include "kxVsGrid/ChangeListener.h"

namespace kxVsGrid {

void ChangeListener::written(std::int32_t, std::int32_t, CellPart, std::string_view,
                             std::string_view) noexcept {}
bool ChangeListener::hearsFilled() const noexcept {
    return false;
}
void ChangeListener::filled(std::int32_t, std::int32_t, std::uint32_t, std::uint32_t) noexcept {}
void ChangeListener::added(std::int32_t, std::int32_t) noexcept {}
void ChangeListener::removing(std::int32_t, std::int32_t) noexcept {}
void ChangeListener::reordered(std::int32_t, std::span<const std::int32_t>) noexcept {}
void ChangeListener::cleared(std::int32_t, std::int32_t) noexcept {}
void ChangeListener::columnsChanged() noexcept {}
void ChangeListener::shown(std::int32_t) noexcept {}
void ChangeListener::stepOpened(std::string_view, Cause) noexcept {}
void ChangeListener::stepClosed(std::string_view, Cause) noexcept {}
}  // namespace kxVsGrid
