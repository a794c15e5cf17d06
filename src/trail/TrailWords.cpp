#include "trail/TrailWords.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <optional>

#include "estimatedb/CommentMarks.h"
#include "estimatedb/modEstimates.h"
#include "frame/Dates.h"
#include "frame/Numbers.h"
#include "frame/Text.h"
#include "records/LaborText.h"

namespace lantos {

namespace {

constexpr std::string_view kWorkorderMark = "Workorder # ";

constexpr std::array<std::string_view, kTrailKinds> kKindWords = {"Booking", "Status", "Labor",    "Parts",
                                                                  "Extras",  "Notes",  "Shop days"};
constexpr std::array<std::string_view, kStatusCount> kStatusWords = {
    "Scheduled", "Arrived",   "In Progress", "Completed", "Departed",
    "Continued", "Cancelled", "Rescheduled", "No-show",   "Estimate Only"};

// The numbered lines of an estimate: what their commands are called, and what a person calls them.
struct LineKind {
  std::string_view command;  // behind "Add", "Delete"
  std::string_view word;
  TrailKind kind;
  std::string_view number;
};
constexpr LineKind kLines[] = {
    {"Labor", "labor", TrailKind::Labor, "LaborNumber"},
    {"Sublet", "sublet", TrailKind::Extras, "SubletNumber"},
    {"Waste", "waste charge", TrailKind::Extras, "WasteNumber"},
    {"Note", "note", TrailKind::Notes, "NoteNumber"},
};

struct Head {
  std::string_view command;
  TrailKind kind;
};
constexpr Head kKinds[] = {
    {"NewEstimate", TrailKind::Booking},       {"AddEstimateRow", TrailKind::Booking},
    {"SetCustomer", TrailKind::Booking},       {"SetVehicle", TrailKind::Booking},
    {"SetVehicleNew", TrailKind::Booking},     {"CloneEstimate", TrailKind::Booking},
    {"UpdateQuery", TrailKind::Booking},       {"SetStatus", TrailKind::Status},
    {"CloneLabors", TrailKind::Labor},         {"AddPartRow", TrailKind::Parts},
    {"UpdatePartRow", TrailKind::Parts},       {"DeletePart", TrailKind::Parts},
    {"CloneParts", TrailKind::Parts},          {"CloneSublets", TrailKind::Extras},
    {"SetSubletSurcharge", TrailKind::Extras}, {"AddSubletSurcharge", TrailKind::Extras},
    {"CloneWaste", TrailKind::Extras},         {"SetWasteSurcharge", TrailKind::Extras},
    {"AddWasteSurcharge", TrailKind::Extras},  {"SetComments", TrailKind::Notes},
    {"CloneNotes", TrailKind::Notes},          {"AddChecklistRow", TrailKind::Notes},
    {"DeleteChecklist", TrailKind::Notes},     {"UpdateStdHours", TrailKind::ShopDays},
    {"SaveSpecialDay", TrailKind::ShopDays},   {"DeleteSpecialDay", TrailKind::ShopDays},
};

// A text that was typed may have lines of its own.
std::string InOneLine(std::string text) {
  std::replace_if(
      text.begin(), text.end(), [](unsigned char letter) { return letter < ' '; }, ' ');
  return text;
}

const LineKind* LineKindOf(const TrailEntry& entry, std::string_view verb) {
  for (const LineKind& line : kLines) {
    const std::string_view command = entry.command;
    if (command.starts_with(verb) && command.substr(verb.size()) == line.command) return &line;
  }
  return nullptr;
}

std::string StatusWord(std::int32_t status) {
  const auto index = static_cast<std::size_t>(status);
  return index < kStatusWords.size() ? std::string(kStatusWords[index]) : fmt::format("status {}", status);
}

// "09/30", with the year where it isn't that of the change.
std::string DayWord(DaySerial day, const TrailEntry& entry) {
  constexpr std::size_t kMonthAndDay = 5;
  const std::string date = FormatDate(day);
  return date.substr(kMonthAndDay) == FormatDate(entry.at.day).substr(kMonthAndDay) ? date.substr(0, kMonthAndDay)
                                                                                    : date;
}

std::string DayWord(const TrailRow& row, std::string_view column, const TrailEntry& entry) {
  const std::optional<DaySerial> day = ParseIsoDate(row.Text(column));
  return day ? DayWord(*day, entry) : "no day";
}

std::string FirstText(std::string_view labor) {
  const LaborText lines = SplitLaborText(labor);
  const auto text = std::find_if(lines.begin(), lines.end(), [](const std::string& line) { return !line.empty(); });
  return text == lines.end() ? std::string() : *text;
}

// What a line says of itself: "BRAKES 1.50 h", "ACE TOWING 60.00", the first line of a note.
std::string WordsOfLine(const TrailRow& row, const LineKind& line) {
  if (line.command == "Labor") {
    return Trim(fmt::format("{} {} h", FirstText(row.Text("Description")), FormatHundredths(row.Long("LaborHours"))));
  }
  if (line.command == "Note") return Trim(row.Text("Desc1"));
  return Trim(fmt::format("{} {}", Trim(row.Text("VendorName")), FormatHundredths(row.Long("Price"))));
}

std::string WordsOfPart(const TrailRow& row) {
  return Trim(fmt::format("{} {}", Trim(row.Text("PartNumber")), Trim(row.Text("PartDesc"))));
}

std::string ColumnWord(std::string_view column) {
  constexpr std::array<std::array<std::string_view, 2>, 5> kWords = {{{"Quantity", "quantity"},
                                                                      {"PartPrice", "price"},
                                                                      {"PartCost", "cost"},
                                                                      {"PartList", "list price"},
                                                                      {"PartDesc", "description"}}};
  for (const auto& [name, word] : kWords) {
    if (name == column) return std::string(word);
  }
  return "";
}

std::string CellWord(const TrailRow& row, std::string_view column) {
  if (column == "PartDesc") return "\"" + Trim(row.Text(column)) + "\"";
  if (column == "Quantity") return std::to_string(row.Long(column));
  return FormatHundredths(row.Long(column));
}

std::string WordsOfChangedPart(const TrailEntry& entry) {
  const TrailRow& before = FirstOf(entry.before);
  const TrailRow& after = FirstOf(entry.after);
  std::string words = "part " + Trim(after.Text("PartNumber")) + " changed";
  std::string_view between = ": ";
  for (const auto& [column, value] : after.columns) {
    const std::string word = ColumnWord(column);
    if (word.empty() || CellWord(before, column) == CellWord(after, column)) continue;
    words += fmt::format("{}{} from {} to {}", between, word, CellWord(before, column), CellWord(after, column));
    between = ", ";
  }
  return words;
}

// A part is stored anew under its number or another, or is counted with one that is there.
std::string WordsOfReplacedPart(const TrailEntry& removed, const TrailEntry& next) {
  const std::string number = Trim(FirstOf(removed.before).Text("PartNumber"));
  const std::string newNumber = Trim(FirstOf(next.after).Text("PartNumber"));
  if (next.command == "UpdatePartRow") return fmt::format("part {} counted with {}", number, newNumber);
  if (next.command != "AddPartRow") return "";
  if (number != newNumber) return fmt::format("part {} changed to {}", number, WordsOfPart(FirstOf(next.after)));
  TrailEntry both = next;
  both.before = removed.before;
  return WordsOfChangedPart(both);
}

std::string Vehicle(const TrailRow& row) {
  return Trim(
      fmt::format("{} {} {}", Trim(row.Text("VehYear")), Trim(row.Text("VehMake")), Trim(row.Text("VehModel"))));
}

std::string WordsOfStatus(const TrailEntry& entry) {
  return fmt::format("status {}from {} to {}", entry.undoes != 0 ? "back " : "",
                     StatusWord(FirstOf(entry.before).Long("Status")), StatusWord(FirstOf(entry.after).Long("Status")));
}

std::string WordsOfSpecialDay(const TrailEntry& entry) {
  const TrailRow& row = FirstOf(entry.after.empty() ? entry.before : entry.after);
  const std::string day = DayWord(row, "SpecialDate", entry);
  if (entry.after.empty()) return "special day " + day + " removed";
  return fmt::format("special day {}: {} hours {}", day, row.Long("SpecialHours"), Trim(row.Text("SpecialDesc")));
}

std::string WordsOfSurcharge(const TrailEntry& entry) {
  const std::string amount = FormatHundredths(FirstOf(entry.after).Long("Price"));
  if (entry.before.empty()) return "surcharge of " + amount;
  return fmt::format("surcharge from {} to {}", FormatHundredths(FirstOf(entry.before).Long("Price")), amount);
}

std::string WordsOfCopy(const TrailEntry& entry) {
  if (entry.command != "CloneEstimate") return fmt::format("{} lines copied from another estimate", entry.after.size());
  return "copied from estimate # " + FormatZeros(FirstOf(entry.after).Long(kCopiedFrom), 6);
}

// The day that such comments name.
std::optional<DaySerial> DayIn(const TrailRow& row) {
  const std::string comments = row.Text("Comments");
  const std::string_view mark = MarkIn(comments);
  constexpr std::size_t kDate = 10;
  return mark.size() > kDate && !mark.starts_with(kWorkorderMark) ? ParseDate(mark.substr(mark.size() - kDate))
                                                                  : std::nullopt;
}

std::string WordsOfComments(const TrailEntry& entry) {
  const std::string comments = FirstOf(entry.after).Text("Comments");
  const std::string before = FirstOf(entry.before).Text("Comments");
  const std::optional<DaySerial> wasFor = DayIn(FirstOf(entry.before));
  if (entry.undoes != 0 && wasFor) return fmt::format("move to {} taken back", DayWord(*wasFor, entry));
  const std::string_view mark = MarkIn(comments);
  if (mark.starts_with(kWorkorderMark) && MarkIn(before) != mark) {
    return fmt::format("converted to work order # {}", mark.substr(kWorkorderMark.size()));
  }
  return "comments: \"" + Trim(comments) + "\"";
}

std::string WordsOfSetColumn(const TrailEntry& entry) {
  const TrailRow& after = FirstOf(entry.after);
  if (entry.command == "SetCustomer") {
    return fmt::format("customer from {} to {}", FirstOf(entry.before).Long("CustomerNumber"),
                       after.Long("CustomerNumber"));
  }
  return entry.command == "SetComments" ? WordsOfComments(entry) : Trim("vehicle changed " + Vehicle(after));
}

std::string WordsOfShop(const TrailEntry& entry) {
  if (entry.command == "UpdateStdHours") return "standard hours changed";
  return entry.command == "UpdateQuery" ? "estimates without a day dated" : WordsOfSpecialDay(entry);
}

std::string WordsOfAnyLine(const TrailEntry& entry) {
  const TrailRow& after = FirstOf(entry.after);
  const std::string_view added = entry.undoes != 0 ? "put back" : "added";
  if (const LineKind* line = LineKindOf(entry, "Add")) {
    return fmt::format("{} {} {}: {}", line->word, after.Long(line->number), added, WordsOfLine(after, *line));
  }
  if (const LineKind* line = LineKindOf(entry, "Delete")) {
    const TrailRow& before = FirstOf(entry.before);
    return fmt::format("{} {} removed: {}", line->word, before.Long(line->number), WordsOfLine(before, *line));
  }
  if (entry.command == "AddPartRow") return fmt::format("part {}: {}", added, WordsOfPart(after));
  if (entry.command == "DeletePart") return "part removed: " + WordsOfPart(FirstOf(entry.before));
  if (entry.command == "UpdatePartRow") return WordsOfChangedPart(entry);
  if (entry.command == "AddChecklistRow") return "checklist item: " + Trim(after.Text("ChecklistData"));
  if (entry.command == "DeleteChecklist") return "checklist removed";
  return entry.command.ends_with("Surcharge") ? WordsOfSurcharge(entry) : entry.command;
}

std::string RawWordsOf(const TrailEntry& entry) {
  const std::string_view command = entry.command;
  if (command == "NewEstimate" || command == "AddEstimateRow") {
    return "booked for " + DayWord(FirstOf(entry.after), "SchedDate", entry);
  }
  if (command == "SetStatus") return WordsOfStatus(entry);
  if (command == "SetCustomer" || command == "SetVehicle" || command == "SetVehicleNew" || command == "SetComments") {
    return WordsOfSetColumn(entry);
  }
  if (command.starts_with("Clone")) return WordsOfCopy(entry);
  return KindOf(entry) == TrailKind::ShopDays || command == "UpdateQuery" ? WordsOfShop(entry) : WordsOfAnyLine(entry);
}

}  // namespace

const TrailRow& FirstOf(const std::vector<TrailRow>& rows) {
  static const TrailRow kNone;
  return rows.empty() ? kNone : rows.front();
}

std::string_view WordOf(TrailKind kind) { return kKindWords.at(static_cast<std::size_t>(kind)); }

TrailKind KindOf(const TrailEntry& entry) {
  for (const std::string_view verb : {"Add", "Delete"}) {
    if (const LineKind* line = LineKindOf(entry, verb)) return line->kind;
  }
  for (const Head& head : kKinds) {
    if (entry.command == head.command) return head.kind;
  }
  return TrailKind::Booking;
}

std::string WordsOf(const TrailEntry& entry) { return InOneLine(RawWordsOf(entry)); }

std::string WordsOfChangedLine(const TrailEntry& removed, const TrailEntry& added) {
  if (removed.command == "DeletePart") return InOneLine(WordsOfReplacedPart(removed, added));
  const LineKind* line = LineKindOf(removed, "Delete");
  if (line == nullptr || line != LineKindOf(added, "Add")) return "";
  const TrailRow& before = FirstOf(removed.before);
  const TrailRow& after = FirstOf(added.after);
  if (before.Long(line->number) != after.Long(line->number)) return "";
  const std::string was = WordsOfLine(before, *line), is = WordsOfLine(after, *line);
  return InOneLine(fmt::format("{} {} changed: {}", line->word, after.Long(line->number),
                               was == is ? is : fmt::format("{} to {}", was, is)));
}

std::string WordsOfMove(const TrailEntry& comments) {
  if (comments.command != "SetComments" || comments.undoes != 0) return "";
  const std::optional<DaySerial> day = DayIn(FirstOf(comments.after));
  if (!day || day == DayIn(FirstOf(comments.before))) return "";
  return fmt::format("moved from {} to {}", DayWord(FirstOf(comments.after), "SchedDate", comments),
                     DayWord(*day, comments));
}

}  // namespace lantos
