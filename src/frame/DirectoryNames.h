#pragma once

#include <sys/stat.h>

#include <chrono>
#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "frame/DirectoryWatch.h"

namespace lantos {

// The names in one directory, found without regard to case. The directory is read once and again only when its time
// of change says that names have come or gone, since names are asked for at each open of a file. One of very many names
// is followed instead: a shop keeps the texts of all its past work orders, and each change of the database makes and
// deletes a file beside them.
class DirectoryNames {
 public:
  explicit DirectoryNames(std::string directory) : directory_(std::move(directory)) {}

  const std::string& Directory() const { return directory_; }  // as a path with its final separator, or empty
  // The spelling in the directory, empty when there is none. Throws FileError (75) that names both when there are two.
  std::string SpellingOf(std::string_view name);
  // Names of files, in the ANSI page, that match a pattern with "*" and "?", without regard to case, sorted. Reads the
  // directory anew, unless it is followed.
  std::vector<std::string> Matching(std::string_view pattern);

  // Of a network mount, which tells a change of the directory late anyway: a file that is where it was needs no second
  // reading within two seconds of the last.
  void SetToldLate(bool late) { toldLate_ = late; }
  // How often all names were read: what the directory costs.
  std::size_t TimesRead() const { return timesRead_; }

 private:
  using Spellings = std::vector<std::string>;  // of one name, one as it should be

  void Refresh();
  void ReadAll();
  bool Follow();
  void Come(std::string_view name);
  void Go(std::string_view name);
  bool HasStamp(const struct stat& now) const;
  bool IsReadingRecent() const;
  std::string KnownSpellingOf(const std::string& key) const;
  bool Exists(std::string_view name) const;
  bool IsTrue(std::string_view name, const std::string& spelling) const;
  std::string Look(const std::string& key) const;

  std::string directory_;
  std::unordered_map<std::string, Spellings> names_;  // by the name in capitals
  DirectoryWatch watch_;                              // of a directory of very many names
  struct stat readAt_ = {};                           // or followed up to
  std::chrono::steady_clock::time_point readingBegan_;
  std::size_t timesRead_ = 0;
  bool settled_ = false;
  bool toldLate_ = false;
};

}  // namespace lantos
