#include "board/BoardBench.h"
#include "records/modSystem.h"

// Estimates with their money worked out by hand, from the lines to the total.
namespace lantos {
namespace {

using test::BoardBench;
using test::Texts;
using ui::Answer;

struct PartSold {
  std::int32_t quantity;
  Cents price;
};
struct Extra {
  Cents price;
  const char* taxable;
};
// Parts are taxed with 8.25 %, labor with 6 %, sublets with 5 %, waste with 4 %. Surcharges are as the system record
// has them: millionths, or, negative, hundredths of a cent.
struct WorkedEstimate {
  const char* name;
  std::vector<Cents> labor;
  std::vector<PartSold> parts;
  std::vector<Extra> sublets, waste;
  bool exempt;
  Millionths laborSurcharge, partsSurcharge;
  char surchargeIsSublet;
  Texts totals;  // labor, parts, sublets, waste, tax, total
};

// clang-format off
const WorkedEstimate kEstimates[] = {
    // tax 0, total 0.
    {"nothing at all", {}, {}, {}, {}, false, 0, 0, 'Y',
     {"0.00", "0.00", "0.00", "0.00", "0.00", "0.00"}},
    // 6 % of labor 97.5 = 5.85; tax 5.85, total 103.35.
    {"one labor line", {9750}, {}, {}, {}, false, 0, 0, 'Y',
     {"97.50", "0.00", "0.00", "0.00", "5.85", "103.35"}},
    // 6 % of labor 113.75 = 6.825; tax 6.825, total 120.575.
    {"two labor lines", {9750, 1625}, {}, {}, {}, false, 0, 0, 'Y',
     {"113.75", "0.00", "0.00", "0.00", "6.83", "120.58"}},
    // 6 % of labor 0.25 = 0.015; tax 0.015, total 0.265.
    {"labor with a half cent of tax", {25}, {}, {}, {}, false, 0, 0, 'Y',
     {"0.25", "0.00", "0.00", "0.00", "0.02", "0.27"}},
    // 6 % of labor 0.75 = 0.045; tax 0.045, total 0.795.
    {"labor with another half cent of tax", {75}, {}, {}, {}, false, 0, 0, 'Y',
     {"0.75", "0.00", "0.00", "0.00", "0.05", "0.80"}},
    // 6 % of labor 97.5 = 5.85; tax 5.85, total 103.35.
    {"a negative labor line takes no money off", {9750, -3250}, {}, {}, {}, false, 0, 0, 'Y',
     {"97.50", "0.00", "0.00", "0.00", "5.85", "103.35"}},
    // tax 0, total 0.
    {"negative labor alone", {-3250}, {}, {}, {}, false, 0, 0, 'Y',
     {"0.00", "0.00", "0.00", "0.00", "0.00", "0.00"}},
    // 8.25 % of parts 24.99 = 2.061675; tax 2.061675, total 27.051675.
    {"one part", {}, {{1, 2499}}, {}, {}, false, 0, 0, 'Y',
     {"0.00", "24.99", "0.00", "0.00", "2.06", "27.05"}},
    // 8.25 % of parts 99.96 = 8.2467; tax 8.2467, total 108.2067.
    {"four of a part", {}, {{4, 2499}}, {}, {}, false, 0, 0, 'Y',
     {"0.00", "99.96", "0.00", "0.00", "8.25", "108.21"}},
    // 8.25 % of parts 74.97 = 6.185025; tax 6.185025, total 81.155025.
    {"a returned part", {}, {{4, 2499}, {-1, 2499}}, {}, {}, false, 0, 0, 'Y',
     {"0.00", "74.97", "0.00", "0.00", "6.19", "81.16"}},
    // 8.25 % of parts -10 = -0.825; tax -0.825, total -10.825.
    {"parts given back alone", {}, {{-2, 500}}, {}, {}, false, 0, 0, 'Y',
     {"0.00", "-10.00", "0.00", "0.00", "-0.83", "-10.83"}},
    // 8.25 % of parts 2 = 0.165; tax 0.165, total 2.165.
    {"parts with a half cent of tax", {}, {{1, 200}}, {}, {}, false, 0, 0, 'Y',
     {"0.00", "2.00", "0.00", "0.00", "0.17", "2.17"}},
    // 6 % of labor 113.75 = 6.825; 8.25 % of parts 99.96 = 8.2467; tax 15.0717, total 228.7817.
    {"labor and parts", {9750, 1625}, {{4, 2499}}, {}, {}, false, 0, 0, 'Y',
     {"113.75", "99.96", "0.00", "0.00", "15.07", "228.78"}},
    // 5 % of taxed sublets 120 = 6; tax 6, total 126.
    {"a taxed sublet", {}, {}, {{12000, "Yes"}}, {}, false, 0, 0, 'Y',
     {"0.00", "0.00", "120.00", "0.00", "6.00", "126.00"}},
    // tax 0, total 30.
    {"an untaxed sublet", {}, {}, {{3000, "No"}}, {}, false, 0, 0, 'Y',
     {"0.00", "0.00", "30.00", "0.00", "0.00", "30.00"}},
    // 5 % of taxed sublets 120 = 6; tax 6, total 156.
    {"both kinds of sublet", {}, {}, {{12000, "Yes"}, {3000, "No"}}, {}, false, 0, 0, 'Y',
     {"0.00", "0.00", "150.00", "0.00", "6.00", "156.00"}},
    // 5 % of taxed sublets 0.3 = 0.015; tax 0.015, total 0.315.
    {"a sublet with a half cent of tax", {}, {}, {{30, "Yes"}}, {}, false, 0, 0, 'Y',
     {"0.00", "0.00", "0.30", "0.00", "0.02", "0.32"}},
    // 4 % of taxed waste 3.5 = 0.14; tax 0.14, total 3.64.
    {"a taxed waste line", {}, {}, {}, {{350, "Yes"}}, false, 0, 0, 'Y',
     {"0.00", "0.00", "0.00", "3.50", "0.14", "3.64"}},
    // tax 0, total 3.5.
    {"an untaxed waste line", {}, {}, {}, {{350, "No"}}, false, 0, 0, 'Y',
     {"0.00", "0.00", "0.00", "3.50", "0.00", "3.50"}},
    // 5 % of taxed sublets 100 = 5; tax 5, total 105.
    {"a credit among the sublets", {}, {}, {{12000, "Yes"}, {-2000, "Yes"}}, {}, false, 0, 0, 'Y',
     {"0.00", "0.00", "100.00", "0.00", "5.00", "105.00"}},
    // 6 % of labor 113.75 = 6.825; 8.25 % of parts 99.96 = 8.2467; 5 % of taxed sublets 120 = 6; 4 % of taxed waste
    // 3.5 = 0.14; tax 21.2117, total 388.4217.
    {"everything", {9750, 1625, -3250}, {{4, 2499}}, {{12000, "Yes"}, {3000, "No"}}, {{350, "Yes"}}, false, 0, 0, 'Y',
     {"113.75", "99.96", "150.00", "3.50", "21.21", "388.42"}},
    // 5 % of taxed sublets 120 = 6; 4 % of taxed waste 3.5 = 0.14; tax 6.14, total 373.35.
    {"everything for an exempt customer", {9750, 1625, -3250}, {{4, 2499}}, {{12000, "Yes"}, {3000, "No"}}, {{350, "Yes"}}, true, 0, 0, 'Y',
     {"113.75", "99.96", "150.00", "3.50", "6.14", "373.35"}},
    // tax 0, total 122.49.
    {"exempt labor and parts", {9750}, {{1, 2499}}, {}, {}, true, 0, 0, 'Y',
     {"97.50", "24.99", "0.00", "0.00", "0.00", "122.49"}},
    // surcharge on labor: 5 % of 97.5 = 4.875, so 4.88; 6 % of labor 97.5 = 5.85; 5 % of taxed sublets 4.88 = 0.244;
    // tax 6.094, total 108.474.
    {"a percent surcharge on labor", {9750}, {}, {}, {}, false, 50000, 0, 'Y',
     {"97.50", "0.00", "4.88", "0.00", "6.09", "108.47"}},
    // surcharge on labor: 5 % of 9.7 = 0.485, so 0.48; 6 % of labor 9.7 = 0.582; 5 % of taxed sublets 0.48 = 0.024;
    // tax 0.606, total 10.786.
    {"a percent surcharge whose half cent goes to the even 48", {970}, {}, {}, {}, false, 50000, 0, 'Y',
     {"9.70", "0.00", "0.48", "0.00", "0.61", "10.79"}},
    // surcharge on labor: 5 % of 9.9 = 0.495, so 0.5; 6 % of labor 9.9 = 0.594; 5 % of taxed sublets 0.5 = 0.025;
    // tax 0.619, total 11.019.
    {"a percent surcharge whose half cent goes up to the even 50", {990}, {}, {}, {}, false, 50000, 0, 'Y',
     {"9.90", "0.00", "0.50", "0.00", "0.62", "11.02"}},
    // surcharge on parts: 2.5 % of 9.99 = 0.24975, so 0.25; 8.25 % of parts 9.99 = 0.824175; 5 % of taxed sublets
    // 0.25 = 0.0125; tax 0.836675, total 11.076675.
    {"a percent surcharge on parts", {}, {{3, 333}}, {}, {}, false, 0, 25000, 'Y',
     {"0.00", "9.99", "0.25", "0.00", "0.84", "11.08"}},
    // surcharge on labor: 5 % of 97.5 = 4.875, so 4.88; surcharge on parts: 2.5 % of 9.99 = 0.24975, so 0.25; 6 % of
    // labor 97.5 = 5.85; 8.25 % of parts 9.99 = 0.824175; 5 % of taxed sublets 5.13 = 0.2565; tax 6.930675, total
    // 119.550675.
    {"both percent surcharges, each rounded by itself", {9750}, {{3, 333}}, {}, {}, false, 50000, 25000, 'Y',
     {"97.50", "9.99", "5.13", "0.00", "6.93", "119.55"}},
    // surcharge on labor: flat 5; 6 % of labor 1 = 0.06; 5 % of taxed sublets 5 = 0.25; tax 0.31, total 6.31.
    {"a flat surcharge on labor", {100}, {}, {}, {}, false, -50000, 0, 'Y',
     {"1.00", "0.00", "5.00", "0.00", "0.31", "6.31"}},
    // 8.25 % of parts 10 = 0.825; tax 0.825, total 10.825.
    {"a flat surcharge without labor", {}, {{1, 1000}}, {}, {}, false, -50000, 0, 'Y',
     {"0.00", "10.00", "0.00", "0.00", "0.83", "10.83"}},
    // surcharge on parts: flat 1.25; 8.25 % of parts 10 = 0.825; 4 % of taxed waste 1.25 = 0.05; tax 0.875, total
    // 12.125.
    {"a flat surcharge on parts, as waste", {}, {{1, 1000}}, {}, {}, false, 0, -12500, 'N',
     {"0.00", "10.00", "0.00", "1.25", "0.88", "12.13"}},
    // surcharge on labor: 3 % of 200 = 6, so 6; surcharge on parts: 2 % of 100 = 2, so 2; 6 % of labor 200 = 12;
    // 8.25 % of parts 100 = 8.25; 4 % of taxed waste 8 = 0.32; tax 20.57, total 328.57.
    {"a surcharge as waste", {20000}, {{2, 5000}}, {}, {}, false, 30000, 20000, 'N',
     {"200.00", "100.00", "0.00", "8.00", "20.57", "328.57"}},
    // surcharge on labor: 10 % of 100 = 10, so 10; 6 % of labor 100 = 6; 5 % of taxed sublets 10 = 0.5; tax 6.5,
    // total 116.5.
    {"a surcharge leaves negative labor out", {10000, -4000}, {}, {}, {}, false, 100000, 0, 'Y',
     {"100.00", "0.00", "10.00", "0.00", "6.50", "116.50"}},
    // surcharge on parts: 10 % of 75 = 7.5, so 7.5; 8.25 % of parts 75 = 6.1875; 5 % of taxed sublets 7.5 = 0.375;
    // tax 6.5625, total 89.0625.
    {"a surcharge on parts of which some came back", {}, {{4, 2500}, {-1, 2500}}, {}, {}, false, 0, 100000, 'Y',
     {"0.00", "75.00", "7.50", "0.00", "6.56", "89.06"}},
    // 8.25 % of parts -10 = -0.825; tax -0.825, total -10.825.
    {"no surcharge on parts that only came back", {}, {{-2, 500}}, {}, {}, false, 0, 100000, 'Y',
     {"0.00", "-10.00", "0.00", "0.00", "-0.83", "-10.83"}},
    // surcharge on labor: 10 % of 100 = 10, so 10; 5 % of taxed sublets 10 = 0.5; tax 0.5, total 160.5.
    {"a surcharge for an exempt customer is taxed", {10000}, {{1, 5000}}, {}, {}, true, 100000, 0, 'Y',
     {"100.00", "50.00", "10.00", "0.00", "0.50", "160.50"}},
    // surcharge on labor: 7.5 % of 123.45 = 9.25875, so 9.26; surcharge on parts: 1.5 % of 13.93 = 0.20895, so 0.21;
    // 6 % of labor 123.45 = 7.407; 8.25 % of parts 13.93 = 1.149225; 4 % of taxed waste 10.36 = 0.4144; tax
    // 8.970625, total 202.380625.
    {"a surcharge beside other sublets and waste", {12345}, {{7, 199}}, {{4567, "No"}}, {{89, "Yes"}}, false, 75000, 15000, 'N',
     {"123.45", "13.93", "45.67", "10.36", "8.97", "202.38"}},
};
// clang-format on

class WorkedTotals : public testing::TestWithParam<WorkedEstimate> {};

// The lines as they lie in the database, and one labor line more that is removed: that is when the surcharge is worked
// out.
TEST_P(WorkedTotals, AreAsWorkedOutByHand) {
  const WorkedEstimate& worked = GetParam();
  BoardBench bench;
  const std::int32_t number = 900;
  bench.AddEstimate(number, bench.Today(), kArrived, worked.exempt ? 8 : 7);
  std::int32_t line = 0;
  for (const Cents total : worked.labor) bench.AddLabor(number, ++line, 100, total);
  bench.AddLabor(number, ++line, 0, 0, "TO BE REMOVED");
  de& database = bench.database.lantosData;
  for (const PartSold& part : worked.parts) {
    database.AddPartRow(
        number, {"P-" + std::to_string(++line), "PART", part.quantity, part.price, part.quantity * part.price, 0, 0});
  }
  // Number 1 is the surcharge's.
  std::int32_t extra = 1;
  for (const Extra& each : worked.sublets) {
    database.AddSublet(number, ++extra, {"VENDOR", "", 0, each.price, "", "", "", "", each.taxable});
  }
  for (const Extra& each : worked.waste) {
    database.AddWaste(number, ++extra, {"VENDOR", "", 0, each.price, "", "", "", "", each.taxable});
  }
  frmMain& board = bench.Start();
  SystemRecord& system = bench.records.system.SysRec;
  system.Put(sysrec::labor_surcharge_percent, worked.laborSurcharge);
  system.Put(sysrec::parts_surcharge_percent, worked.partsSurcharge);
  system.Put(sysrec::surcharge_description, "SHOP SUPPLIES");
  system.Put(sysrec::surcharge_is_sublet, static_cast<std::uint8_t>(worked.surchargeIsSublet));
  bench.Choose(board.week.List1[BoardBench::kTuesday], 0);
  test::Click(board.commands.cmdDetailView);
  bench.Choose(board.detail.listLabor, board.detail.listLabor.ListCount() - 1);
  bench.desktop.WillAnswer(Answer::Yes);
  test::Click(board.detail.cmdLaborRemove);
  const Texts totals = bench.Totals();
  EXPECT_EQ(Texts(totals.begin() + 1, totals.end()), worked.totals) << worked.name;
}

INSTANTIATE_TEST_SUITE_P(Estimates, WorkedTotals, testing::ValuesIn(kEstimates));

}  // namespace
}  // namespace lantos
