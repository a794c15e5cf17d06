#include "frame/FileError.h"

#include <cerrno>
#include <cstring>

#include "frame/PathText.h"

namespace lantos {

namespace {

FileErrorNumber NumberOf(int errorNumber) {
  switch (errorNumber) {
    case ENOENT:
      return FileErrorNumber::FileNotFound;
    case ENOTDIR:
    case ENAMETOOLONG:
    case ELOOP:
      return FileErrorNumber::PathNotFound;
    case EACCES:
    case EPERM:
    case EROFS:
    case EISDIR:
    case EBADF:
      return FileErrorNumber::PathFileAccess;
    // A network mount tells another machine's denial as a busy file.
    case EAGAIN:
    case EBUSY:
    case ETXTBSY:
      return FileErrorNumber::PermissionDenied;
    case ENOSPC:
    case EDQUOT:
    case EFBIG:
      return FileErrorNumber::DiskFull;
    case EMFILE:
    case ENFILE:
      return FileErrorNumber::TooManyFiles;
    default:
      return FileErrorNumber::DeviceIo;
  }
}

std::string TextOf(FileErrorNumber number) {
  return "Error " + std::to_string(static_cast<int>(number)) + ": " + Describe(number);
}

std::string TextWith(FileErrorNumber number, const std::string& detail) {
  return TextOf(number) + " (" + TextOfPlatform(detail) + ")";
}

}  // namespace

std::string Describe(FileErrorNumber number) {
  switch (number) {
    case FileErrorNumber::FileNotFound:
      return "File not found";
    case FileErrorNumber::DeviceIo:
      return "Device I/O error";
    case FileErrorNumber::DiskFull:
      return "Disk full";
    case FileErrorNumber::TooManyFiles:
      return "Too many files";
    case FileErrorNumber::PermissionDenied:
      return "Permission denied";
    case FileErrorNumber::PathFileAccess:
      return "Path/File access error";
    case FileErrorNumber::PathNotFound:
      return "Path not found";
  }
  return "Unknown error";
}

FileError::FileError(FileErrorNumber number, const std::string& detail, const std::string& reason)
    : std::runtime_error(TextWith(number, reason.empty() ? detail : detail + ": " + reason)),
      number_(number),
      words_(TextWith(number, detail)) {}

std::string FileError::Text() const { return TextOf(number_); }

void ThrowFileError(int errorNumber, const std::string& detail) {
  throw FileError(NumberOf(errorNumber), detail, std::strerror(errorNumber));
}

}  // namespace lantos
