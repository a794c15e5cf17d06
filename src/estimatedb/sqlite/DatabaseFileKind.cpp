#include "estimatedb/sqlite/DatabaseFileKind.h"

#include <fmt/core.h>

#include "estimatedb/engine/ServerMark.h"
#include "frame/PathText.h"

namespace lantos {

namespace {

using namespace std::string_view_literals;

constexpr std::string_view kSqliteMark = "SQLite format 3\0"sv;
constexpr std::string_view kJetMarks[] = {"\0\1\0\0Standard Jet DB\0"sv, "\0\1\0\0Standard ACE DB\0"sv};

// Put in front by editors that write Unicode.
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

constexpr std::string_view kWaysOut =
    "Restore the file from a backup, or make a new shop in an empty directory with \"lantos-shop new\".";

}  // namespace

DatabaseFileKind KindOfDatabaseFile(std::string_view firstBytes) {
  if (firstBytes.empty()) return DatabaseFileKind::Empty;
  if (firstBytes.starts_with(kSqliteMark)) return DatabaseFileKind::Sqlite;
  for (const std::string_view mark : kJetMarks) {
    if (firstBytes.starts_with(mark)) return DatabaseFileKind::Jet;
  }
  if (firstBytes.starts_with(kByteOrderMark)) firstBytes.remove_prefix(kByteOrderMark.size());
  if (firstBytes.starts_with(kServerMark)) return DatabaseFileKind::Server;
  return DatabaseFileKind::Unknown;
}

std::string RefusalOf(DatabaseFileKind kind, const std::filesystem::path& path) {
  const std::string file = TextOfPath(path);
  switch (kind) {
    case DatabaseFileKind::Jet:
      return fmt::format(
          "\"{}\" is a Jet database, made by the earlier program. This program keeps its tables in another form and "
          "can't work in it. The file has been left as it is.\n\nA shop's Lantos.mdb is brought over by \"lantos-shop "
          "import\" and the shop's directory, which keeps the old file under another name. When that was done already, "
          "restore the database from a backup.",
          file);
    case DatabaseFileKind::Server:
      return fmt::format("\"{}\" isn't a database itself: it names a server that has one.", file);
    case DatabaseFileKind::Empty:
      return fmt::format("\"{}\" is empty: it holds no database. The file has been left as it is.\n\n{}", file,
                         kWaysOut);
    default:
      return fmt::format(
          "\"{}\" isn't a database of this program: it is damaged, or something else under that name. The file has "
          "been left as it is.\n\n{}",
          file, kWaysOut);
  }
}

}  // namespace lantos
