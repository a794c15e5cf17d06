#include "frame/WorkingCopies.h"

#include "frame/SharedFile.h"

namespace lantos {

std::string LogInUse(const FileIO& files) {
  for (const std::string& log : files.List("LN*.LOG")) {
    if (IsLogInUse(files, log)) return log;
  }
  return {};
}

bool IsLogInUse(const FileIO& files, const std::string& log) {
  try {
    SharedFile(files.PathOf(log), Access::Read, Deny::None, Absent::Fail);
  } catch (const FileError& error) {
    return error.Number() == FileErrorNumber::PermissionDenied;
  }
  return false;
}

}  // namespace lantos
