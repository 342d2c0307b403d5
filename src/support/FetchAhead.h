// Memory that lies anywhere is fetched before it is needed, so that going through a million of its places does not
// wait a million times.
#pragma once

namespace kxVsGrid::support {

/// How many steps before its turn a place is asked for.
constexpr int StepsAhead = 16;

/// Says that what lies there will be read or written soon. Nothing else, and nothing at all on compilers that have no
/// word for it.
inline void fetchAhead([[maybe_unused]] const void* place) {
#ifdef __GNUC__
    __builtin_prefetch(place);
#endif
}
}  // namespace kxVsGrid::support
