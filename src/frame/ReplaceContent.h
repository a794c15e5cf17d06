#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "frame/FileError.h"

namespace lantos {

// Puts bytes in the place of all that a file holds, be it longer or shorter; the file is open for both with nobody else
// let in. The room for what is longer is taken ahead of the first change, so that a full disk is told while nothing is
// lost; what fails later is put back, as far as the disk lets it. FileError when it can't be written. Where the process
// is killed in between, that room may stay behind the content, as NULs.
//
// A file has Length, ReadAt, WriteAt and Truncate as SharedFile has them.
template <class File>
void ReplaceContent(File& file, std::span<const std::byte> bytes) {
  const auto write = [&file](std::span<const std::byte> content) {
    file.WriteAt(0, content);
    file.Truncate(content.size());
  };
  std::vector<std::byte> before(static_cast<std::size_t>(file.Length()));
  file.ReadAt(0, before);
  // A write that the disk has no room for cuts the file back to the length that it had.
  if (bytes.size() > before.size()) {
    file.WriteAt(before.size(), std::vector<std::byte>(bytes.size() - before.size()));
  }
  try {
    write(bytes);
  } catch (const FileError&) {
    try {
      write(before);
    } catch (const FileError&) {
      // The error of the first write is the one to tell.
    }
    throw;
  }
}

}  // namespace lantos
