#pragma once

#include <map>
#include <string>
#include <vector>

#include "admin/TestShop.h"

namespace lantos::test {

// All that a shop has on its disk: files by name, rows of its databases by "file:table". Run logs are left out.
using ShopState = std::map<std::string, std::string>;
ShopState StateOf(const ScratchDirectory& directory);

// The names whose content differs, or is in one of the two alone.
std::vector<std::string> Differences(const ShopState& a, const ShopState& b);
// The same sizes: as many records and rows, whatever stands in them.
bool AreAlikeInSize(const ShopState& a, const ShopState& b);

}  // namespace lantos::test
