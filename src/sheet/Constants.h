// Columns of a few texts: their help, their suggestions, what they refuse.
#pragma once

#include <string>

#include "kxVsGrid/sheet/ColumnPlan.h"

namespace kxVsGrid::sheet {

/// As a column's help takes it. GridError for a text that a list cannot hold.
std::string constantsList(const ColumnPlan& plan);
SuggestionList suggestedConstants(const ColumnPlan& plan);
/// Why a line may not have the text, which its record has already; empty where it may. Where nobody knows, as the
/// host's function throws, a text that was typed may.
std::string refusedConstant(const ColumnPlan& plan, const void* record, const std::string& text, bool typed);
}  // namespace kxVsGrid::sheet
