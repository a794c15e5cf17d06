#pragma once

#include "records/Contention.h"
#include "records/OpenedFile.h"

namespace lantos {

// Opens a file that another copy may have alone for a moment. FileError when that lasts, and at once for what isn't a
// matter of sharing.
inline void OpenPatiently(OpenedFile& file, Environment& environment, std::string_view name, Access access, Deny deny) {
  Contention contention(contention::kMomentsPatience, environment);
  contention.Run([&] { file.Open(name, access, deny); });
}

}  // namespace lantos
