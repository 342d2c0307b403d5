#include "CustomerBox.h"

#include <QKeyEvent>
#include <QListView>
#include <QStandardItemModel>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace {
constexpr int MostRowsShown = 12;

QString shown(const Customer& customer) {
    return customer.code + u"  "_s + customer.name;
}

QString searchText(const Customer& customer) {
    return customer.code + u' ' + customer.name + u' ' + customer.pinyin;
}
}  // namespace

CustomerBox::CustomerBox(QWidget* parent) : QLineEdit(parent), offered_(new QStandardItemModel(this)) {
    setPlaceholderText(u"编码、名称或拼音首字母"_s);
    connect(this, &QLineEdit::textChanged, this, &CustomerBox::customerChanged);
    connect(this, &QLineEdit::textEdited, this, [this](const QString& text) {
        if (text.trimmed().isEmpty())
            closeList();
        else
            offer(text.trimmed());
    });
}

CustomerBox::~CustomerBox() {
    delete list_;
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
    if (!takeChosen()) resolve();
    if (customer()) {
        closeList();
        emit accepted();
    } else {
        choose(1);
    }
}

// --- The list -------------------------------------------------------------------------------------------

bool CustomerBox::listShown() const {
    return list_ && list_->isVisible();
}

void CustomerBox::offer(const QString& text) {
    if (isReadOnly()) return;
    offered_->clear();
    for (const Customer& one : customers_) {
        if (!searchText(one).contains(text, Qt::CaseInsensitive)) continue;
        offered_->appendRow(new QStandardItem(shown(one)));
    }
    if (offered_->rowCount() == 0) {
        closeList();
        return;
    }
    if (!list_) {
        list_ = new QListView(window());
        list_->setObjectName(u"customers"_s);
        list_->setAccessibleName(u"客户"_s);
        list_->setFocusPolicy(Qt::NoFocus);
        list_->setEditTriggers(QAbstractItemView::NoEditTriggers);
        list_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        list_->setUniformItemSizes(true);
        list_->setModel(offered_);
        connect(list_, &QListView::clicked, this, &CustomerBox::take);
    }
    list_->setCurrentIndex({});
    list_->scrollToTop();
    placeList();
    list_->show();
    list_->raise();
}

void CustomerBox::placeList() {
    const int rows = std::min(offered_->rowCount(), MostRowsShown);
    const QPoint below = mapTo(window(), QPoint(0, height()));
    const int wanted = rows * list_->sizeHintForRow(0) + 2 * list_->frameWidth();
    list_->setGeometry(below.x(), below.y(), width(), std::min(wanted, window()->height() - below.y()));
}

void CustomerBox::choose(int step) {
    if (!listShown()) offer(customer() ? QString() : text().trimmed());
    if (!listShown()) return;
    const int last = offered_->rowCount() - 1;
    const int row = std::clamp(list_->currentIndex().row() + step, 0, last);
    list_->setCurrentIndex(offered_->index(row, 0));
}

bool CustomerBox::takeChosen() {
    if (!listShown() || !list_->currentIndex().isValid()) return false;
    take(list_->currentIndex());
    return true;
}

void CustomerBox::take(const QModelIndex& entry) {
    const QString chosen = entry.data().toString();
    closeList();
    setText(chosen);
    setCursorPosition(0);
}

void CustomerBox::closeList() {
    if (list_) list_->hide();
}

// --- Events ---------------------------------------------------------------------------------------------

void CustomerBox::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
        case Qt::Key_Return:
        case Qt::Key_Enter:
            return enter();
        case Qt::Key_Down:
            return choose(1);
        case Qt::Key_Up:
            if (listShown()) choose(-1);
            return;
        case Qt::Key_PageDown:
            return choose(MostRowsShown);
        case Qt::Key_PageUp:
            if (listShown()) choose(-MostRowsShown);
            return;
        case Qt::Key_Escape:
            if (!listShown()) break;
            return closeList();
        default:
            break;
    }
    QLineEdit::keyPressEvent(event);
}

void CustomerBox::mousePressEvent(QMouseEvent* event) {
    closeList();
    QLineEdit::mousePressEvent(event);
}

void CustomerBox::focusOutEvent(QFocusEvent* event) {
    QLineEdit::focusOutEvent(event);
    const bool comesBack =
        event->reason() == Qt::PopupFocusReason || event->reason() == Qt::ActiveWindowFocusReason;
    if (!comesBack && !takeChosen()) resolve();
    closeList();
}

void CustomerBox::resizeEvent(QResizeEvent* event) {
    QLineEdit::resizeEvent(event);
    if (listShown()) placeList();
}

void CustomerBox::hideEvent(QHideEvent* event) {
    closeList();
    QLineEdit::hideEvent(event);
}
