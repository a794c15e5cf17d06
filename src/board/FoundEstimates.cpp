#include "board/FoundEstimates.h"

#include <map>
#include <utility>

#include "frame/Dates.h"
#include "frame/Numbers.h"
#include "frame/Text.h"
#include "records/LaborText.h"
#include "records/OpenedFile.h"

namespace lantos {

namespace {

constexpr std::size_t kColumnWidth = 12;

struct Found {
  Estimate estimate;
  std::vector<std::string> labor;  // mechanic and first line
};

std::string LaborOf(const Recordset& row) {
  const std::string description = row.IsNull("Description") ? "<No description>" : row.Text("Description");
  return FormatZeros(row.Long("Mechanic"), 6) + " " + SplitLaborText(description).front();
}

// All of it at one state of the database, before any file is asked for.
std::vector<Found> Fetch(de& data, std::int32_t customer, std::optional<FileLink> vehicle) {
  std::vector<Found> found;
  data.Connection().ReadTogether([&] {
    Recordset& rows = data.EstimatesByCustomer(customer);
    if (vehicle) {
      rows.Filter(
          [&](const Recordset& row) { return !row.IsNull("VehicleLink") && row.Long("VehicleLink") == *vehicle; });
    }
    for (; !rows.Eof(); rows.MoveNext()) {
      Found& each = found.emplace_back();
      modEstimates::ReadRow(rows, each.estimate);
      Recordset& labor = data.LaborForEstimate(each.estimate.EstimateNumber);
      for (; !labor.Eof(); labor.MoveNext()) each.labor.push_back(LaborOf(labor));
      labor.Close();
    }
    rows.Close();
  });
  return found;
}

// How the vehicles read that the estimates are for. Each is read once, from a file that is opened once.
class VehicleTexts {
 public:
  explicit VehicleTexts(Shop& shop) : vehicles_(shop.records.vehicles), file_(shop.environment.openFiles) {}

  // The vehicle's own record has the say; what it was when it was attached stands in for one that can't be read.
  std::string Of(const Estimate& estimate) {
    if (estimate.VehicleLink < 0) return {};
    const auto [text, isNew] = texts_.try_emplace(estimate.VehicleLink);
    if (isNew) text->second = Read(estimate.VehicleLink);
    if (!TrimView(text->second).empty()) return text->second;
    return Trim(estimate.VehYear + " " + estimate.VehMake + " " + estimate.VehModel);
  }

 private:
  // Who has given up on the file isn't asked again.
  std::string Read(FileLink link) {
    if (!asked_) file_.TakeOver(vehicles_.OpenVehicleForRead());
    asked_ = true;
    if (!file_.IsOpen()) return {};
    const std::optional<VehicleRecord> record = vehicles_.Read(link, file_.Handle());
    return record ? DescriptionOf(*record) : std::string();
  }

  Vehicles& vehicles_;
  OpenedFile file_;
  std::map<FileLink, std::string> texts_;
  bool asked_ = false;
};

}  // namespace

std::string DescriptionOf(const VehicleRecord& vehicle) {
  return vehicle.Get(vehicle::Year) + " " + vehicle.Get(vehicle::Make) + " " + vehicle.Get(vehicle::Model) + " " +
         vehicle.Get(vehicle::VComment[0]);
}

FoundEstimates FindEstimates(Shop& shop, EstimateDatabase& database, std::int32_t customer,
                             std::optional<FileLink> vehicle) {
  std::vector<Found> rows = Fetch(database.lantosData, customer, vehicle);
  VehicleTexts vehicles(shop);
  FoundEstimates found;
  found.count = rows.size();
  for (Found& row : rows) {
    Estimate& estimate = row.estimate;
    const auto add = [&](std::string_view column, std::string_view text) {
      found.lines.push_back({LeftJustify(column, kColumnWidth) + std::string(text), estimate.EstimateNumber});
    };
    add(FormatDate(estimate.SchedDate), vehicles.Of(estimate));
    std::string word = database.estimates.StatusText(estimate.Status, estimate.SchedDate);
    for (const std::string& labor : row.labor) add(std::exchange(word, std::string()), labor);
    add(word, "");
  }
  return found;
}

}  // namespace lantos
