#include "kxVsGrid/Command.h"

#include <algorithm>
#include <array>
#include <iterator>

#include "kxVsGrid/Enumerations.h"

namespace kxVsGrid {
namespace {

struct Look {
    Command command;
    std::string_view name;
    std::string_view caption;
    std::string_view iconName;
};

constexpr Look looks[] = {
    {Command::Undo, "Undo", "撤销", "edit-undo"},
    {Command::Redo, "Redo", "重做", "edit-redo"},
    {Command::Copy, "Copy", "复制", "edit-copy"},
    {Command::CopyWithHeaders, "CopyWithHeaders", "复制（带标题）", ""},
    {Command::Cut, "Cut", "剪切", "edit-cut"},
    {Command::Paste, "Paste", "粘贴", "edit-paste"},
    {Command::ClearCells, "ClearCells", "清除内容", "edit-clear"},
    {Command::SelectAll, "SelectAll", "全选", "edit-select-all"},
    {Command::SelectRow, "SelectRow", "选择整行", ""},
    {Command::SelectColumn, "SelectColumn", "选择整列", ""},
    {Command::FillDown, "FillDown", "向下填充", ""},
    {Command::FillRight, "FillRight", "向右填充", ""},
    {Command::CopyFromAbove, "CopyFromAbove", "复制上一格", ""},
    {Command::Find, "Find", "查找…", "edit-find"},
    {Command::FindNext, "FindNext", "查找下一个", "go-down-search"},
    {Command::FindPrevious, "FindPrevious", "查找上一个", "go-up-search"},
    {Command::Replace, "Replace", "替换…", "edit-find-replace"},
    {Command::InsertRow, "InsertRow", "插入行", ""},
    {Command::AppendRow, "AppendRow", "新增行", "list-add"},
    {Command::DuplicateRow, "DuplicateRow", "复制行", ""},
    {Command::DeleteRows, "DeleteRows", "删除行", "list-remove"},
    {Command::MoveRowUp, "MoveRowUp", "上移一行", "go-up"},
    {Command::MoveRowDown, "MoveRowDown", "下移一行", "go-down"},
    {Command::GoToRow, "GoToRow", "转到行…", "go-jump"},
    {Command::SortUp, "SortUp", "升序排列", "view-sort-ascending"},
    {Command::SortDown, "SortDown", "降序排列", "view-sort-descending"},
    {Command::Unsort, "Unsort", "恢复原来的顺序", ""},
    {Command::Filter, "Filter", "筛选…", "view-filter"},
    {Command::Unfilter, "Unfilter", "取消筛选", ""},
    {Command::Freeze, "Freeze", "冻结到此列", ""},
    {Command::HideColumn, "HideColumn", "隐藏列", ""},
    {Command::ShowColumns, "ShowColumns", "显示隐藏的列", ""},
    {Command::FitColumn, "FitColumn", "最适合的列宽", ""},
    {Command::HeaderMenu, "HeaderMenu", "列菜单", ""},
    {Command::Today, "Today", "今天的日期", ""},
    {Command::Now, "Now", "现在的时间", ""},
    {Command::Help, "Help", "选择…", "help-contents"},
    {Command::Menu, "Menu", "菜单", ""},
    {Command::NextProblem, "NextProblem", "下一个问题", ""},
};

constexpr auto commands = [] {
    std::array<Command, std::size(looks)> all{};
    std::transform(std::begin(looks), std::end(looks), all.begin(),
                   [](const Look& look) { return look.command; });
    return all;
}();

const Look& lookOf(Command command) {
    return *std::find_if(std::begin(looks), std::end(looks),
                         [command](const Look& look) { return look.command == command; });
}

/// The names of keys that are no letters and digits; their codes are those of the usual keyboard.
struct KeyName {
    std::int16_t code;
    std::string_view name;
};
constexpr std::int16_t F3 = 114;
constexpr std::int16_t F8 = 119;
constexpr std::int16_t Semicolon = 186;
constexpr std::int16_t Plus = 187;
constexpr std::int16_t Minus = 189;
constexpr std::int16_t Apostrophe = 222;

constexpr KeyName keyNames[] = {
    {8, "Backspace"}, {9, "Tab"},        {13, "Enter"}, {27, "Esc"},      {32, "Space"}, {33, "PageUp"},
    {34, "PageDown"}, {35, "End"},       {36, "Home"},  {37, "Left"},     {38, "Up"},    {39, "Right"},
    {40, "Down"},     {45, "Ins"},       {46, "Del"},   {Semicolon, ";"}, {Plus, "+"},   {188, ","},
    {Minus, "-"},     {190, "."},        {191, "/"},    {192, "`"},       {219, "["},    {220, "\\"},
    {221, "]"},       {Apostrophe, "'"},
};
constexpr std::int16_t FirstFunctionKey = 112;
constexpr std::int16_t LastFunctionKey = 135;

constexpr auto ClosedCell = CommandKey::Where::ClosedCell;
constexpr auto EditorToo = CommandKey::Where::EditorToo;
constexpr auto Up = static_cast<std::int16_t>(Key::Up);
constexpr auto Down = static_cast<std::int16_t>(Key::Down);

// Insert, Delete, F2 and the menu keys are not here: what they do is the grid's own, in any shift state.
constexpr CommandKey keys[] = {
    {Command::Undo, 'Z', CtrlKey, EditorToo},
    {Command::Redo, 'Y', CtrlKey, EditorToo},
    {Command::Redo, 'Z', CtrlKey + ShiftKey, EditorToo},
    {Command::Copy, 'C', CtrlKey, ClosedCell},
    {Command::CopyWithHeaders, 'C', CtrlKey + ShiftKey, ClosedCell},
    {Command::Cut, 'X', CtrlKey, ClosedCell},
    {Command::Paste, 'V', CtrlKey, ClosedCell},
    {Command::SelectAll, 'A', CtrlKey, ClosedCell},
    {Command::FillDown, 'D', CtrlKey, EditorToo},
    {Command::FillRight, 'R', CtrlKey, EditorToo},
    {Command::CopyFromAbove, Apostrophe, CtrlKey, EditorToo},
    {Command::Find, 'F', CtrlKey, EditorToo},
    {Command::FindNext, F3, 0, EditorToo},
    {Command::FindPrevious, F3, ShiftKey, EditorToo},
    {Command::Replace, 'H', CtrlKey, EditorToo},
    {Command::InsertRow, Plus, CtrlKey, EditorToo},
    {Command::InsertRow, Plus, CtrlKey + ShiftKey, EditorToo},
    {Command::DeleteRows, Minus, CtrlKey, EditorToo},
    {Command::MoveRowUp, Up, AltKey, EditorToo},
    {Command::MoveRowDown, Down, AltKey, EditorToo},
    {Command::GoToRow, 'G', CtrlKey, EditorToo},
    {Command::HeaderMenu, Down, AltKey + ShiftKey, EditorToo},
    {Command::Filter, 'L', CtrlKey + ShiftKey, EditorToo},
    {Command::Today, Semicolon, CtrlKey, EditorToo},
    {Command::Now, Semicolon, CtrlKey + ShiftKey, EditorToo},
    {Command::NextProblem, F8, 0, EditorToo},
};
}  // namespace

std::span<const Command> allCommands() {
    return commands;
}

std::span<const CommandKey> defaultKeys() {
    return keys;
}

std::string_view captionOf(Command command) {
    return lookOf(command).caption;
}

std::string_view nameOf(Command command) {
    return lookOf(command).name;
}

std::optional<Command> commandNamed(std::string_view name) {
    const auto* const found =
        std::find_if(std::begin(looks), std::end(looks), [&](const Look& look) { return look.name == name; });
    return found == std::end(looks) ? std::nullopt : std::optional(found->command);
}

std::string_view iconNameOf(Command command) {
    return lookOf(command).iconName;
}

std::string keyText(const CommandKey& key) {
    std::string text;
    if ((key.shift & CtrlKey) != 0) text += "Ctrl+";
    if ((key.shift & AltKey) != 0) text += "Alt+";
    if ((key.shift & ShiftKey) != 0) text += "Shift+";
    const auto* const named = std::find_if(std::begin(keyNames), std::end(keyNames),
                                           [&](const KeyName& name) { return name.code == key.code; });
    if (named != std::end(keyNames)) return text.append(named->name);
    if (key.code >= FirstFunctionKey && key.code <= LastFunctionKey)
        return text + "F" + std::to_string(key.code - FirstFunctionKey + 1);
    return text + static_cast<char>(key.code);
}
}  // namespace kxVsGrid
