#include <gmock/gmock.h>

#include "board/DayCapacity.h"
#include "contents/StatementsBench.h"
#include "contents/labor/RepairCodes.h"
#include "contents/labor/frmRepairCode.h"
#include "contents/notes/EstimateChecklist.h"
#include "records/Fixture.h"
#include "records/modSystem.h"

namespace lantos {
namespace {

using test::StatementsBench;
using testing::IsEmpty;

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
