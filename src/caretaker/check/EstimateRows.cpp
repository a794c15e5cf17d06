#include "caretaker/check/EstimateRows.h"

#include <algorithm>
#include <charconv>
#include <map>
#include <set>

#include "estimatedb/EngineChoice.h"
#include "estimatedb/EstimateDatabase.h"
#include "frame/Dates.h"
#include "frame/Text.h"

namespace lantos {

namespace {

std::int64_t NumberIn(const Cell& cell, std::int64_t whenNone) {
  if (const auto* whole = std::get_if<std::int64_t>(&cell)) return *whole;
  if (const auto* number = std::get_if<double>(&cell)) return static_cast<std::int64_t>(*number);
  // A server gives all as text.
  std::int64_t value = whenNone;
  if (const auto* text = std::get_if<std::string>(&cell)) {
    std::from_chars(text->data(), text->data() + text->size(), value);
  }
  return value;
}

bool IsAscii(std::string_view text) {
  return std::none_of(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) >= 0x80; });
}

// One database.
class Reading {
 public:
  Reading(EstimateRows& rows, std::string_view database, OpenedTables opened)
      : rows_(rows), database_(database), opened_(std::move(opened)) {}

  void ReadAll() {
    std::vector<std::string> tables;
    opened_.engine->ReadTogether([&] {
      for (const std::string& words : opened_.tables->Damage()) rows_.damages.push_back({database_, FromUtf8(words)});
      tables = opened_.tables->Tables();
    });
    for (const std::string& table : tables) {
      opened_.engine->ReadTogether([&] { ReadTable(table); });
    }
    FindOrphans();
  }

 private:
  void ReadTable(const std::string& table) {
    columns_ = opened_.tables->ColumnsOf(table);
    if (columns_.empty()) return;
    std::vector<std::string> names;
    for (const StoredColumn& column : columns_) names.push_back(column.name);
    const auto placeOf = [&](std::string_view name) {
      return std::find_if(names.begin(), names.end(),
                          [&](const auto& each) { return EqualsIgnoringCase(each, name); }) -
             names.begin();
    };
    const bool isEstimates = EqualsIgnoringCase(table, "Estimates");
    const auto number = placeOf("EstimateNumber"), customer = placeOf("CustomerNumber"),
               vehicle = placeOf("VehicleLink");
    const auto end = static_cast<std::ptrdiff_t>(names.size());
    // On a server a table may be there that the program didn't make, with nothing to tell its rows apart by.
    std::vector<std::string> order;
    if (opened_.engine->IsFar()) order = opened_.tables->KeyOf(table);
    const bool isKeyless = opened_.engine->IsFar() && order.empty();
    const auto rows = opened_.tables->Read(table, names, isKeyless ? names : order);
    for (CellRow row; rows->Next(row);) {
      LookAtCells(table, row);
      if (number == end) continue;
      const std::int64_t estimate = NumberIn(row[static_cast<std::size_t>(number)], 0);
      if (!isEstimates) {
        // The trail outlives what it tells of, and the table of days is made by the program itself.
        if (!EqualsIgnoringCase(table, "Trail") && !EqualsIgnoringCase(table, "LaborDays")) ++lines_[table][estimate];
        continue;
      }
      rows_.estimates.push_back(
          {.number = estimate,
           .customer = customer == end ? 0 : NumberIn(row[static_cast<std::size_t>(customer)], 0),
           .vehicle = vehicle == end ? kNoLink : NumberIn(row[static_cast<std::size_t>(vehicle)], kNoLink)});
    }
  }

  void LookAtCells(const std::string& table, const CellRow& row) {
    for (std::size_t i = 0; i < row.size(); ++i) {
      const auto* text = std::get_if<std::string>(&row[i]);
      if (text == nullptr) continue;
      const bool isDate = columns_[i].kind == CellKind::Date;
      if (isDate ? ParseIsoDate(*text).has_value() : IsAscii(*text) || ToUtf8(FromUtf8(*text)) == *text) continue;
      (isDate ? rows_.badDates : rows_.badTexts)
          .push_back({database_, table, columns_[i].name, NumberIn(row[0], 0), FromUtf8(*text)});
    }
  }

  void FindOrphans() {
    std::set<std::int64_t> known;
    for (const EstimateRows::Estimate& estimate : rows_.estimates) known.insert(estimate.number);
    for (const auto& [table, counts] : lines_) {
      for (const auto& [estimate, count] : counts) {
        if (!known.contains(estimate)) rows_.orphans.push_back({table, estimate, count});
      }
    }
  }

  EstimateRows& rows_;
  std::string database_;
  OpenedTables opened_;
  std::vector<StoredColumn> columns_;                                  // of the table at hand
  std::map<std::string, std::map<std::int64_t, std::int64_t>> lines_;  // how many of each estimate, by table
};

}  // namespace

EstimateRows ReadEstimateRows(const FileIO& files) {
  EstimateRows rows;
  for (const std::string_view name : {kLantosDatabase, kKorvelDatabase}) {
    if (!files.IsThere(name)) {
      // A shop may do without the second one.
      if (name == kLantosDatabase) rows.damages.push_back({std::string(name), "it isn't there"});
      continue;
    }
    try {
      Reading(rows, name, OpenTables(files.PathOf(name), files.GetClock())).ReadAll();
    } catch (const DatabaseError& error) {
      if (error.Kind() == DatabaseErrorKind::Locked || NamesServer(files.PathOf(name))) throw;
      rows.damages.push_back({std::string(name), error.Words()});
    }
  }
  return rows;
}

}  // namespace lantos
