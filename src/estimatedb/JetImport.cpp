#include "estimatedb/JetImport.h"

#include <fmt/format.h>

#include <algorithm>

#include "estimatedb/DatabasePlace.h"
#include "estimatedb/EstimateDatabase.h"
#include "estimatedb/JetTable.h"
#include "frame/PathText.h"
#include "frame/SharedFile.h"
#include "frame/Text.h"

namespace lantos {

namespace {

namespace fs = std::filesystem;

// What is about to take the place of Lantos.mdb.
constexpr std::string_view kInTheMaking = "Lantos-import.tmp";
// What the earlier program has beside the database for as long as anybody has it open.
constexpr std::string_view kInUse = "Lantos.ldb";
// Tables that came with later programs; the upgrade makes them.
constexpr std::string_view kLaterTables[] = {"Waste", "Checklist"};

fs::path PlaceOfJet(const FileIO& files) {
  const fs::path place = PlaceOfDatabase(files);
  if (IsJet(place)) return place;
  RefuseWith(fmt::format("\"{}\" isn't a Jet database{}. Nothing was changed.", TextOfPath(place),
                         IsDatabase(place) ? ": it is this program's own already" : ""));
}

void RefuseWhereTheEarlierProgramWorks(const FileIO& files) {
  if (!files.IsThere(kInUse)) return;
  RefuseWith(
      fmt::format("\"{}\" is there: the earlier program has the database open. Nothing was changed.\n\nEnd it on every "
                  "workstation. A program that was killed may have left the file behind: then delete it.",
                  TextOfPath(files.PathOf(kInUse))));
}

class Import {
 public:
  Import(OldTables& old, const std::vector<std::string>& leave, const TellProgress& tell)
      : old_(old), leave_(leave), tell_(tell) {}

  JetImport Fill(OpenedTables& to) {
    MakeLantosTables(*to.engine);
    const std::vector<std::string> here = old_.Names();
    for (const std::string& table : to.tables->Tables()) {
      const auto found = std::find_if(here.begin(), here.end(),
                                      [&](const std::string& each) { return EqualsIgnoringCase(each, table); });
      found == here.end() ? Lack(to, table) : Take(to, *found, table);
    }
    for (const std::string& each : here) {
      const auto isIt = [&](const MovedTable& table) { return EqualsIgnoringCase(table.name, each); };
      if (std::none_of(done_.tables.begin(), done_.tables.end(), isIt)) done_.leftBehind.push_back(FromUtf8(each));
    }
    return std::move(done_);
  }

 private:
  void Lack(OpenedTables& to, const std::string& table) {
    const bool isLater = std::any_of(std::begin(kLaterTables), std::end(kLaterTables),
                                     [&](std::string_view each) { return EqualsIgnoringCase(each, table); });
    if (!isLater) {
      RefuseWith(fmt::format(
          "There is no table \"{}\" in the old database, which every program made. Nothing was changed.", table));
    }
    to.tables->Drop(table);
    done_.wasUpgraded = true;
  }

  void Take(OpenedTables& to, const std::string& oldName, const std::string& name) {
    JetTable table(old_, to, oldName, name, leave_, tell_);
    done_.tables.push_back(table.Import());
    done_.leftBehind.insert(done_.leftBehind.end(), table.LeftColumns().begin(), table.LeftColumns().end());
    for (const auto& [column, count] : table.LongTexts()) done_.longTexts.push_back({column, count});
    done_.wasUpgraded = done_.wasUpgraded || table.IsOlder();
  }

  OldTables& old_;
  const std::vector<std::string>& leave_;
  const TellProgress& tell_;
  JetImport done_;
};

void UpgradeFile(const fs::path& path, Environment& environment, Records& records) {
  EstimateDatabase database(environment, records);
  database.lantosData.SetOpener([&] { return OpenDatabase(path, environment.clock); });
  UpgradeDatabase(database, environment, records);
}

// Who may read and write the old file may do so with the new one; whoever makes it may do both in any case.
void GiveModeOf(const fs::path& place, const fs::path& path) {
  std::error_code ignored;
  const fs::perms mode = fs::status(place, ignored).permissions();
  fs::permissions(path, (mode & fs::perms::all) | fs::perms::owner_read | fs::perms::owner_write, ignored);
}

// A file that is written to while it is read is told by its length and time.
class Unchanged {
 public:
  explicit Unchanged(fs::path path)
      : path_(std::move(path)), length_(fs::file_size(path_)), time_(fs::last_write_time(path_)) {}
  void Require() const {
    if (fs::file_size(path_) == length_ && fs::last_write_time(path_) == time_) return;
    RefuseWith(
        fmt::format("\"{}\" was changed while it was read. Nothing was changed by this program.\n\nEnd the earlier "
                    "program on every workstation first.",
                    TextOfPath(path_)));
  }

 private:
  fs::path path_;
  std::uintmax_t length_;
  fs::file_time_type time_;
};

}  // namespace

JetImport ImportJet(Environment& environment, Records& records, OldTables& old, const std::vector<std::string>& leave,
                    const TellProgress& tell) {
  const FileIO& files = environment.files;
  const fs::path place = PlaceOfJet(files);
  RefuseWhereSomebodyWorks(files);
  RefuseWhereTheEarlierProgramWorks(files);
  TakeAwaySecondNames(files, place);
  SharedFile held(place, Access::Read, Deny::All, Absent::Fail);
  const Unchanged unchanged(place);
  InTheMaking made(files, kInTheMaking);
  JetImport done;
  {
    OpenedTables to = CreateTablesFile(made.Path(), files.GetClock());
    to.engine->Together([&] { done = Import(old, leave, tell).Fill(to); });
  }
  UpgradeFile(made.Path(), environment, records);
  GiveModeOf(place, made.Path());
  unchanged.Require();
  const fs::path kept = NameForTheOld(files);
  Replace(made, place, kept, [&](int step) { tell({"", MoveStep::Placing, step, 3}); });
  done.kept = TextOfPath(kept.filename());
  return done;
}

}  // namespace lantos
