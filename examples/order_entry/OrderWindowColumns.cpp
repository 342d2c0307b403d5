// The window and the columns of its lines: as wide as the window allows, and as the user has laid them out.
#include <QSettings>
#include <utility>

#include "OrderGrid.h"
#include "OrderWindow.h"
#include "kxVsGrid/qt/SettingsBag.h"
#include "kxVsGrid/qt/kxGridWidget.h"

using namespace Qt::StringLiterals;

namespace {
constexpr int InchInTwips = 1440;
}  // namespace

void OrderWindow::fitGrid(int width) {
    grid_->fitWidth(width * InchInTwips / widget_->logicalDpiX());
}

// A scroll bar comes or goes while the grid lays itself out in its new size.
void OrderWindow::fitBesideBar() {
    const bool bar = widget_->grid().Grid().VerticalBarShown();
    if (std::exchange(barSeen_, bar) != bar) fitGrid(widget_->width());
}

// The file is the user's, who may have written anything into it: what makes no sense there is passed over.
void OrderWindow::rememberColumns(std::unique_ptr<QSettings> settings) {
    columnSettings_ = std::move(settings);
    kxVsGrid::ColumnLayout& layout = widget_->grid().Layout();
    if (columnSettings_) {
        columnSettings_->beginGroup("columns");
        kxVsGrid::qt::SettingsBag bag(*columnSettings_);
        layout.Read(bag);
    }
    laidOut_ = layout.Changed.connect([this] { columnsLaidOut(); });
    shownColumns_ = grid_->shownColumns();
    fitGrid(widget_->width());
}

// What a hidden column leaves free goes to the remark.
void OrderWindow::columnsLaidOut() {
    keepColumns();
    const int shown = grid_->shownColumns();
    if (std::exchange(shownColumns_, shown) != shown) fitGrid(widget_->width());
}

void OrderWindow::keepColumns() {
    if (!columnSettings_) return;
    try {
        kxVsGrid::qt::SettingsBag bag(*columnSettings_);
        widget_->grid().Layout().Write(bag);
        bag.sync();
    } catch (const std::exception& error) {
        say(u"列的布局没有保存:"_s + QString::fromUtf8(error.what()).simplified(), true);
    }
}

void OrderWindow::resetColumns() {
    widget_->grid().Layout().Reset();
    columnsLaidOut();
    fitGrid(widget_->width());
}
