#include "OrderListDialog.h"

#include <QCoreApplication>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScreen>
#include <QTableWidget>
#include <QVBoxLayout>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace {
constexpr int MostOrders = 500;
enum ListColumn {
    NumberColumn,
    DateColumn,
    CustomerColumn,
    LinesColumn,
    TotalColumn,
    StateColumn,
    ListColumns
};
}  // namespace

OrderListDialog::OrderListDialog(const OrderStore& store, QWidget* parent)
    : QDialog(parent),
      store_(store),
      collator_(QLocale(QLocale::Chinese, QLocale::China)),
      text_(new QLineEdit(this)),
      table_(new QTableWidget(0, ListColumns, this)),
      count_(new QLabel(this)),
      open_(new QPushButton(u"打开(&O)"_s, this)) {
    setWindowTitle(u"订单列表"_s);
    constexpr int FrameOfDesktop = 40;
    const QSize room = screen()->availableSize() - QSize(0, FrameOfDesktop);
    resize(QSize(760, 460).boundedTo(room));
    found_ = store_.list({}, MostOrders);
    layOut();
    arrange();
    text_->installEventFilter(this);
    connect(text_, &QLineEdit::textChanged, this, &OrderListDialog::search);
    connect(table_, &QTableWidget::itemDoubleClicked, this, &QDialog::accept);
}

void OrderListDialog::layOut() {
    text_->setObjectName(u"search"_s);
    text_->setPlaceholderText(u"单号、客户名称、拼音首字母或备注"_s);
    auto* caption = new QLabel(u"查找(&F)"_s, this);
    caption->setBuddy(text_);
    auto* top = new QHBoxLayout;
    top->addWidget(caption);
    top->addWidget(text_);

    table_->setObjectName(u"orders"_s);
    table_->setHorizontalHeaderLabels({u"单号"_s, u"日期"_s, u"客户"_s, u"行数"_s, u"金额"_s, u"状态"_s});
    table_->setSelectionBehavior(QAbstractItemView::SelectRows);
    table_->setSelectionMode(QAbstractItemView::SingleSelection);
    table_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    table_->setTabKeyNavigation(false);
    table_->verticalHeader()->hide();
    QHeaderView* header = table_->horizontalHeader();
    header->setHighlightSections(false);
    // A press sorts, another one the other way round, the third brings the newest first again.
    header->setSectionsClickable(true);
    header->setSortIndicatorShown(true);
    header->setSortIndicatorClearable(true);
    header->setSortIndicator(-1, Qt::AscendingOrder);
    connect(header, &QHeaderView::sortIndicatorChanged, this, &OrderListDialog::rearrange);
    header->setSectionResizeMode(CustomerColumn, QHeaderView::Stretch);
    const int widths[] = {150, 100, 0, 60, 130, 70};
    for (int c = 0; c < ListColumns; ++c)
        if (widths[c] > 0) table_->setColumnWidth(c, widths[c]);

    auto* cancel = new QPushButton(u"取消(&C)"_s, this);
    open_->setDefault(true);
    connect(open_, &QPushButton::clicked, this, &QDialog::accept);
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
    auto* bottom = new QHBoxLayout;
    count_->setTextFormat(Qt::PlainText);
    bottom->addWidget(count_, 1);
    bottom->addWidget(open_);
    bottom->addWidget(cancel);

    auto* all = new QVBoxLayout(this);
    all->addLayout(top);
    all->addWidget(table_);
    all->addLayout(bottom);
}

void OrderListDialog::search() {
    try {
        found_ = store_.list(text_->text().trimmed(), MostOrders);
        arrange();
    } catch (const DatabaseError& error) {
        count_->setText(error.text().simplified());
    }
}

bool OrderListDialog::comesBefore(const OrderSummary& one, const OrderSummary& other, int column) const {
    switch (column) {
        case NumberColumn:
            return collator_.compare(one.number, other.number) < 0;
        case DateColumn:
            return one.date < other.date;
        case CustomerColumn:
            return collator_.compare(one.customer, other.customer) < 0;
        case LinesColumn:
            return one.lines < other.lines;
        case TotalColumn:
            return one.total < other.total;
        default:
            return one.approved < other.approved;
    }
}

/// Another order is no search: the one that was chosen stays so.
void OrderListDialog::rearrange() {
    const std::optional<qint64> before = chosen();
    arrange();
    const auto still = std::find_if(listed_.begin(), listed_.end(),
                                    [&](const OrderSummary& order) { return order.id == before; });
    if (still != listed_.end()) table_->selectRow(static_cast<int>(still - listed_.begin()));
}

/// Orders that are equal stay newest first; the first one is chosen.
void OrderListDialog::arrange() {
    listed_ = found_;
    const int column = table_->horizontalHeader()->sortIndicatorSection();
    const bool down = table_->horizontalHeader()->sortIndicatorOrder() == Qt::DescendingOrder;
    if (column >= 0)
        std::stable_sort(listed_.begin(), listed_.end(), [&](const auto& one, const auto& other) {
            return down ? comesBefore(other, one, column) : comesBefore(one, other, column);
        });
    fill();
}

void OrderListDialog::fill() {
    table_->setRowCount(static_cast<int>(listed_.size()));
    int row = 0;
    for (const OrderSummary& order : listed_) {
        const QString texts[] = {order.number,
                                 order.date.toString(Qt::ISODate),
                                 order.customer,
                                 QString::number(order.lines),
                                 QString::fromStdString(moneyText(order.total)),
                                 order.approved ? u"已审核"_s : QString()};
        for (int c = 0; c < ListColumns; ++c) {
            auto* item = new QTableWidgetItem(texts[c]);
            const bool right = c == LinesColumn || c == TotalColumn;
            item->setTextAlignment((right ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
            table_->setItem(row, c, item);
        }
        ++row;
    }
    if (row > 0) table_->selectRow(0);
    open_->setEnabled(row > 0);
    count_->setText(row < MostOrders ? u"共 %1 张订单"_s.arg(row)
                                     : u"只列出最近的 %1 张,请缩小范围"_s.arg(row));
}

std::optional<qint64> OrderListDialog::chosen() const {
    const int row = table_->currentRow();
    if (row < 0 || row >= static_cast<int>(listed_.size())) return std::nullopt;
    return listed_[static_cast<std::size_t>(row)].id;
}

// The list follows the arrows while the clerk is still typing into the search field.
bool OrderListDialog::eventFilter(QObject* watched, QEvent* event) {
    if (watched == text_ && event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Up || key == Qt::Key_Down || key == Qt::Key_PageUp || key == Qt::Key_PageDown) {
            QCoreApplication::sendEvent(table_, event);
            return true;
        }
    }
    return QDialog::eventFilter(watched, event);
}
