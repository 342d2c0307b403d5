#include "RefusedList.h"

#include <QApplication>
#include <QClipboard>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <algorithm>
#include <set>
#include <string>
#include <utility>

#include "PlainTip.h"
#include "QuietButton.h"

using namespace kxVsGrid;
using namespace Qt::StringLiterals;

namespace {
constexpr int MostLinesShown = 5;
constexpr int BetweenColumns = 16;
constexpr int LongestText = 60;  // characters in the list; the tip has the rest

enum ListColumn { Row, Caption, Text, Reason, ListColumnCount };

bool isCell(const PasteReport::Refusal& entry) {
    return entry.row != RowId::None;
}
}  // namespace

RefusedList::RefusedList(kxGrid& grid, QWidget* parent)
    : QFrame(parent), grid_(grid), title_(new QLabel(this)), list_(new QTreeWidget(this)) {
    setObjectName(u"refused"_s);
    setFrameShape(QFrame::StyledPanel);
    title_->setTextFormat(Qt::PlainText);
    list_->setAccessibleName(u"没有写入的内容"_s);
    list_->setRootIsDecorated(false);
    list_->setUniformRowHeights(true);
    list_->setAllColumnsShowFocus(true);
    list_->setAlternatingRowColors(true);
    list_->setHeaderLabels({u"行号"_s, u"栏目"_s, u"内容"_s, u"原因"_s});
    list_->header()->setStretchLastSection(true);
    list_->installEventFilter(this);
    connect(list_, &QTreeWidget::itemActivated, this, &RefusedList::choose);
    connect(list_, &QTreeWidget::itemClicked, this, &RefusedList::choose);

    auto* top = new QHBoxLayout;
    top->addWidget(title_, 1);
    addQuietButton(*top, *this, u"clearMarks"_s, u"清除标记(&K)"_s, &RefusedList::clearMarks);
    addQuietButton(*top, *this, u"close"_s, u"关闭(&B)"_s, &RefusedList::close);
    auto* all = new QVBoxLayout(this);
    all->setContentsMargins(8, 4, 8, 8);
    all->setSpacing(4);
    all->addLayout(top);
    all->addWidget(list_);
    later_.setSingleShot(true);
    connect(&later_, &QTimer::timeout, this, &RefusedList::removeMended);
    hide();
}

void RefusedList::tell(const PasteReport& report) {
    if (report.refusals.empty() || report.cancelled) return;
    dropReplaced(report);
    const int first = static_cast<int>(entries_.size());
    unlisted_ += report.refused;
    for (const PasteReport::Refusal& entry : report.refusals) {
        entries_.push_back(entry);
        unlisted_ -= entry.cells;
    }
    fill();
    QTreeWidgetItem* const fresh = list_->topLevelItem(first);
    list_->setCurrentItem(fresh);
    list_->scrollToItem(fresh, QAbstractItemView::PositionAtTop);
    show();
    emit holdsSomething(true);
}

bool RefusedList::isMended(const PasteReport::Refusal& entry) const {
    if (!isCell(entry)) return false;
    const std::int32_t row = grid_.Grid().RowOf(entry.row);
    const CellMark* const mark = row < 0 || entry.col >= grid_.Cols() ? nullptr : grid_.Mark(row, entry.col);
    return !mark || mark->kind != CellMark::Kind::Problem;
}

/// What lay beyond the grid is told once for each reason.
void RefusedList::dropReplaced(const PasteReport& report) {
    std::set<std::pair<RowId, std::int32_t>> cells;
    std::set<std::string> reasons;
    for (const PasteReport::Refusal& entry : report.refusals)
        if (isCell(entry))
            cells.emplace(entry.row, entry.col);
        else
            reasons.insert(entry.reason);
    std::erase_if(entries_, [&](const PasteReport::Refusal& entry) {
        if (!isCell(entry)) return reasons.contains(entry.reason);
        return cells.contains({entry.row, entry.col}) || isMended(entry);
    });
}

void RefusedList::clear() {
    later_.stop();
    entries_.clear();
    unlisted_ = 0;
    leave();
    list_->clear();
    emit holdsSomething(false);
}

/// The keyboard does not stay behind.
void RefusedList::leave() {
    const bool hadKeyboard = isAncestorOf(QApplication::focusWidget());
    hide();
    if (hadKeyboard) emit closed();
}

void RefusedList::fill() {
    const int current = list_->indexOfTopLevelItem(list_->currentItem());
    list_->clear();
    std::int64_t cells = unlisted_;
    QList<QTreeWidgetItem*> items;
    for (const PasteReport::Refusal& entry : entries_) {
        cells += entry.cells;
        const QString text = QString::fromStdString(entry.text);
        const QString reason = QString::fromStdString(entry.reason);
        auto* item = new QTreeWidgetItem;
        if (isCell(entry)) {
            const std::int32_t row = grid_.Grid().RowOf(entry.row) - grid_.FixedRows() + 1;
            item->setText(Row, QString::number(row));
            const auto column = grid_.VsCtrl(static_cast<std::int16_t>(entry.col));
            item->setText(Caption, QString::fromStdString(column->sName()));
            item->setText(Text, text.simplified().left(LongestText));
            item->setToolTip(Text, plainTip(text.left(1000)));
        } else {
            item->setText(Text, u"%1 格"_s.arg(entry.cells));
        }
        item->setText(Reason, reason);
        item->setToolTip(Reason, plainTip(reason));
        items << item;
    }
    list_->addTopLevelItems(items);
    for (const int col : {Row, Caption, Text}) {
        list_->resizeColumnToContents(col);
        list_->setColumnWidth(col, list_->columnWidth(col) + BetweenColumns);
    }
    const int lines = std::min(static_cast<int>(items.size()), MostLinesShown);
    list_->setFixedHeight(list_->header()->sizeHint().height() + lines * list_->sizeHintForRow(0) +
                          2 * list_->frameWidth());
    list_->setCurrentItem(list_->topLevelItem(std::clamp(current, 0, int(items.size()) - 1)));
    title_->setText(u"没有写入 %1 格:回车到那一格,改好以后从这里消失;F8 到下一个问题"_s.arg(cells));
}

void RefusedList::follow() {
    if (!entries_.empty()) later_.start(0);
}

void RefusedList::removeMended() {
    bool cells = false;
    std::erase_if(entries_, [&](const PasteReport::Refusal& entry) {
        const bool mended = isMended(entry);
        cells = cells || (isCell(entry) && !mended);
        return mended;
    });
    // What had no place is told as long as other cells are.
    const bool hadCells = list_->topLevelItemCount() > static_cast<int>(entries_.size());
    if (entries_.empty() || (!cells && hadCells)) return clear();
    fill();
}

void RefusedList::enter() {
    if (entries_.empty()) return;
    show();
    list_->setFocus(Qt::ShortcutFocusReason);
}

void RefusedList::choose() {
    const int index = list_->indexOfTopLevelItem(list_->currentItem());
    if (index < 0 || index >= static_cast<int>(entries_.size())) return;
    const PasteReport::Refusal& entry = entries_[static_cast<std::size_t>(index)];
    const std::int32_t row = isCell(entry) ? grid_.Grid().RowOf(entry.row) : -1;
    if (row >= 0) emit chosen(row, entry.col);
}

// The marks stay: F8 goes on finding them, and so does enter().
void RefusedList::close() {
    hide();
    emit closed();
}

void RefusedList::clearMarks() {
    for (const PasteReport::Refusal& entry : std::exchange(entries_, {})) {
        const std::int32_t row = isCell(entry) ? grid_.Grid().RowOf(entry.row) : -1;
        const CellMark* const mark = row < 0 ? nullptr : grid_.Mark(row, entry.col);
        if (mark && mark->text == entry.reason) grid_.Mark(row, entry.col, std::nullopt);
    }
    clear();
}

// --- Keys

/// The entry as a line of a table, the text whole.
void RefusedList::copy() const {
    QTreeWidgetItem* const item = list_->currentItem();
    const int index = list_->indexOfTopLevelItem(item);
    if (index < 0 || index >= static_cast<int>(entries_.size())) return;
    const PasteReport::Refusal& entry = entries_[static_cast<std::size_t>(index)];
    const QString text = isCell(entry) ? QString::fromStdString(entry.text).simplified() : item->text(Text);
    QApplication::clipboard()->setText(
        QStringList{item->text(Row), item->text(Caption), text, QString::fromStdString(entry.reason)}.join(
            u'\t'));
}

/// The keys that these commands have on the grid.
std::optional<Command> RefusedList::commandOf(const QKeyEvent& event) const {
    const QKeySequence keys(event.keyCombination());
    if (keys == QKeySequence(u"F8"_s)) return Command::NextProblem;
    if (keys == QKeySequence(u"Ctrl+Z"_s)) return Command::Undo;
    if (keys == QKeySequence(u"Ctrl+Y"_s) || keys == QKeySequence(u"Ctrl+Shift+Z"_s)) return Command::Redo;
    return std::nullopt;
}

void RefusedList::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape) return close();
    if (const std::optional<Command> command = commandOf(*event)) {
        emit asksFor(*command);
        return;
    }
    QFrame::keyPressEvent(event);
}

// The list itself would copy one column of the entry.
bool RefusedList::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::KeyPress && static_cast<QKeyEvent*>(event)->matches(QKeySequence::Copy)) {
        copy();
        return true;
    }
    return QFrame::eventFilter(watched, event);
}
