// A program of a user with a window: the widget, shown and painted.
#include <QApplication>
#include <QPixmap>
#include <iostream>

#include "kxVsGrid/qt/kxGridWidget.h"

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    kxVsGrid::qt::kxGridWidget widget;
    widget.grid().FormatString("行号|货号|>数量");
    widget.grid().ReDraw(true);
    widget.grid().SetCell(1, 1, "A01", "");
    widget.resize(400, 300);
    widget.show();
    QApplication::processEvents();
    if (widget.grab().isNull() || widget.grid().ReadCell(1, 1, true) != "A01") {
        std::cerr << "the widget did not keep or paint its cell\n";
        return 1;
    }
    return 0;
}
