#pragma once

#include <cstdint>
#include <string>

#include "shop/Shop.h"

namespace lantos {

// Whether the files gave the customer of an estimate. One who couldn't be read may be on file all the same.
enum class CustomerFound { Yes, NotOnFile, NotRead };

// Makes the customer with that number the current one, as the file has it.
CustomerFound FindCustomer(Shop& shop, std::int32_t number);
// Tells why nobody is current.
void TellNotFound(Shop& shop, CustomerFound found, const std::string& title);
// Both. False when nobody is current.
bool HasCustomer(Shop& shop, std::int32_t number, const std::string& title);

}  // namespace lantos
