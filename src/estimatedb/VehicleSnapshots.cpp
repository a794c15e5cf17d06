#include "estimatedb/VehicleSnapshots.h"

#include <fmt/core.h>

#include <array>
#include <iterator>
#include <unordered_map>

#include "frame/Dates.h"
#include "frame/Numbers.h"
#include "frame/Text.h"
#include "records/OpenedFile.h"

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
  Recordset& rows = database.lantosData.RunText("SelectQuery", "SELECT * FROM Estimates");
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
  vehicles.CurrentVehicleOffset = link;
  vehicles.ReadVehicle(link, handle);
  if (vehicles.CurrentVehicleOffset != link) GiveUp(fmt::format("The vehicle at {} could not be read.", link));
  const VehicleRecord& record = vehicles.CurrentVehicle;
  const FileDate seen = record.Get(vehicle::Date);
  snapshot = {record.Get(vehicle::Year),
              record.Get(vehicle::Make),
              record.Get(vehicle::Model),
              record.Get(vehicle::VIN),
              record.Get(vehicle::LicenseNumber),
              seen >= 1 ? FormatDate(FromFileDate(seen)) : "",
              fmt::format("{}", record.Get(vehicle::Mileage)),
              record.Get(vehicle::EngineSize),
              record.Get(vehicle::Transmission)};
}

// The work record as the row's snapshot tells it.
VehicleRecord AsVehicle(const Snapshot& snapshot, std::int32_t customer) {
  VehicleRecord record;
  record.Put(vehicle::Number, customer);
  record.Put(vehicle::VLink, kNoLink);
  constexpr TextField kFields[] = {vehicle::Year, vehicle::Make, vehicle::Model, vehicle::VIN, vehicle::LicenseNumber};
  for (std::size_t i = 0; i < std::size(kFields); ++i) record.Put(kFields[i], snapshot[i]);
  if (const auto seen = ParseDate(snapshot[5])) record.Put(vehicle::Date, ToFileDate(*seen));
  return record;
}

bool HasSame(const VehicleRecord& a, const VehicleRecord& b, std::initializer_list<TextField> fields) {
  bool hasText = false;
  for (const TextField field : fields) {
    if (a.View(field) != b.View(field)) return false;
    hasText = hasText || !a.View(field).empty();
  }
  return hasText;
}

// Looks for the work record among the vehicles of its customer: the same VIN counts most, then the same licence, then
// the same year, make and model; of each kind the first in the chain. What was found becomes the work record; with
// nothing found it stays.
class VehicleMatcher {
 public:
  VehicleMatcher(Records& records, FileHandle handle) : records_(records), handle_(handle) {}

  bool Match() {
    Vehicles& vehicles = records_.vehicles;
    const VehicleRecord wanted = vehicles.CurrentVehicle;
    std::array<std::optional<VehicleRecord>, 3> candidates;
    vehicles.Walk(FirstLink(wanted.Get(vehicle::Number)), handle_, [&](FileLink) {
      const VehicleRecord& met = vehicles.CurrentVehicle;
      const bool isSame[] = {HasSame(wanted, met, {vehicle::VIN}), HasSame(wanted, met, {vehicle::LicenseNumber}),
                             HasSame(wanted, met, {vehicle::Year, vehicle::Make, vehicle::Model})};
      for (std::size_t i = 0; i < candidates.size(); ++i) {
        if (isSame[i] && !candidates[i]) candidates[i] = met;
      }
      return true;
    });
    vehicles.CurrentVehicle = wanted;
    for (const auto& candidate : candidates) {
      if (!candidate) continue;
      vehicles.CurrentVehicle = *candidate;
      return true;
    }
    return false;
  }

 private:
  FileLink FirstLink(std::int32_t customer) {
    const auto known = firstLinks_.find(customer);
    if (known != firstLinks_.end()) return known->second;
    Customers& customers = records_.customers;
    if (firstLinks_.empty()) customers.LoadCustomerTags();
    const bool isThere =
        customer != 0 && customers.FindCustomerTag(customer) < customers.Count() && customers.ReadCustomer();
    return firstLinks_[customer] = isThere ? customers.CurrentCustomer.Get(customer::VLink) : kNoLink;
  }

  Records& records_;
  FileHandle handle_;
  std::unordered_map<std::int32_t, FileLink> firstLinks_;  // by customer; each is looked up once
};

}  // namespace

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
    records.vehicles.CurrentVehicle = AsVehicle(snapshot, row.Long("CustomerNumber"));
    if (!matcher.Match()) return;
    snapshot[kEngine] = records.vehicles.CurrentVehicle.Get(vehicle::EngineSize);
    snapshot[kTransmission] = records.vehicles.CurrentVehicle.Get(vehicle::Transmission);
  });
}

}  // namespace lantos
