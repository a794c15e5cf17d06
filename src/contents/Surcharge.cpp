#include "contents/Surcharge.h"

#include <fmt/format.h>

#include <limits>

#include "contents/AmountFields.h"
#include "contents/EstimateTotals.h"
#include "frame/Numbers.h"
#include "frame/Text.h"
#include "records/modSystem.h"

namespace lantos {

// The twins, each with the literals of its own.
struct SurchargeTable {
  std::string_view table;
  std::string_view number;  // the column of the line's number
  LongField taxRate;
  std::string_view blankDescriptions;  // behind the first
};

namespace {

constexpr SurchargeTable kSublets = {"Sublets", "SubletNumber", sysrec::tax_rate_sublet, "','','','','"};
constexpr SurchargeTable kWaste = {"Waste", "WasteNumber", sysrec::tax_rate_waste, "', '','','','"};
constexpr std::int64_t kWholeRate = 1000000;
constexpr std::int64_t kFlatUnit = 100;  // a flat amount is in hundredths of a cent

}  // namespace

Cents SurchargeOn(std::int64_t sum, Millionths rate) {
  if (rate == 0 || sum <= 0) return 0;
  if (rate < 0) return LongOrOverflow(DivideHalfEven(-static_cast<std::int64_t>(rate), kFlatUnit));
  constexpr std::int64_t kMost = std::numeric_limits<std::int64_t>::max();
  return LongOrOverflow(sum > kMost / rate ? kMost : DivideHalfEven(sum * rate, kWholeRate));
}

Cents Surcharge::Amount() const {
  const SystemRecord& system = bench_.System();
  return Sum(SurchargeOn(LaborSum(lines_.labor.Lines()), system.Get(sysrec::labor_surcharge_percent)),
             SurchargeOn(PartsSum(lines_.parts), system.Get(sysrec::parts_surcharge_percent)));
}

void Surcharge::ApplySurcharge() {
  const SystemRecord& system = bench_.System();
  if (system.Get(sysrec::labor_surcharge_percent) == 0 && system.Get(sysrec::parts_surcharge_percent) == 0) return;
  if (system.View(sysrec::surcharge_description).empty()) return;
  SetSurchargeLine(system.Get(sysrec::surcharge_is_sublet) == 'Y' ? kSublets : kWaste, Amount());
}

void Surcharge::SetSurchargeLine(const SurchargeTable& table, Cents amount) {
  Engine& database = bench_.Data().Connection();
  const std::int32_t estimate = bench_.Number();
  const Recordset found = database.Run(
      fmt::format("select * from {} where EstimateNumber = {} and VendorName = 'SURCHARGE'", table.table, estimate),
      {});
  if (!found.Eof()) {
    database.Run(fmt::format("update {} set Cost = {}, Price = {} where EstimateNumber = {} and {} = {}", table.table,
                             amount, amount, estimate, table.number, found.Long(table.number)),
                 {});
    return;
  }
  const SystemRecord& system = bench_.System();
  // Number 1, whether it is free or not: where it isn't, the table's key refuses the line.
  database.Run(fmt::format("insert into {} (EstimateNumber, {}, VendorName, VendorInvoice, Cost, Price, Desc1, Desc2, "
                           "Desc3, Desc4, Taxable) values ({},1,'SURCHARGE','',{},{},'{}{}{}')",
                           table.table, table.number, estimate, amount, amount,
                           QuoteForSql(system.Get(sysrec::surcharge_description)), table.blankDescriptions,
                           DefaultTaxable(system.Get(table.taxRate))),
               {});
}

}  // namespace lantos
