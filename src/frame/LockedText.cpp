#include "frame/LockedText.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <cstdint>
#include <span>
#include <thread>
#include <utility>

#include "frame/ReplaceContent.h"
#include "frame/UnfitFile.h"
#include "frame/Uninterrupted.h"

namespace lantos {

namespace {

constexpr int kLockTries = 50;
constexpr std::chrono::milliseconds kBetweenTries{5};
// One byte far beyond the text.
constexpr off_t kLockedByte = off_t{1} << 62;

// An existing file is opened without asking for creation, which guarded directories refuse for other owners' files.
int Open(const std::filesystem::path& path, LockedText::Purpose purpose, Links links) {
  if (purpose == LockedText::Purpose::Reading) return OpenExistingFile(path, O_RDONLY, links);
  const int existing = OpenExistingFile(path, O_RDWR, links);
  if (existing >= 0 || errno != ENOENT) return existing;
  const int made = MakeFile(path, O_RDWR);
  return made >= 0 || errno != EEXIST ? made : OpenExistingFile(path, O_RDWR, links);
}

void Lock(int descriptor, LockedText::Purpose purpose) {
  struct flock claim = {};
  claim.l_type = purpose == LockedText::Purpose::Reading ? F_RDLCK : F_WRLCK;
  claim.l_whence = SEEK_SET;
  claim.l_start = kLockedByte;
  claim.l_len = 1;
  for (int i = 0; i < kLockTries; ++i) {
    if (::fcntl(descriptor, F_OFD_SETLK, &claim) == 0 || (errno != EAGAIN && errno != EACCES)) return;
    std::this_thread::sleep_for(kBetweenTries);
  }
}

// What ReplaceContent does its work on.
class DescribedFile {
 public:
  DescribedFile(int descriptor, const std::filesystem::path& path) : descriptor_(descriptor), path_(path) {}

  std::uint64_t Length() const {
    struct stat status = {};
    if (::fstat(descriptor_, &status) != 0) ThrowFileError(errno, "looking at " + path_.string());
    return static_cast<std::uint64_t>(status.st_size);
  }
  // What lies past the end stays as it is in the span. Returns the bytes really read.
  std::size_t ReadAt(std::uint64_t offset, std::span<std::byte> into) const {
    std::size_t done = 0;
    while (done < into.size()) {
      const ssize_t count = Uninterrupted([&] {
        return ::pread(descriptor_, into.data() + done, into.size() - done, static_cast<off_t>(offset + done));
      });
      if (count < 0) ThrowFileError(errno, "reading " + path_.string());
      if (count == 0) break;
      done += static_cast<std::size_t>(count);
    }
    return done;
  }
  void WriteAt(std::uint64_t offset, std::span<const std::byte> bytes) {
    const std::uint64_t lengthBefore = Length();
    for (std::size_t done = 0; done < bytes.size();) {
      const ssize_t count = Uninterrupted([&] {
        return ::pwrite(descriptor_, bytes.data() + done, bytes.size() - done, static_cast<off_t>(offset + done));
      });
      if (count <= 0) {
        const int errorNumber = count == 0 ? ENOSPC : errno;
        if (offset + done > lengthBefore) CutBack(lengthBefore);
        ThrowFileError(errorNumber, "writing " + path_.string());
      }
      done += static_cast<std::size_t>(count);
    }
  }
  void Truncate(std::uint64_t length) {
    if (::ftruncate(descriptor_, static_cast<off_t>(length)) != 0) ThrowFileError(errno, "cutting " + path_.string());
  }

 private:
  // When even this fails, the error of the write is the one to tell.
  void CutBack(std::uint64_t length) {
    [[maybe_unused]] const int result = ::ftruncate(descriptor_, static_cast<off_t>(length));
  }

  int descriptor_;
  const std::filesystem::path& path_;
};

FileFailure FailureOfOpening(int errorNumber, const std::filesystem::path& path) {
  try {
    RefuseUnfit(errorNumber, path);
    return FileFailure(NumberOfErrno(errorNumber));
  } catch (const FileError& error) {
    return FileFailure(error);
  }
}

}  // namespace

LockedText::LockedText(const std::filesystem::path& path, Purpose purpose, Links links)
    : path_(path), descriptor_(Open(path, purpose, links)) {
  if (descriptor_ >= 0) {
    Lock(descriptor_, purpose);
  } else {
    failure_ = FailureOfOpening(errno, path);
  }
}

LockedText::~LockedText() {
  if (descriptor_ >= 0) ::close(descriptor_);
}

std::optional<std::string> LockedText::Read() const {
  if (descriptor_ < 0) return std::nullopt;
  try {
    return Content();
  } catch (const FileError& error) {
    failure_ = FileFailure(error);
    return std::nullopt;
  }
}

std::string LockedText::Content() const {
  const DescribedFile file(descriptor_, path_);
  const std::uint64_t length = file.Length();
  RefuseTooLong(path_, length, kLongestTextFile);
  std::string text(static_cast<std::size_t>(length), '\0');
  text.resize(file.ReadAt(0, std::as_writable_bytes(std::span(text))));
  text.erase(text.find_last_not_of('\0') + 1);
  return text;
}

bool LockedText::Replace(std::string_view text) {
  if (descriptor_ < 0) return false;
  DescribedFile file(descriptor_, path_);
  try {
    ReplaceContent(file, std::as_bytes(std::span(text)));
    if (::close(std::exchange(descriptor_, -1)) != 0 && errno != EINTR)
      ThrowFileError(errno, "closing " + path_.string());
    return true;
  } catch (const FileError& error) {
    failure_ = FileFailure(error);
    return false;
  }
}

}  // namespace lantos
