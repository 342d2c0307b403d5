// What a host has said about a column of a sheet, until the sheet lays its columns out.
#pragma once

#include <algorithm>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "kxVsGrid/Enumerations.h"
#include "kxVsGrid/sheet/CodeSource.h"
#include "kxVsGrid/sheet/Field.h"

namespace kxVsGrid::sheet {

struct ColumnPlan {
    std::string name;     ///< by which the host knows it
    std::string caption;  ///< by which the clerk does
    std::unique_ptr<Field> field;

    bool readOnly = false;
    bool hidden = false;
    bool total = false;
    bool stretch = false;
    bool required = false;
    bool nonZero = false;  ///< what is required is more than a 0
    std::function<bool(const void* record)> requiredWhen;
    bool insists = false;     ///< the control tells of what is missing
    bool skipFilled = false;  ///< Enter passes it
    bool halfDay = false;     ///< a text of a date and half of its day
    std::optional<int> decimals;
    std::int16_t limit = 0;             ///< most characters; 0: any number
    std::optional<std::int32_t> width;  ///< twips
    std::string sample;                 ///< a text that it is as wide as
    std::string format;
    std::optional<mEmflexAlign> alignment;
    std::optional<double> least;  ///< that can be typed
    std::string hint;             ///< what can be done there
    std::string wrong;            ///< what is said of a text that cannot stand there
    std::string preset;           ///< what rows get that the clerk comes to
    std::string enterTo;          ///< the column where Enter goes
    bool enterEndsRow = false;    ///< to that column of the next row

    /// Puts the member of a record from its others; may throw.
    std::function<void(void* record)> computed;

    std::shared_ptr<const CodeSource> codes;
    std::function<void(void* record, const void* found)> found;
    std::function<void(void* record)> cleared;
    std::string refusal;  ///< what is said of an unknown code, or of a text that is none of the constants
    std::optional<std::uint32_t> unknownColor;

    std::vector<std::string> constants;
    std::function<bool(const void* record, const std::string& text)> otherConstants;
    std::function<std::string(const std::string& text)> otherName;  ///< by which a constant is suggested, too

    /// A 0 and an empty cell are the same. Where an empty cell gets a preset, or 0 is one of the constants, they
    /// are not.
    bool blanksZero() const {
        const bool constant = std::find(constants.begin(), constants.end(), "0") != constants.end();
        return !field->optional() && !constant && (preset.empty() || preset == "0");
    }
    /// A 0 is as good as nothing where it is required.
    bool countsZero() const {
        const bool counted = field->kind() == FieldKind::Number && !codes && constants.empty();
        return nonZero || (counted && !field->optional());
    }
};
}  // namespace kxVsGrid::sheet
