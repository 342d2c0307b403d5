#include "kxVsGrid/Form.h"

#include <algorithm>
#include <stdexcept>

#include "kxVsGrid/Enumerations.h"

namespace kxVsGrid {

Form::Form(std::string name, std::string caption, std::int32_t width, std::int32_t height)
    : name_(std::move(name)),
      caption_(std::move(caption)),
      designWidth_(width),
      designHeight_(height),
      width_(width),
      height_(height) {}

Form::~Form() = default;

void Form::startSize(std::int32_t width, std::int32_t height) {
    startWidth_ = width;
    startHeight_ = height;
}

FormControl& Form::control(std::string_view name) const {
    for (const auto& control : controls_)
        if (control->name == name) return *control;
    throw std::out_of_range("the form " + name_ + " has no control " + std::string(name));
}

// --- The machine

void Form::open(FormWindow& window) {
    window_ = &window;
    load();
    const auto start = [](std::int32_t asked, std::int32_t design) {
        return asked > 0 ? std::max(asked, design / 2) : design;
    };
    const std::int32_t width = start(startWidth_, designWidth_);
    const std::int32_t height = start(startHeight_, designHeight_);
    if (width != width_ || height != height_) resize(width, height);
}

void Form::resize(std::int32_t width, std::int32_t height) {
    width_ = width;
    height_ = height;
    resized();
}

void Form::closed() {
    if (!window_) return;
    window_ = nullptr;
    unload();
}

// --- The clerk

void Form::press(FormControl& button) {
    if (button.visible && button.enabled) pressed(button);
}

void Form::edit(FormControl& box, std::string_view text, std::int32_t selStart, std::int32_t selLength) {
    const bool differs = box.text != text;
    box.text = text;
    box.selStart = selStart;
    box.selLength = selLength;
    if (differs) textChanged(box);
}

void Form::check(FormControl& box, bool checked) {
    if (box.checked == checked) return;
    box.checked = checked;
    checkChanged(box);
}

void Form::pick(FormControl& list, std::int32_t index) {
    if (index < 0 || index >= static_cast<std::int32_t>(list.list.size())) return;
    list.text = list.list[static_cast<std::size_t>(index)];
    picked(list);
}

void Form::choose(FormControl& calendar, const DateTime& value) {
    if (calendar.value == value) return;
    calendar.value = value;
    chosen(calendar);
}

void Form::doubleClick(FormControl& control) {
    doubleClicked(control);
}

bool Form::key(FormControl& focused, std::int16_t code, std::int16_t shift) {
    if (keyDown(focused, code, shift)) return true;
    const auto key = static_cast<Key>(code);
    if (key != Key::Enter && key != Key::Escape) return false;
    // A button that has the keyboard is the one that Enter presses.
    const bool onButton = focused.typeName == "CommandButton" || focused.typeName == "kxButton";
    if (key == Key::Enter && onButton) {
        press(focused);
        return true;
    }
    for (const auto& control : controls_) {
        if (key == Key::Enter ? control->isDefault : control->isCancel) {
            press(*control);
            return true;
        }
    }
    if (key == Key::Escape) close();
    return true;
}

// --- The form's own

FormControl& Form::add(std::string_view typeName, std::string_view name, std::string_view caption,
                       Rect place) {
    auto control = std::make_unique<FormControl>();
    control->typeName = typeName;
    control->name = name;
    control->caption = caption;
    control->place = place;
    controls_.push_back(std::move(control));
    return *controls_.back();
}

void Form::changed(const FormControl& control) {
    if (window_) window_->changed(control);
}

void Form::giveFocus(const FormControl& control) {
    if (window_) window_->giveFocus(control);
}

void Form::close() {
    if (window_) window_->close();
}

void Form::pressed(FormControl&) {}
void Form::textChanged(FormControl&) {}
void Form::checkChanged(FormControl&) {}
void Form::picked(FormControl&) {}
void Form::chosen(FormControl&) {}
void Form::doubleClicked(FormControl&) {}
bool Form::keyDown(FormControl&, std::int16_t, std::int16_t) {
    return false;
}
}  // namespace kxVsGrid
