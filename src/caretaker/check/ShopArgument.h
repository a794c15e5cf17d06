#pragma once

#include <string>

#include "frame/FileIO.h"

namespace lantos {

// Points files at a directory of the command line. Throws ShopError where no shop lies in it.
void GoToShop(FileIO& files, const std::string& directory);

}  // namespace lantos
