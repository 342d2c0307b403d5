// The controls of the column page: which property of a definition each shows, and where it stands.
#pragma once

#include <cstdint>
#include <functional>
#include <string_view>
#include <vector>

#include "kxVsGrid/ControlPage.h"

namespace kxVsGrid {

using AddControl = std::function<FormControl&(std::string_view typeName, std::string_view name,
                                              std::string_view caption, Rect place)>;

struct ControlPage::Boxes {
    /// A control and the property of a column's definition that it holds.
    struct Field {
        std::string_view member;
        FormControl& control;
    };
    /// What a list offers: the words and the codes behind them.
    struct Item {
        const char* caption;
        std::int32_t code;
    };
    struct List {
        Field field;
        std::vector<Item> items;
        /// The code of the chosen item; nullptr without a choice.
        const std::int32_t* chosen() const;
        /// Chooses the first item with the code; without one the choice stays.
        void choose(std::int32_t code);
    };

    explicit Boxes(const AddControl& add);

    FormControl& columns;  ///< Combo1
    FormControl& loadButton;
    List alignment;  ///< Combo2
    List type;       ///< Combo3
    std::vector<Field> texts;
    std::vector<Field> checks;
    FormControl& problem;
    FormControl& ok;
    FormControl& cancel;
    FormControl& apply;
};
}  // namespace kxVsGrid
