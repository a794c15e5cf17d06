#pragma once

#include <cstdint>
#include <filesystem>

#include "estimatedb/engine/FileCopier.h"
#include "estimatedb/sqlite/SqliteEngine.h"

namespace lantos {

// By the engine's own way of copying a database that is in use.
class FileCopy : public FileCopier {
 public:
  FileCopy(const std::filesystem::path& path, const Clock& clock) : engine_(path, clock) {}

  void To(const std::filesystem::path& path) override;
  bool HasMoved() override;

 private:
  std::int64_t Version();

  SqliteEngine engine_;
  std::int64_t copied_ = -1;
};

}  // namespace lantos
