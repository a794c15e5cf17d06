#include "caretaker/check/Kinds.h"
#include "caretaker/check/Words.h"
#include "estimatedb/EstimateDatabase.h"

namespace lantos {

void FindDatabase(ShopView& shop, const Tell& tell) {
  for (const EstimateRows::Damage& damage : shop.Estimates().damages) tell({damage.database, "", "", damage.words});
  for (const EstimateRows::Orphans& orphans : shop.Estimates().orphans) {
    tell({std::string(kLantosDatabase), orphans.table, "EstimateNumber",
          fmt::format("{} of an estimate, {:06}, that isn't there",
                      orphans.rows == 1 ? "1 row" : fmt::format("{} rows", orphans.rows), orphans.estimate)});
  }
}

}  // namespace lantos
