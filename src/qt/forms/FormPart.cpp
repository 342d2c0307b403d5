#include "qt/forms/FormPart.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFrame>
#include <QLabel>
#include <QPushButton>
#include <QSignalBlocker>
#include <QTimeEdit>
#include <string_view>

#include "qt/forms/FormDialog.h"
#include "qt/forms/FormGrid.h"
#include "qt/forms/FormTextBox.h"
#include "qt/text/Encoding.h"

namespace kxVsGrid::qt {
namespace {

FormPart label(FormDialog& dialog, FormControl& control) {
    auto* label = new QLabel(&dialog);
    label->setTextFormat(Qt::PlainText);
    return {&control, label, nullptr, [label, &control] { label->setText(toQt(control.caption)); }};
}

FormPart textBox(FormDialog& dialog, FormControl& control) {
    auto* box = new FormTextBox(dialog, control);
    return {&control, box, nullptr, [box] { box->mirror(); }};
}

FormPart comboBox(FormDialog& dialog, FormControl& control) {
    auto* box = new QComboBox(&dialog);
    QObject::connect(box, &QComboBox::activated, &dialog, [&dialog, &control](int index) {
        dialog.act([&](Form& form) { form.pick(control, index); });
    });
    const auto mirror = [box, &control] {
        QStringList entries;
        for (const std::string& entry : control.list) entries << toQt(entry);
        const QSignalBlocker quiet(box);
        box->clear();
        box->addItems(entries);
        box->setCurrentIndex(static_cast<int>(entries.indexOf(toQt(control.text))));
    };
    return {&control, box, box, mirror};
}

FormPart checkBox(FormDialog& dialog, FormControl& control) {
    auto* box = new QCheckBox(&dialog);
    QObject::connect(box, &QCheckBox::clicked, &dialog, [&dialog, &control](bool checked) {
        dialog.act([&](Form& form) { form.check(control, checked); });
    });
    return {&control, box, box, [box, &control] {
                box->setText(toQt(control.caption));
                box->setChecked(control.checked);
            }};
}

FormPart button(FormDialog& dialog, FormControl& control) {
    auto* button = new QPushButton(&dialog);
    button->setAutoDefault(false);  // which button Enter presses, the form decides
    button->setDefault(control.isDefault);
    QObject::connect(button, &QPushButton::clicked, &dialog,
                     [&dialog, &control] { dialog.act([&](Form& form) { form.press(control); }); });
    return {&control, button, button, [button, &control] { button->setText(toQt(control.caption)); }};
}

FormPart grid(FormDialog& dialog, FormControl& control) {
    if (control.grid == nullptr) return {};
    auto* grid = new FormGrid(dialog, control);
    return {&control, grid, grid->focusProxy(), [grid] { grid->viewport()->update(); }};
}

FormPart timePicker(FormDialog& dialog, FormControl& control) {
    auto* picker = new QTimeEdit(&dialog);
    picker->setDisplayFormat(QStringLiteral("HH:mm:ss"));
    QObject::connect(picker, &QTimeEdit::timeChanged, &dialog, [&dialog, &control](QTime time) {
        DateTime value = control.value;
        value.hour = time.hour();
        value.minute = time.minute();
        value.second = time.second();
        dialog.act([&](Form& form) { form.choose(control, value); });
    });
    const auto mirror = [picker, &control] {
        const QSignalBlocker quiet(picker);
        picker->setTime({control.value.hour, control.value.minute, control.value.second});
    };
    return {&control, picker, picker, mirror, [picker] { picker->interpretText(); }};
}

FormPart line(FormDialog& dialog, FormControl& control) {
    auto* line = new QFrame(&dialog);
    return {&control, line, nullptr, [line, &control] {
                const bool across = std::abs(control.place.width) >= std::abs(control.place.height);
                line->setFrameShape(across ? QFrame::HLine : QFrame::VLine);
                line->setFrameShadow(QFrame::Sunken);
            }};
}

struct Maker {
    std::string_view typeName;
    FormPart (*make)(FormDialog& dialog, FormControl& control);
};

constexpr Maker makers[] = {
    {"Label", label},          {"TextBox", textBox}, {"ComboBox", comboBox}, {"CheckBox", checkBox},
    {"CommandButton", button}, {"kxButton", button}, {"CellGrid", grid},     {"MonthView", makeCalendar},
    {"DTPicker", timePicker},  {"Line", line},
};
}  // namespace

FormPart makePart(FormDialog& dialog, FormControl& control) {
    for (const Maker& maker : makers)
        if (maker.typeName == control.typeName) return maker.make(dialog, control);
    return {};
}
}  // namespace kxVsGrid::qt
