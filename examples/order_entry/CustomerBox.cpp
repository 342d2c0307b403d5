#include "CustomerBox.h"

#include <QKeyEvent>
#include <algorithm>

using namespace kxVsGrid;
using namespace Qt::StringLiterals;

namespace {
QString shown(const Customer& customer) {
    return customer.code + u"  "_s + customer.name;
}

QString searchText(const Customer& customer) {
    return customer.code + u' ' + customer.name + u' ' + customer.pinyin;
}
}  // namespace

CustomerBox::CustomerBox(QWidget* parent) : SuggestingLineEdit(parent) {
    setPlaceholderText(u"编码、名称或拼音首字母"_s);
    suggest([this](const SuggestionRequest& request) {
        request.answer(matches(QString::fromStdString(request.text)));
    });
    connect(this, &QLineEdit::textChanged, this, &CustomerBox::customerChanged);
    connect(this, &SuggestingLineEdit::taken, this, [this] { setCursorPosition(0); });
    connect(this, &SuggestingLineEdit::accepted, this, &CustomerBox::enter);
}

void CustomerBox::setCustomers(const std::vector<Customer>& customers) {
    customers_ = customers;
    closeList();
    emit customerChanged();
}

const Customer* CustomerBox::customer() const {
    const QString typed = text();
    const auto found = std::find_if(customers_.begin(), customers_.end(),
                                    [&](const Customer& one) { return shown(one) == typed; });
    return found == customers_.end() ? nullptr : &*found;
}

qint64 CustomerBox::customerId() const {
    const Customer* chosen = customer();
    return chosen ? chosen->id : 0;
}

void CustomerBox::setCustomerId(qint64 id) {
    const auto found =
        std::find_if(customers_.begin(), customers_.end(), [&](const Customer& one) { return one.id == id; });
    setText(found == customers_.end() ? QString() : shown(*found));
    setCursorPosition(0);
}

const Customer* CustomerBox::meant() const {
    const QString typed = text().trimmed();
    if (typed.isEmpty()) return nullptr;
    const Customer* only = nullptr;
    int matches = 0;
    for (const Customer& one : customers_) {
        if (typed.compare(one.code, Qt::CaseInsensitive) == 0 || typed == one.name) return &one;
        if (!searchText(one).contains(typed, Qt::CaseInsensitive)) continue;
        only = &one;
        ++matches;
    }
    return matches == 1 ? only : nullptr;
}

bool CustomerBox::isHopeless() const {
    const QString typed = text().trimmed();
    return !typed.isEmpty() && !customer() &&
           std::none_of(customers_.begin(), customers_.end(), [&](const Customer& one) {
               return searchText(one).contains(typed, Qt::CaseInsensitive);
           });
}

void CustomerBox::resolve() {
    if (customer()) return;
    if (const Customer* one = meant()) setCustomerId(one->id);
}

void CustomerBox::enter() {
    resolve();
    if (customer())
        emit customerAccepted();
    else
        offerThoseMeant();
}

std::vector<Suggestion> CustomerBox::matches(const QString& text) const {
    std::vector<Suggestion> found;
    for (const Customer& one : customers_)
        if (searchText(one).contains(text, Qt::CaseInsensitive))
            found.push_back({shown(one).toStdString(), {}, {}});
    return found;
}

void CustomerBox::offerThoseMeant() {
    offer(matches(customer() ? QString() : text().trimmed()));
}

void CustomerBox::keyPressEvent(QKeyEvent* event) {
    const bool offers = event->key() == Qt::Key_Down || event->key() == Qt::Key_PageDown;
    if (offers && !listShown()) return offerThoseMeant();
    SuggestingLineEdit::keyPressEvent(event);
    event->accept();
}

void CustomerBox::focusOutEvent(QFocusEvent* event) {
    SuggestingLineEdit::focusOutEvent(event);
    const bool comesBack =
        event->reason() == Qt::PopupFocusReason || event->reason() == Qt::ActiveWindowFocusReason;
    if (!comesBack) resolve();
}
