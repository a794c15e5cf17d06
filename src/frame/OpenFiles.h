#pragma once

#include <map>
#include <string_view>

#include "frame/RunLog.h"
#include "frame/SharedFile.h"

namespace lantos {

// The bookkeeping of open file numbers. A handle is a 16-bit number; kNoHandle means none. Each open takes the lowest
// free number, as the run log shows them.
class OpenFiles {
 public:
  OpenFiles(FileIO& files, RunLog& log) : files_(files), log_(log) {}

  // Opens DataDir + name. Throws FileError.
  FileHandle Open(std::string_view name, Access access, Deny deny, Absent absent = Absent::Create);
  // Of an open file; another number throws std::out_of_range.
  SharedFile& operator[](FileHandle handle);
  // Closes, logs, and sets the caller's variable to kNoHandle. kNoHandle does nothing at all.
  void CloseFile(FileHandle& handle);

  // The archived work-order tag file: a number in use already is logged and closed first. Throws FileError.
  FileHandle OpenArchivedTagFile(std::string_view caller, Access access = Access::Read);
  void SetReceivingFile(FileHandle handle) { receivingFile_ = handle; }
  // Both global numbers to none.
  void ResetFileMarks();

  FileIO& Files() { return files_; }
  RunLog& Log() { return log_; }

 private:
  FileHandle FreeFile() const;

  FileIO& files_;
  RunLog& log_;
  std::map<FileHandle, SharedFile> open_;
  FileHandle archivedTagFile_ = kNoHandle;
  FileHandle receivingFile_ = kNoHandle;
};

}  // namespace lantos
