#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>

#include "frame/FileError.h"

namespace lantos {

// A file that is refused for what lies under its name, be it there by mistake or on purpose, or for where it lies.
// Number 75; its words name the file, the cause and what helps.
class UnfitFile : public FileError {
 public:
  enum class Why { LeadsAway, NotRegular, TooLong, LongLine, NoLocks };

  // detail is what the system says of it, for the run log.
  UnfitFile(const std::filesystem::path& path, Why why, const std::string& detail = {});
  std::string Words() const override { return words_; }

 private:
  std::string words_;
};

// The most bytes of a file of records that are held in memory at once: more than any shop has, less than any computer.
inline constexpr std::uint64_t kLongestRecordFile = std::uint64_t{1} << 30;
// The same of a file that is lines of text, and of one line.
inline constexpr std::uint64_t kLongestTextFile = std::uint64_t{16} << 20;
inline constexpr std::size_t kLongestLine = std::size_t{1} << 20;

// Before memory is taken for the whole of a file. Throws UnfitFile.
void RefuseTooLong(const std::filesystem::path& path, std::uint64_t length, std::uint64_t limit);

}  // namespace lantos
