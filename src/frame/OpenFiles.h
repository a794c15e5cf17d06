#pragma once

#include <functional>
#include <map>
#include <string>
#include <string_view>

#include "frame/FileCause.h"
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
  // Called while a file is closed that was written to, when the system tells at the close alone that something of that
  // is lost, as a mount over the network does. It must neither throw nor ask anybody. The log has the error.
  std::function<void(const std::string& name, const FileFailure& failure)> whenDoubtful;

  // The archived work-order tag file: a number in use already is logged and closed first. Throws FileError.
  FileHandle OpenArchivedTagFile(std::string_view caller, Access access = Access::Read);
  void SetReceivingFile(FileHandle handle) { receivingFile_ = handle; }
  // Both global numbers to none.
  void ResetFileMarks();

  FileIO& Files() { return files_; }
  RunLog& Log() { return log_; }

 private:
  struct Numbered {
    std::string name;
    SharedFile file;
  };
  FileHandle FreeFile() const;
  void Close(Numbered& numbered);

  FileIO& files_;
  RunLog& log_;
  std::map<FileHandle, Numbered> open_;
  FileHandle archivedTagFile_ = kNoHandle;
  FileHandle receivingFile_ = kNoHandle;
};

}  // namespace lantos
