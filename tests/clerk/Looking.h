// A clerk who looks for texts in a grid.
#pragma once

#include <optional>
#include <string>

#include "kit/ClerkTest.h"

namespace kxVsGrid::testing {

/// With all that another clerk can do.
template <class Clerk>
class Looking : public Clerk {
  protected:
    void look(const FindRule& rule) {
        find.Rule(rule);
        work();
    }
    void look(const char* text) { look(FindRule{.text = text}); }
    void work() {
        while (find.Work()) {
        }
    }
    std::optional<Cell> match() const {
        const auto found = find.State().match;
        return found ? std::optional(Cell{found->row, found->col}) : std::nullopt;
    }

    Finder& find = this->grid.Find();
};
}  // namespace kxVsGrid::testing
