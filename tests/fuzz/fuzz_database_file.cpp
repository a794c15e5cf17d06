#include "Target.h"
#include "estimatedb/sqlite/DatabaseFileKind.h"
#include "estimatedb/sqlite/SqliteEngine.h"

namespace lantos::fuzz {

namespace {

constexpr std::string_view kName = "Lantos.mdb";

// Tables of a database that opens can hold anything.
void ReadSome(SqliteEngine& engine) {
  for (const char* statement : {"select name, sql from sqlite_master", "select * from Estimates",
                                "select * from StandardHours", "select * from Labors order by LaborNumber"}) {
    try {
      for (Recordset rows = engine.Run(statement, {}); !rows.Eof(); rows.MoveNext()) {
        for (const std::string& column : rows.Columns()) See(rows.Text(column));
      }
    } catch (const DatabaseError&) {
    }
  }
}

}  // namespace

// What isn't told as a database from its first bytes is refused and stays as it is; whatever else is opened and read
// fails with an error at the worst.
void Try(std::string_view bytes) {
  QuietShop& shop = TheShop();
  shop.Put(kName, bytes);
  const DatabaseFileKind kind = KindOfDatabaseFile(bytes.substr(0, kDatabaseMarkLength));
  bool opened = false;
  try {
    SqliteEngine engine(shop.environment.files.PathOf(kName), shop.clock, SqliteEngine::Mode::Existing,
                        std::chrono::milliseconds(0));
    opened = true;
    ReadSome(engine);
  } catch (const DatabaseError& refusal) {
    See(refusal.what());
  }
  if (kind == DatabaseFileKind::Sqlite) return;
  Require(!opened);
  Require(shop.Content(kName) == bytes);
}

}  // namespace lantos::fuzz
