#include "estimatedb/TableMove.h"

#include <fmt/format.h>

#include <algorithm>

#include "estimatedb/CommandTable.h"
#include "estimatedb/EstimateDatabase.h"
#include "estimatedb/engine/CellFit.h"
#include "frame/Text.h"

namespace lantos {

namespace {

constexpr std::size_t kRowsAtOnce = 500;

// The database makes it again by itself.
constexpr std::string_view kMadeAnew[] = {"LaborDays", "TrailFeed", "TrailCount"};

bool IsMadeAnew(const std::string& table) {
  return std::any_of(std::begin(kMadeAnew), std::end(kMadeAnew),
                     [&](std::string_view name) { return EqualsIgnoringCase(table, name); });
}

[[noreturn]] void Refuse(const std::string& words) { throw DatabaseError(words, DatabaseErrorKind::Refused, 0, words); }

template <class List, class Name>
auto Find(List& list, std::string_view name, Name nameOf) {
  return std::find_if(list.begin(), list.end(),
                      [&](const auto& each) { return EqualsIgnoringCase(nameOf(each), name); });
}

bool Contains(const std::vector<std::string>& names, std::string_view name) {
  return Find(names, name, [](const std::string& each) { return each; }) != names.end();
}

// A table that the program makes when it misses it has a command of its name, and others for its indexes.
void MakeByItsCommands(Engine& engine, const std::string& table) {
  for (const std::span<const Command> commands : {kLantosCommands, kTrailCommands}) {
    const auto makes = [&](const Command& command) { return EqualsIgnoringCase(command.name, "Create" + table); };
    const auto making = std::find_if(commands.begin(), commands.end(), makes);
    if (making == commands.end()) continue;
    engine.Run(making->statement, {});
    for (const Command& command : commands) {
      if (ToLower(command.name).starts_with(ToLower("Index" + table))) engine.Run(command.statement, {});
    }
  }
}

class OneTable {
 public:
  OneTable(OpenedTables& from, OpenedTables& to, std::string name, const TellProgress& tell)
      : from_(*from.tables), to_(*to.tables), name_(std::move(name)), tell_(tell) {
    const bool isToServer = to.engine->IsFar();
    TakeColumns(isToServer ? to_ : from_, isToServer ? from_ : to_);
    // The server's: a file may have been made by a program that knew of no key.
    order_ = (isToServer ? to_ : from_).KeyOf(name_);
  }

  MovedTable Move() {
    count_ = from_.CountOf(name_);
    Copy();
    to_.LookOver(name_);
    to_.SetCounter(name_, from_.CounterOf(name_));
    if (const std::int64_t arrived = to_.CountOf(name_); arrived != count_) {
      Refuse(
          fmt::format("Of {} rows of the table \"{}\" {} have arrived. Nothing was changed.", count_, name_, arrived));
    }
    Compare();
    return {name_, count_};
  }

  std::int64_t DatesDropped() const { return datesDropped_; }

 private:
  // What they take is the server's affair, who is strict; what they are called is the file's, which spells them.
  void TakeColumns(TableStore& server, TableStore& file) {
    const auto nameOf = [](const StoredColumn& column) { return column.name; };
    const std::vector<StoredColumn> taken = server.ColumnsOf(name_);
    const std::vector<StoredColumn> spelled = file.ColumnsOf(name_);
    const bool isToServer = &to_ == &server;
    for (const StoredColumn& column : spelled) {
      const auto found = Find(taken, column.name, nameOf);
      if (found == taken.end()) RefuseColumn(column.name, isToServer ? Odd::Unknown : Odd::Missing);
      columns_.push_back(column.name);
      kinds_.push_back(found->kind);
    }
    for (const StoredColumn& column : taken) {
      if (Find(spelled, column.name, nameOf) != spelled.end()) continue;
      RefuseColumn(column.name, isToServer ? Odd::Missing : Odd::Unknown);
    }
  }

  enum class Odd { Unknown, Missing };

  [[noreturn]] void RefuseColumn(const std::string& column, Odd odd) const {
    if (odd == Odd::Unknown) {
      Refuse(fmt::format("The table \"{}\" has a column \"{}\", which isn't the program's. Nothing was changed.", name_,
                         FromUtf8(column)));
    }
    Refuse(
        fmt::format("The table \"{}\" lacks the column \"{}\": an older program made it. Nothing was changed.\n\nStart "
                    "Lantos on the shop once, which brings it up to date; then move it.",
                    name_, FromUtf8(column)));
  }

  void Copy() {
    to_.Clear(name_);
    const std::unique_ptr<RowReader> rows = from_.Read(name_, columns_, order_);
    std::vector<CellRow> block;
    CellRow row;
    std::int64_t done = 0;
    Tell(MoveStep::Copying, 0);
    for (bool isThere = true; isThere;) {
      isThere = rows->Next(row);
      if (isThere) block.push_back(Fit(row, Count::Dropped));
      if (block.empty() || (isThere && block.size() < kRowsAtOnce)) continue;
      to_.Add(name_, columns_, block);
      done += static_cast<std::int64_t>(block.size());
      block.clear();
      Tell(MoveStep::Copying, done);
    }
  }

  void Compare() {
    const std::unique_ptr<RowReader> ours = from_.Read(name_, columns_, order_);
    const std::unique_ptr<RowReader> theirs = to_.Read(name_, columns_, order_);
    CellRow each;
    CellRow other;
    std::int64_t done = 0;
    for (;;) {
      const bool isThere = ours->Next(each);
      if (theirs->Next(other) != isThere) RefuseDifference(done);
      if (!isThere) break;
      if (Fit(each, Count::Nothing) != Fit(other, Count::Nothing)) RefuseDifference(done);
      if (++done % static_cast<std::int64_t>(kRowsAtOnce) == 0 && done < count_) Tell(MoveStep::Comparing, done);
    }
    Tell(MoveStep::Comparing, done);
  }

  [[noreturn]] void RefuseDifference(std::int64_t place) const {
    Refuse(
        fmt::format("The row {} of the table \"{}\" hasn't arrived as it was. Nothing was changed.", place + 1, name_));
  }

  enum class Count { Dropped, Nothing };

  CellRow Fit(const CellRow& row, Count count) {
    CellRow fitted;
    for (std::size_t i = 0; i < row.size(); ++i) {
      try {
        fitted.push_back(Fitted(row[i], kinds_[i]));
      } catch (const UnfitCell& unfit) {
        Refuse(
            fmt::format("In the table \"{}\" the row with {} can't be moved: its \"{}\" {}. Nothing was changed.\n\n"
                        "Correct it first.",
                        name_, MarkOf(row), FromUtf8(columns_[i]), unfit.what()));
      }
      if (count == Count::Dropped && IsNull(fitted.back()) && !IsNull(row[i])) ++datesDropped_;
    }
    return fitted;
  }

  static bool IsNull(const Cell& cell) { return std::holds_alternative<std::monostate>(cell); }

  // What a row is found by: its key, else its first column.
  std::string MarkOf(const CellRow& row) const {
    std::string mark;
    for (std::size_t i = 0; i < row.size(); ++i) {
      const bool names = order_.empty() ? i == 0 : Contains(order_, columns_[i]);
      if (names) mark += fmt::format("{}\"{}\" {}", mark.empty() ? "" : ", ", FromUtf8(columns_[i]), Shown(row[i]));
    }
    return mark;
  }

  void Tell(MoveStep step, std::int64_t done) const { tell_({name_, step, done, count_}); }

  TableStore& from_;
  TableStore& to_;
  std::string name_;
  const TellProgress& tell_;
  std::vector<std::string> columns_;
  std::vector<CellKind> kinds_;
  std::vector<std::string> order_;
  std::int64_t count_ = 0;
  std::int64_t datesDropped_ = 0;
};

}  // namespace

MovedTables MoveTables(OpenedTables& from, OpenedTables& to, const TellProgress& tell) {
  if (!to.tables->IsEmpty()) {
    Refuse(
        "There is something in the schema already, and nothing is written over. Nothing was changed.\n\nName another "
        "schema. Where a move was broken off there, what it left is a copy, which whoever looks after the server may "
        "drop.");
  }
  MakeLantosTables(*to.engine);
  const std::vector<std::string> here = from.tables->Tables();
  for (const std::string& table : here) {
    if (IsMadeAnew(table)) continue;
    if (!Contains(to.tables->Tables(), table)) MakeByItsCommands(*to.engine, table);
  }
  const std::vector<std::string> there = to.tables->Tables();
  MovedTables moved;
  for (const std::string& table : here) {
    if (!Contains(there, table) && !IsMadeAnew(table)) moved.leftBehind.push_back(FromUtf8(table));
  }
  // By the names that a file spells.
  for (const std::string& table : to.engine->IsFar() ? here : there) {
    if (!Contains(there, table)) continue;
    if (!Contains(here, table)) {
      Refuse(
          fmt::format("There is no table \"{}\": an older program made the database. Nothing was changed.\n\nStart "
                      "Lantos on the shop once, which brings it up to date; then move it.",
                      table));
    }
    OneTable one(from, to, table, tell);
    moved.tables.push_back(one.Move());
    moved.datesDropped += one.DatesDropped();
  }
  return moved;
}

}  // namespace lantos
