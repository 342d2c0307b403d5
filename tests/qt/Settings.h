// Settings for the tests of the widget: a bag of them, and what a control holds as a text.
#pragma once

#include <string>

#include "kxVsGrid/MemoryBag.h"
#include "kxVsGrid/TextBag.h"
#include "kxVsGrid/kxGrid.h"

namespace kxVsGrid::qt::testing {

/// Everything that the control saves, one setting a line.
inline std::string settingsOf(kxGrid& grid) {
    TextBag bag;
    grid.WriteProperties(bag);
    return bag.text();
}

/// The same of a widget that has read these settings.
std::string loadedFrom(MemoryBag bag);

/// The stored settings of an order's lines in four columns.
MemoryBag orderSettings();
}  // namespace kxVsGrid::qt::testing
