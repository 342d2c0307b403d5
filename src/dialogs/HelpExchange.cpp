#include "kxVsGrid/HelpExchange.h"

namespace kxVsGrid {

HelpExchange& HelpExchange::shared() {
    static HelpExchange record;
    return record;
}
}  // namespace kxVsGrid
