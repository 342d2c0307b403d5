// The window and its draft: what is kept while the clerk keys, and how it comes back after a crash.
#include <QApplication>
#include <QInputMethodEvent>
#include <algorithm>

#include "OrderGrid.h"
#include "OrderHeader.h"
#include "OrderWindow.h"
#include "RecoveryBar.h"
#include "kxVsGrid/Platform.h"
#include "kxVsGrid/qt/kxGridWidget.h"

using namespace Qt::StringLiterals;

namespace {
// The ids of lines, and the count of saves, are the database's own.
bool saysTheSame(const Order& one, const Order& other) {
    const auto bare = [](const Order& order) {
        std::vector<OrderLine> lines = order.lines;
        for (OrderLine& line : lines) line.id = 0;
        return lines;
    };
    return one.hasHeadOf(other) && bare(one) == bare(other);
}

QString momentText(const QDateTime& moment, const QDate& today) {
    return moment.toString(moment.date() == today ? u"HH:mm"_s : u"MM-dd HH:mm"_s);
}

QString toldOf(const kxVsGrid::qt::DraftFile::Recovery& recovery) {
    QString text;
    if (recovery.steps > 0) text += u",共 %1 步"_s.arg(recovery.steps);
    if (!recovery.damage.empty())
        text += u"。草稿有损坏,损坏之后的没有恢复(%1)"_s.arg(QString::fromStdString(recovery.damage));
    return text;
}
}  // namespace

void OrderWindow::keepDrafts(const QString& folder) {
    draft_ = std::make_unique<OrderDraft>(*widget_, folder, database_.file());
    connect(draft_.get(), &OrderDraft::failed, this, [this](const QString& why) {
        say(u"草稿没有写到磁盘上,可以继续录入,请尽快保存:"_s + why.simplified(), true);
    });
    connect(draft_.get(), &OrderDraft::works, this, [this] { say(u"草稿又写到磁盘上了"_s); });
}

OrderDraft::Head OrderWindow::head() const {
    OrderDraft::Head head;
    head.proposed.number = conflict_.isEmpty() ? saved_.number : conflict_;
    head.proposed.date = saved_.date;
    header_->read(head.fields);
    head.typed = header_->customerUnclear() ? header_->customerTyped() : QString();
    return head;
}

void OrderWindow::beginDraft() {
    bar_->hide();
    conflict_.clear();
    if (draft_) draft_->begin(saved_, head());
}

void OrderWindow::keepHead() {
    if (draft_ && !saved_.approved) draft_->put(head());
}

bool OrderWindow::untouched() const {
    return saved_.id == 0 && bar_->isHidden() && !hasUnsavedWork() && !widget_->grid().editorView().visible;
}

// --- What has been left behind.

OrderWindow::Fit OrderWindow::judge(const OrderDraft::Kept& kept) const {
    if (!kept.file.info.refusal.empty() || !database_.isOpen()) return Fit::Unknown;
    if (kept.order == 0) return Fit::New;
    try {
        const std::optional<Order> order = store_.load(kept.order);
        if (!order) return Fit::Gone;
        return order->version == kept.version && !order->approved ? Fit::Same : Fit::Changed;
    } catch (const DatabaseError&) {
        return Fit::Unknown;
    }
}

bool OrderWindow::recover(const OrderDraft::Kept& kept) {
    const Fit fit = connectDatabase() ? judge(kept) : Fit::Unknown;
    const auto back = fit == Fit::Unknown ? std::nullopt : recoverAs(kept, fit);
    const bool came = back && back->refusal.empty();
    if (came && !isKnown(kept, fit)) {
        tellRecovered(kept, fit, *back);
        return true;
    }
    if (came) draft_->finish();
    if (fit != Fit::Unknown && isVisible()) startNewOrder();
    if (came) return false;
    const QString why = QString::fromStdString(back ? back->refusal : kept.file.info.refusal);
    say(u"草稿没有恢复,它还在 %1:%2"_s.arg(kept.file.path, why.isEmpty() ? u"数据库不能读取"_s : why), true);
    return false;
}

// The sheet that the draft began with, then the draft over it; nothing when the database fails.
std::optional<kxVsGrid::qt::DraftFile::Recovery> OrderWindow::recoverAs(const OrderDraft::Kept& kept,
                                                                        Fit fit) {
    Order base = kept.head.proposed;
    try {
        if (fit == Fit::Same) base = store_.load(kept.order).value_or(base);
        if (fit == Fit::Changed || fit == Fit::Gone) {
            base.date = kept.head.fields.date;
            base.number = store_.nextNumber(base.date);
        }
    } catch (const DatabaseError&) {
        return std::nullopt;
    }
    draft_->finish();
    showOrder(base);
    const bool document = fit == Fit::New || fit == Fit::Same;
    const auto back = draft_->recover(kept, document);
    if (!back.refusal.empty()) return back;
    Order order = saved_;
    order.date = kept.head.fields.date;
    order.customer = kept.head.fields.customer;
    if (document)
        order.number = kept.head.fields.number;
    else
        conflict_ = kept.head.proposed.number;
    header_->show(order);
    if (!kept.head.typed.isEmpty()) header_->showTyped(kept.head.typed);
    grid_->presetDelivery(deliveryFor(order.date));
    goBehindLines();
    keepHead();
    refresh();
    return back;
}

// Nothing was keyed, or the program ended after it had saved the order and before the draft knew.
bool OrderWindow::isKnown(const OrderDraft::Kept& kept, Fit fit) const {
    if (draft_->editorText()) return false;
    if (fit == Fit::Same) return !hasUnsavedWork();
    if (fit == Fit::Gone) return false;
    try {
        Order now = onScreen();
        if (fit == Fit::Changed) {
            now.number = kept.head.fields.number;
            return saysTheSame(now, store_.load(kept.order).value_or(Order()));
        }
        if (!hasUnsavedWork()) return true;
        for (const OrderSummary& one : store_.list(now.number, 10))
            if (one.number == now.number) return saysTheSame(now, store_.load(one.id).value_or(Order()));
    } catch (const DatabaseError&) {
        // Then the clerk is asked.
    }
    return false;
}

void OrderWindow::tellRecovered(const OrderDraft::Kept& kept, Fit fit,
                                const kxVsGrid::qt::DraftFile::Recovery& back) {
    const QString when = momentText(kept.file.time, clock_().date());
    if (fit == Fit::New || fit == Fit::Same) {
        bar_->tell(u"已恢复 %1 未保存的订单 %2"_s.arg(when, header_->number()) + toldOf(back));
        return;
    }
    const QString what = fit == Fit::Gone ? u"已被删除"_s : u"后来已由别处保存或审核"_s;
    bar_->tell(u"订单 %1 %2。这是 %3 的草稿"_s.arg(conflict_, what, when) + toldOf(back) +
               u"。保存时另存为新订单 %1,不会覆盖别人的内容。"_s.arg(header_->number()));
}

void OrderWindow::giveUpRecovered() {
    const bool keyedOn = widget_->grid().History().CanUndo();
    const QString what = keyedOn ? u"放弃恢复的内容,连同恢复之后录入的内容"_s : u"放弃恢复的内容"_s;
    if (!questions_.confirm(this, what + u"?放弃后不能再恢复。"_s, u"放弃(&D)"_s)) return;
    if (saved_.id != 0) {
        showStored(saved_.id);
        return;
    }
    const bool beside = !conflict_.isEmpty();
    startNewOrder();
    if (beside && hasNeighbour()) close();
}

bool OrderWindow::hasNeighbour() const {
    const QWidgetList all = QApplication::topLevelWidgets();
    return std::any_of(all.begin(), all.end(), [this](QWidget* one) {
        return one != this && one->isVisible() && qobject_cast<OrderWindow*>(one);
    });
}

// Where the clerk was typing, or behind the last line.
void OrderWindow::goOnKeying() {
    const auto typed = draft_ ? draft_->editorText() : std::nullopt;
    if (!typed) {
        if (header_->customerUnclear()) return header_->goOnTyping();
        if (onScreen().customer == 0) return header_->focus(OrderHeader::Field::Customer);
        goBehindLines();
        return enterLines();
    }
    {
        const kxVsGrid::UnrecordedSpan unrecorded = widget_->grid().Unrecorded();  // nobody's step
        widget_->grid().Grid().Select(typed->row, typed->col);
    }
    enterLines();
    if (!widget_->grid().input()->openForTyping()) return;
    QInputMethodEvent event;
    event.setCommitString(QString::fromStdString(typed->text));
    QCoreApplication::sendEvent(widget_->focusWidget() ? widget_->focusWidget() : widget_, &event);
}
