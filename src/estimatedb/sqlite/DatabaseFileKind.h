#pragma once

#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>

#include "estimatedb/engine/DatabaseError.h"

namespace lantos {

inline constexpr std::size_t kDatabaseMarkLength = 32;

// Server: a text that names the server which has the tables.
enum class DatabaseFileKind { Sqlite, Server, Empty, Jet, Unknown };

// What a file is by its first bytes, up to kDatabaseMarkLength of them.
DatabaseFileKind KindOfDatabaseFile(std::string_view firstBytes);

// What the operator is told of a file that is refused: what it is, that nothing was done to it, and the ways out.
std::string RefusalOf(DatabaseFileKind kind, const std::filesystem::path& path);

// The refusal, for those who know of another engine for such a file.
class ForeignFile : public DatabaseError {
 public:
  ForeignFile(DatabaseFileKind kind, const std::filesystem::path& path)
      : DatabaseError(RefusalOf(kind, path)), fileKind_(kind) {}
  DatabaseFileKind FileKind() const { return fileKind_; }

 private:
  DatabaseFileKind fileKind_;
};

}  // namespace lantos
