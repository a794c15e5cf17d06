#include "frame/OpenFiles.h"

namespace lantos {

FileHandle OpenFiles::FreeFile() const {
  FileHandle handle = log_.IsOpen() ? 2 : 1;  // the log has the first
  for (const auto& [used, numbered] : open_) {
    if (used != handle) break;
    ++handle;
  }
  return handle;
}

FileHandle OpenFiles::Open(std::string_view name, Access access, Deny deny, Absent absent) {
  const FileHandle handle = FreeFile();
  open_.emplace(handle, Numbered{std::string(name), SharedFile(files_.PathOf(name), access, deny, absent)});
  return handle;
}

SharedFile& OpenFiles::operator[](FileHandle handle) { return open_.at(handle).file; }

void OpenFiles::CloseFile(FileHandle& handle) {
  if (handle == kNoHandle) return;
  const std::string number = std::to_string(handle);
  if (const auto numbered = open_.find(handle); numbered != open_.end()) {
    Close(numbered->second);
    open_.erase(numbered);
  }
  if (handle == archivedTagFile_) {
    archivedTagFile_ = kNoHandle;
    log_.Write("Archived Wo Tag File pointer = " + number + " Closed.");
  } else if (handle == receivingFile_) {
    receivingFile_ = kNoHandle;
    log_.Write("Receiving File pointer = " + number + " Closed.");
  } else {
    log_.Write("CloseFile: Closed file with pointer = " + number);
  }
  handle = kNoHandle;
}

// On the way out of routines: nothing can be tried again here, nor thrown.
void OpenFiles::Close(Numbered& numbered) {
  try {
    numbered.file.Close();
  } catch (const FileError& error) {
    log_.Write(error.what());
    if (numbered.file.WasWritten() && whenDoubtful) whenDoubtful(numbered.name, FileFailure(error));
  }
}

FileHandle OpenFiles::OpenArchivedTagFile(std::string_view caller, Access access) {
  if (archivedTagFile_ != kNoHandle) {
    log_.Write(std::string(caller) + ": TQINCTAG already open");
    FileHandle handle = archivedTagFile_;
    CloseFile(handle);
  }
  log_.Write("Archived WO Tag File Pointer = " + std::to_string(FreeFile()) + " requested by " + std::string(caller));
  archivedTagFile_ = Open("TQINCTAG.DAT", access, Deny::None);
  return archivedTagFile_;
}

void OpenFiles::ResetFileMarks() {
  archivedTagFile_ = kNoHandle;
  receivingFile_ = kNoHandle;
}

}  // namespace lantos
