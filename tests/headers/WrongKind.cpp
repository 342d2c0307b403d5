// Is refused: a column of numbers for a member that is a text.
#include "kxVsGrid/sheet/Sheet.h"

struct Line {
    std::string name;
};

void describe(kxVsGrid::kxGrid& grid) {
    kxVsGrid::Sheet<Line> sheet(grid);
    sheet.number("name", "品名", &Line::name);
}
