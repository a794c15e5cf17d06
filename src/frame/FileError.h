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

// The words alone: "Permission denied".
std::string Describe(FileErrorNumber number);

class FileError : public std::runtime_error {
 public:
  // detail says what was being done and with what, a path as the platform has it; it goes to the log and into what(),
  // in the program's page, not into Text().
  FileError(FileErrorNumber number, const std::string& detail);
  FileErrorNumber Number() const { return number_; }
  // "Error 70: Permission denied"
  std::string Text() const;

 private:
  FileErrorNumber number_;
};

// From errno of a failed call.
FileErrorNumber NumberOfErrno(int errorNumber);
[[noreturn]] void ThrowFileError(int errorNumber, const std::string& detail);

}  // namespace lantos
