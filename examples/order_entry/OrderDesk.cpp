#include "OrderDesk.h"

#include <QScreen>
#include <utility>

using namespace Qt::StringLiterals;

namespace {
constexpr int TitleOfDesktop = 40;
constexpr int DesktopFrame = 4;

// As far apart as the screen allows where it is too narrow for both. Their frames are not known yet.
void placeBesideEachOther(OrderWindow& left, OrderWindow& right) {
    const QRect room = left.screen()->availableGeometry().adjusted(DesktopFrame, TitleOfDesktop,
                                                                   -DesktopFrame, -DesktopFrame);
    const QSize half(room.width() / 2 - DesktopFrame, room.height());
    for (OrderWindow* window : {&left, &right}) window->resize(half);
    left.setGeometry(QRect(room.topLeft(), left.size()));
    right.setGeometry(QRect({room.right() + 1 - right.width(), room.top()}, right.size()));
}
}  // namespace

OrderDesk::OrderDesk(Services services, Questions& questions)
    : services_(std::move(services)), questions_(questions) {
    windows_.push_back(make());
    first().show();
}

std::unique_ptr<OrderWindow> OrderDesk::make() {
    auto window = std::make_unique<OrderWindow>(services_.database, questions_, services_.clock);
    window->rememberColumns(services_.settings ? services_.settings() : nullptr);
    if (!services_.drafts.isEmpty()) window->keepDrafts(services_.drafts);
    const QSize room = window->screen()->availableSize() - QSize(0, TitleOfDesktop);
    window->resize(window->size().boundedTo(room));
    return window;
}

// The drafts are looked at before the first window writes one of its own.
void OrderDesk::start() {
    std::vector<OrderDraft::Kept> all;
    if (!services_.drafts.isEmpty()) all = OrderDraft::keptIn(services_.drafts, services_.database);
    first().start();
    if (!all.empty() && !first().isConnected())
        return first().warn(u"有未保存的订单的草稿;数据库可以读取之后,重新启动程序就能恢复"_s);
    for (const OrderDraft::Kept& kept : all) offer(kept);
}

void OrderDesk::offer(const OrderDraft::Kept& kept) {
    if (first().judge(kept) == OrderWindow::Fit::Changed)
        offerBeside(kept);
    else
        recoverInWindow(kept);
}

// The order as somebody else has saved it in one window, the draft in another one.
void OrderDesk::offerBeside(const OrderDraft::Kept& kept) {
    OrderWindow* draft = recoverInNewWindow(kept);
    if (!draft) return;
    OrderWindow* saved = &first();
    if (!saved->untouched()) {
        windows_.push_back(make());
        saved = windows_.back().get();
        saved->show();
        saved->start();
    }
    saved->openOrder(kept.order);
    placeBesideEachOther(*saved, *draft);
    draft->raise();
    draft->activateWindow();
}

OrderWindow* OrderDesk::recoverInWindow(const OrderDraft::Kept& kept) {
    if (!first().untouched()) return recoverInNewWindow(kept);
    if (!first().recover(kept)) return nullptr;
    first().goOnKeying();
    return &first();
}

OrderWindow* OrderDesk::recoverInNewWindow(const OrderDraft::Kept& kept) {
    auto window = make();
    if (!window->recover(kept)) {
        if (!window->message().isEmpty()) first().warn(window->message());
        return nullptr;
    }
    window->show();
    window->activateWindow();
    window->goOnKeying();
    windows_.push_back(std::move(window));
    return windows_.back().get();
}
