#pragma once

#include <filesystem>

namespace lantos {

// Copies of a database file as it stands at one moment, while others go on with it. Throws DatabaseError; a lock that
// somebody has is waited for as the engine does.
class FileCopier {
 public:
  virtual ~FileCopier() = default;
  // Makes the file, which isn't there yet; its bytes aren't forced to the disk.
  virtual void To(const std::filesystem::path& path) = 0;
  // Whether another connection has written since the last To.
  virtual bool HasMoved() = 0;
};

}  // namespace lantos
