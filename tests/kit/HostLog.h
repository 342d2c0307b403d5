// Everything that a host hears from one control, as lines of text in the order of arrival, with the arguments
// as they came; and a host that fails at a chosen line.
#pragma once

#include <cstddef>
#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "kxVsGrid/kxGrid.h"

namespace kxVsGrid::testing {

using Lines = std::vector<std::string>;

inline std::string shown(bool value) {
    return value ? "True" : "False";
}
inline std::string shown(std::int32_t value) {
    return std::to_string(value);
}
inline std::string shown(float value) {
    return std::to_string(value);
}
inline std::string shown(const std::string& value) {
    return '"' + value + '"';
}
inline std::string shown(const Variant& value) {
    return value.isArray() ? "table" : value.toText();
}

/// One line: the event's name and its arguments.
template <class... Args>
std::string line(std::string_view name, const Args&... args) {
    std::string text(name);
    text += '(';
    std::string separator;
    ((text += separator + shown(args), separator = ", "), ...);
    return text + ')';
}

/// What a failing host throws.
struct HostFailure : std::runtime_error {
    HostFailure() : std::runtime_error("the host failed") {}
};

/// Connect it before the host's own handlers: it then logs the preset values.
class HostLog {
  public:
    explicit HostLog(kxGrid& grid) {
        listen(grid.ValidData, "ValidData");
        listen(grid.BeforeTextEdit, "BeforeTextEdit");
        listen(grid.DeleteVsRow, "DeleteVsRow");
        listen(grid.AfterDeleteVsRow, "AfterDeleteVsRow");
        listen(grid.AddVsRow, "AddVsRow");
        listen(grid.TxtValidBmS, "TxtValidBmS");
        listen(grid.GetHelpCodeInfo, "GetHelpCodeInfo");
        listen(grid.UserHelpEvent, "UserHelpEvent");
        listen(grid.AfterEdit, "AfterEdit");
        listen(grid.RowColChange, "RowColChange");
        listen(grid.GetHelpEdit, "GetHelpEdit");
        listen(grid.Click, "Click");
        listen(grid.MouseDown, "MouseDown");
        listen(grid.BeforeRowColChange, "BeforeRowColChange");
        listen(grid.AfterRowColChange, "AfterRowColChange");
        listen(grid.SelChange, "SelChange");
        listen(grid.CellChanged, "CellChanged");
        listen(grid.KeyUp, "KeyUp");
        listen(grid.keyDown, "keyDown");
        listen(grid.KeyPress, "KeyPress");
        listen(grid.EnterCell, "EnterCell");
        listen(grid.DblClick, "DblClick");
        listen(grid.MouseMove, "MouseMove");
        listen(grid.AfterAddRow, "AfterAddRow");
    }

    const Lines& lines() const { return lines_; }
    void clear() { lines_.clear(); }
    /// The host fails as soon as it hears the line with this index; -1 is never.
    void failAt(std::ptrdiff_t index) { failAt_ = index; }

  private:
    template <class... Args>
    void listen(Event<Args...>& event, std::string_view name) {
        event.connect([this, name](Args... args) {
            lines_.push_back(line(name, args...));
            if (std::ssize(lines_) == failAt_ + 1) throw HostFailure();
        });
    }

    Lines lines_;
    std::ptrdiff_t failAt_ = -1;
};
}  // namespace kxVsGrid::testing
