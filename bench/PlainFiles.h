#pragma once

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/types.h>
#include <unistd.h>

#include <array>
#include <filesystem>
#include <stdexcept>
#include <string_view>
#include <utility>

#include "frame/SharingClaim.h"

namespace lantos::bench {

// Files opened with the claim that each open makes, read, written and flushed, with nothing else around it. Each that
// is closed leaves a line in a run log.
class PlainFiles {
 public:
  static constexpr off_t kAtTheEnd = -1;

  // AtPath: each open looks whether what it has claimed is still what lies at its path, as a shared open has to.
  enum class Look { None, AtPath };
  explicit PlainFiles(std::filesystem::path directory, Look look = Look::None)
      : directory_(std::move(directory)), look_(look) {}
  ~PlainFiles() { ::close(log_); }
  PlainFiles(const PlainFiles&) = delete;

  void Read(std::string_view name, off_t offset, std::size_t length) {
    const int file = Open(name, O_RDONLY);
    if (::pread(file, bytes_.data(), length, offset) < 0) throw std::runtime_error("read");
    Close(file);
  }
  void ReadAll(std::string_view name) {
    const int file = Open(name, O_RDONLY);
    off_t offset = 0;
    for (ssize_t length; (length = ::pread(file, bytes_.data(), bytes_.size(), offset)) != 0; offset += length) {
      if (length < 0) throw std::runtime_error("read");
    }
    Close(file);
  }
  void Write(std::string_view name, off_t offset, std::size_t length) {
    const int file = Open(name, O_RDWR | O_CREAT);
    if (offset == kAtTheEnd) offset = ::lseek(file, 0, SEEK_END);
    if (::pwrite(file, bytes_.data(), length, offset) < 0) throw std::runtime_error("write");
    Close(file);
  }
  // The run log doesn't tell of flushes.
  void Flush(std::string_view name) {
    const int file = Open(name, O_RDWR);
    ::fsync(file);
    ::close(file);
  }
  void Log(int lines) {
    for (int i = 0; i < lines; ++i) LogLine();
  }
  // The turn at a file that is changed from its reading to its writing.
  class Turn {
   public:
    Turn(const PlainFiles& files, std::string_view name)
        : file_(::open((files.directory_ / name).c_str(), O_RDWR | O_CLOEXEC)) {
      Claim(file_, kUpdateTurn, F_WRLCK);
    }
    ~Turn() { ::close(file_); }
    Turn(const Turn&) = delete;

   private:
    int file_;
  };
  // The journal of a work under way: a file that is there for as long as the work, with a line ahead of each step.
  class Journal {
   public:
    Journal(const PlainFiles& files, std::string_view name)
        : path_(files.directory_ / name), file_(::open(path_.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, 0644)) {
      Claim(file_, kReadMark, F_WRLCK);
    }
    ~Journal() {
      ::close(file_);
      ::unlink(path_.c_str());
    }
    Journal(const Journal&) = delete;
    void Line() {
      if (::pwrite(file_, kText.data(), kText.size(), end_) < 0) throw std::runtime_error("journal");
      end_ += static_cast<off_t>(kText.size());
    }
    void Force() { ::fsync(file_); }

   private:
    static constexpr std::string_view kText = "part 1 -14 -14 148200 AX-01102 0123abcd\r\n";
    std::filesystem::path path_;
    int file_;
    off_t end_ = 0;
  };

 private:
  int Open(std::string_view name, int flags) {
    const int file = ::open((directory_ / name).c_str(), flags | O_CLOEXEC, 0644);
    if (file < 0) throw std::runtime_error("open");
    Claim(file, kReadMark, flags == O_RDONLY ? F_RDLCK : F_WRLCK);
    struct stat mine = {};
    struct stat there = {};
    if (look_ == Look::None) return file;
    if (::fstat(file, &mine) != 0 || ::stat((directory_ / name).c_str(), &there) != 0 || mine.st_ino != there.st_ino) {
      throw std::runtime_error("replaced");
    }
    return file;
  }
  static void Claim(int file, std::uint64_t mark, short type) {
    struct flock claim = {};
    claim.l_type = type;
    claim.l_whence = SEEK_SET;
    claim.l_start = static_cast<off_t>(mark);
    claim.l_len = 1;
    if (::fcntl(file, F_OFD_SETLK, &claim) != 0) throw std::runtime_error("claim");
  }
  void Close(int file) {
    ::close(file);
    LogLine();
  }
  void LogLine() {
    if (::pwrite(log_, bytes_.data(), kLogLine, logEnd_) < 0) throw std::runtime_error("log");
    logEnd_ += kLogLine;
  }
  static constexpr off_t kLogLine = 64;
  std::filesystem::path directory_;
  Look look_;
  std::array<char, 16384> bytes_{};  // the longest write
  int log_ = ::open((directory_ / "PLAIN.LOG").c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0644);
  off_t logEnd_ = 0;
};

}  // namespace lantos::bench
