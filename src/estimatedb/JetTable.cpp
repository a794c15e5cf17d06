#include "estimatedb/JetTable.h"

#include <fmt/format.h>

#include <algorithm>
#include <charconv>
#include <initializer_list>
#include <limits>
#include <string_view>

#include "estimatedb/DatabasePlace.h"
#include "estimatedb/engine/CellFit.h"
#include "frame/CodePoints.h"
#include "frame/Text.h"

namespace lantos {

namespace {

constexpr std::size_t kRowsAtOnce = 500;

// Columns that came with later programs, each group in one go: the upgrade adds a group where its first one is missing.
struct LaterColumns {
  std::string_view table;
  std::initializer_list<std::string_view> columns;
};
constexpr std::string_view kEstimates = "Estimates";
const LaterColumns kLaterColumns[] = {
    {kEstimates, {"VehYear", "VehMake", "VehModel", "VehVIN", "VehLic", "VehDate", "VehMileage"}},
    {kEstimates, {"VehEng", "VehTrans"}},
    {"Parts", {"PartCost", "PartList"}},
};

template <class Names>
bool IsAmong(const Names& names, std::string_view name) {
  return std::any_of(std::begin(names), std::end(names),
                     [&](const auto& each) { return EqualsIgnoringCase(each, name); });
}

// As the engine orders them: nothing first, then numbers, then texts by their bytes.
bool ComesBefore(const Cell& a, const Cell& b) {
  const auto rank = [](const Cell& cell) { return cell.index() == 0 ? 0 : cell.index() == 3 ? 2 : 1; };
  if (rank(a) != rank(b)) return rank(a) < rank(b);
  if (rank(a) != 1) return a < b;
  if (a.index() == 1 && b.index() == 1) return std::get<std::int64_t>(a) < std::get<std::int64_t>(b);
  const auto number = [](const Cell& cell) {
    return cell.index() == 1 ? static_cast<double>(std::get<std::int64_t>(cell)) : std::get<double>(cell);
  };
  return number(a) < number(b);
}

std::size_t LengthOf(const std::string& utf8) {
  return static_cast<std::size_t>(
      std::count_if(utf8.begin(), utf8.end(), [](char c) { return (static_cast<unsigned char>(c) & 0xC0) != 0x80; }));
}

bool IsUtf8(const std::string& text) {
  for (std::size_t position = 0; position < text.size();) {
    if (NextCodePoint(text, position) == kMalformed) return false;
  }
  return true;
}

// The tools tell a double with one digit less than it takes to tell them all apart. With two less the number that was
// once typed comes out: 97.1 and not 97.09999999999999.
double Decimal(double number) {
  const std::string text = fmt::format("{:.{}g}", number, std::numeric_limits<double>::digits10);
  double decimal = number;
  std::from_chars(text.data(), text.data() + text.size(), decimal);
  return decimal;
}

// What the dump has and the column takes. A date that is none is no reason to lose it.
Cell CellOf(const std::optional<std::string>& value, CellKind kind) {
  if (!value) return {};
  if (!IsUtf8(*value)) throw UnfitCell("has bytes in it that are no text");
  const Cell cell = Fitted(*value, kind);
  if (const auto* number = std::get_if<double>(&cell)) return Decimal(*number);
  if (kind == CellKind::Date && cell.index() == 0)
    throw UnfitCell(fmt::format("holds {}, which is no date", Shown(*value)));
  return cell;
}

}  // namespace

JetTable::JetTable(OldTables& old, OpenedTables& to, std::string oldName, std::string name,
                   const std::vector<std::string>& leave, const TellProgress& tell)
    : old_(old), to_(to), oldName_(std::move(oldName)), name_(std::move(name)), leave_(leave), tell_(tell) {}

MovedTable JetTable::Import() {
  count_ = old_.CountOf(oldName_);
  Tell(MoveStep::Copying, 0);
  bool isHeading = true;
  old_.Read(oldName_, [&](OldRow&& row) {
    isHeading ? TakeColumns(row) : TakeRow(row);
    isHeading = false;
  });
  if (isHeading) RefuseWith(fmt::format("Of the table \"{}\" nothing was told. Nothing was changed.", name_));
  Count();
  to_.tables->Clear(name_);
  to_.tables->Add(name_, columns_, rows_);
  Compare();
  return {name_, count_};
}

void JetTable::TakeColumns(const OldRow& names) {
  const std::vector<StoredColumn> ours = to_.tables->ColumnsOf(name_);
  for (const std::optional<std::string>& each : names) {
    const std::string name = each.value_or("");
    const auto found = std::find_if(ours.begin(), ours.end(),
                                    [&](const StoredColumn& column) { return EqualsIgnoringCase(column.name, name); });
    const bool isTaken = found != ours.end();
    if (isTaken && IsAmong(columns_, name)) {
      RefuseWith(fmt::format("The table \"{}\" has two columns \"{}\". Nothing was changed.", name_, found->name));
    }
    if (!isTaken && !IsAmong(leave_, name_ + "." + name)) {
      RefuseWith(fmt::format(
          "The table \"{0}\" has a column \"{1}\", which isn't the program's. Nothing was changed.\n\nWhat is "
          "in it would stay behind in the old file. If nobody needs it, say so: --leave \"{0}.{1}\".",
          name_, FromUtf8(name)));
    }
    places_.push_back(isTaken ? Place{found->name, found->kind, found->width, true} : Place{name, {}, 0, false});
    isTaken ? columns_.push_back(found->name) : leftColumns_.push_back(name_ + "." + FromUtf8(name));
  }
  order_ = to_.tables->KeyOf(name_);
  hasKey_ = !order_.empty();
  DropWhatIsMissing();
  if (!hasKey_) order_ = columns_;
}

// What an older program hadn't made yet isn't made here either: the upgrade fills what it finds missing.
void JetTable::DropWhatIsMissing() {
  for (const StoredColumn& column : to_.tables->ColumnsOf(name_)) {
    if (IsAmong(columns_, column.name)) continue;
    const auto isOf = [&](const LaterColumns& group) {
      return EqualsIgnoringCase(group.table, name_) && IsAmong(group.columns, column.name);
    };
    const auto* const later = std::find_if(std::begin(kLaterColumns), std::end(kLaterColumns), isOf);
    const bool isWholeGroup = later != std::end(kLaterColumns) &&
                              std::none_of(later->columns.begin(), later->columns.end(),
                                           [&](std::string_view each) { return IsAmong(columns_, each); });
    if (!isWholeGroup) {
      RefuseWith(fmt::format("The table \"{}\" lacks the column \"{}\", which every program made. Nothing was changed.",
                             name_, column.name));
    }
    to_.engine->Run(fmt::format("ALTER TABLE {} DROP COLUMN {}", name_, column.name), {});
    isOlder_ = true;
  }
}

void JetTable::TakeRow(const OldRow& row) {
  CellRow fitted;
  for (std::size_t i = 0; i < places_.size(); ++i) {
    const Place& place = places_[i];
    if (!place.isTaken) continue;
    try {
      fitted.push_back(CellOf(row[i], place.kind));
    } catch (const UnfitCell& unfit) {
      RefuseRow(row, fmt::format("its \"{}\" {}", place.name, unfit.what()));
    }
    if (!row[i] && IsKey(place.name)) RefuseRow(row, fmt::format("its \"{}\" is empty", place.name));
    if (place.width != 0 && row[i] && LengthOf(*row[i]) > place.width) ++longTexts_[name_ + "." + place.name];
  }
  rows_.push_back(std::move(fitted));
  if (rows_.size() % kRowsAtOnce == 0) Tell(MoveStep::Copying, rows_.size());
}

// Sorted by key, two of one key lie side by side; of a table without a key any rows may be alike.
void JetTable::Count() {
  const auto arrived = static_cast<std::int64_t>(rows_.size());
  if (arrived != count_) {
    RefuseWith(
        fmt::format("The table \"{}\" has {} rows by its own count, and {} could be read. Nothing was changed.\n\n"
                    "The old file is damaged: repair it with the earlier program's tools first.",
                    name_, count_, arrived));
  }
  std::vector<std::size_t> keys;
  for (const std::string& column : order_) {
    keys.push_back(static_cast<std::size_t>(std::find(columns_.begin(), columns_.end(), column) - columns_.begin()));
  }
  const auto isLess = [&](const CellRow& a, const CellRow& b) {
    for (const std::size_t i : keys) {
      if (ComesBefore(a[i], b[i])) return true;
      if (ComesBefore(b[i], a[i])) return false;
    }
    return false;
  };
  std::stable_sort(rows_.begin(), rows_.end(), isLess);
  if (!hasKey_) return;
  const auto twin =
      std::adjacent_find(rows_.begin(), rows_.end(), [&](const CellRow& a, const CellRow& b) { return !isLess(a, b); });
  if (twin == rows_.end()) return;
  std::string mark;
  for (const std::size_t i : keys) {
    mark += fmt::format("{}\"{}\" {}", mark.empty() ? "" : ", ", columns_[i], Shown((*twin)[i]));
  }
  RefuseWith(fmt::format("In the table \"{}\" there are two rows with {}. Nothing was changed.", name_, mark));
}

void JetTable::Compare() {
  const std::unique_ptr<RowReader> theirs = to_.tables->Read(name_, columns_, order_);
  CellRow other;
  std::size_t done = 0;
  for (; theirs->Next(other); ++done) {
    for (std::size_t i = 0, taken = 0; i < places_.size(); ++i) {
      if (places_[i].isTaken) other[taken] = Fitted(other[taken], places_[i].kind), ++taken;
    }
    if (done >= rows_.size() || rows_[done] != other) {
      RefuseWith(fmt::format("The row {} of the table \"{}\" hasn't arrived as it was. Nothing was changed.", done + 1,
                             name_));
    }
    if (done % kRowsAtOnce == 0) Tell(MoveStep::Comparing, done);
  }
  if (done != rows_.size()) {
    RefuseWith(
        fmt::format("Of {} rows of the table \"{}\" {} have arrived. Nothing was changed.", rows_.size(), name_, done));
  }
  Tell(MoveStep::Comparing, done);
}

void JetTable::Tell(MoveStep step, std::size_t done) const {
  tell_({name_, step, static_cast<std::int64_t>(done), count_});
}

void JetTable::RefuseRow(const OldRow& row, const std::string& why) const {
  RefuseWith(
      fmt::format("In the table \"{}\" the row with {} can't be taken over: {}. Nothing was changed.\n\nCorrect it "
                  "with the earlier program first.",
                  name_, MarkOf(row), why));
}

// What a row is found by: its key, else its first column.
std::string JetTable::MarkOf(const OldRow& row) const {
  std::string mark;
  for (std::size_t i = 0; i < places_.size(); ++i) {
    if (hasKey_ ? !IsKey(places_[i].name) : i != 0) continue;
    mark += fmt::format("{}\"{}\" {}", mark.empty() ? "" : ", ", FromUtf8(places_[i].name),
                        row[i] ? Shown(*row[i]) : "nothing");
  }
  return mark;
}

bool JetTable::IsKey(const std::string& column) const { return hasKey_ && IsAmong(order_, column); }

}  // namespace lantos
