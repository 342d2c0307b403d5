#include "kxVsGrid/cResize.h"

#include <algorithm>
#include <array>
#include <limits>
#include <optional>
#include <string>

#include "support/Numbers.h"
#include "support/Text.h"

namespace kxVsGrid {
namespace {

/// What of a control follows the form.
enum class Follow { Line, Place, PlaceAndWidth, Everything };

Follow followOf(const FormControl& control) {
    const std::string type = support::lowerCase(control.typeName);
    if (type == "line") return Follow::Line;
    if (type == "label" || type == "checkbox" || type == "optionbutton" || type == "shape")
        return Follow::Place;
    if (type == "combobox" || type == "textbox" || type == "dtpicker" || type == "vscrollbar")
        return Follow::PlaceAndWidth;
    constexpr std::int16_t Graphical = 1;
    if (type == "commandbutton" && control.Style != Graphical) return Follow::PlaceAndWidth;
    return Follow::Everything;
}

std::string record(const std::array<std::int32_t, 4>& numbers) {
    std::string text;
    for (const std::int32_t number : numbers) {
        if (!text.empty()) text += ' ';
        text += std::to_string(number);
    }
    return text;
}

/// As many numbers as `needed`, or nothing.
std::optional<std::array<double, 4>> readRecord(std::string_view tag, std::size_t needed) {
    std::array<double, 4> numbers{};
    for (std::size_t i = 0; i < needed; ++i) {
        const std::size_t blank = std::min(tag.find(' '), tag.size());
        const auto number = support::completeNumber(tag.substr(0, blank));
        if (!number) return std::nullopt;
        numbers[i] = *number;
        tag.remove_prefix(std::min(blank + 1, tag.size()));
    }
    return numbers;
}

std::optional<std::int32_t> twips(double value) {
    const double rounded = support::roundHalfEven(value);
    if (!(rounded >= std::numeric_limits<std::int32_t>::min() &&
          rounded <= std::numeric_limits<std::int32_t>::max()))
        return std::nullopt;
    return static_cast<std::int32_t>(rounded);
}
}  // namespace

void cResize::py_Init(Form& form, std::int32_t height, std::int32_t width) {
    const bool before = canResize_;
    canResize_ = false;
    height_ = height != 0 ? height : form.ScaleHeight();
    width_ = width != 0 ? width : form.ScaleWidth();
    for (const auto& control : form.controls()) {
        const Rect& place = control->place;
        control->Tag = followOf(*control) == Follow::Line
                           ? record({place.left, place.top, place.right(), place.bottom()})
                           : record({place.left, place.top, place.width, place.height});
    }
    canResize_ = before;
}

void cResize::ResizeForm(Form& form) const {
    if (!canResize_ || height_ == 0 || width_ == 0) return;
    const double vertical = static_cast<double>(form.ScaleHeight()) / height_;
    const double horizontal = static_cast<double>(form.ScaleWidth()) / width_;
    for (const auto& control : form.controls()) {
        const Follow follow = followOf(*control);
        const std::size_t needed = follow == Follow::Place ? 2 : follow == Follow::PlaceAndWidth ? 3 : 4;
        const auto numbers = readRecord(control->Tag, needed);
        if (!numbers) continue;
        const auto [t1, t2, t3, t4] = *numbers;
        const auto left = twips(t1 * horizontal);
        const auto top = twips(t2 * vertical);
        const auto third = twips(t3 * horizontal);
        const auto fourth = twips(t4 * vertical);
        if (!left || !top || !third || !fourth) continue;
        Rect place = control->place;
        place.left = *left;
        place.top = *top;
        if (follow == Follow::Line) {
            place.width = *third - *left;
            place.height = *fourth - *top;
        }
        if (follow == Follow::PlaceAndWidth || follow == Follow::Everything) place.width = *third;
        if (follow == Follow::Everything) place.height = *fourth;
        control->place = place;
        if (support::equalsIgnoringCase(control->typeName, "ComboBox")) control->selLength = 0;
    }
}

Rect cResize::sbFormCenter(std::int32_t width, std::int32_t height, const Rect& screen) {
    return {screen.left + std::max(0, (screen.width - width) / 2),
            screen.top + std::max(0, (screen.height - height) / 2), width, height};
}
}  // namespace kxVsGrid
