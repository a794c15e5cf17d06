#pragma once

#include <string>
#include <string_view>

#include "records/Passwords.h"
#include "shop/Shop.h"

namespace lantos {

// What came of asking for a section's password, by the codes of a message box.
enum class PasswordAnswer { NotNeeded = 1, Cancelled = 2, Right = 6, Wrong = 7 };

// Asks for the password of a section, named by its label; an empty one asks nothing. A wrong password gives no
// message. Callers go on only for NotNeeded and Right.
PasswordAnswer CheckPassword(Shop& shop, const std::string& password, std::string_view section);
// The same for a section of the shared password file: true when the caller may go on.
bool MayEnter(Shop& shop, Section section);

}  // namespace lantos
