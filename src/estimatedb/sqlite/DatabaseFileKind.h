#pragma once

#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>

namespace lantos {

inline constexpr std::size_t kDatabaseMarkLength = 20;

enum class DatabaseFileKind { Sqlite, Empty, Jet, Unknown };

// What a file is by its first bytes, up to kDatabaseMarkLength of them.
DatabaseFileKind KindOfDatabaseFile(std::string_view firstBytes);

// What the operator is told of a file that is refused: what it is, that nothing was done to it, and the ways out.
std::string RefusalOf(DatabaseFileKind kind, const std::filesystem::path& path);

}  // namespace lantos
