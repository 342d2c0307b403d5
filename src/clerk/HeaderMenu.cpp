#include "clerk/HeaderMenu.h"

#include <algorithm>
#include <initializer_list>

#include "clerk/Filters.h"

namespace kxVsGrid::clerk {
namespace {

// The items by their indexes.
enum HeaderItem : std::int32_t {
    SortUp = 1,
    SortDown = 2,
    Unsort = 3,
    BeforeFilter = 10,
    Filter = 11,
    Unfilter = 12,
    BeforeColumns = 20,
    Hide = 21,
    Show = 22,
    Freeze = 23,
    BeforeWidths = 30,
    Fit = 31,
    Reset = 32,
};
constexpr const char* Items = "mnuHeader";
constexpr const char* HiddenColumns = "mnuHidden";
/// In the list of hidden columns, whose items have the numbers of their columns.
constexpr std::int32_t BeforeAll = -2;
constexpr std::int32_t All = -1;

Menu headerMenu() {
    const auto item = [](HeaderItem index, Command command) {
        return MenuItem{index, std::string(captionOf(command))};
    };
    Menu menu{"menuHeader", "列菜单", Items, {}, {}};
    menu.items = {item(SortUp, Command::SortUp),
                  item(SortDown, Command::SortDown),
                  item(Unsort, Command::Unsort),
                  {BeforeFilter, "-"},
                  item(Filter, Command::Filter),
                  item(Unfilter, Command::Unfilter),
                  {BeforeColumns, "-"},
                  item(Hide, Command::HideColumn),
                  item(Show, Command::ShowColumns),
                  item(Freeze, Command::Freeze),
                  {BeforeWidths, "-"},
                  item(Fit, Command::FitColumn),
                  {Reset, "恢复默认布局"}};
    menu.submenus = {{Show, HiddenColumns, {}}};
    menu.ofCells = false;
    return menu;
}

/// A name marks no letter of the menu's.
std::string plain(const std::string& name) {
    std::string caption;
    for (const char c : name) caption += c == '&' ? std::string("&&") : std::string(1, c);
    return caption;
}
}  // namespace

HeaderMenu::HeaderMenu(const ClerkContext& context, SortCommands& sorts, FilterCommands& filters,
                       ColumnCommands& columns)
    : c_(context), sorts_(sorts), filters_(filters), columns_(columns), menu_(headerMenu()) {}

// --- Where

/// An edge is beside the header of the column that the pointer is on, whosever it is.
std::int32_t HeaderMenu::columnAt(std::int32_t x, std::int32_t y) const {
    if (!c_.options.HeaderMenu()) return -1;
    const CellGrid& grid = c_.grid;
    const GridHit hit = grid.HitTest(x, y);
    if (hit.part == GridHit::Part::Cell || hit.row < 0 || hit.row >= grid.FixedRows()) return -1;
    std::int32_t col = hit.col;
    if (hit.part == GridHit::Part::ColumnEdge && x >= grid.CellRect(hit.row, col).right()) {
        do ++col;
        while (col < grid.Cols() && !(grid.ColIsVisible(col) && grid.CellRect(hit.row, col).right() > x));
        if (col == grid.Cols()) col = hit.col;  // the empty area beyond the last one
    }
    return col >= grid.FixedCols() ? col : -1;
}

std::int32_t HeaderMenu::keysColumn() const {
    const CellGrid& grid = c_.grid;
    if (!c_.options.HeaderMenu() || grid.FixedRows() == 0) return -1;
    const std::int32_t col = columns_.wholeSelected() ? grid.ColSel() : grid.Col();
    return col >= grid.FixedCols() && c_.clerkColumns.isShown(col) ? col : -1;
}

void HeaderMenu::open() {
    CellGrid& grid = c_.grid;
    const std::int32_t col = keysColumn();
    if (col < 0) return;
    grid.BringColIntoView(col, grid.ClientWidth());
    if (!c_.host.there() || keysColumn() != col) return;
    const Rect header = grid.CellRect(grid.FixedRows() - 1, col);
    popUp(col, {header.left, header.bottom(), 0, 0});
}

// --- What it shows

std::string HeaderMenu::freezeCaption(std::int32_t col) const {
    return columns_.endsFreezing(col) ? "取消冻结" : std::string(captionOf(Command::Freeze));
}

void HeaderMenu::chooseSorts(std::int32_t col) {
    const auto rules = c_.columns.rules(col);
    const bool sortable = rules && rules->sortable();
    for (const HeaderItem item : {SortUp, SortDown, Unsort}) menu_.item(Items, item).visible = sortable;
    for (const HeaderItem item : {SortUp, SortDown}) menu_.item(Items, item).enabled = sorts_.canSort(col);
    menu_.item(Items, Unsort).enabled = sorts_.canUnsort();
}

void HeaderMenu::chooseFilters(std::int32_t col) {
    const auto rules = c_.columns.rules(col);
    const bool any = c_.filters.on() || (rules && rules->filterable());
    for (const HeaderItem item : {Filter, Unfilter}) menu_.item(Items, item).visible = any;
    menu_.item(Items, Filter).enabled = filters_.canChoose(col);
    menu_.item(Items, Unfilter).enabled = c_.filters.on();
    menu_.item(Items, BeforeFilter).visible = any && menu_.item(Items, SortUp).visible;
    menu_.item(Items, BeforeColumns).visible = any || menu_.item(Items, SortUp).visible;
}

void HeaderMenu::listHidden() {
    const std::vector<std::int32_t> hidden = columns_.hidden();
    std::vector<MenuItem>& items = menu_.submenus.front().items;
    items.clear();
    for (const std::int32_t col : hidden) items.push_back({col, plain(c_.clerkColumns.nameOf(col))});
    if (hidden.size() > 1) items.push_back({BeforeAll, "-"});
    items.push_back({All, "全部"});
    menu_.item(Items, Show).enabled = !hidden.empty();
}

void HeaderMenu::chooseColumns(std::int32_t col) {
    menu_.item(Items, Hide).enabled = columns_.canHide({col});
    listHidden();
    menu_.item(Items, Freeze).enabled = columns_.canFreeze(col);
    menu_.item(Items, Freeze).caption = freezeCaption(col);
    menu_.item(Items, Reset).enabled = columns_.canReset();
}

void HeaderMenu::choose(std::int32_t col) {
    chooseSorts(col);
    chooseFilters(col);
    chooseColumns(col);
}

// --- What it does

void HeaderMenu::popUp(std::int32_t col, const Rect& place) {
    choose(col);
    const MenuChoice choice = c_.platform.popUp(menu_, c_.owner.onScreen(place));
    if (!choice || !c_.host.there() || col >= c_.grid.Cols()) return;
    if (choice->first == HiddenColumns)
        columns_.show(choice->second == All ? columns_.hidden() : std::vector{choice->second});
    else
        run(col, choice->second);
}

/// What could be done when the menu came up is asked again: a host may have acted while it was open.
void HeaderMenu::run(std::int32_t col, std::int32_t index) {
    switch (index) {
        case SortUp:
        case SortDown:
            if (sorts_.canSort(col)) sorts_.sort(col, index == SortDown);
            return;
        case Unsort:
            if (sorts_.canUnsort()) sorts_.unsort();
            return;
        case Filter:
            if (filters_.canChoose(col)) filters_.choose(col);
            return;
        case Unfilter:
            c_.filters.end();
            return;
        case Hide:
            columns_.hide({col});
            return;
        case Freeze:
            if (columns_.canFreeze(col)) columns_.freeze(col);
            return;
        case Fit:
            columns_.fit({col});
            return;
        case Reset:
            columns_.reset();
            return;
        default:
            return;
    }
}
}  // namespace kxVsGrid::clerk
