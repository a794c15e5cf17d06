#pragma once

#include <stdexcept>
#include <string>

#include "frame/PlainWords.h"

namespace lantos {

// The failures of file calls, numbered as people at the counter know them.
enum class FileErrorNumber {
  FileNotFound = 53,
  DeviceIo = 57,
  DiskFull = 61,
  TooManyFiles = 67,
  PermissionDenied = 70,  // also: a sharing mode is in the way
  PathFileAccess = 75,
  PathNotFound = 76,
};

// The words alone: "Permission denied".
std::string Describe(FileErrorNumber number);

class FileError : public std::runtime_error, public PlainWords {
 public:
  // detail says what was being done and with what, a path as the platform has it; it goes to the log, into what() and
  // Words(), in the program's page, not into Text(). The platform's own reason goes to the log and into what() alone.
  FileError(FileErrorNumber number, const std::string& detail, const std::string& reason = "");
  FileErrorNumber Number() const { return number_; }
  // "Error 70: Permission denied"
  std::string Text() const;
  // "Error 70: Permission denied (opening /shop/TQPARTS.DAT)"
  std::string Words() const override { return words_; }

 private:
  FileErrorNumber number_;
  std::string words_;
};

// From errno of a failed call.
[[noreturn]] void ThrowFileError(int errorNumber, const std::string& detail);

}  // namespace lantos
