#include "CustomerBox.h"

#include <QAbstractItemView>
#include <QCompleter>
#include <QLineEdit>

using namespace Qt::StringLiterals;

namespace {
constexpr int SearchRole = Qt::UserRole;
constexpr int IdRole = Qt::UserRole + 1;

// Searches in all that is known of a customer, but completes to what the box shows.
class CustomerCompleter : public QCompleter {
  public:
    using QCompleter::QCompleter;
    QString pathFromIndex(const QModelIndex& index) const override {
        return index.data(Qt::DisplayRole).toString();
    }
};
}  // namespace

CustomerBox::CustomerBox(QWidget* parent) : QComboBox(parent) {
    setEditable(true);
    setInsertPolicy(QComboBox::NoInsert);
    setMaxVisibleItems(15);
    auto* finder = new CustomerCompleter(this);
    finder->setModel(model());
    finder->setCompletionRole(SearchRole);
    finder->setFilterMode(Qt::MatchContains);
    finder->setCaseSensitivity(Qt::CaseInsensitive);
    finder->setMaxVisibleItems(12);
    setCompleter(finder);
    lineEdit()->setPlaceholderText(u"编码、名称或拼音首字母"_s);
    connect(lineEdit(), &QLineEdit::editingFinished, this, &CustomerBox::resolve);
    connect(this, &QComboBox::currentIndexChanged, this, &CustomerBox::customerChanged);
    connect(this, &QComboBox::editTextChanged, this, &CustomerBox::customerChanged);
}

void CustomerBox::setCustomers(const std::vector<Customer>& customers) {
    const qint64 chosen = customerId();
    const QString typed = currentText();
    customers_ = customers;
    clear();
    for (const Customer& one : customers_) {
        addItem(one.code + u"  "_s + one.name);
        setItemData(count() - 1, one.code + u' ' + one.name + u' ' + one.pinyin, SearchRole);
        setItemData(count() - 1, one.id, IdRole);
    }
    setCustomerId(chosen);
    if (chosen == 0) setEditText(typed);
}

qint64 CustomerBox::customerId() const {
    const Customer* chosen = customer();
    return chosen ? chosen->id : 0;
}

const Customer* CustomerBox::customer() const {
    const int index = currentIndex();
    if (index < 0 || currentText() != itemText(index)) return nullptr;
    return &customers_[static_cast<std::size_t>(index)];
}

void CustomerBox::setCustomerId(qint64 id) {
    setCurrentIndex(id == 0 ? -1 : findData(id, IdRole));
    if (currentIndex() < 0) setEditText(QString());
}

int CustomerBox::indexMeant() const {
    const QString typed = currentText().trimmed();
    int meant = -1;
    for (int i = 0; i < count() && !typed.isEmpty(); ++i) {
        const Customer& one = customers_[static_cast<std::size_t>(i)];
        if (typed.compare(one.code, Qt::CaseInsensitive) == 0 || typed == one.name || typed == itemText(i))
            return i;
        if (!itemData(i, SearchRole).toString().contains(typed, Qt::CaseInsensitive)) continue;
        if (meant >= 0)
            meant = count();  // more than one: keep looking for an exact code or name
        else
            meant = i;
    }
    return meant == count() ? -1 : meant;
}

void CustomerBox::resolve() {
    if (customer()) return;
    const int meant = indexMeant();
    if (meant >= 0) {
        setCurrentIndex(meant);
        setEditText(itemText(meant));
    }
}
