#include "Stage.h"

#include <QCoreApplication>
#include <QEvent>
#include <stdexcept>
#include <string>

#include "Contestants.h"

namespace kxbench {

PaintCount::PaintCount(QWidget& painted) : painted_(painted) {
    QCoreApplication::instance()->installEventFilter(this);
}

bool PaintCount::eventFilter(QObject* target, QEvent* event) {
    if (event->type() == QEvent::Paint && target->isWidgetType()) {
        const auto* widget = static_cast<QWidget*>(target);
        count_ += widget == &painted_ || painted_.isAncestorOf(widget);
    }
    return false;
}

void settle() {
    QCoreApplication::sendPostedEvents();
    QCoreApplication::processEvents();
}

void show(QTableView& view) {
    view.verticalHeader()->setDefaultSectionSize(RowPixels);
    view.verticalHeader()->setFixedWidth(HeaderPixels);
    view.horizontalHeader()->setFixedHeight(RowPixels);
    view.horizontalHeader()->setDefaultSectionSize(ColPixels);
    view.resize(WindowWidth, WindowHeight);
    view.show();
    settle();
}

void show(kxVsGrid::qt::kxGridWidget& widget) {
    constexpr std::int32_t TwipsPerPixel = 15;
    kxVsGrid::kxGrid& grid = widget.grid();
    grid.Grid().RowHeightMin(RowPixels * TwipsPerPixel);
    grid.ColWidth(0, HeaderPixels * TwipsPerPixel);
    for (std::int32_t c = HeaderCols; c < grid.Cols(); ++c) {
        grid.ColWidth(c, ColPixels * TwipsPerPixel);
        grid.Grid().Text(0, c, std::to_string(c));  // the peers number theirs
    }
    widget.resize(WindowWidth, WindowHeight);
    widget.show();
    settle();
}

void activate(QWidget& window) {
    window.activateWindow();
    window.setFocus();
    settle();
    if (!window.isActiveWindow()) throw std::runtime_error("the window does not become active");
}
}  // namespace kxbench
