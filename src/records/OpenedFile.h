#pragma once

#include <limits>
#include <stdexcept>
#include <string>

#include "frame/OpenFiles.h"
#include "records/Record.h"

namespace lantos {

// A numbered file for the length of a routine: closed through CloseFile on every way out.
class OpenedFile {
 public:
  explicit OpenedFile(OpenFiles& openFiles) : openFiles_(openFiles) {}
  OpenedFile(OpenFiles& openFiles, std::string_view name, Access access, Deny deny) : openFiles_(openFiles) {
    Open(name, access, deny);
  }
  ~OpenedFile() { Close(); }
  OpenedFile(const OpenedFile&) = delete;
  OpenedFile& operator=(const OpenedFile&) = delete;

  void Open(std::string_view name, Access access, Deny deny) { handle_ = openFiles_.Open(name, access, deny); }
  void TakeOver(FileHandle handle) { handle_ = handle; }
  void Close() { openFiles_.CloseFile(handle_); }
  // The file stays open past this object.
  FileHandle Release() {
    const FileHandle handle = handle_;
    handle_ = kNoHandle;
    return handle;
  }

  bool IsOpen() const { return handle_ != kNoHandle; }
  FileHandle Handle() const { return handle_; }
  SharedFile& operator*() { return openFiles_[handle_]; }
  SharedFile* operator->() { return &openFiles_[handle_]; }

 private:
  OpenFiles& openFiles_;
  FileHandle handle_ = kNoHandle;
};

// The record at a link. What lies past the end of the file, and anything at a negative link, reads as zeros.
template <std::size_t Length>
void ReadRecord(const SharedFile& file, FileLink link, Record<Length>& record) {
  if (link < 0) {
    record = {};
  } else {
    file.ReadAt(static_cast<std::uint64_t>(link), record.Bytes());
  }
}

template <std::size_t Length>
void WriteRecord(SharedFile& file, FileLink link, const Record<Length>& record) {
  if (link < 0) throw FileError(FileErrorNumber::DeviceIo, "write at offset " + std::to_string(link));
  file.WriteAt(static_cast<std::uint64_t>(link), record.Bytes());
}

// A file's length as the link of what is appended to it. Links end at 2^31; a longer file throws.
inline FileLink LinkAtEnd(std::uint64_t length, std::string_view name) {
  if (length > static_cast<std::uint64_t>(std::numeric_limits<FileLink>::max())) {
    throw std::overflow_error(std::string(name) + " is full: no link can name what lies at " + std::to_string(length));
  }
  return static_cast<FileLink>(length);
}

}  // namespace lantos
