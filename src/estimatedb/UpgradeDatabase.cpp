#include <fmt/core.h>

#include <utility>

#include "estimatedb/EstimateDatabase.h"
#include "estimatedb/VehicleSnapshots.h"

namespace lantos {

namespace {

// What an older database lacks. It bears no level of its own: the shape of each table tells.
struct Lacks {
  SnapshotGap snapshots = SnapshotGap::None;
  bool partCosts = false;
  bool longDescriptions = false;
  bool waste = false;
  bool checklist = false;

  bool Anything() const {
    return snapshots != SnapshotGap::None || partCosts || longDescriptions || waste || checklist;
  }
};

// A current database is only looked at. An older one is looked at once more under the lock of the one transaction that
// mends it: of workstations that start on it together one does the work, and the others wait and find it done.
class Upgrade {
 public:
  Upgrade(EstimateDatabase& database, Environment& environment, Records& records)
      : data_(database.lantosData), filling_(database, environment, records) {}

  void Run() {
    const Lacks lacks = Look();
    if (!lacks.Anything()) return;
    filling_.Prepare(lacks.snapshots);
    data_.Connection().Together([this] { Mend(Look()); });
  }

 private:
  Lacks Look() {
    Lacks lacks;
    lacks.snapshots = LookAtEstimates();
    lacks.partCosts = !ShapeOf("ProbeParts").HasColumn("PartCost");
    const Recordset labors = ShapeOf("ProbeLabors");
    lacks.longDescriptions = labors.HasColumn("Description") && labors.TypeOf("Description") == ColumnType::ShortText;
    lacks.waste = IsMissing("ProbeWaste");
    lacks.checklist = IsMissing("ProbeChecklist");
    return lacks;
  }

  SnapshotGap LookAtEstimates() {
    const Recordset shape = ShapeOf("ProbeEstimates");
    if (!shape.HasColumn("VehYear")) return SnapshotGap::All;
    return shape.HasColumn("VehEng") ? SnapshotGap::None : SnapshotGap::Engines;
  }

  Recordset ShapeOf(std::string_view probe) { return std::exchange(data_.Run(probe), Recordset()); }

  // A probe that fails for another reason, as a lock that another copy holds, says nothing about the table.
  bool IsMissing(std::string_view probe) {
    try {
      data_.Run(probe).Close();
      return false;
    } catch (const DatabaseError& error) {
      if (error.Kind() != DatabaseErrorKind::NotThere) throw;
      return true;
    }
  }

  void Mend(const Lacks& lacks) {
    AddSnapshotColumns(lacks.snapshots);
    filling_.Fill(lacks.snapshots);
    if (lacks.partCosts) {
      data_.Run("AddColumnPartCost");
      data_.Run("AddColumnPartList");
      data_.Run("ClearPartCosts");
    }
    if (lacks.longDescriptions) data_.Run("WidenLaborDescription");
    if (lacks.waste) data_.Run("CreateWaste");
    if (lacks.checklist) data_.Run("CreateChecklist");
  }

  // A database may have the two later columns and lack the others.
  void AddSnapshotColumns(SnapshotGap gap) {
    if (gap == SnapshotGap::None) return;
    const Recordset shape = ShapeOf("ProbeEstimates");
    for (const SnapshotColumn& column : kSnapshotColumns) {
      const bool isLater = column.name == "VehEng" || column.name == "VehTrans";
      if (shape.HasColumn(isLater ? "VehEng" : "VehYear")) continue;
      data_.Run(fmt::format("AddColumn{}", column.name));
    }
  }

  de& data_;
  SnapshotFilling filling_;
};

}  // namespace

void UpgradeDatabase(EstimateDatabase& database, Environment& environment, Records& records) {
  Upgrade(database, environment, records).Run();
}

}  // namespace lantos
