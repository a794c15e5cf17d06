#include <fmt/core.h>

#include "estimatedb/EstimateDatabase.h"
#include "estimatedb/Schema.h"
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
    CreateWhenMissing("Waste", kCreateWaste);
    CreateWhenMissing("Checklist", kCreateChecklist);
  }

 private:
  void UpgradeEstimates() {
    Recordset& shape = Probe("Estimates");
    const bool hasYear = shape.HasColumn("VehYear");
    const bool hasEngine = shape.HasColumn("VehEng");
    shape.Close();
    for (const SnapshotColumn& column : kSnapshotColumns) {
      const bool isLater = column.name == "VehEng" || column.name == "VehTrans";
      if (isLater ? hasEngine : hasYear) continue;
      Change(fmt::format("ALTER TABLE Estimates ADD COLUMN {} Text({})", column.name, column.width));
    }
    if (!hasYear) {
      FillSnapshots(database_, environment_, records_);
    } else if (!hasEngine) {
      FillEngines(database_, environment_, records_);
    }
  }

  void UpgradeParts() {
    Recordset& shape = Probe("Parts");
    const bool hasCost = shape.HasColumn("PartCost");
    shape.Close();
    if (hasCost) return;
    Change("ALTER TABLE Parts ADD COLUMN PartCost INTEGER");
    Change("ALTER TABLE Parts ADD COLUMN PartList INTEGER");
    Change("UPDATE Parts SET PartCost = 0, PartList = 0");
  }

  void UpgradeLabors() {
    Recordset& shape = Probe("Labors");
    const bool isShort = shape.HasColumn("Description") && shape.TypeOf("Description") == ColumnType::ShortText;
    shape.Close();
    if (isShort) Change("ALTER TABLE Labors ALTER COLUMN Description Memo");
  }

  // The probe's failure is taken for the table being missing; whatever else it was, the statement then fails too.
  void CreateWhenMissing(std::string_view table, std::string_view statement) {
    try {
      Probe(table).Close();
      return;
    } catch (const DatabaseError&) {
    }
    Change(statement);
  }

  Recordset& Probe(std::string_view table) {
    return database_.lantosData.RunText("SelectQuery", fmt::format("Select * from {} where EstimateNumber = 0", table));
  }

  void Change(std::string_view statement) { database_.lantosData.RunText("UpdateQuery", statement).Close(); }

  EstimateDatabase& database_;
  Environment& environment_;
  Records& records_;
};

}  // namespace

void UpgradeDatabase(EstimateDatabase& database, Environment& environment, Records& records) {
  Upgrade(database, environment, records).Run();
}

}  // namespace lantos
