// The window's layout, menus and status bar.
#include <QApplication>
#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>
#include <QMenuBar>
#include <QStatusBar>
#include <QStyle>
#include <QToolBar>
#include <QVBoxLayout>
#include <tuple>
#include <utility>

#include "CurvedArrow.h"
#include "ManualWindow.h"
#include "OrderGrid.h"
#include "OrderHeader.h"
#include "OrderWindow.h"
#include "RecoveryBar.h"
#include "RefusedList.h"
#include "kxVsGrid/qt/kxGridWidget.h"

using namespace Qt::StringLiterals;

namespace {
// The control's own action: it says what it would undo, has the keys, and is enabled as it should be.
QAction* completed(QAction* action, Turn turn) {
    if (action->icon().isNull()) action->setIcon(curvedArrow(turn));
    const auto tell = [action] {
        action->setToolTip(action->text() + u" ("_s + action->shortcut().toString(QKeySequence::NativeText) +
                           u")"_s);
    };
    tell();
    QObject::connect(action, &QAction::changed, action, tell);
    return action;
}
}  // namespace

void OrderWindow::layOut() {
    widget_->setObjectName(u"grid"_s);
    auto* title = new QLabel(u"销售订单"_s, this);
    QFont large = title->font();
    large.setPointSizeF(large.pointSizeF() * 1.6);
    large.setBold(true);
    title->setFont(large);
    state_->setObjectName(u"state"_s);
    for (QLabel* label : {state_, hint_, totals_}) label->setTextFormat(Qt::PlainText);
    hint_->setForegroundRole(QPalette::PlaceholderText);

    auto* frame = new QFrame(this);
    frame->setFrameShape(QFrame::StyledPanel);
    auto* inFrame = new QVBoxLayout(frame);
    inFrame->setContentsMargins(0, 0, 0, 0);
    inFrame->addWidget(widget_);

    auto* top = new QHBoxLayout;
    top->addWidget(title);
    top->addStretch();
    top->addWidget(state_);
    auto* all = new QVBoxLayout;
    all->setContentsMargins(12, 8, 12, 4);
    all->setSpacing(8);
    all->addLayout(top);
    all->addWidget(header_);
    all->addWidget(bar_);
    all->addWidget(frame, 1);
    all->addWidget(refused_);
    all->addWidget(hint_);
    auto* middle = new QWidget(this);
    middle->setLayout(all);
    setCentralWidget(middle);
    setTabOrder(header_->lastField(), widget_);
}

void OrderWindow::addActions() {
    QMenu* order = menuBar()->addMenu(u"订单(&F)"_s);
    QToolBar* tools = addToolBar(u"工具栏"_s);
    tools->setMovable(false);
    tools->setContextMenuPolicy(Qt::PreventContextMenu);
    tools->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    tools->setIconSize({18, 18});
    setContextMenuPolicy(Qt::NoContextMenu);
    const auto add = [&](const QString& text, const QString& brief, const QKeySequence& keys,
                         QStyle::StandardPixmap icon, auto&& act) {
        QAction* action = order->addAction(style()->standardIcon(icon), text, this, act);
        action->setShortcut(keys);
        action->setIconText(brief);
        action->setToolTip(brief + u" ("_s + keys.toString(QKeySequence::NativeText) + u")"_s);
        tools->addAction(action);
        return action;
    };
    add(u"新建(&N)"_s, u"新建"_s, QKeySequence(u"Ctrl+N"_s), QStyle::SP_FileIcon, [this] { newOrder(); });
    add(u"打开(&O)…"_s, u"打开"_s, QKeySequence(u"Ctrl+O"_s), QStyle::SP_DialogOpenButton,
        [this] { chooseOrder(); });
    changing_.push_back(add(u"保存(&S)"_s, u"保存"_s, QKeySequence(u"Ctrl+S"_s), QStyle::SP_DialogSaveButton,
                            [this] { save(); }));
    changing_.push_back(add(u"审核(&A)…"_s, u"审核"_s, QKeySequence(u"F9"_s), QStyle::SP_DialogApplyButton,
                            [this] { approveOrder(); }));
    order->addSeparator();
    changing_.push_back(add(u"删除订单(&D)…"_s, u"删除"_s, QKeySequence(u"Ctrl+Shift+D"_s),
                            QStyle::SP_TrashIcon, [this] { deleteOrder(); }));
    order->addSeparator();
    order->addAction(u"退出(&X)"_s, QKeySequence(u"Ctrl+Q"_s), this, [this] { close(); });

    QMenu* edit = menuBar()->addMenu(u"编辑(&E)"_s);
    tools->addSeparator();
    using kxVsGrid::Command;
    for (const auto& [command, turn] : {std::pair(Command::Undo, Turn::Back), {Command::Redo, Turn::Forth}}) {
        QAction* action = completed(widget_->action(command), turn);
        edit->addAction(action);
        tools->addAction(action);
    }
    constexpr std::nullopt_t Line = std::nullopt;
    addCommands(*edit, {Line, Command::Cut, Command::Copy, Command::CopyWithHeaders, Command::Paste,
                        Command::ClearCells, Command::SelectAll, Line, Command::FillDown, Command::FillRight,
                        Command::CopyFromAbove, Command::Today, Line, Command::Find, Command::FindNext,
                        Command::FindPrevious, Command::Replace});
    addCommands(
        *menuBar()->addMenu(u"行(&L)"_s),
        {Command::InsertRow, Command::AppendRow, Command::DuplicateRow, Command::DeleteRows, Line,
         Command::MoveRowUp, Command::MoveRowDown, Line, Command::SortUp, Command::SortDown, Command::Unsort,
         Line, Command::Filter, Command::Unfilter, Line, Command::GoToRow, Command::NextProblem});
    for (const Command command : {Command::Cut, Command::Copy, Command::Paste, Command::NextProblem})
        widget_->appendToMenu(widget_->action(command));

    QMenu* go = menuBar()->addMenu(u"转到(&G)"_s);
    go->addAction(u"表头(&H)"_s, QKeySequence(u"F6"_s), this,
                  [this] { header_->focus(OrderHeader::Field::Customer); });
    go->addAction(u"明细(&M)"_s, QKeySequence(u"F7"_s), this, [this] { enterLines(); });
    for (const auto& [text, key, name] : {std::tuple(u"仓库(&W)"_s, u"F3"_s, "warehouse"),
                                          {u"交货日期(&D)"_s, u"F4"_s, "delivery"},
                                          {u"备注(&N)"_s, u"F5"_s, "remark"}})
        go->addAction(text, QKeySequence(key), this, [this, name = name] { enterColumn(name); });

    QMenu* view = menuBar()->addMenu(u"查看(&V)"_s);
    addCommands(*view, {Command::Freeze, Command::HideColumn, Command::ShowColumns, Command::FitColumn,
                        Command::HeaderMenu});
    view->addAction(u"恢复默认布局(&W)"_s, this, [this] { resetColumns(); });
    view->addSeparator();
    QAction* refused =
        view->addAction(u"没有写入的内容(&R)"_s, QKeySequence(u"Shift+F8"_s), refused_, &RefusedList::enter);
    refused->setEnabled(false);
    connect(refused_, &RefusedList::holdsSomething, refused, &QAction::setEnabled);

    QMenu* help = menuBar()->addMenu(u"帮助(&H)"_s);
    help->addAction(u"录单员手册(&M)"_s, QKeySequence(u"F1"_s), this, [this] { showManual(); });
}

/// The control's own actions, with its keys; nothing for a line between them.
void OrderWindow::addCommands(QMenu& menu, std::initializer_list<std::optional<kxVsGrid::Command>> commands) {
    for (const auto& command : commands)
        if (command)
            menu.addAction(widget_->action(*command));
        else
            menu.addSeparator();
}

void OrderWindow::addStatus() {
    message_->setObjectName(u"message"_s);
    message_->setTextFormat(Qt::PlainText);
    message_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    totals_->setObjectName(u"totals"_s);
    totals_->setMinimumWidth(1);  // large sums make no window wider
    statusBar()->setSizeGripEnabled(false);
    statusBar()->setContentsMargins(10, 0, 12, 2);
    statusBar()->addWidget(message_, 1);
    statusBar()->addPermanentWidget(totals_);
}

// Beside the order, which goes on being keyed.
void OrderWindow::showManual() {
    if (!manual_) manual_ = new ManualWindow(this);
    manual_->show();
    manual_->raise();
    manual_->activateWindow();
}
