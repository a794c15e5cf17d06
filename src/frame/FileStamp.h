#pragma once

#include <sys/stat.h>

#include <cstdint>
#include <string>

namespace lantos {

// What tells from outside that a file or directory has changed: which one bears the name, its time of change, its
// length.
class FileStamp {
 public:
  FileStamp() = default;  // of what isn't there
  explicit FileStamp(const struct stat& status);
  // By a look at the name alone, which opens nothing.
  static FileStamp Of(const std::string& path);

  bool operator==(const FileStamp&) const = default;
  // Whether another change would leave another stamp. Two within one tick of the kernel's clock leave the same one.
  bool IsSettled() const;

 private:
  dev_t device_ = 0;
  ino_t number_ = 0;
  std::int64_t changed_ = 0;  // nanoseconds, by the clock of the kernel that wrote it
  std::int64_t length_ = -1;
};

}  // namespace lantos
