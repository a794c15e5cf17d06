#include <gmock/gmock.h>

#include "board/FindBench.h"
#include "board/WeekData.h"
#include "contents/ContentsBench.h"
#include "contents/labor/frmTechHours.h"
#include "estimatedb/UpgradeFixture.h"
#include "faults/Deed.h"
#include "faults/Person.h"
#include "trail/frmTrail.h"

// What the databases are asked for stands in the tables of commands, and nothing stands there that is never asked: the
// commands of a day's work are done with an eye on every statement.
namespace lantos::test {
namespace {

using testing::ContainerEq;
using testing::IsEmpty;

// Whatever was asked of either database, by the statements of the tables and by others.
class Met {
 public:
  void Look(EstimateDatabase& database, Environment& environment) {
    Watch(database.lantosData, kLantosCommands, kLantosDatabase, environment);
    database.lantosData.KeepTrail(environment.clock, {"FRONTDESK", "beth"});
    if (environment.hasKorvelDatabase) Watch(database.korvelData, kKorvelCommands, kKorvelDatabase, environment);
  }
  WatchedEngine::Tells Of(std::span<const Command> commands) {
    return [this, commands](std::string_view text) {
      (IsInTable(commands, text) || IsInTable(kTrailCommands, text) ? met : strangers).emplace(text);
    };
  }
  // "Command" or "Korvel: Command"
  std::set<std::string> Unmet() const {
    std::set<std::string> names;
    for (const auto commands : {kLantosCommands, kTrailCommands}) {
      for (const Command& command : commands) {
        if (!met.contains(std::string(command.statement))) names.emplace(command.name);
      }
    }
    for (const Command& command : kKorvelCommands) {
      if (!met.contains(std::string(command.statement))) names.insert("Korvel: " + std::string(command.name));
    }
    return names;
  }

  std::set<std::string> met;
  std::set<std::string> strangers;

 private:
  void Watch(DataEnvironment& data, std::span<const Command> commands, std::string_view file,
             Environment& environment) {
    data.Disconnect();
    data.SetOpener([this, commands, file, &environment] {
      return std::make_unique<WatchedEngine>(OpenDatabase(environment.files.PathOf(file), environment.clock),
                                             Of(commands));
    });
  }
};

void DoDeeds(Met& met) {
  for (const auto& deeds : {DeedsOnEstimates(), DeedsOnLines(), DeedsOnMasters(), DeedsOnStock()}) {
    for (const NamedDeed& deed : deeds) {
      const std::unique_ptr<Deed> run = deed.make();
      if (run->Database() == nullptr) continue;
      met.Look(*run->Database(), run->Shop().environment);
      Person(*run, Trouble::Person::Retries, [] {}).Do();
    }
  }
}

// The line that the program writes by itself, among the sublets or the waste, made and followed.
void Surcharge(Met& met) {
  for (const char isSublet : {'Y', 'N'}) {
    ContentsBench bench;
    SystemRecord& system = bench.records.system.SysRec;
    system.Put(sysrec::labor_surcharge_percent, 50000);
    system.Put(sysrec::surcharge_description, "SHOP SUPPLIES");
    system.Put(sysrec::surcharge_is_sublet, isSublet);
    met.Look(bench.database, bench.environment);
    for (int line = 0; line < 2; ++line) {
      WoLaborLine labor;
      labor.Total = 1000;
      bench.contents.labor.AddLaborLine(labor);
    }
  }
}

void LookUp(Met& met) {
  FindBench bench;
  met.Look(bench.database, bench.environment);
  bench.OpenFor(7);
  Click(bench.form->cmdUpdate);
  bench.form.reset();
}

// The number that comes next is an estimate's already.
void BookBehindTheCounter(Met& met) {
  FindBench bench;
  bench.AddEstimate(FindBench::kNextEstimate, bench.Today(), kScheduled);
  met.Look(bench.database, bench.environment);
  bench.desktop.otherwise = [](const ui::Box& box) { return ui::ButtonsOf(box).front(); };
  bench.database.estimates.CreateEstimate(bench.Today(), kScheduled);
}

// Once with the table that is kept for it, once where that can't be made.
void LookAtHours(Met& met) {
  for (const char* inTheWay : {"", "create view LaborDaysNow as select 1"}) {
    FindBench bench;
    bench.directory.Put("TQEMPLOY.DAT", EmployeeImage(4, "Dan Ortiz").Bytes());
    if (*inTheWay != '\0') bench.Do(inTheWay);
    met.Look(bench.database, bench.environment);
    frmTechHours hours(bench.shop, bench.database.lantosData, frmTechHours::Purpose::Look, bench.Today());
    hours.Show();
    hours.Hide();
  }
}

void LookAtTrail(Met& met) {
  FindBench bench;
  bench.AddEstimate(7, bench.Today(), kScheduled);
  met.Look(bench.database, bench.environment);
  de& data = bench.database.lantosData;
  frmTrail trail(bench.shop, data, 7, nullptr);
  trail.Show();
  trail.chkWholeShop.DoClick();
  trail.Hide();
  data.SetStatus(kArrived, 7);
  EXPECT_EQ(PruneTrail(data, bench.Today() + 1), 1);
}

// As a board does that others have made read its week again.
void ReadTheWeekAgain(Met& met) {
  FindBench bench;
  met.Look(bench.database, bench.environment);
  FetchWeek(bench.database.lantosData, bench.Today(), "EstimateNumber ASC", bench.Today(), WeekAsked::AtOnce);
}

struct Older : Upgrades {
  void TestBody() override {}
  void Start(Met& met) {
    PutOldest();
    Plain(
        "DROP TABLE Labors; CREATE TABLE Labors (EstimateNumber INTEGER, LaborNumber INTEGER, Description Text(255),"
        " LaborHours INTEGER, LaborRate INTEGER, LaborTotal INTEGER, Mechanic INTEGER);"
        "INSERT INTO Estimates (EstimateNumber) VALUES (1)");
    StatementsOf(database.lantosData, met.Of(kLantosCommands));
    Run();
  }
};

// Commands that the format of the tables has, and no road of the program comes to.
const std::map<std::string, std::string> kReasons = {
    {"NewEstimate", "an estimate is added as a row of EstimatesTable"},
    {"SetVehicle", "SetVehicleNew stores the vehicle as it is along with the link"},
    {"ChecklistTable", "a row is added by the table's name, and nothing of the table is read for it"},
    {"SelectQuery", "nothing counts the estimates"},
    {"UpdateQuery", "nothing sets the date of estimates that have none"},
    {"UndatedEstimates", "they are looked at for UpdateQuery"},
    {"Korvel: SelectQuery", "nothing counts the rows of EmpPRInfo"},
    {"Korvel: UpdateQuery", "nothing clears the first employee's withholding"},
    {"Korvel: FollowUps", "recommendations are read from their file"}};

TEST(Commands, AreAllMetByTheProgramAndNoOtherStatementIs) {
  Met met;
  DoDeeds(met);
  Surcharge(met);
  LookUp(met);
  LookAtHours(met);
  LookAtTrail(met);
  ReadTheWeekAgain(met);
  BookBehindTheCounter(met);
  Older().Start(met);
  EXPECT_THAT(met.strangers, IsEmpty());
  std::set<std::string> expected;
  for (const auto& [command, reason] : kReasons) expected.insert(command);
  EXPECT_THAT(met.Unmet(), ContainerEq(expected)) << "a command that nothing comes to needs its reason here";
}

}  // namespace
}  // namespace lantos::test
