#include "trail/TrailUndo.h"

#include <algorithm>
#include <set>

#include "estimatedb/CommentMarks.h"
#include "estimatedb/modEstimates.h"
#include "frame/Dates.h"
#include "frame/Text.h"

namespace lantos {

namespace {

using Kind = TrailDeed::Kind;

constexpr std::string_view kUnknownHand = "A program that keeps no trail has changed it since.";
constexpr std::string_view kWorkorderMark = "Workorder # ";

// Lines that can be put back as they were.
struct Removal {
  std::string_view command;  // that took the line away
  std::string_view adding;   // that puts one of the same number there
  std::string_view number;   // the column that tells them apart
  void (*restore)(de& database, std::int32_t estimate, const TrailRow& row);
};

de::Extra ExtraOf(const TrailRow& row) {
  return {row.Text("VendorName"), row.Text("VendorInvoice"), row.Long("Cost"),  row.Long("Price"),  row.Text("Desc1"),
          row.Text("Desc2"),      row.Text("Desc3"),         row.Text("Desc4"), row.Text("Taxable")};
}

void RestoreLabor(de& database, std::int32_t estimate, const TrailRow& row) {
  database.AddLabor(estimate, row.Long("LaborNumber"), row.Text("Description"), row.Long("LaborHours"),
                    row.Long("LaborRate"), row.Long("LaborTotal"), row.Long("Mechanic"));
}
void RestorePart(de& database, std::int32_t estimate, const TrailRow& row) {
  database.AddPartRow(estimate,
                      {row.Text("PartNumber"), row.Text("PartDesc"), row.Long("Quantity"), row.Long("PartPrice"),
                       row.Long("PartTotal"), row.Long("PartCost"), row.Long("PartList")});
}
void RestoreSublet(de& database, std::int32_t estimate, const TrailRow& row) {
  database.AddSublet(estimate, row.Long("SubletNumber"), ExtraOf(row));
}
void RestoreWaste(de& database, std::int32_t estimate, const TrailRow& row) {
  database.AddWaste(estimate, row.Long("WasteNumber"), ExtraOf(row));
}
void RestoreNote(de& database, std::int32_t estimate, const TrailRow& row) {
  std::vector<std::string> lines;
  for (int i = 1; i <= 8; ++i) lines.push_back(row.Text("Desc" + std::to_string(i)));
  database.AddNote(estimate, row.Long("NoteNumber"), lines);
}

constexpr Removal kRemovals[] = {
    {"DeleteLabor", "AddLabor", "LaborNumber", RestoreLabor},
    {"DeletePart", "AddPartRow", "PartNumber", RestorePart},
    {"DeleteSublet", "AddSublet", "SubletNumber", RestoreSublet},
    {"DeleteWaste", "AddWaste", "WasteNumber", RestoreWaste},
    {"DeleteNote", "AddNote", "NoteNumber", RestoreNote},
};

const Removal* RemovalOf(const TrailDeed& deed) {
  for (const Removal& removal : kRemovals) {
    if (removal.command == deed.entries.front().command) return &removal;
  }
  return nullptr;
}

// Whether two rows are of the same line.
bool IsSame(const TrailRow& a, const TrailRow& b, std::string_view number) {
  return a.Long(number) == b.Long(number) && EqualsIgnoringCase(a.Text(number), b.Text(number));
}

bool IsConversion(const TrailEntry& entry) {
  return entry.command == "SetComments" && FirstOf(entry.after).Text("Comments").starts_with(kWorkorderMark) &&
         !FirstOf(entry.before).Text("Comments").starts_with(kWorkorderMark);
}

bool Touches(const TrailEntry& later, const TrailDeed& deed) {
  if (IsConversion(later)) return true;
  if (deed.kind == Kind::Removal) {
    const Removal& removal = *RemovalOf(deed);
    const bool isSurcharge = later.command == std::string(removal.adding) + "Surcharge";
    if (later.command != removal.command && later.command != removal.adding && !isSurcharge) return false;
    return IsSame(FirstOf(later.after.empty() ? later.before : later.after), FirstOf(deed.entries[0].before),
                  removal.number);
  }
  return later.command == "SetStatus" || (deed.kind == Kind::Move && later.command == "SetComments");
}

// The deeds behind a number that still stand, in their order.
std::vector<TrailDeed> StandingBehind(de& database, std::int32_t estimate, std::int32_t number) {
  std::vector<TrailDeed> deeds = DeedsOf(TrailOfEstimate(database, estimate));
  std::set<std::int32_t> takenBack;
  for (const TrailDeed& deed : deeds) takenBack.insert(deed.entries.front().undoes);
  std::erase_if(deeds, [&](const TrailDeed& deed) {
    return deed.First() <= number || deed.kind == Kind::TakingBack || takenBack.contains(deed.First());
  });
  std::reverse(deeds.begin(), deeds.end());
  return deeds;
}

// The first that has touched what the deed changed, or the copy that it made.
std::string FirstTouch(de& database, const TrailDeed& deed, DaySerial today) {
  for (const TrailDeed& later : StandingBehind(database, deed.estimate, deed.Last())) {
    const bool touches = std::any_of(later.entries.begin(), later.entries.end(),
                                     [&](const TrailEntry& entry) { return Touches(entry, deed); });
    if (touches) return Sentence(later, today);
  }
  const std::int32_t copy = CopyMadeBy(database, deed);
  if (copy == 0) return "";
  const std::vector<TrailDeed> ofCopy = StandingBehind(database, copy, deed.Last());
  return ofCopy.empty() ? "" : Sentence(ofCopy.front(), today);
}

struct Stored {
  bool isThere = false;
  std::int32_t status = 0;
  std::string comments;
};

Stored StoredOf(de& database, std::int32_t estimate) {
  Recordset& row = database.EstimateByNumber(estimate);
  Stored stored;
  if (!row.Eof()) stored = {true, row.Long("Status"), row.Text("Comments")};
  row.Close();
  return stored;
}

// What keeps it from being taken back beside what the trail knows.
std::string Hindrance(const TrailDeed& deed, const Stored& stored) {
  if (!stored.isThere) return std::string(kUnknownHand);
  if (deed.kind == Kind::Removal) return "";  // the table's key refuses a line that is there
  for (const TrailEntry& entry : deed.entries) {
    const TrailRow& left = FirstOf(entry.after);
    if (entry.command == "SetStatus" && left.Long("Status") != stored.status) return std::string(kUnknownHand);
    if (entry.command == "SetComments" && left.Text("Comments") != stored.comments) return std::string(kUnknownHand);
  }
  const bool isConversions = stored.status == kCompleted && stored.comments.starts_with(kWorkorderMark);
  return isConversions ? "The estimate is " + std::string(MarkIn(stored.comments)) + "." : "";
}

void CounterChange(de& database, const TrailDeed& deed) {
  if (deed.kind == Kind::Removal) {
    return RemovalOf(deed)->restore(database, deed.estimate, FirstOf(deed.entries[0].before));
  }
  for (const TrailEntry& entry : deed.entries) {
    const TrailRow& before = FirstOf(entry.before);
    if (entry.command == "SetStatus") database.SetStatus(before.Long("Status"), deed.estimate);
    if (entry.command == "SetComments") database.SetComments(before.Text("Comments"), deed.estimate);
  }
  if (const std::int32_t copy = CopyMadeBy(database, deed); copy != 0) database.SetStatus(kCancelled, copy);
}

}  // namespace

std::optional<TrailDeed> LastToUndo(const std::vector<TrailDeed>& newestFirst, const TrailAuthor& author) {
  std::set<std::int32_t> takenBack;
  for (const TrailDeed& deed : newestFirst) {
    takenBack.insert(deed.entries.front().undoes);
    const bool canBe = deed.kind == Kind::Move || deed.kind == Kind::Status || deed.kind == Kind::Removal;
    if (canBe && deed.author == author && !takenBack.contains(deed.First())) return deed;
  }
  return std::nullopt;
}

// It was booked and filled right ahead of the mark.
std::int32_t CopyMadeBy(de& database, const TrailDeed& deed) {
  const bool isContinuation =
      deed.kind == Kind::Status && FirstOf(deed.entries.back().after).Long("Status") == kContinued;
  if (deed.kind != Kind::Move && !isContinuation) return 0;
  for (const TrailEntry& entry : TrailOfDay(database, deed.at.day)) {
    const bool isCopy = entry.command == "CloneEstimate" && FirstOf(entry.after).Long(kCopiedFrom) == deed.estimate;
    if (isCopy && entry.number < deed.First() && entry.author == deed.author) return entry.estimate;
  }
  return 0;
}

std::string Undo(de& database, const TrailDeed& deed, DaySerial today) {
  std::string since;
  try {
    database.Connection().Together([&] {
      since = FirstTouch(database, deed, today);
      if (since.empty()) since = Hindrance(deed, StoredOf(database, deed.estimate));
      if (!since.empty()) return;
      const auto change = [&] { CounterChange(database, deed); };
      database.KeptTrail() != nullptr ? database.KeptTrail()->TakeBack(deed.First(), change) : change();
    });
  } catch (const DatabaseError& error) {
    if (deed.kind != Kind::Removal || error.Kind() != DatabaseErrorKind::Duplicate) throw;
    since = kUnknownHand;
  }
  return since;
}

}  // namespace lantos
