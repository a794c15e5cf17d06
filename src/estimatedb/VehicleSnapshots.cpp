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

void Write(Engine& engine, std::int32_t estimate, const Snapshot& snapshot) {
  std::vector<std::string> names;
  std::vector<Value> values;
  for (std::size_t i = 0; i < kColumnCount; ++i) {
    const std::string text = Left(Trim(snapshot[i]), kSnapshotColumns[i].width);
    names.emplace_back(kSnapshotColumns[i].name);
    values.emplace_back(text.empty() ? std::string(" ") : text);
  }
  engine.UpdateFirst("Estimates", names, values, {"EstimateNumber", std::int64_t{estimate}});
}

[[noreturn]] void GiveUp(std::string_view what) {
  throw DatabaseError(fmt::format("{} The vehicles of the estimates could not all be filled in.", what));
}

void TakeLinkedVehicle(Vehicles& vehicles, FileLink link, FileHandle handle, Snapshot& snapshot) {
  const std::optional<VehicleRecord> record = vehicles.Read(link, handle);
  if (!record) GiveUp(fmt::format("The vehicle at {} could not be read.", link));
  const de::VehicleSnapshot taken = SnapshotOf(*record);
  snapshot = {taken.VehYear, taken.VehMake,    taken.VehModel, taken.VehVIN,  taken.VehLic,
              taken.VehDate, taken.VehMileage, taken.VehEng,   taken.VehTrans};
}

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

// Matches vehicles against the chain of their customer, whose first link is looked up once.
class SnapshotFilling::VehicleMatcher {
 public:
  VehicleMatcher(Records& records, FileHandle handle) : records_(records), handle_(handle) {}

  std::optional<MatchedVehicle> Match(const VehicleRecord& wanted) {
    return MatchVehicle(records_.vehicles, wanted, FirstLink(wanted.Get(vehicle::Number)), handle_);
  }

  FileLink FirstLink(std::int32_t customer) {
    const auto known = firstLinks_.find(customer);
    if (known != firstLinks_.end()) return known->second;
    Customers& customers = records_.customers;
    if (firstLinks_.empty() && !customers.LoadCustomerTags()) GiveUp("The customer tags could not be read.");
    const std::size_t index = customers.IndexOf(customer);
    const bool isThere = customer != 0 && index < customers.Count() && !customers.LeadsNowhere(customers.Tag(index));
    if (!isThere) return firstLinks_[customer] = kNoLink;
    const std::optional<CustomerRecord> master = customers.Master(customers.Tag(index));
    if (!master && customers.LeadsToAnothers(customers.Tag(index))) return firstLinks_[customer] = kNoLink;
    if (!master) GiveUp("The customer file could not be read.");
    return firstLinks_[customer] = master->Get(customer::VLink);
  }

 private:
  Records& records_;
  FileHandle handle_;
  std::unordered_map<std::int32_t, FileLink> firstLinks_;  // by customer; each is looked up once
};

SnapshotFilling::SnapshotFilling(EstimateDatabase& database, Environment& environment, Records& records)
    : database_(database), records_(records), file_(environment.openFiles) {}

SnapshotFilling::~SnapshotFilling() = default;

void SnapshotFilling::Prepare(SnapshotGap gap) {
  if (gap == SnapshotGap::None) return;
  const FileHandle handle = records_.vehicles.OpenVehicleForRead();
  if (handle == kNoHandle) GiveUp("The vehicle file could not be opened.");
  file_.TakeOver(handle);
  matcher_ = std::make_unique<VehicleMatcher>(records_, handle);
  if (gap != SnapshotGap::Engines) return;
  ForEachEstimate([this](const Recordset& row) { matcher_->FirstLink(row.Long("CustomerNumber")); });
}

void SnapshotFilling::Fill(SnapshotGap gap) {
  if (gap == SnapshotGap::None) return;
  if (!matcher_) Prepare(gap);
  gap == SnapshotGap::All ? FillAll() : FillEngines();
}

template <class Use>
void SnapshotFilling::ForEachEstimate(Use use) {
  Recordset& rows = database_.lantosData.Run("AllEstimates");
  try {
    for (; !rows.Eof(); rows.MoveNext()) use(rows);
  } catch (...) {
    rows.Close();
    throw;
  }
  rows.Close();
}

void SnapshotFilling::FillAll() {
  Engine& engine = database_.lantosData.Connection();
  ForEachEstimate([&](const Recordset& row) {
    Snapshot snapshot;
    // A link that is null is none, as -1 is.
    if (!row.IsNull("VehicleLink") && row.Long("VehicleLink") != kNoLink) {
      TakeLinkedVehicle(records_.vehicles, row.Long("VehicleLink"), file_.Handle(), snapshot);
    }
    Write(engine, row.Long("EstimateNumber"), snapshot);
  });
}

void SnapshotFilling::FillEngines() {
  Engine& engine = database_.lantosData.Connection();
  ForEachEstimate([&](const Recordset& row) {
    Snapshot snapshot;
    for (std::size_t i = 0; i < kEngine; ++i) snapshot[i] = Trim(row.Text(kSnapshotColumns[i].name));
    // Without the mileage: what was not on a row of that age isn't made up.
    const VehicleRecord wanted =
        VehicleOf({snapshot[0], snapshot[1], snapshot[2], snapshot[3], snapshot[4], snapshot[5], "", "", ""},
                  row.Long("CustomerNumber"));
    if (const std::optional<MatchedVehicle> match = matcher_->Match(wanted)) {
      snapshot[kEngine] = match->record.Get(vehicle::EngineSize);
      snapshot[kTransmission] = match->record.Get(vehicle::Transmission);
    }
    Write(engine, row.Long("EstimateNumber"), snapshot);
  });
}

}  // namespace lantos
