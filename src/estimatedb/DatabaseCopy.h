#pragma once

#include <filesystem>
#include <memory>

#include "estimatedb/engine/FileCopier.h"
#include "frame/Clock.h"

namespace lantos {

// Copies of a shop's database as it stands at one moment, always as a file that the program can work with; of one on a
// server too, whose tables are read in one transaction. Throws DatabaseError.
class DatabaseCopy {
 public:
  DatabaseCopy(std::filesystem::path path, const Clock& clock);

  bool IsOfServer() const { return !file_; }
  // Makes the file, which isn't there yet.
  void To(const std::filesystem::path& path);
  // Whether it may have changed since the last To. What a server has isn't known without reading it again.
  bool HasMoved() { return file_ ? file_->HasMoved() : true; }

 private:
  std::filesystem::path path_;
  const Clock& clock_;
  std::unique_ptr<FileCopier> file_;  // null where a server has the tables
};

}  // namespace lantos
