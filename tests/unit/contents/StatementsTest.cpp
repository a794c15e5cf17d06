#include <gmock/gmock.h>

#include <set>

#include "board/DayCapacity.h"
#include "contents/ContentsBench.h"
#include "contents/labor/RepairCodes.h"
#include "contents/labor/frmRepairCode.h"
#include "contents/notes/EstimateChecklist.h"
#include "estimatedb/EngineChoice.h"
#include "estimatedb/WatchedEngine.h"
#include "records/Fixture.h"
#include "records/modSystem.h"

namespace lantos {
namespace {

using test::ContentsBench;
using testing::IsEmpty;

// What the work on an estimate asks of the databases, statement by statement.
struct StatementsBench : ContentsBench {
  StatementsBench() {
    SystemRecord& system = records.system.SysRec;
    system.Put(sysrec::labor_surcharge_percent, 50000);
    system.Put(sysrec::surcharge_description, "SHOP SUPPLIES");
    CreateKorvelDatabase(directory / "Korvel.mdb", clock);
    Watch(database.lantosData, kLantosCommands, "Lantos.mdb");
    Watch(database.korvelData, kKorvelCommands, "Korvel.mdb");
  }

  void Watch(DataEnvironment& data, std::span<const Command> commands, std::string_view name) {
    data.Disconnect();
    data.SetOpener([this, commands, path = directory / std::string(name)] {
      return std::make_unique<test::WatchedEngine>(OpenDatabase(path, clock), [this, commands](std::string_view text) {
        (test::IsInTable(commands, text) ? known : strangers).emplace(text);
      });
    });
  }

  std::set<std::string> known;
  std::set<std::string> strangers;
};

TEST(Statements, OfLinesAndTheirSurchargeStandInTheTable) {
  StatementsBench bench;
  for (const char isSublet : {'Y', 'N'}) {
    bench.records.system.SysRec.Put(sysrec::surcharge_is_sublet, isSublet);
    WoLaborLine line;
    line.Rate = 6500;
    bench.contents.labor.AddLaborLine(line);
    bench.contents.surcharge.ApplySurcharge();
  }
  bench.desktop.WillAnswer(ui::Answer::Yes);
  bench.contents.labor.Remove();
  PartLine part;
  part.partNumber = "ABC";
  bench.contents.parts.AddPartLine(part, PartLines::Choosing::ItsRow);
  bench.contents.parts.AddPartLine(part, PartLines::Choosing::ItsRow);
  bench.contents.parts.RemovePartLine(0);
  bench.contents.labor.LoadLaborList();
  bench.contents.parts.LoadPartList();
  LoadEstimateChecklist(bench.bench);
  EXPECT_THAT(bench.strangers, IsEmpty());
  EXPECT_GE(bench.known.size(), 13U);
}

TEST(Statements, OfEstimatesAndDaysStandInTheTable) {
  StatementsBench bench;
  bench.directory.Put("TQSYSTEM.DAT", test::Image(1038).Long(4, 2000));
  modEstimates& estimates = bench.database.estimates;
  const std::int32_t copy = estimates.CreateEstimate(bench.Today() + 1, kScheduled);
  estimates.CloneEstimateContents(1001, copy);
  estimates.LoadEstimate(copy);
  estimates.SaveStatus();
  DayCapacity capacity;
  capacity.LoadStandardHours(bench.database.lantosData);
  EXPECT_THAT(bench.strangers, IsEmpty());
  EXPECT_GE(bench.known.size(), 10U);
}

TEST(Statements, OfRepairCodesStandInTheTable) {
  StatementsBench bench;
  bench.desktop.WillUse([](ui::Form& form) {
    auto& code = dynamic_cast<frmRepairCode&>(form);
    test::Type(code.txtRepairCode, "O'RING");
    test::Type(code.txtRepairCodeDesc, "Driver's side");
    test::Press(form, "F10");
  });
  ui::Form screen(bench.desktop, "frmScreen", "Screen");
  ui::ComboBox codes(screen, "lovRepairCode");
  FillRepairCodes(bench.database.korvelData, codes);
  codes.SetListIndex(1);
  EditNewRepairCode(bench.shop, bench.database.korvelData, codes);
  EXPECT_EQ(codes.Text(), "O'RING Driver's side");
  EXPECT_THAT(bench.strangers, IsEmpty());
  EXPECT_EQ(bench.known.size(), 2U);
}

}  // namespace
}  // namespace lantos
