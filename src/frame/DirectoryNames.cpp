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

// Below this a directory is read about as fast as it is followed.
constexpr std::size_t kWorthFollowing = 1000;
constexpr std::chrono::steady_clock::duration kReliedOnWhenToldLate = std::chrono::seconds(2);

bool LookAt(const std::string& directory, struct stat& now) {
  return ::stat(directory.empty() ? "." : directory.c_str(), &now) == 0;
}

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

void DirectoryNames::Come(std::string_view name) {
  Spellings& spellings = names_[Fold(name)];
  if (std::find(spellings.begin(), spellings.end(), name) == spellings.end()) spellings.emplace_back(name);
}

void DirectoryNames::Go(std::string_view name) {
  const auto found = names_.find(Fold(name));
  if (found == names_.end()) return;
  std::erase(found->second, name);
  if (found->second.empty()) names_.erase(found);
}

// The stamp is taken before the names are read: a change in between shows at the next look.
void DirectoryNames::Refresh() {
  struct stat now = {};
  if (!LookAt(directory_, now)) {
    names_.clear();
    settled_ = false;
    return;
  }
  if (settled_ && HasStamp(now)) return;
  readAt_ = now;
  ReadAll();
  // What comes while it is read is told as well, and may then be known already.
  if (watch_.Stands() || names_.size() < kWorthFollowing) return;
  if (watch_.Begin(directory_) && LookAt(directory_, readAt_)) ReadAll();
}

void DirectoryNames::ReadAll() {
  settled_ = FileStamp(readAt_).IsSettled();
  readingBegan_ = std::chrono::steady_clock::now();
  ++timesRead_;
  names_.clear();
  ForEachEntry(directory_, [this](std::string_view name, unsigned char) { names_[Fold(name)].emplace_back(name); });
}

// Whether the names are those of this moment. Another directory may lie at the path by now, and one whose time of
// change is new without anything told is not one to rely on.
bool DirectoryNames::Follow() {
  using Told = DirectoryWatch::Told;
  if (!watch_.Stands()) return false;
  const auto take = [this] {
    return watch_.Take([this](std::string_view name, bool isThere) { isThere ? Come(name) : Go(name); });
  };
  Told told = take();
  struct stat now = {};
  const bool isSame = LookAt(directory_, now) && now.st_dev == readAt_.st_dev && now.st_ino == readAt_.st_ino;
  if (isSame && told == Told::Nothing && !HasStamp(now)) {
    told = take();
    if (told == Told::Nothing) told = Told::Lost;
  }
  if (isSame && told != Told::Lost) {
    readAt_ = now;
    return true;
  }
  watch_.End();
  settled_ = false;
  return false;
}

bool DirectoryNames::Exists(std::string_view name) const {
  if (name.empty()) return false;
  struct stat ignored = {};
  return ::lstat((directory_ + std::string(name)).c_str(), &ignored) == 0;
}

std::string DirectoryNames::Look(const std::string& key) const {
  const auto found = names_.find(key);
  if (found == names_.end()) return {};
  Spellings spellings = found->second;
  if (spellings.size() == 1) return spellings.front();
  std::sort(spellings.begin(), spellings.end());
  throw FileError(FileErrorNumber::PathFileAccess,
                  "two spellings of one name in " + directory_ + ": " + spellings.front() + " and " + spellings.back());
}

bool DirectoryNames::IsReadingRecent() const {
  return std::chrono::steady_clock::now() - readingBegan_ < kReliedOnWhenToldLate;
}

// A name that was read under this very stamp, and is there, needs no second reading, be it ever so close to the change.
std::string DirectoryNames::KnownSpellingOf(const std::string& key) const {
  const auto found = names_.find(key);
  if (found == names_.end() || found->second.size() > 1) return {};
  if (!(toldLate_ && IsReadingRecent())) {
    struct stat now = {};
    if (!LookAt(directory_, now) || !HasStamp(now)) return {};
  }
  return Exists(found->second.front()) ? found->second.front() : std::string();
}

// Whether the directory has what was found, or has no such name where none was.
bool DirectoryNames::IsTrue(std::string_view name, const std::string& spelling) const {
  return Exists(spelling.empty() ? name : std::string_view(spelling)) != spelling.empty();
}

// A network mount may tell a change of the directory late, so the answer is checked against the file itself.
std::string DirectoryNames::SpellingOf(std::string_view name) {
  const std::string key = Fold(name);
  if (Follow()) {
    std::string spelling = Look(key);
    if (IsTrue(name, spelling)) return spelling;
  } else if (std::string known = KnownSpellingOf(key); !known.empty()) {
    return known;
  }
  Refresh();
  std::string spelling = Look(key);
  if (IsTrue(name, spelling)) return spelling;
  settled_ = false;
  Refresh();
  return Look(key);
}

std::vector<std::string> DirectoryNames::Matching(std::string_view pattern) {
  std::vector<std::string> matching;
  const std::string folded = Fold(pattern);
  const auto take = [&](std::string_view key, std::string_view name, unsigned char type) {
    if (!Matches(key, folded) || !IsFile(directory_ + std::string(name), type)) return;
    matching.push_back(AnsiName(name));
  };
  if (Follow()) {
    for (const auto& [key, spellings] : names_) {
      for (const std::string& name : spellings) take(key, name, DT_UNKNOWN);
    }
  } else {
    ForEachEntry(directory_, [&](std::string_view name, unsigned char type) { take(Fold(name), name, type); });
  }
  std::sort(matching.begin(), matching.end());
  return matching;
}

}  // namespace lantos
