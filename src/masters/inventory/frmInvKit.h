#pragma once

#include <string_view>

#include "shop/Shop.h"

namespace lantos {

// Lets the person edit what the kit of this stock number consists of. The working inventory records are as before at
// the end.
void EditKit(Shop& shop, std::string_view stockNumber);

}  // namespace lantos
