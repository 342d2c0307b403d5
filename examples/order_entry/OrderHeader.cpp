#include "OrderHeader.h"

#include <QDateEdit>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QSignalBlocker>

#include "FocusedWheel.h"
#include "PlainTip.h"

using namespace Qt::StringLiterals;

namespace {
constexpr int TextMargins = 12;  // of a line edit, both together
}

OrderHeader::OrderHeader(QWidget* parent)
    : QWidget(parent),
      number_(new QLineEdit(this)),
      date_(new QDateEdit(this)),
      customer_(new CustomerBox(this)),
      contact_(new QLabel(this)) {
    number_->setObjectName(u"number"_s);
    number_->setMaxLength(30);
    date_->setObjectName(u"date"_s);
    date_->setDisplayFormat(u"yyyy-MM-dd"_s);
    date_->setCalendarPopup(true);
    date_->setMinimumDate(QDate(1900, 1, 2));
    customer_->setObjectName(u"customer"_s);
    contact_->setObjectName(u"contact"_s);
    contact_->setTextFormat(Qt::PlainText);
    FocusedWheel::keep(*date_);
    layOut();
    number_->installEventFilter(this);
    date_->installEventFilter(this);
    connect(number_, &QLineEdit::textChanged, this, &OrderHeader::changed);
    connect(date_, &QDateEdit::dateChanged, this, &OrderHeader::changed);
    connect(date_, &QDateEdit::dateChanged, this, &OrderHeader::dateChanged);
    connect(customer_, &CustomerBox::customerChanged, this, &OrderHeader::showContact);
    connect(customer_, &CustomerBox::customerChanged, this, &OrderHeader::changed);
    connect(customer_, &CustomerBox::customerAccepted, this, &OrderHeader::done);
}

void OrderHeader::layOut() {
    // In a small window the number and the customer can be read, and the contact gives way.
    number_->setMinimumWidth(number_->fontMetrics().horizontalAdvance(u"XS-20261120-001 "_s) + TextMargins);
    customer_->setMinimumWidth(customer_->fontMetrics().horizontalAdvance(u"K0017  一二三四五六"_s));
    contact_->setMinimumWidth(1);
    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setHorizontalSpacing(8);
    const auto place = [&](const QString& caption, QWidget* field, int column) {
        auto* label = new QLabel(caption, this);
        label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        label->setBuddy(field);
        grid->addWidget(label, 0, column);
        grid->addWidget(field, 0, column + 1);
        grid->setColumnMinimumWidth(column + 2, 12);
    };
    place(u"单号(&U)"_s, number_, 0);
    place(u"日期(&T)"_s, date_, 3);
    place(u"客户(&C)"_s, customer_, 6);
    place(u"联系"_s, contact_, 9);
    grid->setColumnStretch(1, 3);
    grid->setColumnStretch(4, 2);
    grid->setColumnStretch(7, 6);
    grid->setColumnStretch(10, 4);
}

void OrderHeader::show(const Order& order) {
    {
        const QSignalBlocker quiet(this);
        number_->setText(order.number);
        date_->setDate(order.date);
        customer_->setCustomerId(order.customer);
    }
    showContact();
}

void OrderHeader::showNumber(const QString& number) {
    const QSignalBlocker quiet(this);
    number_->setText(number);
}

void OrderHeader::setReadOnly(bool readOnly) {
    number_->setReadOnly(readOnly);
    date_->setReadOnly(readOnly);
    customer_->setReadOnly(readOnly);
    for (QWidget* field :
         {static_cast<QWidget*>(number_), static_cast<QWidget*>(date_), static_cast<QWidget*>(customer_)}) {
        QPalette colors;  // the surroundings' own
        if (readOnly) colors.setBrush(QPalette::Base, palette().brush(QPalette::Window));
        field->setPalette(colors);
    }
}

void OrderHeader::read(Order& order) const {
    order.number = number();
    order.date = date();
    order.customer = customer_->customerId();
}

bool OrderHeader::customerUnclear() const {
    return customer_->customerId() == 0 && !customer_->text().trimmed().isEmpty();
}

QString OrderHeader::customerTyped() const {
    return customer_->text();
}

void OrderHeader::showTyped(const QString& customer) {
    {
        const QSignalBlocker quiet(this);
        customer_->setText(customer);
    }
    showContact();
}

QString OrderHeader::number() const {
    return number_->text().trimmed();
}

QDate OrderHeader::date() const {
    return date_->date();
}

void OrderHeader::focus(Field field) {
    QWidget* const fields[] = {number_, date_, customer_};
    QWidget* chosen = fields[static_cast<int>(field)];
    chosen->setFocus(Qt::TabFocusReason);
    if (field == Field::Customer) customer_->selectAll();
}

void OrderHeader::goOnTyping() {
    customer_->setFocus(Qt::OtherFocusReason);
    customer_->end(false);
}

void OrderHeader::showContact() {
    const Customer* chosen = customer_->customer();
    if (chosen)
        contact_->setText(chosen->contact + u"  "_s + chosen->phone);
    else
        contact_->setText(customer_->isHopeless() ? u"没有这个客户"_s : QString());
    contact_->setToolTip(plainTip(contact_->text()));
}

bool OrderHeader::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Return || key == Qt::Key_Enter) {
            focus(watched == number_ ? Field::Date : Field::Customer);
            return true;
        }
    }
    return QWidget::eventFilter(watched, event);
}
