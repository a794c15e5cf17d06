#include <map>

#include "caretaker/check/Kinds.h"
#include "frame/Text.h"

namespace lantos {

// Which of the two is the shop's can't be guessed, and every open of it is refused.
void FindNames(ShopView& shop, const Tell& tell) {
  std::map<std::string, std::string> spellings;
  for (const std::string& name : shop.files.List("*")) {
    const auto [other, isNew] = spellings.emplace(ToUpper(name), name);
    if (!isNew) tell({other->second, "", "", name + " is the same name in another spelling: one of the two must go"});
  }
}

}  // namespace lantos
