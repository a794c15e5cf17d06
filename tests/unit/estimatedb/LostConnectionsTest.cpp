#include <fmt/format.h>

#include <random>
#include <thread>

#include "DatabaseFixture.h"
#include "estimatedb/EngineChoice.h"
#include "estimatedb/LaborDays.h"
#include "support/CuttingProxy.h"
#include "support/TestServer.h"

namespace lantos::test {
namespace {

using testing::HasSubstr;

constexpr DaySerial kTuesday = 37894;  // 30 September 2003
constexpr int kCutsEach = 5;

// Whether a failure of the change is told, or another way is taken in silence.
enum class Failure { Told, Passed };

struct Change {
  const char* name;
  std::function<void(de&)> make;
  Failure failure = Failure::Told;
};

const de::Extra kTowing{"Ace Towing", "INV-77", 4500, 6000, "Towed in", "from Main St", "", "", "Yes"};
const std::vector<std::string> kEightLines(8, "line");

const Change kChanges[] = {
    {"NewEstimate", [](de& db) { db.NewEstimate(12, kTuesday); }},
    {"SetCustomer", [](de& db) { db.SetCustomer(8, 1); }},
    {"SetVehicle", [](de& db) { db.SetVehicle(397, 1); }},
    {"SetVehicleNew", [](de& db) { db.SetVehicleNew(397, {}, 1); }},
    {"SetComments", [](de& db) { db.SetComments("waits", 1); }},
    {"SetStatus", [](de& db) { db.SetStatus(3, 1); }},
    {"AddLabor", [](de& db) { db.AddLabor(1, 9, "Brakes", 150, 6500, 9750, 3); }},
    {"DeleteLabor", [](de& db) { db.DeleteLabor(1, 1); }},
    {"AddNote", [](de& db) { db.AddNote(1, 9, kEightLines); }},
    {"DeleteNote", [](de& db) { db.DeleteNote(1, 1); }},
    {"AddSublet", [](de& db) { db.AddSublet(1, 9, kTowing); }},
    {"DeleteSublet", [](de& db) { db.DeleteSublet(1, 2); }},
    {"AddWaste", [](de& db) { db.AddWaste(1, 9, kTowing); }},
    {"DeleteWaste", [](de& db) { db.DeleteWaste(1, 2); }},
    {"AddPartRow", [](de& db) { db.AddPartRow(1, {.PartNumber = "NEW", .PartDesc = "d", .Quantity = 2}); }},
    {"UpdatePartRow", [](de& db) { db.UpdatePartRow(1, "PAD-9", {.PartNumber = "PAD-9", .PartDesc = "x"}); }},
    {"DeletePart", [](de& db) { db.DeletePart(1, "PAD-9"); }},
    {"AddChecklistRow", [](de& db) { db.AddChecklistRow(1, "b"); }},
    {"DeleteChecklist", [](de& db) { db.DeleteChecklist(1); }},
    {"AddSubletSurcharge",
     [](de& db) {
       db.AddSubletSurcharge(1, {250, "SUPPLIES", "No"});
     }},
    {"AddWasteSurcharge",
     [](de& db) {
       db.AddWasteSurcharge(1, {250, "SUPPLIES", "No"});
     }},
    {"SetSubletSurcharge", [](de& db) { db.SetSubletSurcharge(77, 1, 2); }},
    {"SetWasteSurcharge", [](de& db) { db.SetWasteSurcharge(77, 1, 2); }},
    {"AddEstimateRow", [](de& db) { db.AddEstimateRow(13, kTuesday, 1); }},
    {"UpdateStdHours",
     [](de& db) {
       db.UpdateStdHours({1, 2, 3, 4, 5, 6, 7}, 8);
     }},
    {"SaveSpecialDay, a new one", [](de& db) { db.SaveSpecialDay(kTuesday, 4, "half"); }},
    {"SaveSpecialDay, again", [](de& db) { db.SaveSpecialDay(kTuesday + 1, 4, "half"); }},
    {"DeleteSpecialDay", [](de& db) { db.DeleteSpecialDay(kTuesday + 1); }},
    {"the clones",
     [](de& db) {
       db.Connection().Together([&] {
         db.CloneEstimate(1, 2);
         db.CloneParts(2, 1);
         db.CloneLabors(2, 1);
         db.CloneNotes(2, 1);
         db.CloneSublets(2, 1);
         db.CloneWaste(2, 1);
       });
     }},
    {"a line with its number",
     [](de& db) {
       db.Connection().Together([&] {
         const auto count = static_cast<std::int32_t>(db.LaborForEstimate(1).Count());
         db.AddLabor(1, count + 1, "Next", 1, 2, 3, 4);
       });
     }},
    {"the hours of the technicians", [](de& db) { KeptTechHours(db); }, Failure::Passed},
};

// A shop on a server whose line breaks.
class LostConnections : public DatabaseTest {
 protected:
  LostConnections() : schema(server.MakeSchema()), proxy(PathOf("proxy").string(), server.Directory()) {
    Put("Lantos.mdb", fmt::format("Lantos database server\nserver = postgresql://shop@/test?host={}\nschema = {}\n",
                                  proxy.Directory(), schema));
    Connect(database, environment);
    MakeLantosTables(db.Connection());
  }

  void StartAnew() {
    plain.Run(
        "drop view if exists LaborDaysNow; drop table if exists LaborDays cascade; "
        "do $$ declare f record; begin for f in select oid::regprocedure as n from pg_proc where pronamespace = "
        "current_schema()::regnamespace loop execute 'drop function ' || f.n || ' cascade'; end loop; end $$; "
        "delete from Estimates; delete from Labors; delete from Parts; delete from Notes; delete from Sublets; delete "
        "from Waste; delete from SpecialDays; delete from StandardHours; delete from Checklist; alter table Checklist "
        "alter column RecId restart; "
        "insert into StandardHours (RecNum) values (1); "
        "insert into Estimates (EstimateNumber, CustomerNumber, SchedDate) values (1, 7, '2003-09-30'), (2, 7, "
        "null); "
        "insert into Labors values (1, 1, 'a', 2, 3, 4, 5); insert into Parts (EstimateNumber, PartNumber) values "
        "(1, "
        "'PAD-9'); insert into Notes (EstimateNumber, NoteNumber) values (1, 1); insert into Sublets "
        "(EstimateNumber, "
        "SubletNumber, VendorName) values (1, 2, 'SURCHARGE'); insert into Waste (EstimateNumber, WasteNumber, "
        "VendorName) values (1, 2, 'SURCHARGE'); insert into Checklist (EstimateNumber, ChecklistData) values (1, "
        "'a'); insert into SpecialDays (SpecialDate) values ('2003-10-01')");
  }

  // Every row of every table, once nobody else is at work.
  std::vector<std::string> State() {
    const auto tables = plain.Rows(
        "select relname from pg_class where relkind in ('r', 'v') and relnamespace = current_schema()::regnamespace "
        "order by 1");
    std::vector<std::string> all;
    for (const std::string& table : tables) {
      all.push_back(table);
      for (const std::string& row :
           plain.Rows("select (to_jsonb(t) - 'lantos_row')::text from " + table + " t order by 1")) {
        all.push_back(row);
      }
    }
    return all;
  }
  // The server may go on for a moment with what had come to it.
  void WaitForTheEndOfTheOldConnection() {
    for (int looks = 0; looks < 1000; ++looks) {
      if (plain.Rows("select 1 from pg_stat_activity where application_name = 'lantos'").empty()) return;
      std::this_thread::sleep_for(std::chrono::milliseconds(2));
    }
  }

  TestServer& server = TestServer::Instance();
  std::string schema;
  PlainConnection plain{server.Address(), schema};
  CuttingProxy proxy;
};

TEST_F(LostConnections, AtRandomInEveryChangeLeaveAllOfItOrNothingAndItIsSaidWhich) {
  std::mt19937 random(20030930);
  int lost = 0;
  for (const Change& change : kChanges) {
    StartAnew();
    const std::vector<std::string> before = State();
    db.Run("SelectQuery");  // the connection stands
    proxy.TakePassed();
    change.make(db);
    const std::int64_t length = proxy.TakePassed();
    const std::vector<std::string> after = State();
    ASSERT_NE(after, before) << change.name;
    for (int cut = 0; cut < kCutsEach; ++cut) {
      StartAnew();
      db.Disconnect();
      db.Run("SelectQuery");
      std::string words;
      const auto place = std::uniform_int_distribution<std::int64_t>(1, length)(random);
      proxy.CutBehind(place);
      try {
        change.make(db);
      } catch (const DatabaseError& error) {
        words = error.Words();
        ++lost;
      }
      proxy.CutNoMore();
      if (!words.empty()) WaitForTheEndOfTheOldConnection();
      const std::vector<std::string> found = State();
      const std::string where = fmt::format("{}, cut behind {} of {} bytes: {}", change.name, place, length, words);
      if (words.empty() && change.failure == Failure::Told) {
        EXPECT_EQ(found, after) << where;
      } else if (words.empty() || words.find("isn't known") != std::string::npos) {
        EXPECT_TRUE(found == before || found == after) << where;
      } else {
        EXPECT_THAT(words, HasSubstr("othing")) << where;
        EXPECT_EQ(found, before) << where;
      }
      EXPECT_NO_THROW(db.Run("SelectQuery")) << where << ": the next command connects again";
    }
  }
  EXPECT_GT(lost, static_cast<int>(std::size(kChanges))) << "the line did break";
}

}  // namespace
}  // namespace lantos::test
