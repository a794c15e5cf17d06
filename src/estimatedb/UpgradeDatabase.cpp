#include <fmt/core.h>

#include "estimatedb/EstimateDatabase.h"
#include "estimatedb/VehicleSnapshots.h"

namespace lantos {

namespace {

// The database bears no level of its own: each step looks at the shape of a table, and mends it when it is an older
// one. Nobody is kept out meanwhile; the first workstation that is started on an older database does the work.
class Upgrade {
 public:
  Upgrade(EstimateDatabase& database, Environment& environment, Records& records)
      : database_(database), environment_(environment), records_(records) {}

  void Run() {
    UpgradeEstimates();
    UpgradeParts();
    UpgradeLabors();
    CreateWhenMissing("ProbeWaste", "CreateWaste");
    CreateWhenMissing("ProbeChecklist", "CreateChecklist");
  }

 private:
  void UpgradeEstimates() {
    Recordset& shape = data_.Run("ProbeEstimates");
    const bool hasYear = shape.HasColumn("VehYear");
    const bool hasEngine = shape.HasColumn("VehEng");
    shape.Close();
    for (const SnapshotColumn& column : kSnapshotColumns) {
      const bool isLater = column.name == "VehEng" || column.name == "VehTrans";
      if (isLater ? hasEngine : hasYear) continue;
      data_.Run(fmt::format("AddColumn{}", column.name));
    }
    if (!hasYear) {
      FillSnapshots(database_, environment_, records_);
    } else if (!hasEngine) {
      FillEngines(database_, environment_, records_);
    }
  }

  void UpgradeParts() {
    Recordset& shape = data_.Run("ProbeParts");
    const bool hasCost = shape.HasColumn("PartCost");
    shape.Close();
    if (hasCost) return;
    data_.Run("AddColumnPartCost");
    data_.Run("AddColumnPartList");
    data_.Run("ClearPartCosts");
  }

  void UpgradeLabors() {
    Recordset& shape = data_.Run("ProbeLabors");
    const bool isShort = shape.HasColumn("Description") && shape.TypeOf("Description") == ColumnType::ShortText;
    shape.Close();
    if (isShort) data_.Run("WidenLaborDescription");
  }

  // A probe that fails for another reason, as a lock that another copy holds, says nothing about the table.
  void CreateWhenMissing(std::string_view probe, std::string_view create) {
    try {
      data_.Run(probe).Close();
      return;
    } catch (const DatabaseError& error) {
      if (error.Kind() != DatabaseErrorKind::NotThere) throw;
    }
    data_.Run(create);
  }

  EstimateDatabase& database_;
  de& data_ = database_.lantosData;
  Environment& environment_;
  Records& records_;
};

}  // namespace

void UpgradeDatabase(EstimateDatabase& database, Environment& environment, Records& records) {
  Upgrade(database, environment, records).Run();
}

}  // namespace lantos
