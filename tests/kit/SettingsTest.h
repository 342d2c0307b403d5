// A bag that writes down what is asked of it, with every default and its type; and a control that settings
// are read into and saved from.
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>

#include "kit/PlacedGrid.h"
#include "kxVsGrid/PropertyBag.h"
#include "kxVsGrid/StoredKeys.h"

namespace kxVsGrid::testing {

/// What a grid of so many columns stores.
inline std::size_t storedValues(std::size_t cols) {
    return writtenGridKeys().size() + cols * columnKeys().size();
}

/// A value with its type, such as Int16 0 or Text "Error".
inline std::string typed(const Variant& value) {
    switch (value.type()) {
        case Variant::Type::Empty:
            return "Empty";
        case Variant::Type::Null:
            return "Null";
        case Variant::Type::Boolean:
            return "Boolean " + value.toText();
        case Variant::Type::Int16:
            return "Int16 " + value.toText();
        case Variant::Type::Int32:
            return "Int32 " + value.toText();
        case Variant::Type::Double:
            return "Double " + value.toText();
        case Variant::Type::Text:
            return "Text \"" + value.toText() + '"';
        case Variant::Type::Array:
            return "Array";
    }
    return "?";
}

/// A store that failed.
struct StoreGone : std::runtime_error {
    StoreGone() : std::runtime_error("the store is gone") {}
};

class RecordingBag : public PropertyBag {
  public:
    Variant Read(std::string_view name, const Variant& fallback) override {
        names.emplace_back(name);
        asked.push_back(std::string(name) + ": " + typed(fallback));
        if (onRead) onRead(names.back());
        const auto found = values.find(std::string(name));
        return found == values.end() ? fallback : found->second;
    }
    void Write(std::string_view name, const Variant& value, const Variant& fallback) override {
        keep(name, value, ", default " + typed(fallback));
    }
    void Write(std::string_view name, const Variant& value) override { keep(name, value, ", no default"); }

    /// What is stored.
    std::map<std::string, Variant> values;
    /// The names that were read, in order; and with their defaults.
    Lines names;
    Lines asked;
    /// The names that were written, in order; and with value and default.
    Lines writtenNames;
    Lines written;
    /// Called before a read is answered, and before a written value is kept.
    std::function<void(const std::string&)> onRead;
    std::function<void(const std::string&)> onWrite;

  private:
    void keep(std::string_view name, const Variant& value, const std::string& fallback) {
        writtenNames.emplace_back(name);
        if (onWrite) onWrite(writtenNames.back());
        written.push_back(std::string(name) + " = " + typed(value) + fallback);
        values[std::string(name)] = value;
    }
};

inline std::string columnName(std::int32_t col, std::string_view suffix) {
    return "SetVsControl" + std::to_string(col) + std::string(suffix);
}

/// The grid-wide names in the order of reading.
inline const Lines GridNames = {"Editable",      "ShowZero",     "SumRow",         "Cols",
                                "Rows",          "FixedCols",    "FixedRows",      "Appearance",
                                "BackColor",     "BackColorBkg", "BackColorFixed", "ForeColor",
                                "ForeColorFixe", "FormatString", "BackColorBkg"};

/// The endings of one column's names in the order of reading.
inline const Lines ColumnSuffixes = {"bIsEditable",
                                     "bIsVisible",
                                     "b是否提供帮助",
                                     "iLimitLength",
                                     "iType",
                                     "i帮助返回值显示类型",
                                     "i帮助类型",
                                     "i是否允许为空",
                                     "i字段有效性判断类型",
                                     "sHelp_Code",
                                     "",
                                     "s错误提示信息",
                                     "s文本框对应编码字段",
                                     "s文本框对应名称字段",
                                     "s有效性判断基础",
                                     "i有效性判断",
                                     "b是否合计数据",
                                     "iColAlignment",
                                     "bIsPint"};

/// All names that a read of so many columns asks for.
inline Lines readNames(std::int32_t cols) {
    Lines names = GridNames;
    for (std::int32_t col = 0; col < cols; ++col)
        for (const auto& suffix : ColumnSuffixes) names.push_back(columnName(col, suffix));
    return names;
}
/// The part of them up to a name, which is included.
inline Lines upTo(Lines names, const std::string& last) {
    for (std::size_t i = 0; i < names.size(); ++i)
        if (names[i] == last) return Lines(names.begin(), names.begin() + static_cast<std::ptrdiff_t>(i) + 1);
    throw std::logic_error("no name " + last);
}

/// What the error of a failing call says.
inline std::string errorOf(const std::function<void()>& call) {
    try {
        call();
    } catch (const std::exception& error) {
        return error.what();
    }
    throw std::logic_error("nothing failed");
}

/// A placed control, and a bag that is empty. Placing it has cleared the flag that a failed read leaves set.
class SettingsTest : public PlacedGrid {
  protected:
    ~SettingsTest() override { clearLoadingFlag(); }

    static void clearLoadingFlag() {
        headless::Desk other;
        other.place();
    }
    void store(std::string_view name, Variant value) { bag.values[std::string(name)] = std::move(value); }
    void store(std::int32_t col, std::string_view suffix, Variant value) {
        store(columnName(col, suffix), std::move(value));
    }
    /// Reads the bag into the control, which succeeds.
    void read() {
        grid.ReadProperties(bag);
        EXPECT_EQ(boxes(), Nothing);
    }
    /// The settings of a control as its container would get them.
    static Lines saved(kxGrid& control) {
        RecordingBag target;
        control.WriteProperties(target);
        return target.written;
    }
    static Lines failedRead(const std::string& description) {
        return {"错误:|16|ReadProperError:" + description};
    }
    static Lines failedWrite(const std::string& description) {
        return {"错误:|16|WriteProperError:" + description};
    }

    RecordingBag bag;
};
}  // namespace kxVsGrid::testing
