#include "frame/ReplaceContent.h"

#include <vector>

namespace lantos {

namespace {

// A write that the disk has no room for cuts the file back to the length that it had.
void MakeRoom(SharedFile& file, std::uint64_t length, std::uint64_t lengthBefore) {
  if (length > lengthBefore) file.WriteAt(lengthBefore, std::vector<std::byte>(length - lengthBefore));
}

void Write(SharedFile& file, std::span<const std::byte> bytes) {
  file.WriteAt(0, bytes);
  file.Truncate(bytes.size());
}

}  // namespace

void ReplaceContent(SharedFile& file, std::span<const std::byte> bytes) {
  std::vector<std::byte> before(file.Length());
  file.ReadAt(0, before);
  MakeRoom(file, bytes.size(), before.size());
  try {
    Write(file, bytes);
  } catch (const FileError&) {
    try {
      Write(file, before);
    } catch (const FileError&) {
      // The error of the first write is the one to tell.
    }
    throw;
  }
}

}  // namespace lantos
