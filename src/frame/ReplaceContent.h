#pragma once

#include <cstddef>
#include <span>

#include "frame/SharedFile.h"

namespace lantos {

// Puts bytes in the place of all that a file holds, be it longer or shorter; the file is open for both with nobody else
// let in. The room for what is longer is taken ahead of the first change, so that a full disk is told while nothing is
// lost; what fails later is put back, as far as the disk lets it. FileError when it can't be written. Where the process
// is killed in between, that room may stay behind the content, as NULs.
void ReplaceContent(SharedFile& file, std::span<const std::byte> bytes);

}  // namespace lantos
