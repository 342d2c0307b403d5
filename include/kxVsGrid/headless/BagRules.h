// What a property bag must keep to. Hosts run it on bags of their own, in any test runner:
//
//     MyStore store;                                  // a kxVsGrid::headless::BagStore of the host
//     EXPECT_EQ(kxVsGrid::headless::brokenBagRules(store), std::vector<std::string>{});
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "kxVsGrid/PropertyBag.h"

namespace kxVsGrid::headless {

/// A place where bags are kept, as the one who tests it provides it.
class BagStore {
  public:
    virtual ~BagStore() = default;
    /// A bag without values, not kept anywhere yet. One is in use at a time.
    virtual std::unique_ptr<PropertyBag> fresh() = 0;
    /// Keeps what was written, lets go of the bag, and opens it again as a later run of the program does.
    virtual std::unique_ptr<PropertyBag> reopened(std::unique_ptr<PropertyBag> bag) = 0;
};

/// One sentence for each rule that the bags of the store break, with the values concerned; empty when they
/// keep them all.
std::vector<std::string> brokenBagRules(BagStore& store);
}  // namespace kxVsGrid::headless
