#include "CustomerBox.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QCompleter>
#include <QKeyEvent>
#include <QStandardItemModel>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace {
constexpr int SearchRole = Qt::UserRole;

QString shown(const Customer& customer) {
    return customer.code + u"  "_s + customer.name;
}

QString searchText(const Customer& customer) {
    return customer.code + u' ' + customer.name + u' ' + customer.pinyin;
}

// Searches in all that is known of a customer, but completes to what the field shows.
class CustomerCompleter : public QCompleter {
  public:
    using QCompleter::QCompleter;
    QString pathFromIndex(const QModelIndex& index) const override {
        return index.data(Qt::DisplayRole).toString();
    }
};
}  // namespace

CustomerBox::CustomerBox(QWidget* parent) : QLineEdit(parent), model_(new QStandardItemModel(this)) {
    auto* finder = new CustomerCompleter(model_, this);
    finder->setCompletionRole(SearchRole);
    finder->setFilterMode(Qt::MatchContains);
    finder->setCaseSensitivity(Qt::CaseInsensitive);
    finder->setMaxVisibleItems(12);
    setCompleter(finder);
    finder->popup()->installEventFilter(this);  // after the completer, so that this filter is asked first
    setPlaceholderText(u"编码、名称或拼音首字母"_s);
    connect(this, &QLineEdit::textChanged, this, &CustomerBox::customerChanged);
}

void CustomerBox::setCustomers(const std::vector<Customer>& customers) {
    customers_ = customers;
    model_->clear();
    for (const Customer& one : customers_) {
        auto* item = new QStandardItem(shown(one));
        item->setData(searchText(one), SearchRole);
        model_->appendRow(item);
    }
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

void CustomerBox::offer() {
    if (isReadOnly()) return;
    completer()->setCompletionPrefix(customer() ? QString() : text().trimmed());
    completer()->complete();
    QAbstractItemView* list = completer()->popup();
    if (list->model()->rowCount() > 0) list->setCurrentIndex(list->model()->index(0, 0));
}

void CustomerBox::enter() {
    QAbstractItemView* list = completer()->popup();
    if (list->isVisible() && list->currentIndex().isValid()) setText(list->currentIndex().data().toString());
    resolve();
    if (customer()) {
        list->hide();
        emit accepted();
    } else {
        offer();
    }
}

// The list of the completer hands its keys here first.
void CustomerBox::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
        case Qt::Key_Return:
        case Qt::Key_Enter:
            enter();
            break;
        case Qt::Key_Down:
            offer();
            break;
        default:
            QLineEdit::keyPressEvent(event);
    }
}

// A busy desktop still hands keys to the list for a moment after it was closed. They are meant for whoever
// has the keyboard now, and would end in this field.
bool CustomerBox::eventFilter(QObject* watched, QEvent* event) {
    const bool key = event->type() == QEvent::KeyPress || event->type() == QEvent::KeyRelease ||
                     event->type() == QEvent::ShortcutOverride;
    QWidget* list = completer() ? completer()->popup() : nullptr;
    QWidget* owner = QApplication::focusWidget();
    if (!key || watched != list || list->isVisible() || !owner || owner == list)
        return QLineEdit::eventFilter(watched, event);
    QCoreApplication::sendEvent(owner, event);
    return true;
}

void CustomerBox::focusOutEvent(QFocusEvent* event) {
    QLineEdit::focusOutEvent(event);
    if (event->reason() != Qt::PopupFocusReason && event->reason() != Qt::ActiveWindowFocusReason) resolve();
}
