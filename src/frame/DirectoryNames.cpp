#include "frame/DirectoryNames.h"

#include <dirent.h>
#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <memory>

#include "frame/CodePoints.h"
#include "frame/FileError.h"
#include "frame/FileStamp.h"
#include "frame/Text.h"

namespace lantos {

namespace {

// Names lie as UTF-8 on the disk. One that the ANSI page can't hold stays as it lies there.
std::string AnsiName(std::string_view name) {
  if (!IsAscii(name)) {
    std::string ansi = FromUtf8(name);
    if (ToUtf8(ansi) == name) return ansi;
  }
  return std::string(name);
}

std::string Fold(std::string_view name) { return ToUpper(AnsiName(name)); }

bool Matches(std::string_view name, std::string_view pattern) {
  std::size_t n = 0;
  std::size_t p = 0;
  std::size_t star = std::string_view::npos;
  std::size_t resume = 0;
  while (n < name.size()) {
    if (p < pattern.size() && pattern[p] == '*') {
      star = p++;
      resume = n;
    } else if (p < pattern.size() && (pattern[p] == '?' || pattern[p] == name[n])) {
      ++p;
      ++n;
    } else if (star != std::string_view::npos) {
      p = star + 1;
      n = ++resume;
    } else {
      return false;
    }
  }
  return pattern.find_first_not_of('*', p) == std::string_view::npos;
}

template <class Visit>
void ForEachEntry(const std::string& directory, Visit visit) {
  const std::unique_ptr<DIR, int (*)(DIR*)> open(::opendir(directory.empty() ? "." : directory.c_str()), &::closedir);
  if (!open) return;
  while (const dirent* entry = ::readdir(open.get())) {
    const std::string_view name = entry->d_name;
    if (name != "." && name != "..") visit(name, entry->d_type);
  }
}

// Some file systems don't say what an entry is, and what a link leads to must be looked at.
bool IsFile(const std::string& path, unsigned char type) {
  if (type == DT_REG) return true;
  if (type != DT_UNKNOWN && type != DT_LNK) return false;
  struct stat status = {};
  return ::stat(path.c_str(), &status) == 0 && !S_ISDIR(status.st_mode);
}

}  // namespace

bool DirectoryNames::HasStamp(const struct stat& now) const { return FileStamp(now) == FileStamp(readAt_); }

// The stamp is taken before the names are read: a change in between shows at the next look.
void DirectoryNames::Refresh() {
  struct stat now = {};
  if (::stat(directory_.empty() ? "." : directory_.c_str(), &now) != 0) {
    names_.clear();
    settled_ = false;
    return;
  }
  if (settled_ && HasStamp(now)) return;
  settled_ = FileStamp(now).IsSettled();
  readAt_ = now;
  names_.clear();
  ForEachEntry(directory_, [this](std::string_view name, unsigned char) {
    Spellings& spellings = names_[Fold(name)];
    (spellings.first.empty() ? spellings.first : spellings.second) = name;
  });
}

bool DirectoryNames::Exists(std::string_view name) const {
  if (name.empty()) return false;
  struct stat ignored = {};
  return ::lstat((directory_ + std::string(name)).c_str(), &ignored) == 0;
}

std::string DirectoryNames::Look(const std::string& key) const {
  const auto found = names_.find(key);
  if (found == names_.end()) return {};
  const Spellings& spellings = found->second;
  if (spellings.second.empty()) return spellings.first;
  const auto& [one, other] = std::minmax(spellings.first, spellings.second);
  throw FileError(FileErrorNumber::PathFileAccess,
                  "two spellings of one name in " + directory_ + ": " + one + " and " + other);
}

// A name that was read under this very stamp, and is there, needs no second reading, be it ever so close to the change.
std::string DirectoryNames::KnownSpellingOf(const std::string& key) const {
  struct stat now = {};
  if (::stat(directory_.empty() ? "." : directory_.c_str(), &now) != 0 || !HasStamp(now)) return {};
  const auto found = names_.find(key);
  if (found == names_.end() || !found->second.second.empty() || !Exists(found->second.first)) return {};
  return found->second.first;
}

// A network mount may tell a change of the directory late, so the answer is checked against the file itself.
std::string DirectoryNames::SpellingOf(std::string_view name) {
  const std::string key = Fold(name);
  if (std::string known = KnownSpellingOf(key); !known.empty()) return known;
  Refresh();
  std::string spelling = Look(key);
  if (Exists(spelling.empty() ? name : std::string_view(spelling)) != spelling.empty()) return spelling;
  settled_ = false;
  Refresh();
  return Look(key);
}

std::vector<std::string> DirectoryNames::Matching(std::string_view pattern) const {
  std::vector<std::string> names;
  const std::string folded = Fold(pattern);
  ForEachEntry(directory_, [&](std::string_view name, unsigned char type) {
    if (!Matches(Fold(name), folded) || !IsFile(directory_ + std::string(name), type)) return;
    names.push_back(AnsiName(name));
  });
  std::sort(names.begin(), names.end());
  return names;
}

}  // namespace lantos
