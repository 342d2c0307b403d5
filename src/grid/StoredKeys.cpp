#include "kxVsGrid/StoredKeys.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace kxVsGrid {
namespace {

using Type = Variant::Type;

constexpr std::string_view ColumnPrefix = "SetVsControl";
constexpr std::int32_t WindowBackground = static_cast<std::int32_t>(0x80000005);
constexpr std::int32_t Workspace = static_cast<std::int32_t>(0x8000000C);
constexpr std::int32_t ButtonFace = static_cast<std::int32_t>(0x8000000F);
constexpr std::int32_t WindowText = static_cast<std::int32_t>(0x80000008);
constexpr std::int32_t ButtonText = static_cast<std::int32_t>(0x80000012);
constexpr std::int16_t No = 0;

/// A name that is read and written alike.
StoredKey key(std::string_view name, Type type, Variant fallback, std::string_view member,
              bool hasWriteDefault) {
    return {name, name, type, std::move(fallback), member, hasWriteDefault};
}
StoredKey grid(std::string_view name, Type type, Variant fallback, std::string_view member,
               bool hasWriteDefault = false) {
    return key(name, type, std::move(fallback), member, hasWriteDefault);
}
StoredKey column(std::string_view name, Type type, Variant fallback) {
    return key(name, type, std::move(fallback), name, true);
}

/// Stored names that differ from the member's ("ShowZero", "ForeColorFixe") are those of files in use.
const std::array<StoredKey, 15>& readKeys() {
    static const std::array<StoredKey, 15> keys{
        grid("Editable", Type::Boolean, No, "Editable", true),
        grid("ShowZero", Type::Boolean, false, "bIsShowZero", true),
        grid("SumRow", Type::Boolean, No, "SumRow", true),
        grid("Cols", Type::Int32, std::int32_t{10}, "Cols"),
        grid("Rows", Type::Int32, {}, "Rows"),
        grid("FixedCols", Type::Int32, std::int32_t{1}, "FixedCols"),
        grid("FixedRows", Type::Int32, std::int32_t{1}, "FixedRows"),
        grid("Appearance", Type::Int32, std::int32_t{1}, "Appearance", true),
        grid("BackColor", Type::Int32, WindowBackground, "BackColor"),
        grid("BackColorBkg", Type::Int32, Workspace, "BackColorBkg"),
        grid("BackColorFixed", Type::Int32, ButtonFace, "BackColorFixed"),
        grid("ForeColor", Type::Int32, WindowText, "ForeColor"),
        grid("ForeColorFixe", Type::Int32, ButtonText, "ForeColorFixed"),
        grid("FormatString", Type::Text, "", "FormatString", true),
        grid("BackColorBkg", Type::Int32, Workspace, "BackColorBkg"),
    };
    return keys;
}

const std::array<StoredKey, 14>& writtenKeys() {
    static const std::array<StoredKey, 14> keys = [] {
        constexpr std::array<std::string_view, 14> order{
            "FormatString",   "Editable",  "ShowZero",      "SumRow",    "Cols",
            "Rows",           "FixedCols", "FixedRows",     "BackColor", "BackColorBkg",
            "BackColorFixed", "ForeColor", "ForeColorFixe", "Appearance"};
        std::array<StoredKey, 14> ordered;
        std::transform(order.begin(), order.end(), ordered.begin(), [](std::string_view name) {
            return *std::find_if(readKeys().begin(), readKeys().end(),
                                 [name](const StoredKey& key) { return key.written == name; });
        });
        return ordered;
    }();
    return keys;
}

/// "bIsPrint" is asked for under a name that nothing is stored under, so that it always loads as True.
/// Programs in use read and write these files that way; a correction would change what they print.
const std::array<StoredKey, 19>& perColumn() {
    static const std::array<StoredKey, 19> keys{
        column("bIsEditable", Type::Boolean, true),
        column("bIsVisible", Type::Boolean, true),
        column("b是否提供帮助", Type::Boolean, "0"),
        column("iLimitLength", Type::Int16, "0"),
        column("iType", Type::Int32, "1"),
        column("i帮助返回值显示类型", Type::Int32, "1"),
        column("i帮助类型", Type::Int32, "0"),
        column("i是否允许为空", Type::Int32, true),
        column("i字段有效性判断类型", Type::Int32, "0"),
        column("sHelp_Code", Type::Text, ""),
        key("", Type::Text, "-1", "sName", true),
        column("s错误提示信息", Type::Text, "Error"),
        column("s文本框对应编码字段", Type::Text, ""),
        column("s文本框对应名称字段", Type::Text, ""),
        column("s有效性判断基础", Type::Text, ""),
        column("i有效性判断", Type::Int16, std::int16_t{0}),
        column("b是否合计数据", Type::Boolean, No),
        column("iColAlignment", Type::Int32, std::int32_t{1}),
        {"bIsPint", "bIsPrint", Type::Boolean, true, "bIsPrint", true},
    };
    return keys;
}
}  // namespace

std::span<const StoredKey> gridKeys() {
    return readKeys();
}

std::span<const StoredKey> writtenGridKeys() {
    return writtenKeys();
}

std::span<const StoredKey> columnKeys() {
    return perColumn();
}

std::string columnKey(std::int32_t col, std::string_view suffix) {
    std::string name(ColumnPrefix);
    name += std::to_string(col);
    name += suffix;
    return name;
}

std::optional<ColumnKeyParts> columnKeyParts(std::string_view name) {
    if (!name.starts_with(ColumnPrefix)) return std::nullopt;
    name.remove_prefix(ColumnPrefix.size());
    ColumnKeyParts parts{};
    const auto number = std::from_chars(name.data(), name.data() + name.size(), parts.col);
    const auto digits = static_cast<std::size_t>(number.ptr - name.data());
    const bool padded = digits > 1 && name.front() == '0';
    if (number.ec != std::errc() || name.front() == '-' || padded) return std::nullopt;
    const std::string_view suffix = name.substr(digits);
    for (const StoredKey& key : perColumn()) {
        if (key.written != suffix) continue;
        parts.suffix = key.written;
        return parts;
    }
    return std::nullopt;
}
}  // namespace kxVsGrid
