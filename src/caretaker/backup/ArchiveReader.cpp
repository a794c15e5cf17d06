#include <archive.h>
#include <archive_entry.h>
#include <fmt/format.h>

#include <algorithm>
#include <optional>
#include <vector>

#include "caretaker/backup/Archive.h"
#include "caretaker/backup/BackupError.h"
#include "caretaker/backup/Checksum.h"
#include "caretaker/backup/PlainFile.h"
#include "frame/PathText.h"

namespace lantos {

namespace {

constexpr std::size_t kBlock = std::size_t{1} << 20;

}  // namespace

void ArchiveReader::Closing::operator()(struct archive* archive) const { ::archive_read_free(archive); }

ArchiveReader::ArchiveReader(const std::filesystem::path& path) : path_(path), archive_(::archive_read_new()) {
  ::archive_read_support_filter_zstd(archive_.get());
  ::archive_read_support_format_tar(archive_.get());
  if (::archive_read_open_filename(archive_.get(), path.c_str(), kBlock) != ARCHIVE_OK) {
    std::error_code error;
    if (!std::filesystem::exists(path, error)) {
      throw BackupError(fmt::format("There is no \"{}\".", TextOfPath(path)));
    }
    RefuseDamage("it isn't a backup of this program, or can't be read");
  }
  std::uint64_t length = 0;
  if (NextEntry(length) != kManifestName) RefuseDamage("it isn't a backup of this program");
  if (length > kLongestManifest) RefuseDamage("its list of files is longer than that of any shop");
  std::string text(static_cast<std::size_t>(length), '\0');
  if (ReadData(text.data(), text.size()) != text.size()) RefuseDamage("its list of files is cut short");
  manifest_ = ReadManifest(text);
}

ArchiveReader::~ArchiveReader() = default;

void ArchiveReader::RefuseDamage(const std::string& why) const {
  throw BackupError(fmt::format("\"{}\" can't be used: {}. Take another backup.", TextOfPath(path_), why));
}

// Empty at the end. What is no file, a link among them, is refused before a byte of it is looked at.
std::string ArchiveReader::NextEntry(std::uint64_t& length) {
  struct archive_entry* entry = nullptr;
  const int result = ::archive_read_next_header(archive_.get(), &entry);
  if (result == ARCHIVE_EOF) return {};
  if (result != ARCHIVE_OK) RefuseDamage("it is damaged or cut short");
  const char* const name = ::archive_entry_pathname(entry);
  const bool isFile = ::archive_entry_filetype(entry) == AE_IFREG && ::archive_entry_hardlink(entry) == nullptr &&
                      ::archive_entry_symlink(entry) == nullptr;
  if (name == nullptr || *name == '\0' || !isFile || ::archive_entry_size(entry) < 0) {
    RefuseDamage("it holds something that isn't a file");
  }
  length = static_cast<std::uint64_t>(::archive_entry_size(entry));
  return name;
}

std::size_t ArchiveReader::ReadData(void* into, std::size_t size) {
  const la_ssize_t count = ::archive_read_data(archive_.get(), into, size);
  if (count < 0) RefuseDamage("it is damaged or cut short");
  return static_cast<std::size_t>(count);
}

void ArchiveReader::Unpack(const std::filesystem::path& into, const std::function<bool(const BackedFile&)>& isWanted,
                           const TellBytes& tell) {
  for (const BackedFile& file : manifest_.files) {
    std::uint64_t length = 0;
    if (NextEntry(length) != file.name) RefuseDamage(fmt::format("\"{}\" isn't where its list says", file.name));
    if (length != file.length) RefuseDamage(fmt::format("\"{}\" hasn't the length that its list says", file.name));
    UnpackOne(file, isWanted(file) ? &into : nullptr, tell);
  }
  std::uint64_t length = 0;
  if (!NextEntry(length).empty()) RefuseDamage("it holds more than its list says");
}

void ArchiveReader::UnpackOne(const BackedFile& file, const std::filesystem::path* into, const TellBytes& tell) {
  std::optional<PlainFile> made;
  if (into != nullptr) made.emplace(*into / file.name, PlainFile::Mode::Anew);
  std::vector<std::byte> block(static_cast<std::size_t>(std::clamp<std::uint64_t>(file.length, 1, kBlock)));
  Checksum checksum;
  std::uint64_t length = 0;
  while (const std::size_t count = ReadData(block.data(), block.size())) {
    const std::span<const std::byte> bytes(block.data(), count);
    checksum.Add(bytes);
    if (made) made->Write(bytes);
    length += count;
    tell(bytes_ += count);
  }
  if (length != file.length || checksum.Take() != file.checksum) {
    RefuseDamage(fmt::format("\"{}\" in it isn't what was taken: its checksum differs", file.name));
  }
  if (made) made->Finish(file.changedAt);
}

}  // namespace lantos
