#pragma once

#include <sys/stat.h>

#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace lantos {

// The names in one directory, found without regard to case. The directory is read once and again only when its time
// of change says that names have come or gone, since names are asked for at each open of a file.
class DirectoryNames {
 public:
  explicit DirectoryNames(std::string directory) : directory_(std::move(directory)) {}

  const std::string& Directory() const { return directory_; }  // as a path with its final separator, or empty
  // The spelling in the directory, empty when there is none. Throws FileError (75) that names both when there are two.
  std::string SpellingOf(std::string_view name);
  // Names of files, in the ANSI page, that match a pattern with "*" and "?", without regard to case, sorted. Reads the
  // directory anew.
  std::vector<std::string> Matching(std::string_view pattern) const;

 private:
  struct Spellings {
    std::string first;
    std::string second;  // empty as it should be
  };

  void Refresh();
  bool HasStamp(const struct stat& now) const;
  std::string KnownSpellingOf(const std::string& key) const;
  bool Exists(std::string_view name) const;
  std::string Look(const std::string& key) const;

  std::string directory_;
  std::unordered_map<std::string, Spellings> names_;  // by the name in capitals
  struct stat readAt_ = {};
  bool settled_ = false;
};

}  // namespace lantos
