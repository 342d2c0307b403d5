// The numbers that columns and the control are described with.
//
// Every enumeration has a fixed underlying type and holds any integer of it: a value loaded from settings
// that names no member is kept and means "any other".
#pragma once

#include <cstdint>

namespace kxVsGrid {

/// Alignment of a cell's text inside its rectangle.
enum mEmflexAlign : std::int16_t {
    flexAlignLeftTop = 0,
    flexAlignLeftCenter = 1,
    flexAlignLeftBottom = 2,
    flexAlignCenterTop = 3,
    flexAlignCenterCenter = 4,
    flexAlignCenterBottom = 5,
    flexAlignRightTop = 6,
    flexAlignRightCenter = 7,
    flexAlignRightBottom = 8,
    flexAlignGeneral = 9,  ///< numbers to the right, everything else to the left
};

/// Which neighbouring cells of equal text may be shown as one.
enum mEmflexMerge : std::int32_t {
    flexMergeNever = 0,
    flexMergeFixedOnly = 5,
};

/// What the values of a column are.
enum mEmDataType : std::int32_t {
    flexDTEmpty = 0,
    flexDTDouble = 5,
    flexDTDate = 7,
    flexDTString = 8,
    flexDTBoolean = 11,
};

/// Which help a column opens.
enum gEmHelpType : std::int32_t {
    ih通用型 = 0,  ///< searchable code list
    ih日期型 = 1,  ///< calendar
    ih特殊型 = 2,  ///< shown by the host
    ih常量型 = 3,  ///< list of constants written into the column definition
};
inline constexpr gEmHelpType ih半日型{4};  ///< calendar, with 上午 or 下午
inline constexpr gEmHelpType ih时间型{5};  ///< calendar, with a time of day

/// How typed text is checked; 0 means no check.
enum gEmJudgeType : std::int32_t {
    ij编码型 = 1,    ///< a code that the host must know
    ij日期型 = 2,    ///< a calendar date
    ij其他类型 = 3,  ///< accepted as it is
};
inline constexpr gEmJudgeType ij半日型{4};  ///< a calendar date, a blank, and 上午 or 下午
inline constexpr gEmJudgeType ij时间型{5};  ///< a calendar date, a blank, and a time of day

/// Whether a column may be left empty; 0 means no rule.
enum gEmNotAllowEmptyType : std::int32_t {
    i字段不能为空 = 1,
    i字段不能为零 = 2,
};

/// Which half of a code/name pair a cell shows; the other half goes into its tag.
enum gEmShowCodeName : std::int32_t {
    iText记Code = 0,
    iText记Name = 1,
};

/// Kinds of numbers, declared for hosts.
enum gEmTextDataType : std::int32_t {
    i金额型 = 8,
    i数量型 = 9,
    i单价型 = 10,
};

/// Virtual key codes as they arrive in the key events. Only the keys that the control gives a meaning are
/// named; letters and digits have the code of their ASCII capital.
enum class Key : std::int16_t {
    None = 0,
    Back = 8,
    Tab = 9,
    Enter = 13,
    Escape = 27,
    Space = 32,
    PageUp = 33,
    PageDown = 34,
    End = 35,
    Home = 36,
    Left = 37,
    Up = 38,
    Right = 39,
    Down = 40,
    Insert = 45,
    Delete = 46,
    Menu = 93,
    F2 = 113,
    F10 = 121,
};

/// The Shift argument of key and mouse events is a sum of these.
enum ShiftMask : std::int16_t {
    ShiftKey = 1,
    CtrlKey = 2,
    AltKey = 4,
};

/// The Button argument of mouse events.
enum MouseButton : std::int16_t {
    LeftButton = 1,
    RightButton = 2,
    MiddleButton = 4,
};
}  // namespace kxVsGrid
