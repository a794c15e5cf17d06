#include "caretaker/check/ShopArgument.h"

#include <fmt/format.h>

#include "frame/PathText.h"
#include "records/modSystem.h"
#include "shopmaker/ShopDirectory.h"

namespace lantos {

void GoToShop(FileIO& files, const std::string& directory) {
  files.SetDataDir(TextOfPath(std::filesystem::absolute(directory)) + "/");
  if (files.List(kSystemFile).empty()) {
    throw ShopError(fmt::format("There is no shop in {}: it has no {}.", directory, kSystemFile));
  }
}

}  // namespace lantos
