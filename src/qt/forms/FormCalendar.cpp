// The month calendar of a form: Chinese, weeks from Monday.
#include <QAbstractItemView>
#include <QCalendarWidget>
#include <QLocale>
#include <QMouseEvent>
#include <QSignalBlocker>

#include "qt/forms/FormDialog.h"
#include "qt/forms/FormPart.h"

namespace kxVsGrid::qt {
namespace {

/// Hears double clicks on days. The calendar itself also reports Enter, and with some styles single clicks,
/// as such, and nothing for a day of the neighbouring months, to which it turns at the first click.
class DayClicks : public QObject {
  public:
    DayClicks(FormDialog& dialog, FormControl& control, QAbstractItemView& days)
        : QObject(&days), dialog_(dialog), control_(control), days_(days) {
        days.viewport()->installEventFilter(this);
    }

  protected:
    bool eventFilter(QObject* object, QEvent* event) override {
        if (event->type() == QEvent::MouseButtonPress)
            onDay_ = isDay(static_cast<const QMouseEvent&>(*event));
        if (event->type() != QEvent::MouseButtonDblClick || !onDay_)
            return QObject::eventFilter(object, event);
        onDay_ = false;
        dialog_.act([&](Form& form) { form.doubleClick(control_); });
        return true;
    }

  private:
    bool isDay(const QMouseEvent& press) const {
        const QModelIndex at = days_.indexAt(press.position().toPoint());
        return press.button() == Qt::LeftButton && at.isValid() && at.row() > 0;  // the first row is a header
    }

    FormDialog& dialog_;
    FormControl& control_;
    QAbstractItemView& days_;
    bool onDay_ = false;  // the last press, the first of a double click
};

DateTime withDay(DateTime value, QDate day) {
    value.year = day.year();
    value.month = day.month();
    value.day = day.day();
    return value;
}
}  // namespace

FormPart makeCalendar(FormDialog& dialog, FormControl& control) {
    auto* calendar = new QCalendarWidget(&dialog);
    calendar->setLocale(QLocale(QLocale::Chinese, QLocale::China));
    calendar->setFirstDayOfWeek(Qt::Monday);
    calendar->setVerticalHeaderFormat(QCalendarWidget::NoVerticalHeader);
    calendar->setDateRange({100, 1, 1}, {9999, 12, 31});
    calendar->setDateEditEnabled(false);  // its box would take Enter and Esc away from the form
    QObject::connect(calendar, &QCalendarWidget::selectionChanged, &dialog, [&dialog, &control, calendar] {
        const DateTime value = withDay(control.value, calendar->selectedDate());
        dialog.act([&](Form& form) { form.choose(control, value); });
    });
    if (auto* days = calendar->findChild<QAbstractItemView*>()) new DayClicks(dialog, control, *days);
    const auto mirror = [calendar, &control] {
        const QSignalBlocker quiet(calendar);
        const DateTime& value = control.value;
        calendar->setSelectedDate({value.year, value.month, value.day});
        calendar->setCurrentPage(value.year, value.month);
    };
    return {&control, calendar, calendar->focusProxy(), mirror};
}
}  // namespace kxVsGrid::qt
