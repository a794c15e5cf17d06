#include "ui/WindowRegistry.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdlib>
#include <utility>

#include "frame/Text.h"

namespace lantos::ui {

namespace {

namespace fs = std::filesystem;

constexpr std::string_view kEntrySuffix = ".windows";
constexpr std::string_view kRequestSuffix = ".raise";
constexpr std::size_t kCaptionLimit = 255;
constexpr int kEntryTries = 1000;

// Two locks an entry, on bytes far beyond its text: one is held as long as its owner lives, the other while its text
// or its requests are read or written.
constexpr off_t kLifeLock = off_t{1} << 62;
constexpr off_t kTextLock = kLifeLock + 1;

class Descriptor {
 public:
  explicit Descriptor(int number) : number_(number) {}
  ~Descriptor() {
    if (number_ >= 0) close(number_);
  }
  Descriptor(const Descriptor&) = delete;
  int Number() const { return number_; }
  bool IsOpen() const { return number_ >= 0; }
  int Release() { return std::exchange(number_, -1); }

 private:
  int number_;
};

bool Lock(int descriptor, off_t byte, short kind, int command) {
  struct flock claim {};
  claim.l_type = kind;
  claim.l_whence = SEEK_SET;
  claim.l_start = byte;
  claim.l_len = 1;
  return fcntl(descriptor, command, &claim) == 0;
}

// Waits: whoever holds the text lock does so for one read or write.
class TextLock {
 public:
  TextLock(int descriptor, short kind) : descriptor_(descriptor) { Lock(descriptor, kTextLock, kind, F_OFD_SETLKW); }
  ~TextLock() { Lock(descriptor_, kTextLock, F_UNLCK, F_OFD_SETLK); }
  TextLock(const TextLock&) = delete;

 private:
  int descriptor_;
};

bool IsStillAt(int descriptor, const fs::path& path) {
  struct stat open {};
  struct stat there {};
  return fstat(descriptor, &open) == 0 && lstat(path.c_str(), &there) == 0 && open.st_dev == there.st_dev &&
         open.st_ino == there.st_ino;
}

// In a directory that everybody can write to, a name alone proves nothing.
bool MakePrivate(const fs::path& directory) {
  std::error_code failed;
  fs::create_directories(directory.parent_path(), failed);
  if (mkdir(directory.c_str(), 0700) != 0 && errno != EEXIST) return false;
  struct stat found {};
  return lstat(directory.c_str(), &found) == 0 && S_ISDIR(found.st_mode) && found.st_uid == geteuid() &&
         (found.st_mode & 077) == 0;
}

std::string ReadAll(int descriptor) {
  std::string text;
  std::array<char, 4096> block;
  for (;;) {
    const ssize_t count = pread(descriptor, block.data(), block.size(), static_cast<off_t>(text.size()));
    if (count <= 0) return text;
    text.append(block.data(), static_cast<std::size_t>(count));
  }
}

// Text that can't be written is lost: the windows of this copy aren't found then, nothing worse.
void WriteAll(int descriptor, std::string_view text) {
  while (!text.empty()) {
    const ssize_t count = write(descriptor, text.data(), text.size());
    if (count <= 0) return;
    text.remove_prefix(static_cast<std::size_t>(count));
  }
}

std::vector<std::string> Lines(std::string_view text) {
  std::vector<std::string> lines;
  while (!text.empty()) {
    const std::size_t end = std::min(text.find('\n'), text.size());
    lines.emplace_back(text.substr(0, end));
    text.remove_prefix(std::min(end + 1, text.size()));
  }
  return lines;
}

std::string OneLine(std::string text) {
  std::replace_if(
      text.begin(), text.end(), [](char c) { return c == '\n' || c == '\r'; }, ' ');
  return text;
}

std::string AsRead(std::string_view caption) { return TrimNull(caption.substr(0, kCaptionLimit)); }

fs::path RequestsOf(const fs::path& entry) { return fs::path(entry).replace_extension(kRequestSuffix); }

// A life lock that can be shared has no owner any more. Shared, so that two who look at once don't take each other for
// the owner.
bool RemoveWhenStale(int descriptor, const fs::path& entry) {
  if (!Lock(descriptor, kLifeLock, F_RDLCK, F_OFD_SETLK)) return false;
  if (IsStillAt(descriptor, entry)) {
    unlink(RequestsOf(entry).c_str());
    unlink(entry.c_str());
  }
  return true;
}

std::vector<fs::path> EntriesIn(const fs::path& directory) {
  std::vector<fs::path> entries;
  std::error_code failed;
  for (fs::directory_iterator at(directory, failed), end; !failed && at != end; at.increment(failed)) {
    if (at->path().extension() == kEntrySuffix) entries.push_back(at->path());
  }
  std::sort(entries.begin(), entries.end());
  return entries;
}

}  // namespace

fs::path WindowRegistry::RuntimeDirectory() {
  const char* platform = std::getenv("XDG_RUNTIME_DIR");
  if (platform != nullptr && *platform == '/') return fs::path(platform) / "lantos";
  return "/tmp/lantos-" + std::to_string(geteuid());
}

WindowRegistry::WindowRegistry(fs::path directory, std::string computerName)
    : directory_(std::move(directory)), computerName_(OneLine(std::move(computerName))) {
  if (MakePrivate(directory_)) OpenEntry();
}

WindowRegistry::~WindowRegistry() {
  if (descriptor_ < 0) return;
  unlink(RequestsOf(entry_).c_str());
  unlink(entry_.c_str());
  close(descriptor_);
}

void WindowRegistry::OpenEntry() {
  for (int number = 0; number < kEntryTries; ++number) {
    const std::string name = std::to_string(getpid()) + "-" + std::to_string(number) + std::string(kEntrySuffix);
    const fs::path path = directory_ / name;
    Descriptor file(open(path.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, 0600));
    // Between making and locking, another copy may take the entry for a dead one's.
    if (!file.IsOpen() || !Lock(file.Number(), kLifeLock, F_WRLCK, F_OFD_SETLK)) continue;
    if (!IsStillAt(file.Number(), path)) continue;
    unlink(RequestsOf(path).c_str());
    entry_ = path;
    descriptor_ = file.Release();
    return;
  }
}

void WindowRegistry::SetCaptions(const std::vector<std::string>& captions) {
  captions_ = captions;
  if (descriptor_ < 0) return;
  std::string text = computerName_ + "\n";
  for (const std::string& caption : captions) text += OneLine(AsRead(caption)) + "\n";
  const TextLock lock(descriptor_, F_WRLCK);
  if (ftruncate(descriptor_, 0) != 0 || lseek(descriptor_, 0, SEEK_SET) != 0) return;
  WriteAll(descriptor_, text);
}

bool WindowRegistry::Find(std::string_view pattern) const {
  Hit hit;
  return FindHit(pattern, hit);
}

bool WindowRegistry::Activate(std::string_view pattern) {
  Hit hit;
  if (!FindHit(pattern, hit)) return false;
  if (hit.entry == entry_) {
    ownRequests_.push_back(hit.caption);
    return true;
  }
  const Descriptor owner(open(hit.entry.c_str(), O_RDWR | O_CLOEXEC));
  if (!owner.IsOpen()) return false;
  const TextLock lock(owner.Number(), F_WRLCK);
  const Descriptor requests(
      open(RequestsOf(hit.entry).c_str(), O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0600));
  if (requests.IsOpen()) WriteAll(requests.Number(), hit.caption + "\n");
  return true;
}

std::vector<std::string> WindowRegistry::TakeRaiseRequests() {
  std::vector<std::string> taken = std::exchange(ownRequests_, {});
  if (descriptor_ < 0) return taken;
  const fs::path path = RequestsOf(entry_);
  const Descriptor requests(open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW));
  if (!requests.IsOpen()) return taken;
  const TextLock lock(descriptor_, F_WRLCK);
  for (std::string& caption : Lines(ReadAll(requests.Number()))) taken.push_back(std::move(caption));
  unlink(path.c_str());
  return taken;
}

bool WindowRegistry::FindHit(std::string_view pattern, Hit& hit) const {
  if (pattern.empty()) return false;
  for (const std::string& caption : captions_) {
    if (!ContainsIgnoringCase(AsRead(caption), pattern)) continue;
    hit = {entry_, AsRead(caption)};
    return true;
  }
  if (descriptor_ < 0) return false;
  const std::vector<fs::path> entries = EntriesIn(directory_);
  return std::any_of(entries.begin(), entries.end(),
                     [&](const fs::path& entry) { return entry != entry_ && FindInEntry(entry, pattern, hit); });
}

bool WindowRegistry::FindInEntry(const fs::path& entry, std::string_view pattern, Hit& hit) const {
  const Descriptor file(open(entry.c_str(), O_RDWR | O_CLOEXEC | O_NOFOLLOW));
  if (!file.IsOpen() || RemoveWhenStale(file.Number(), entry)) return false;
  std::vector<std::string> lines;
  {
    const TextLock lock(file.Number(), F_RDLCK);
    lines = Lines(ReadAll(file.Number()));
  }
  if (lines.empty() || lines.front() != computerName_) return false;
  for (std::size_t i = 1; i < lines.size(); ++i) {
    if (!ContainsIgnoringCase(lines[i], pattern)) continue;
    hit = {entry, lines[i]};
    return true;
  }
  return false;
}

}  // namespace lantos::ui
