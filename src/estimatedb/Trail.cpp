#include "estimatedb/Trail.h"

#include <fmt/format.h>

#include <algorithm>
#include <cctype>
#include <map>
#include <optional>

#include "estimatedb/Schema.h"
#include "estimatedb/TrailRules.h"
#include "estimatedb/TrailText.h"
#include "estimatedb/de.h"
#include "frame/Dates.h"
#include "frame/Text.h"

namespace lantos {

namespace {

constexpr std::string_view kEstimateNumber = "EstimateNumber";

Value TextValue(std::string_view text) { return std::string(text); }

std::string_view Statement(std::string_view command) { return FindCommand(kTrailCommands, command).statement; }

// Of the trail's own commands or de's.
std::string_view LookOf(std::string_view command) {
  for (const Command& own : kTrailCommands) {
    if (own.name == command) return own.statement;
  }
  return FindCommand(kLantosCommands, command).statement;
}

// "2026-11-22 15:32:07": sorted as text it is sorted by time.
std::string FormatMoment(const LocalTime& at) { return FormatIsoDate(at.day) + " " + FormatTime(at); }

LocalTime MomentOf(std::string text) {
  if (text.size() > 10) text[10] = 'T';
  return ParseLocalTime(text).value_or(LocalTime{});
}

const Value* FindCell(const TrailRow& row, std::string_view column) {
  for (const auto& [name, value] : row.columns) {
    if (EqualsIgnoringCase(name, column)) return &value;
  }
  return nullptr;
}

// As the tables spell it: a server tells all in small letters.
std::string_view SpellingOf(std::string_view column) {
  static const std::map<std::string, std::string, std::less<>> spellings = [] {
    std::map<std::string, std::string, std::less<>> words;
    const auto take = [&](std::string_view statement) {
      const auto isOfWord = [](char c) { return std::isalnum(static_cast<unsigned char>(c)) != 0; };
      for (auto at = statement.begin(); at != statement.end();) {
        const auto end = std::find_if_not(at, statement.end(), isOfWord);
        if (end != at) words.emplace(ToLower(std::string(at, end)), std::string(at, end));
        at = end == statement.end() ? end : end + 1;
      }
    };
    for (const std::string_view statement : kLantosSchema) take(statement);
    take(kCreateWaste);
    take(kCreateChecklist);
    return words;
  }();
  const auto known = spellings.find(ToLower(column));
  return known == spellings.end() ? column : std::string_view(known->second);
}

TrailRow CurrentRow(const Recordset& rows) {
  TrailRow row;
  for (const std::string& column : rows.Columns()) {
    if (EqualsIgnoringCase(column, kEstimateNumber) || rows.IsNull(column)) continue;
    row.columns.emplace_back(SpellingOf(column), rows[column]);
  }
  return row;
}

// Rows that are in both are not the change's.
void DropCommon(std::vector<TrailRow>& before, std::vector<TrailRow>& after) {
  std::erase_if(before, [&](const TrailRow& row) {
    const auto same = std::find(after.begin(), after.end(), row);
    if (same == after.end()) return false;
    after.erase(same);
    return true;
  });
}

// Of a row that stayed: what differs, and what names it.
void KeepChanged(TrailRow& row, const TrailRow& other, std::string_view name) {
  std::erase_if(row.columns, [&](const auto& cell) {
    const Value* there = FindCell(other, cell.first);
    return there != nullptr && *there == cell.second && !EqualsIgnoringCase(cell.first, name);
  });
}

void KeepChanged(std::vector<TrailRow>& before, std::vector<TrailRow>& after, std::string_view name) {
  if (before.empty() || after.empty()) return;
  DropCommon(before, after);
  if (before.size() != after.size()) return;
  for (std::size_t i = 0; i < before.size(); ++i) {
    const TrailRow whole = before[i];
    KeepChanged(before[i], after[i], name);
    KeepChanged(after[i], whole, name);
  }
}

std::int32_t NumberOf(const Value& value) {
  const auto* number = std::get_if<std::int64_t>(&value);
  return number != nullptr ? static_cast<std::int32_t>(*number) : 0;
}

std::int32_t EstimateOf(const TrailRule& rule, const std::vector<Value>& values) {
  return rule.estimate < 0 ? 0 : NumberOf(values.at(static_cast<std::size_t>(rule.estimate)));
}

// What a command that adds was given: the estimate's number, and a value for each of the columns.
TrailRow RowOfValues(const TrailRule& rule, const std::vector<Value>& values) {
  TrailRow row;
  std::string_view names = rule.columnsOrLook;
  for (std::size_t i = 1; !names.empty(); ++i) {
    const std::size_t length = std::min(names.find(','), names.size());
    if (!IsNull(values.at(i))) row.columns.emplace_back(names.substr(0, length), values.at(i));
    names.remove_prefix(std::min(length + 1, names.size()));
  }
  return row;
}

// A copy tells what it is one of, even where it differs in nothing else.
void NoteSource(TrailEntry& entry, const Value& source) {
  if (entry.after.empty()) entry.after.emplace_back();
  entry.after.front().columns.emplace_back(kCopiedFrom, source);
}

std::vector<TrailEntry> Read(de& database, std::string_view command, const std::vector<Value>& values) {
  std::vector<TrailEntry> entries;
  try {
    Recordset rows = database.Connection().Run(Statement(command), values);
    for (; !rows.Eof(); rows.MoveNext()) entries.push_back(TrailEntryOf(rows));
  } catch (const DatabaseError& error) {
    if (error.Kind() != DatabaseErrorKind::NotThere) throw;
  }
  return entries;
}

}  // namespace

std::string TrailRow::Text(std::string_view column) const {
  const Value* cell = FindCell(*this, column);
  const auto* text = cell != nullptr ? std::get_if<std::string>(cell) : nullptr;
  return text != nullptr ? *text : "";
}

std::int32_t TrailRow::Long(std::string_view column) const {
  const Value* cell = FindCell(*this, column);
  return cell != nullptr ? NumberOf(*cell) : 0;
}

bool TrailRow::Has(std::string_view column) const { return FindCell(*this, column) != nullptr; }

void Trail::Begin() {
  if (!database_.Connection().IsFar()) return;
  try {
    HasTable();
  } catch (const DatabaseError&) {  // the first change will tell
  }
}

void Trail::Follow(std::string_view command, const std::vector<Value>& values, const std::function<void()>& change) {
  const TrailRule* rule = FindTrailRule(command);
  if (rule == nullptr) throw DatabaseError(fmt::format("The trail has no rule for command \"{}\".", command));
  changed_.insert(EstimateOf(*rule, values));
  if (!HasTable()) return change();
  const auto work = [&] { ChangeAndWrite(command, *rule, values, change); };
  // Within a transaction whose owner goes on behind an error, the change goes back with its row. Where the row is only
  // posted, all of the transaction does.
  Engine& engine = database_.Connection();
  if (!engine.IsFar()) return engine.Apart(work);
  try {
    engine.Together(work);
  } catch (const DatabaseError& error) {
    // Somebody took it away since, or it went with the transaction that it was made in. In a transaction that this is a
    // part of there is no second try: that one tells its error once more.
    if (error.Kind() != DatabaseErrorKind::NotThere) throw;
    hasTable_ = false;
    if (!HasTable()) return change();
    engine.Together(work);
  }
}

void Trail::ChangeAndWrite(std::string_view command, const TrailRule& rule, const std::vector<Value>& values,
                           const std::function<void()>& change) {
  using Effect = TrailRule::Effect;
  TrailEntry entry;
  entry.command = command;
  entry.estimate = EstimateOf(rule, values);
  if (rule.effect != Effect::Adds) entry.before = Look(rule, values);
  change();
  if (rule.effect == Effect::Adds) entry.after = {RowOfValues(rule, values)};
  if (rule.effect == Effect::Changes) entry.after = Look(rule, values);
  KeepChanged(entry.before, entry.after, rule.name);
  if (rule.source != TrailRule::kNoSource) NoteSource(entry, values.at(static_cast<std::size_t>(rule.source)));
  if (!entry.before.empty() || !entry.after.empty()) Write(std::move(entry));
}

void Trail::TakeBack(std::int32_t number, const std::function<void()>& work) {
  undoes_ = number;
  try {
    work();
  } catch (...) {
    undoes_ = 0;
    throw;
  }
  undoes_ = 0;
}

// What would keep the change from being made too is its error. What is a matter of this table alone leaves the change
// to be made without.
bool Trail::HasTable() {
  if (hasTable_ || isOff_) return hasTable_;
  try {
    MakeTable();
    return true;
  } catch (const DatabaseError& error) {
    constexpr DatabaseErrorKind kOfTheTable[] = {DatabaseErrorKind::Other, DatabaseErrorKind::NotThere,
                                                 DatabaseErrorKind::Duplicate, DatabaseErrorKind::Refused};
    if (std::find(std::begin(kOfTheTable), std::end(kOfTheTable), error.Kind()) == std::end(kOfTheTable)) throw;
    isOff_ = true;
    if (note_) note_(std::string("No trail is kept of the changes of this run: ") + error.what());
    return false;
  }
}

// A look that finds no table costs the transaction that it happens in, on some engines, so it comes ahead of it.
void Trail::MakeTable() {
  Engine& engine = database_.Connection();
  engine.Apart([&] {
    try {
      engine.Apart([&] { engine.Run(Statement("ProbeTrail"), {}); });
    } catch (const DatabaseError& error) {
      if (error.Kind() != DatabaseErrorKind::NotThere) throw;
      for (const std::string_view command : {"CreateTrail", "IndexTrail", "IndexTrailByTime"}) {
        engine.Run(Statement(command), {});
      }
    }
  });
  hasTable_ = true;
}

std::vector<TrailRow> Trail::Look(const TrailRule& rule, const std::vector<Value>& values) {
  std::vector<Value> keys;
  for (const int place : rule.keys) keys.push_back(values.at(static_cast<std::size_t>(place)));
  std::vector<TrailRow> found;
  Recordset rows = database_.Connection().Run(LookOf(rule.columnsOrLook), keys);
  for (; !rows.Eof(); rows.MoveNext()) found.push_back(CurrentRow(rows));
  return found;
}

void Trail::Write(TrailEntry entry) {
  const auto add = [&] {
    database_.Connection().Post(
        Statement("AddTrail"),
        {TextValue(FormatMoment(clock_.Now())), TextValue(author_.workstation), TextValue(author_.user),
         TextValue(entry.command), std::int64_t{entry.estimate}, TextValue(TrailText(entry.before)),
         TextValue(TrailText(entry.after)), std::int64_t{undoes_}});
  };
  try {
    add();
  } catch (const DatabaseError& error) {
    // It went with the transaction that it was made in, or somebody took it away since.
    if (error.Kind() != DatabaseErrorKind::NotThere) throw;
    hasTable_ = false;
    MakeTable();
    add();
  }
}

TrailEntry TrailEntryOf(const Recordset& row) {
  TrailEntry entry;
  entry.number = row.Long("TrailNumber");
  entry.at = MomentOf(row.Text("ChangedAt"));
  entry.author = {row.Text("Workstation"), row.Text("UserName")};
  entry.command = row.Text("Command");
  entry.estimate = row.Long(kEstimateNumber);
  entry.before = TrailRows(row.Text("RowsBefore"));
  entry.after = TrailRows(row.Text("RowsAfter"));
  entry.undoes = row.Long("Undoes");
  return entry;
}

std::vector<TrailEntry> TrailOfEstimate(de& database, std::int32_t estimate) {
  return Read(database, "TrailOfEstimate", {std::int64_t{estimate}});
}

std::vector<TrailEntry> TrailOfDay(de& database, DaySerial day) {
  return Read(database, "TrailOfDay", {TextValue(FormatIsoDate(day)), TextValue(FormatIsoDate(day + 1))});
}

std::int64_t PruneTrail(de& database, DaySerial firstKept) {
  std::int64_t count = 0;
  const std::vector<Value> before = {TextValue(FormatIsoDate(firstKept))};
  try {
    database.Connection().Together([&] {
      count = database.Connection().Run(Statement("CountTrail"), before).Long("Changes");
      if (count > 0) database.Connection().Run(Statement("PruneTrail"), before);
    });
  } catch (const DatabaseError& error) {
    if (error.Kind() != DatabaseErrorKind::NotThere) throw;
  }
  return count;
}

}  // namespace lantos
