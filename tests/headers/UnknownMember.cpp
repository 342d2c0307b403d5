// Is refused: a sheet knows no texts of the member's type.
#include "kxVsGrid/sheet/Sheet.h"

struct Colour {
    int red = 0;
};
struct Line {
    Colour colour;
};

void describe(kxVsGrid::kxGrid& grid) {
    kxVsGrid::Sheet<Line> sheet(grid);
    sheet.text("colour", "颜色", &Line::colour);
}
