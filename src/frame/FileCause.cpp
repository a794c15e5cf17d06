#include "frame/FileCause.h"

#include "frame/UnfitFile.h"

namespace lantos {

std::string CauseInWords(FileErrorNumber number) {
  switch (number) {
    case FileErrorNumber::FileNotFound:
      return "it is not there";
    case FileErrorNumber::PathNotFound:
      return "its directory is not there";
    case FileErrorNumber::DeviceIo:
      return "the disk or the network reports an error";
    case FileErrorNumber::DiskFull:
      return "the disk is full";
    case FileErrorNumber::TooManyFiles:
      return "too many files are open on this computer";
    case FileErrorNumber::PermissionDenied:
      return "another user has it open";
    case FileErrorNumber::PathFileAccess:
      return "it is read-only, or closed to you by its permissions";
  }
  return "an unknown error";
}

FileFailure::FileFailure(const FileError& error) : number(error.Number()) {
  if (dynamic_cast<const UnfitFile*>(&error) != nullptr) unfit = error.Words();
}

std::string InWords(const FileFailure& failure, std::string_view sentence) {
  return failure.unfit.empty() ? std::string(sentence) + ": " + CauseInWords(failure.number) + "." : failure.unfit;
}

}  // namespace lantos
