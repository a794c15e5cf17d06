#pragma once

#include <string>

#include "frame/FileError.h"

namespace lantos {

// Why a call on a file failed, as a person is told it behind a colon: "the disk is full". Neither path nor number: the
// error's own text has those for the run log.
std::string CauseInWords(FileErrorNumber number);

}  // namespace lantos
