#pragma once

#include <functional>
#include <map>
#include <memory>
#include <span>
#include <string>
#include <string_view>

#include "frame/FileIO.h"
#include "frame/SharedFile.h"

namespace lantos {

// The shop's flat files as they are read once, each when it is first asked for. While the shop works, a file is opened
// shared for one block after the other and closed in between, so that nobody waits for longer than one reading. Who has
// the directory to itself holds them all, and reads and writes through these.
class FlatFiles {
 public:
  explicit FlatFiles(const FileIO& files) : files_(files) {}
  FlatFiles(const FlatFiles&) = delete;

  using Bytes = std::span<const std::byte>;
  // Empty for a file that isn't there. One that somebody has for themselves is waited for, ten seconds; then, and on
  // any other failure, FileError.
  Bytes Read(std::string_view name);
  // Its whole records; what is behind the last is left out.
  template <class RecordType>
  std::span<const RecordType> Records(std::string_view name) {
    static_assert(sizeof(RecordType) == RecordType::kLength && alignof(RecordType) == 1);
    const Bytes bytes = Read(name);
    return {reinterpret_cast<const RecordType*>(bytes.data()), bytes.size() / RecordType::kLength};
  }
  // The same block by block, without keeping it: for a file that may be larger than the memory. Each block begins with
  // the last overlap bytes of the one before it; offset is that of its first byte.
  using Look = std::function<void(std::uint64_t offset, std::string_view block)>;
  void ReadThrough(std::string_view name, std::size_t overlap, const Look& look);
  // From the files again.
  void Forget() { read_.clear(); }

  // Opens a file for nobody else, for as long as this lives. FileError 70 when somebody has it.
  void Hold(std::string_view name);
  // Of a file that is held: as it was last read. One that isn't there is made, and held from then on.
  void Write(std::string_view name, std::uint64_t offset, std::string_view bytes);
  // What was written is on the disk behind this.
  void Flush();

 private:
  // As the memory is until a file is read into it.
  struct Content {
    explicit Content(std::size_t length) : bytes(new std::byte[length]), size(length) {}
    std::span<std::byte> Part(std::size_t offset, std::size_t count) const { return {bytes.get() + offset, count}; }
    std::unique_ptr<std::byte[]> bytes;
    std::size_t size = 0;
  };
  SharedFile* Held(std::string_view name);  // null: it isn't
  std::size_t ReadBlock(std::string_view name, std::uint64_t offset, std::span<std::byte> into);
  std::uint64_t Length(std::string_view name);
  Content ReadAll(std::string_view name);

  const FileIO& files_;
  // By their names in capitals: a file may be spelled in others.
  std::map<std::string, Content, std::less<>> read_;
  std::map<std::string, SharedFile, std::less<>> held_;
};

}  // namespace lantos
