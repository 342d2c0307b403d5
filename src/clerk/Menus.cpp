#include "clerk/Menus.h"

#include <algorithm>

#include "support/Numbers.h"

namespace kxVsGrid::clerk {
namespace {

// The items by their indexes.
enum RowItem : std::int32_t {
    Add = 1,
    Copy = 2,
    Insert = 3,
    CopyInsert = 4,
    AddSeveral = 5,
    InsertSeveral = 6,
    BeforeEmpty = 10,
    AddEmpty = 11,
    InsertEmpty = 12,
    AddSeveralEmpty = 13,
    InsertSeveralEmpty = 14,
    BeforeDelete = 20,
    Delete = 21,
    BeforeFill = 30,
    Fill = 31,
};

Menu rowMenu() {
    Menu menu{"menuVs", "弹出菜单", "mnuVs", {}, {}};
    menu.items = {{Add, "新增行"},
                  {Copy, "复制行"},
                  {Insert, "插入行"},
                  {CopyInsert, "复制插入行"},
                  {AddSeveral, "新增..行"},
                  {InsertSeveral, "插入..行"},
                  {BeforeEmpty, "-"},
                  {AddEmpty, "新增空行"},
                  {InsertEmpty, "插入空行"},
                  {AddSeveralEmpty, "新增空行..行"},
                  {InsertSeveralEmpty, "插入空白..行"},
                  {BeforeDelete, "-"},
                  {Delete, "删除行"},
                  {BeforeFill, "-"},
                  {Fill, "填充列"}};
    menu.submenus = {{Fill,
                      "mnuFill",
                      {{Fills::Series, "序列方式填充(&S)"},
                       {Fills::Days, "以天数填充(&D)"},
                       {Fills::Years, "以年填充(&Y)"},
                       {Fills::Months, "以月填充(&M)"},
                       {Fills::CopyCell, "复制单元格(&C)"}}}};
    return menu;
}

Menu copyMenu() {
    return {"copyMenu", "复制数据", "copyCell", {{0, "复制单元格"}}, {}};
}

/// Nothing is drawn meanwhile, and all at once afterwards.
class DrawnOnce {
  public:
    explicit DrawnOnce(CellGrid& grid) : grid_(grid) { grid.Redraw(0); }
    ~DrawnOnce() { grid_.Redraw(2); }
    DrawnOnce(const DrawnOnce&) = delete;
    DrawnOnce& operator=(const DrawnOnce&) = delete;

  private:
    CellGrid& grid_;
};
}  // namespace

Menus::Menus(const ClerkContext& context)
    : c_(context), fills_(context), rowMenu_(rowMenu()), copyMenu_(copyMenu()) {}

// --- Showing

void Menus::popUpAt(const Rect& place, std::int16_t shift) {
    if (c_.flags.Editable) {
        showRowMenu(shift, place);
    } else if (popUp(copyMenu_, place)) {
        copyCell();
    }
}

MenuChoice Menus::popUp(const Menu& menu, const Rect& place) {
    return c_.platform.popUp(menu, c_.owner.onScreen(place));
}

void Menus::showRowMenu(std::int16_t shift, const Rect& place) {
    chooseRowItems(shift);
    chooseFillItems();
    const MenuChoice choice = popUp(rowMenu_, place);
    if (!choice || !c_.host.there()) return;
    if (choice->first == "mnuFill")
        fills_.fill(static_cast<Fills::Way>(choice->second));
    else
        rowCommand(choice->second);
}

bool Menus::someColumnHasDefaults() {
    for (std::int32_t col = c_.grid.FixedCols(); col < c_.grid.Cols(); ++col) {
        const cVsControl& column = c_.columns.at(col);
        if (!column.sDefaultText_Name().empty() || !column.sDefaultText_Code().empty()) return true;
    }
    return false;
}

/// Ctrl offers several rows; empty rows differ from others only where columns have default texts.
void Menus::chooseRowItems(std::int16_t shift) {
    const bool several = shift == CtrlKey;
    const bool defaults = someColumnHasDefaults();
    for (const RowItem item : {Add, Insert}) show(item, !several);
    for (const RowItem item : {AddSeveral, InsertSeveral}) show(item, several);
    for (const RowItem item : {AddEmpty, InsertEmpty}) show(item, !several && defaults);
    for (const RowItem item : {AddSeveralEmpty, InsertSeveralEmpty}) show(item, several && defaults);
    show(BeforeEmpty, defaults);
}

void Menus::chooseFillItems() {
    const mEmDataType type = c_.grid.Col() < 0 ? flexDTEmpty : c_.columns.at(c_.grid.Col()).iType();
    const bool fills = type == flexDTDouble || type == flexDTDate || type == flexDTString;
    show(BeforeDelete, true);
    show(BeforeFill, fills);
    show(Fill, fills);
    if (!fills) return;
    const auto item = [this](Fills::Way way) -> MenuItem& { return rowMenu_.item("mnuFill", way); };
    item(Fills::Series).visible = true;
    item(Fills::Series).enabled = type != flexDTString;
    for (const Fills::Way way : {Fills::Days, Fills::Years, Fills::Months})
        item(way).visible = type == flexDTDate;
    item(Fills::CopyCell).visible = true;
}

// --- The commands

void Menus::rowCommand(std::int32_t index) {
    const std::int32_t end = c_.grid.Rows();
    const std::int32_t current = c_.grid.Row();
    const bool copies = index == Copy || index == CopyInsert;
    if (copies && current >= 0 && c_.grid.RowFiltered(current)) return;
    switch (index) {
        case Add:
            return c_.rows.add(end, true, false);
        case Copy:
            return c_.rows.add(end, false, true);
        case Insert:
            return c_.rows.add(current, true, false);
        case CopyInsert:
            return c_.rows.add(current, false, true);
        case AddEmpty:
            return c_.rows.add(end, false, false);
        case InsertEmpty:
            return c_.rows.add(current, false, false);
        case AddSeveral:
            return addSeveral(true, true);
        case InsertSeveral:
            return addSeveral(false, true);
        case AddSeveralEmpty:
            return addSeveral(true, false);
        case InsertSeveralEmpty:
            return addSeveral(false, false);
        case Delete:
            if (c_.flags.Editable) c_.rows.removeCurrent();
            return;
        default:
            return;
    }
}

/// The host is asked for each row; a refusal does not end the others.
void Menus::addSeveral(bool atEnd, bool withDefaults) {
    constexpr double MostRows = 500;
    const auto answer = c_.platform.askText({"录入需要新增的行数", "新增行", "5"});
    const double asked = support::completeNumber(answer.value_or("")).value_or(0);
    const double rows = support::roundHalfEven(std::min(asked, MostRows));
    const WaitCursor wait(c_.platform);
    const DrawnOnce drawn(c_.grid);
    c_.steps.during(atEnd ? "新增多行" : "插入多行", Cause::Rows, [&] {
        for (double i = 0; i < rows && c_.host.there(); ++i)
            c_.rows.add(atEnd ? c_.grid.Rows() : c_.grid.Row(), withDefaults, false);
    });
}

void Menus::copyCell() {
    const CellGrid& grid = c_.grid;
    if (grid.Row() >= 0 && grid.Col() >= 0)
        c_.platform.copyToClipboard({grid.DisplayText(grid.Row(), grid.Col()), {}, false});
}
}  // namespace kxVsGrid::clerk
