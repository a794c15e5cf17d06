#include "estimatedb/VehicleSnapshots.h"

#include <fmt/core.h>

#include <array>
#include <iterator>
#include <unordered_map>

#include "frame/Dates.h"
#include "frame/Numbers.h"
#include "frame/Text.h"
#include "records/Customers.h"
#include "records/OpenedFile.h"
#include "records/VehicleMatch.h"

namespace lantos {

namespace {

constexpr std::size_t kColumnCount = std::size(kSnapshotColumns);
constexpr std::size_t kEngine = 7;
constexpr std::size_t kTransmission = 8;
using Snapshot = std::array<std::string, kColumnCount>;

// Rows are written some at a time: each commit waits for the disk, and other workstations want their turn.
constexpr std::size_t kRowsTogether = 100;

class SnapshotWriter {
 public:
  explicit SnapshotWriter(Engine& engine) : engine_(engine) {
    for (const SnapshotColumn& column : kSnapshotColumns) names_.emplace_back(column.name);
  }

  void Add(std::int32_t estimate, const Snapshot& snapshot) {
    std::vector<Value> values;
    for (std::size_t i = 0; i < kColumnCount; ++i) {
      const std::string text = Left(Trim(snapshot[i]), kSnapshotColumns[i].width);
      values.emplace_back(text.empty() ? std::string(" ") : text);
    }
    rows_.emplace_back(estimate, std::move(values));
    if (rows_.size() >= kRowsTogether) Write();
  }

  void Write() {
    const auto rows = std::move(rows_);
    rows_.clear();
    if (rows.empty()) return;
    engine_.Together([&] {
      for (const auto& [estimate, values] : rows) {
        engine_.UpdateFirst("Estimates", names_, values, {"EstimateNumber", std::int64_t{estimate}});
      }
    });
  }

 private:
  Engine& engine_;
  std::vector<std::string> names_;
  std::vector<std::pair<std::int32_t, std::vector<Value>>> rows_;
};

// Runs fill on every estimate, with what it puts into the snapshot written to the row.
template <class Fill>
void FillEach(EstimateDatabase& database, Fill fill) {
  Recordset& rows = database.lantosData.Run("AllEstimates");
  SnapshotWriter writer(database.lantosData.Connection());
  try {
    for (; !rows.Eof(); rows.MoveNext()) {
      Snapshot snapshot;
      fill(rows, snapshot);
      writer.Add(rows.Long("EstimateNumber"), snapshot);
    }
  } catch (...) {
    writer.Write();
    rows.Close();
    throw;
  }
  writer.Write();
  rows.Close();
}

[[noreturn]] void GiveUp(std::string_view what) {
  throw DatabaseError(fmt::format("{} The vehicles of the estimates could not all be filled in.", what));
}

FileHandle OpenVehicles(Records& records) {
  const FileHandle handle = records.vehicles.OpenVehicleForRead();
  if (handle == kNoHandle) GiveUp("The vehicle file could not be opened.");
  return handle;
}

void TakeLinkedVehicle(Vehicles& vehicles, FileLink link, FileHandle handle, Snapshot& snapshot) {
  const std::optional<VehicleRecord> record = vehicles.Read(link, handle);
  if (!record) GiveUp(fmt::format("The vehicle at {} could not be read.", link));
  const de::VehicleSnapshot taken = SnapshotOf(*record);
  snapshot = {taken.VehYear, taken.VehMake,    taken.VehModel, taken.VehVIN,  taken.VehLic,
              taken.VehDate, taken.VehMileage, taken.VehEng,   taken.VehTrans};
}

// Matches vehicles against the chain of their customer, whose first link is looked up once.
class VehicleMatcher {
 public:
  VehicleMatcher(Records& records, FileHandle handle) : records_(records), handle_(handle) {}

  std::optional<MatchedVehicle> Match(const VehicleRecord& wanted) {
    return MatchVehicle(records_.vehicles, wanted, FirstLink(wanted.Get(vehicle::Number)), handle_);
  }

 private:
  FileLink FirstLink(std::int32_t customer) {
    const auto known = firstLinks_.find(customer);
    if (known != firstLinks_.end()) return known->second;
    Customers& customers = records_.customers;
    if (firstLinks_.empty()) customers.LoadCustomerTags();
    const std::size_t index = customers.IndexOf(customer);
    const bool isThere = customer != 0 && index < customers.Count();
    const auto master = isThere ? customers.Master(customers.Tag(index)) : std::nullopt;
    return firstLinks_[customer] = master ? master->Get(customer::VLink) : kNoLink;
  }

  Records& records_;
  FileHandle handle_;
  std::unordered_map<std::int32_t, FileLink> firstLinks_;  // by customer; each is looked up once
};

}  // namespace

de::VehicleSnapshot SnapshotOf(const VehicleRecord& record) {
  const FileDate seen = record.Get(vehicle::Date);
  return {record.Get(vehicle::Year),
          record.Get(vehicle::Make),
          record.Get(vehicle::Model),
          record.Get(vehicle::VIN),
          record.Get(vehicle::LicenseNumber),
          seen >= 1 ? FormatDate(FromFileDate(seen)) : " ",
          fmt::format("{}", record.Get(vehicle::Mileage)),
          record.Get(vehicle::EngineSize),
          record.Get(vehicle::Transmission)};
}

VehicleRecord VehicleOf(const de::VehicleSnapshot& snapshot, std::int32_t customer) {
  VehicleRecord record;
  record.Put(vehicle::Number, customer);
  record.Put(vehicle::Deleted, kVehicleLive);
  record.Put(vehicle::VLink, kNoLink);
  record.Put(vehicle::Year, Trim(snapshot.VehYear));
  record.Put(vehicle::Make, Trim(snapshot.VehMake));
  record.Put(vehicle::Model, Trim(snapshot.VehModel));
  record.Put(vehicle::VIN, Trim(snapshot.VehVIN));
  record.Put(vehicle::LicenseNumber, Trim(snapshot.VehLic));
  record.Put(vehicle::EngineSize, Trim(snapshot.VehEng));
  record.Put(vehicle::Transmission, Trim(snapshot.VehTrans));
  record.Put(vehicle::Mileage, ToLongOrZero(Trim(snapshot.VehMileage)));
  if (const auto seen = ParseDate(Trim(snapshot.VehDate))) record.Put(vehicle::Date, ToFileDate(*seen));
  return record;
}

bool IsSnapshotOf(const de::VehicleSnapshot& snapshot, const VehicleRecord& record) {
  const de::VehicleSnapshot other = SnapshotOf(record);
  const auto same = [](const std::string& a, const std::string& b) { return TrimView(a) == TrimView(b); };
  return same(snapshot.VehYear, other.VehYear) && same(snapshot.VehMake, other.VehMake) &&
         same(snapshot.VehModel, other.VehModel) && same(snapshot.VehVIN, other.VehVIN) &&
         same(snapshot.VehLic, other.VehLic) && same(snapshot.VehDate, other.VehDate) &&
         ToLongOrZero(Trim(snapshot.VehMileage)) == record.Get(vehicle::Mileage) &&
         same(snapshot.VehEng, other.VehEng) && same(snapshot.VehTrans, other.VehTrans);
}

de::VehicleSnapshot SnapshotIn(const Estimate& estimate) {
  return {estimate.VehYear, estimate.VehMake,    estimate.VehModel, estimate.VehVIN,  estimate.VehLic,
          estimate.VehDate, estimate.VehMileage, estimate.VehEng,   estimate.VehTrans};
}

void PutSnapshot(Estimate& estimate, const de::VehicleSnapshot& snapshot) {
  estimate.VehYear = snapshot.VehYear;
  estimate.VehMake = snapshot.VehMake;
  estimate.VehModel = snapshot.VehModel;
  estimate.VehVIN = snapshot.VehVIN;
  estimate.VehLic = snapshot.VehLic;
  estimate.VehDate = snapshot.VehDate;
  estimate.VehMileage = snapshot.VehMileage;
  estimate.VehEng = snapshot.VehEng;
  estimate.VehTrans = snapshot.VehTrans;
}

void FillSnapshots(EstimateDatabase& database, Environment& environment, Records& records) {
  OpenedFile file(environment.openFiles);
  file.TakeOver(OpenVehicles(records));
  FillEach(database, [&](const Recordset& row, Snapshot& snapshot) {
    // A link that is null is none, as -1 is.
    if (row.IsNull("VehicleLink") || row.Long("VehicleLink") == kNoLink) return;
    TakeLinkedVehicle(records.vehicles, row.Long("VehicleLink"), file.Handle(), snapshot);
  });
}

void FillEngines(EstimateDatabase& database, Environment& environment, Records& records) {
  OpenedFile file(environment.openFiles);
  file.TakeOver(OpenVehicles(records));
  VehicleMatcher matcher(records, file.Handle());
  FillEach(database, [&](const Recordset& row, Snapshot& snapshot) {
    for (std::size_t i = 0; i < kEngine; ++i) snapshot[i] = Trim(row.Text(kSnapshotColumns[i].name));
    // Without the mileage: what was not on a row of that age isn't made up.
    const VehicleRecord wanted =
        VehicleOf({snapshot[0], snapshot[1], snapshot[2], snapshot[3], snapshot[4], snapshot[5], "", "", ""},
                  row.Long("CustomerNumber"));
    const std::optional<MatchedVehicle> match = matcher.Match(wanted);
    if (!match) return;
    snapshot[kEngine] = match->record.Get(vehicle::EngineSize);
    snapshot[kTransmission] = match->record.Get(vehicle::Transmission);
  });
}

}  // namespace lantos
