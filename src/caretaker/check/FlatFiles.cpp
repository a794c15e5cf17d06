#include "caretaker/check/FlatFiles.h"

#include <algorithm>
#include <cstring>

#include "frame/Text.h"

namespace lantos {

namespace {

constexpr std::size_t kBlock = std::size_t{4} << 20;
constexpr std::int64_t kPause = 20;  // milliseconds
constexpr int kTries = 500;

// Somebody who has a file for themselves has it for a moment, as a rule.
SharedFile OpenShared(const FileIO& files, std::string_view name) {
  for (int left = kTries;; --left) {
    try {
      return {files.PathOf(name), Access::Read, Deny::None, Absent::Fail};
    } catch (const FileError& error) {
      if (error.Number() != FileErrorNumber::PermissionDenied || left == 0) throw;
    }
    files.GetClock().Wait(kPause);
  }
}

}  // namespace

std::size_t FlatFiles::ReadBlock(std::string_view name, std::uint64_t offset, std::span<std::byte> into) {
  if (SharedFile* const held = Held(name)) return held->ReadAt(offset, into);
  return OpenShared(files_, name).ReadAt(offset, into);
}

std::uint64_t FlatFiles::Length(std::string_view name) {
  if (SharedFile* const held = Held(name)) return held->Length();
  return files_.IsThere(name) ? files_.Length(name) : 0;
}

// It may grow or shrink meanwhile: what is there at the last reading counts.
FlatFiles::Content FlatFiles::ReadAll(std::string_view name) {
  Content content(Length(name));
  for (std::size_t done = 0; done < content.size;) {
    const std::size_t wanted = std::min(kBlock, content.size - done);
    const std::size_t got = ReadBlock(name, done, content.Part(done, wanted));
    done += got;
    if (got < wanted) content.size = done;
  }
  return content;
}

FlatFiles::Bytes FlatFiles::Read(std::string_view name) {
  const std::string key = ToUpper(name);
  auto found = read_.find(key);
  if (found == read_.end()) found = read_.emplace(key, ReadAll(name)).first;
  return found->second.Part(0, found->second.size);
}

void FlatFiles::ReadThrough(std::string_view name, std::size_t overlap, const Look& look) {
  const std::uint64_t length = Length(name);
  const std::size_t unit = std::min<std::uint64_t>(kBlock, length);
  const Content block(unit + overlap);
  std::size_t kept = 0;
  for (std::uint64_t offset = 0; offset < length;) {
    const std::size_t got = ReadBlock(name, offset, block.Part(kept, unit));
    if (got == 0) return;
    const std::string_view text(reinterpret_cast<const char*>(block.bytes.get()), kept + got);
    look(offset - kept, text);
    offset += got;
    kept = std::min(overlap, text.size());
    std::memmove(block.bytes.get(), text.data() + text.size() - kept, kept);
  }
}

void FlatFiles::Hold(std::string_view name) {
  held_.insert_or_assign(ToUpper(name), SharedFile(files_.PathOf(name), Access::ReadWrite, Deny::All, Absent::Fail));
}

SharedFile* FlatFiles::Held(std::string_view name) {
  const auto held = held_.find(ToUpper(name));
  return held == held_.end() ? nullptr : &held->second;
}

void FlatFiles::Write(std::string_view name, std::uint64_t offset, std::string_view bytes) {
  SharedFile* held = Held(name);
  if (held == nullptr) {
    held = &held_.emplace(ToUpper(name), SharedFile(files_.PathOf(name), Access::ReadWrite, Deny::All)).first->second;
  }
  held->WriteAt(offset, std::as_bytes(std::span(bytes)));
}

void FlatFiles::Flush() {
  for (auto& [name, file] : held_) {
    if (file.WasWritten()) file.Flush();
  }
}

}  // namespace lantos
