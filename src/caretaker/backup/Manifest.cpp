#include "caretaker/backup/Manifest.h"

#include <fmt/format.h>

#include <algorithm>
#include <limits>
#include <span>
#include <unordered_set>

#include "caretaker/backup/BackupError.h"
#include "caretaker/backup/Checksum.h"
#include "frame/FileIO.h"
#include "frame/JournalLines.h"
#include "frame/Text.h"

namespace lantos {

namespace {

constexpr std::string_view kFirstLine = "Lantos backup 1";
constexpr std::size_t kChecksumDigits = 64;
constexpr std::uint64_t kLongestFile = std::uint64_t{1} << 42;
constexpr std::size_t kLongestName = 255;

bool IsChecksum(std::string_view text) {
  return text.size() == kChecksumDigits && text.find_first_not_of("0123456789abcdef") == std::string_view::npos;
}

std::string ChecksumOf(std::string_view text) {
  Checksum checksum;
  checksum.Add(std::as_bytes(std::span(text)));
  return checksum.Take();
}

class ManifestReader {
 public:
  explicit ManifestReader(std::string_view text) : all_(text), rest_(text) {}

  Manifest Read() {
    if (NextLine() != kFirstLine) Refuse("it isn't the list of a backup that this program knows");
    while (!isEnded_) {
      const std::size_t before = all_.size() - rest_.size();
      Take(NextLine(), all_.substr(0, before));
    }
    if (!rest_.empty()) Refuse("something stands behind its end");
    return std::move(manifest_);
  }

 private:
  [[noreturn]] void Refuse(std::string_view why) const {
    throw BackupError(fmt::format("The list of files in the backup is damaged in line {}: {}.", line_, why));
  }

  std::string_view NextLine() {
    ++line_;
    const std::size_t end = rest_.find('\n');
    if (end == std::string_view::npos) Refuse("it ends there");
    const std::string_view line = rest_.substr(0, end);
    rest_.remove_prefix(end + 1);
    return line;
  }

  void Take(std::string_view line, std::string_view before) {
    const std::string_view word = TakeWord(line);
    if (word == "file") return TakeFile(line);
    if (word == "figure") return TakeFigure(line);
    if (word == "made") return TakeText(line, manifest_.madeAt);
    if (word == "directory") return TakeText(line, manifest_.directory);
    if (word == "program") return TakeText(line, manifest_.program);
    if (word == "end") return TakeEnd(line, before);
    Refuse("it has an unknown word");
  }

  void TakeText(std::string_view line, std::string& text) {
    if (!text.empty()) Refuse("it says something twice");
    text = FromOneLine(line);
  }

  void TakeFile(std::string_view line) {
    BackedFile file;
    file.checksum = TakeWord(line);
    if (!IsChecksum(file.checksum)) Refuse("a checksum is none");
    if (!TakeNumber(line, file.length) || file.length > kLongestFile) Refuse("a length is none");
    if (!TakeNumber(line, file.changedAt)) Refuse("a time is none");
    file.name = FromOneLine(line);
    if (!IsPlainName(file.name) || file.name.size() > kLongestName || file.name.find('\0') != std::string::npos ||
        EqualsIgnoringCase(file.name, kManifestName)) {
      Refuse("a name isn't one of a file in the shop's directory");
    }
    if (!names_.insert(file.name).second) Refuse("a name stands there twice");
    manifest_.files.push_back(std::move(file));
  }

  void TakeFigure(std::string_view line) {
    ShopFigure figure;
    figure.value = TakeWord(line);
    figure.name = FromOneLine(line);
    if (figure.value.empty() || figure.name.empty()) Refuse("a figure has no name");
    manifest_.figures.push_back(std::move(figure));
  }

  void TakeEnd(std::string_view line, std::string_view before) {
    std::uint64_t count = 0;
    if (!TakeNumber(line, count) || count != manifest_.files.size()) Refuse("files are missing in it");
    if (line != ChecksumOf(before)) Refuse("its checksum differs");
    isEnded_ = true;
  }

  std::string_view all_;
  std::string_view rest_;
  Manifest manifest_;
  std::unordered_set<std::string> names_;
  std::size_t line_ = 0;
  bool isEnded_ = false;
};

}  // namespace

std::uint64_t Manifest::TotalLength() const {
  std::uint64_t total = 0;
  for (const BackedFile& file : files) {
    if (file.length > std::numeric_limits<std::uint64_t>::max() - total)
      return std::numeric_limits<std::uint64_t>::max();
    total += file.length;
  }
  return total;
}

const BackedFile* Manifest::Find(std::string_view name) const {
  const auto found =
      std::find_if(files.begin(), files.end(), [&](const auto& file) { return EqualsIgnoringCase(file.name, name); });
  return found == files.end() ? nullptr : &*found;
}

std::string TextOf(const Manifest& manifest) {
  std::string text = fmt::format("{}\nmade {}\ndirectory {}\nprogram {}\n", kFirstLine, InOneLine(manifest.madeAt),
                                 InOneLine(manifest.directory), InOneLine(manifest.program));
  for (const BackedFile& file : manifest.files) {
    text += fmt::format("file {} {} {} {}\n", file.checksum, file.length, file.changedAt, InOneLine(file.name));
  }
  for (const ShopFigure& figure : manifest.figures) {
    text += fmt::format("figure {} {}\n", figure.value, InOneLine(figure.name));
  }
  return text + fmt::format("end {} {}\n", manifest.files.size(), ChecksumOf(text));
}

Manifest ReadManifest(std::string_view text) { return ManifestReader(text).Read(); }

}  // namespace lantos
