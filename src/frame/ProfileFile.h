#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace lantos {

// A profile file ("[section]", "key=value"). It is a foreign file: writing edits one line and keeps every other line,
// its order and its line end as found. Sections and keys are found without regard to case; of two equal ones the
// first counts. Reading never fails: what isn't there gives the default. Of copies that write at once none loses
// another's entry; of two that write the same entry the last wins.
class ProfileFile {
 public:
  explicit ProfileFile(std::filesystem::path path) : path_(std::move(path)) {}

  // The value, blanks around it and one pair of quotes removed, cut at limit characters.
  std::string Get(std::string_view section, std::string_view key, std::string_view defaultValue,
                  std::size_t limit = std::string_view::npos) const;
  // False when the file can't be read and written; it stays as it is then.
  bool Put(std::string_view section, std::string_view key, std::string_view value);

 private:
  std::filesystem::path path_;
};

}  // namespace lantos
