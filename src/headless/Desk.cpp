// The machine: its controls, their seats, its boxes and its clock.
#include "kxVsGrid/headless/Desk.h"

#include <algorithm>
#include <stdexcept>

#include "headless/Call.h"
#include "headless/DeskSeat.h"
#include "headless/Station.h"

namespace kxVsGrid::headless {
Desk::Desk() : records_(std::make_unique<Records>()) {}

Desk::~Desk() {
    for (auto& station : stations_) station->grid.reset();  // whose seats keep the stations
}

std::unique_ptr<Seat> Desk::seat(kxGrid& control) {
    auto station = std::make_shared<Station>();
    station->address = &control;
    stations_.push_back(std::move(station));
    return std::make_unique<DeskSeat>(*this, stations_.back());
}

kxGrid& Desk::place() {
    auto control = std::make_unique<kxGrid>(*this);
    use(*control);
    current_->grid = std::move(control);
    current_->grid->InitProperties();
    station().input()->resized(records_->width, records_->height);
    return *current_->grid;
}

kxGrid& Desk::load(PropertyBag& bag) {
    auto control = std::make_unique<kxGrid>(*this);
    use(*control);
    current_->grid = std::move(control);
    current_->grid->ReadProperties(bag);
    station().input()->resized(records_->width, records_->height);
    return *current_->grid;
}

void Desk::use(kxGrid& grid) {
    for (auto& station : stations_)
        if (station->address == &grid) current_ = station.get();
}

kxGrid& Desk::grid() {
    return *station().address;
}

Desk::Station& Desk::station() const {
    if (!current_) throw std::logic_error("the desk has no control: place() one first");
    return *current_;
}

void Desk::remove(kxGrid& grid) {
    for (auto& station : stations_)
        if (station->address == &grid) station->removed = true;
    if (records_->calls == 0) sweep();
}

/// Lets go of controls that were removed; none of their code is running any more.
void Desk::sweep() {
    for (auto& station : stations_) {
        if (!station->removed) continue;
        if (records_->focused == station.get()) {
            records_->focused = nullptr;
            records_->place = FocusPlace::Elsewhere;
        }
        if (current_ == station.get()) current_ = nullptr;
        station->grid.reset();
    }
    std::erase_if(stations_, [](const auto& station) { return station->removed; });
}

void Desk::moveFocus(Station* station, FocusPlace place) {
    Station* before = records_->focused;
    records_->focused = place == FocusPlace::Elsewhere ? nullptr : station;
    records_->place = place;
    if (before && before != records_->focused) before->input()->focusMoved(FocusPlace::Elsewhere);
    // What the loss brought about may have moved the keyboard again.
    if (station && records_->focused == station && records_->place == place)
        station->input()->focusMoved(place);
}

FocusPlace Desk::focusOwner() const {
    return records_->focused == current_ ? records_->place : FocusPlace::Elsewhere;
}

// --- Platform

const TextMetrics& Desk::textMetrics() const {
    return TextMetrics::fixed();
}

DateTime Desk::now() const {
    return records_->now;
}

void Desk::showMessage(const MessageBox& box) {
    records_->messages.push_back(box);
}

void Desk::showTip(std::string_view text, const Rect&) {
    records_->tips.emplace_back(text);
}

std::optional<std::string> Desk::askText(const InputBox& box) {
    records_->inputBoxes.push_back(box);
    if (records_->answers.empty()) return std::nullopt;
    auto answer = std::move(records_->answers.front());
    records_->answers.pop_front();
    return answer;
}

MenuChoice Desk::popUp(const Menu& menu, const Rect& anchor) {
    Call call(*this);
    records_->lastMenu = menu;
    PoppedMenu popped(menu, anchor);
    if (records_->menuScript) records_->menuScript(popped);
    return popped.choice();
}

void Desk::waitCursor(bool on) {
    if (on) ++records_->waits;
}

void Desk::showForm(Form& form, const Rect& anchor) {
    Call call(*this);
    records_->handsFor(form).work(form, [&] {
        records_->dialogs.push_back({form.name(), form.ScaleWidth(), form.ScaleHeight(), anchor});
    });
}

void Desk::copyToClipboard(const ClipboardContent& content) {
    records_->clipboard = content;
}

ClipboardContent Desk::clipboardContent() const {
    return records_->clipboard;
}

std::unique_ptr<Progress> Desk::progress(std::string_view, std::int64_t total) {
    class Scripted : public Progress {
      public:
        Scripted(Desk& desk, std::int64_t total) : desk_(desk), total_(total) {}
        bool goOn(std::int64_t done) override {
            const auto script = desk_.records_->progressScript;  // it may give the desk another one
            return !script || script(done, total_);
        }

      private:
        Desk& desk_;
        std::int64_t total_;
    };
    return std::make_unique<Scripted>(*this, total);
}

void Desk::processPendingInput() {}

// --- Records

const std::vector<MessageBox>& Desk::messages() const {
    return records_->messages;
}

const std::vector<InputBox>& Desk::inputBoxes() const {
    return records_->inputBoxes;
}

const std::vector<std::string>& Desk::tips() const {
    return records_->tips;
}

Desk& Desk::answerInputBox(std::string answer) {
    records_->answers.emplace_back(std::move(answer));
    return *this;
}

Desk& Desk::cancelInputBox() {
    records_->answers.emplace_back(std::nullopt);
    return *this;
}

Desk& Desk::onPopup(std::function<void(PoppedMenu&)> script) {
    records_->menuScript = std::move(script);
    return *this;
}

const Menu& Desk::lastMenu() const {
    if (!records_->lastMenu) throw std::logic_error("no menu has popped up");
    return *records_->lastMenu;
}

int Desk::waits() const {
    return records_->waits;
}

Desk& Desk::onDialog(std::function<void(LookupDialog&)> script) {
    records_->handsAt<LookupDialog>().script = std::move(script);
    return *this;
}

Desk& Desk::onDialog(std::function<void(CalendarDialog&)> script) {
    records_->handsAt<CalendarDialog>().script = std::move(script);
    return *this;
}

Desk& Desk::onDialog(std::function<void(ConstantDialog&)> script) {
    records_->handsAt<ConstantDialog>().script = std::move(script);
    return *this;
}

Desk& Desk::onDialog(std::function<void(FormDialog&)> script) {
    records_->anyHands.script = std::move(script);
    return *this;
}

const std::vector<ShownDialog>& Desk::dialogs() const {
    return records_->dialogs;
}

const std::string& Desk::clipboard() const {
    return records_->clipboard.text;
}

Desk& Desk::clipboard(std::string_view text) {
    copyToClipboard({std::string(text), {}, false});
    return *this;
}

Desk& Desk::onProgress(std::function<bool(std::int64_t, std::int64_t)> script) {
    records_->progressScript = std::move(script);
    return *this;
}

const std::optional<WheelHookState>& Desk::wheelHook() const {
    return station().wheelHook;
}

const std::vector<bool>& Desk::findBars() const {
    return station().findBars;
}
const ShownSuggestions& Desk::suggestions() const {
    return station().suggestions;
}

const std::vector<std::string>& Desk::reports() const {
    return records_->reports;
}

int Desk::leftControl() const {
    return records_->leftControl;
}

Desk& Desk::setNow(std::int32_t year, std::int32_t month, std::int32_t day, std::int32_t hour,
                   std::int32_t minute, std::int32_t second) {
    records_->now = {year, month, day, hour, minute, second};
    return *this;
}

Desk& Desk::clear() {
    records_->messages.clear();
    records_->inputBoxes.clear();
    records_->tips.clear();
    records_->dialogs.clear();
    records_->lastMenu.reset();
    records_->waits = 0;
    records_->reports.clear();
    records_->clipboard = {};
    records_->leftControl = 0;
    return *this;
}
}  // namespace kxVsGrid::headless
