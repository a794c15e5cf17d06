#pragma once

#include <filesystem>

#include "frame/Clock.h"

namespace lantos {

// A turn at changing a shared file: what is read, changed and written back under one turn isn't overtaken by another
// copy of this program that does the same. It claims nothing that an open of the file looks at, so that the routines
// inside open the file as they always do, and other programs see none of it. A turn that doesn't come within some
// seconds, because the copy that has it waits for its operator, is no longer waited for.
class UpdateTurn {
 public:
  UpdateTurn(const std::filesystem::path& path, Clock& clock);
  ~UpdateTurn();
  UpdateTurn(const UpdateTurn&) = delete;

 private:
  int descriptor_ = -1;
};

}  // namespace lantos
