#pragma once

#include <string>
#include <string_view>

#include "frame/FileError.h"

namespace lantos {

// Why a call on a file failed, as a person is told it behind a colon: "the disk is full". Neither path nor number: the
// error's own text has those for the run log.
std::string CauseInWords(FileErrorNumber number);

// Why a file couldn't be used, kept until a person is told.
struct FileFailure {
  FileFailure() = default;
  explicit FileFailure(FileErrorNumber theNumber) : number(theNumber) {}
  explicit FileFailure(const FileError& error);

  FileErrorNumber number = FileErrorNumber::PathFileAccess;
  std::string unfit;  // what a file says that isn't fit to be opened; empty for any other failure
};

// For a box: "TQVEHICL.DAT can not be used: the disk is full.", of a sentence that names the file. An unfit file says
// its name, the cause and what helps itself.
std::string InWords(const FileFailure& failure, std::string_view sentence);

}  // namespace lantos
