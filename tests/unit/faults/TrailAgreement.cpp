#include "faults/TrailAgreement.h"

#include <SQLiteCpp/SQLiteCpp.h>

#include <nlohmann/json.hpp>

namespace lantos::test {

namespace {

using nlohmann::json;

struct Trailed {
  const char* table;
  const char* commands;  // a part of their names
  const char* key;       // beside the number of the estimate; empty when that tells the rows apart
  bool isOfEstimate;
};
// The first whose part stands in a command's name has its rows.
constexpr Trailed kTrailed[] = {{"Labors", "Labor", "LaborNumber", true},
                                {"Parts", "Part", "PartNumber", true},
                                {"Sublets", "Sublet", "SubletNumber", true},
                                {"Waste", "Waste", "WasteNumber", true},
                                {"Notes", "Note", "NoteNumber", true},
                                {"Checklist", "Checklist", "ChecklistData", true},
                                {"SpecialDays", "SpecialDay", "SpecialDate", false},
                                {"StandardHours", "UpdateStdHours", "RecNum", false},
                                {"Estimates", "", "", true}};

const Trailed& TrailedBy(const std::string& command) {
  const Trailed* found = kTrailed;
  while (command.find(found->commands) == std::string::npos) ++found;
  return *found;
}

// The trail leaves the estimate's number to its own column, and names no row where there is only one.
std::string KeyOf(const Trailed& trailed, const std::string& estimate, const TrailedRow& row) {
  const auto named = row.find(trailed.key);
  return (trailed.isOfEstimate ? estimate : "") + "|" + (named != row.end() ? named->second : "");
}

std::vector<TrailedRow> RowsIn(const std::string& text) {
  std::vector<TrailedRow> rows;
  if (text.empty()) return rows;
  for (const json& object : json::parse(text)) {
    TrailedRow& row = rows.emplace_back();
    for (const auto& [column, value] : object.items()) {
      row[column] = value.is_string() ? value.get<std::string>() : value.dump();
    }
    row.erase("RecNum");
    row.erase("RecId");
    row.erase("CopiedFrom");
  }
  return rows;
}

void Follow(const Trailed& trailed, const std::string& estimate, const std::string& before, const std::string& after,
            std::map<std::string, TrailedRow>& table) {
  for (const TrailedRow& row : RowsIn(before)) {
    TrailedRow& stored = table[KeyOf(trailed, estimate, row)];
    for (const auto& [column, value] : row) stored.erase(column);
    // A row that stays keeps what names it, and has it among what comes behind.
    if (after.empty()) table.erase(KeyOf(trailed, estimate, row));
  }
  for (const TrailedRow& row : RowsIn(after)) {
    TrailedRow& stored = table[KeyOf(trailed, estimate, row)];
    for (const auto& [column, value] : row) stored[column] = value;
  }
}

bool HasTrail(SQLite::Database& database) {
  return database.execAndGet("select count(*) from sqlite_master where name = 'Trail'").getInt() != 0;
}

// Of a row that came, the trail has what its command was given: the database's own defaults are beside that.
bool IsAsTold(const TrailedRow& told, const TrailedRow& is, bool isNew) {
  if (!isNew) return told == is;
  for (const auto& [column, value] : told) {
    const auto found = is.find(column);
    if (found == is.end() || found->second != value) return false;
  }
  return true;
}

}  // namespace

TrailedTables TrailedTablesOf(const std::filesystem::path& path) {
  SQLite::Database database(path.string(), SQLite::OPEN_READWRITE, 1000);
  TrailedTables tables;
  for (const Trailed& trailed : kTrailed) {
    SQLite::Statement rows(database, std::string("select * from ") + trailed.table);
    while (rows.executeStep()) {
      TrailedRow row;
      for (int i = 0; i < rows.getColumnCount(); ++i) {
        if (!rows.getColumn(i).isNull()) row[rows.getColumnName(i)] = rows.getColumn(i).getString();
      }
      const std::string estimate = row["EstimateNumber"];
      for (const char* unnamed : {"EstimateNumber", "RecNum", "RecId"}) row.erase(unnamed);
      tables[trailed.table][KeyOf(trailed, estimate, row)] = row;
    }
  }
  return tables;
}

std::vector<std::string> TrailDisagreements(TrailedTables before, const std::filesystem::path& path) {
  TrailedTables told = before;
  SQLite::Database database(path.string(), SQLite::OPEN_READWRITE, 1000);
  if (HasTrail(database)) {
    SQLite::Statement trail(database,
                            "select Command, EstimateNumber, RowsBefore, RowsAfter from Trail order by TrailNumber");
    while (trail.executeStep()) {
      const Trailed& trailed = TrailedBy(trail.getColumn(0).getString());
      Follow(trailed, trail.getColumn(1).getString(), trail.getColumn(2).getString(), trail.getColumn(3).getString(),
             told[trailed.table]);
    }
  }
  const TrailedTables is = TrailedTablesOf(path);
  std::vector<std::string> disagreements;
  for (const Trailed& trailed : kTrailed) {
    std::map<std::string, TrailedRow> rows;
    if (const auto found = is.find(trailed.table); found != is.end()) rows = found->second;
    for (const auto& [key, row] : told[trailed.table]) {
      const bool agrees = rows.contains(key) && IsAsTold(row, rows[key], !before[trailed.table].contains(key));
      if (!agrees) disagreements.push_back(std::string(trailed.table) + " " + key);
      rows.erase(key);
    }
    for (const auto& [key, row] : rows) disagreements.push_back(std::string(trailed.table) + " " + key);
  }
  return disagreements;
}

}  // namespace lantos::test
