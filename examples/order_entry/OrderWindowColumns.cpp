// The window and the columns of its lines, as the user has laid them out.
#include <QSettings>
#include <utility>

#include "OrderGrid.h"
#include "OrderWindow.h"
#include "kxVsGrid/qt/SettingsBag.h"
#include "kxVsGrid/qt/kxGridWidget.h"

using namespace Qt::StringLiterals;

// The file is the user's, who may have written anything into it: what makes no sense there is passed over.
void OrderWindow::rememberColumns(std::unique_ptr<QSettings> settings) {
    columnSettings_ = std::move(settings);
    kxVsGrid::ColumnLayout& layout = widget_->grid().Layout();
    if (columnSettings_) {
        columnSettings_->beginGroup("columns");
        kxVsGrid::qt::SettingsBag bag(*columnSettings_);
        layout.Read(bag);
    }
    laidOut_ = layout.Changed.connect([this] { keepColumns(); });
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
    keepColumns();
}
