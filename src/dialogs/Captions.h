// What the dialogs say where nothing else settles it.
#pragma once

namespace kxVsGrid::dialogs::captions {

inline constexpr const char* Ok = "确定";
inline constexpr const char* Cancel = "取消";
inline constexpr const char* Apply = "应用(&A)";
inline constexpr const char* LoadColumns = "读取列(&L)";
inline constexpr const char* Today = "今天";
inline constexpr const char* Edit = "编辑";
inline constexpr const char* Time = "时间";
inline constexpr const char* HalfDay = "上午或下午";
inline constexpr const char* Search = "查找";
inline constexpr const char* NotFound = "没有找到";

inline constexpr const char* TickAll = "全选";
inline constexpr const char* TickNone = "全不选";
inline constexpr const char* EndFilter = "取消筛选";
inline constexpr const char* EmptyText = "（空）";
inline constexpr const char* FilterText = "内容";
inline constexpr const char* FilterRows = "行数";
inline constexpr const char* NothingListed = "没有这样的内容。";
inline constexpr const char* NothingTicked = "没有勾选任何内容：至少勾选一项。";

inline constexpr const char* FilterTitle = "筛选";
inline constexpr const char* LookupTitle = "编码帮助";
inline constexpr const char* CalendarTitle = "日期";
inline constexpr const char* ConstantsTitle = "常量";
inline constexpr const char* ControlPageTitle = "列设置";
}  // namespace kxVsGrid::dialogs::captions
