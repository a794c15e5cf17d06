#pragma once

#include <stdexcept>
#include <string>

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

std::string Describe(FileErrorNumber number);

class FileError : public std::runtime_error {
 public:
  // detail says what was being done and with what; it goes to the log, not into Text().
  FileError(FileErrorNumber number, const std::string& detail);
  FileErrorNumber Number() const { return number_; }
  // "Error 70: Permission denied"
  std::string Text() const;

 private:
  FileErrorNumber number_;
};

// From errno of a failed call.
[[noreturn]] void ThrowFileError(int errorNumber, const std::string& detail);

}  // namespace lantos
