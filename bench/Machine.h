// Where and with what was measured.
#pragma once

#include <ostream>

namespace kxbench {

/// A Markdown list: date, processor, memory, compiler, library versions, load at the start.
void writeMachine(std::ostream& out);
}  // namespace kxbench
