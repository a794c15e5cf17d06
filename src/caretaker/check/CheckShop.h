#pragma once

#include <functional>
#include <span>
#include <vector>

#include "caretaker/check/Kinds.h"

namespace lantos {

// Told ahead of each kind, for whoever waits.
using TellKind = std::function<void(const Kind& kind, std::size_t done, std::size_t of)>;

// What the kinds find, in their order, at one look. Two spellings of one name alone are told where there are any, since
// no such file can be opened.
std::vector<Finding> LookOnce(ShopView& shop, std::span<const Kind> kinds, const TellKind& tellKind = {});

// The same while the shop works: what is found is looked at again a moment later, and told where it is still so. What
// others are in the middle of is no fault. FileError and DatabaseError for what can't be read.
std::vector<Finding> CheckShop(ShopView& shop, std::span<const Kind> kinds, const TellKind& tellKind = {});

}  // namespace lantos
