#include "WarehouseList.h"

#include <QFrame>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QListWidget>
#include <QScreen>
#include <QVBoxLayout>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace {
QRect visiblePart(const QPoint& corner) {
    const QScreen* at = QGuiApplication::screenAt(corner);
    return (at ? at : QGuiApplication::primaryScreen())->availableGeometry();
}
}  // namespace

WarehouseList::WarehouseList(const std::vector<CodeAndName>& warehouses, const QString& typed,
                             QWidget* parent)
    : QDialog(parent, Qt::Dialog | Qt::FramelessWindowHint),
      warehouses_(warehouses),
      list_(new QListWidget(this)) {
    setWindowTitle(u"仓库"_s);
    setObjectName(u"warehouses"_s);
    for (const CodeAndName& one : warehouses_) list_->addItem(one.code + u"  "_s + one.name);
    const auto starts = [&](const CodeAndName& one) {
        return one.code.startsWith(typed, Qt::CaseInsensitive) || one.name.startsWith(typed);
    };
    const auto first = std::find_if(warehouses_.begin(), warehouses_.end(), starts);
    list_->setCurrentRow(first == warehouses_.end() ? 0 : static_cast<int>(first - warehouses_.begin()));
    list_->setFrameShape(QFrame::Box);
    auto* all = new QVBoxLayout(this);
    all->setContentsMargins(0, 0, 0, 0);
    all->addWidget(list_);
    const int rows = std::clamp(list_->count(), 1, 12);
    const int rowHeight = std::max(list_->sizeHintForRow(0), fontMetrics().height());
    setFixedSize(std::max(180, list_->sizeHintForColumn(0) + 40),
                 rows * rowHeight + 2 * list_->frameWidth() + 2);
    connect(list_, &QListWidget::itemClicked, this, &QDialog::accept);
}

void WarehouseList::place(const QPoint& corner) {
    const QRect room = visiblePart(corner);
    move(std::max(room.left(), std::min(corner.x(), room.right() + 1 - width())),
         std::max(room.top(), std::min(corner.y(), room.bottom() + 1 - height())));
}

std::optional<CodeAndName> WarehouseList::chosen() const {
    const int row = list_->currentRow();
    if (result() != QDialog::Accepted || row < 0) return std::nullopt;
    return warehouses_[static_cast<std::size_t>(row)];
}

// There is no button that Enter could press.
void WarehouseList::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) return accept();
    QDialog::keyPressEvent(event);
}
