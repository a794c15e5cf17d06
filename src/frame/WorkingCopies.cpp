#include "frame/WorkingCopies.h"

#include "frame/SharedFile.h"

namespace lantos {

std::string LogInUse(const FileIO& files) {
  for (const std::string& log : files.List("LN*.LOG")) {
    try {
      SharedFile(files.PathOf(log), Access::Read, Deny::None, Absent::Fail);
    } catch (const FileError& error) {
      if (error.Number() == FileErrorNumber::PermissionDenied) return log;
    }
  }
  return {};
}

}  // namespace lantos
