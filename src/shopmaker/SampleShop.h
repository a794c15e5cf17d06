#pragma once

#include <array>
#include <cstdint>
#include <filesystem>
#include <string>
#include <utility>
#include <vector>

#include "estimatedb/de.h"
#include "frame/Clock.h"
#include "frame/Types.h"
#include "records/CannedLabor.h"
#include "records/Customers.h"
#include "records/Followups.h"
#include "records/MakesModels.h"
#include "records/PurchaseOrders.h"
#include "records/Vehicles.h"
#include "records/Vendors.h"
#include "records/inventory/InventoryKits.h"
#include "records/inventory/InventoryLayout.h"
#include "records/modEmployees.h"
#include "records/modSystem.h"
#include "shopmaker/EmptyShop.h"
#include "workorders/WorkorderTags.h"

namespace lantos {

struct SampleOptions {
  std::int32_t customers = 400;  // at most kCustomerLimit
  std::int32_t vehicles = 650;
  std::int32_t parts = 1200;
  std::int32_t estimates = 120;
  DaySerial date = 0;  // the day the shop is alive around
  std::uint64_t seed = 1;
};
// Throws ShopError when no shop can be of these sizes.
void CheckSampleOptions(const SampleOptions& options);

struct SampleLabor {
  std::int32_t mechanic = 0;
  Hundredths hours = 0;
  Cents rate = 0;
  std::string description;  // eight lines joined by seven tabs
  Cents Total() const;
};
struct SamplePart {
  std::string number, description;
  std::int32_t quantity = 0;
  Cents price = 0, cost = 0, list = 0;
};
struct SampleEstimate {
  std::int32_t number = 0;
  std::size_t customer = 0;  // index
  FileLink vehicle = kNoLink;
  DaySerial created = 0, scheduled = 0;
  std::int16_t status = 0;
  std::string comments;
  std::vector<SampleLabor> labors;
  std::vector<SamplePart> parts;
  std::vector<de::Extra> sublets, wastes;
  std::vector<std::array<std::string, 8>> notes;
};
// A visit that left a work order behind. What stands on it is only worked out when it is written: from its estimate, or
// else from the seed.
struct SampleWorkorder {
  static constexpr std::size_t kNoEstimate = static_cast<std::size_t>(-1);
  std::int32_t number = 0;
  std::size_t customer = 0;  // index
  FileLink vehicle = kNoLink;
  std::size_t estimate = kNoEstimate;  // index of the one that was converted
  WoStatus status = WoStatus::Open;
  bool archived = false;
  DaySerial opened = 0, closed = 0, paid = 0;  // 0: not yet
  std::uint64_t seed = 0;
};
struct SampleSpecialDay {
  DaySerial date = 0;
  std::int32_t hours = 0;
  std::string description;
};

// A whole shop, not yet on disk. The same options give the same shop.
struct SampleShop {
  SystemRecord system;
  std::vector<CustomerRecord> customers;
  std::vector<CustomerTag> customerTags;
  std::vector<VehicleRecord> vehicles;
  std::vector<MakeModelRecord> makes;
  std::vector<EmployeeRecord> employees;
  std::vector<std::int32_t> technicians;  // employee numbers
  std::vector<InventoryRecord> parts;
  std::vector<InventoryTag> partTags;
  std::vector<InventoryKitRecord> kits;
  std::vector<CannedLabor> cannedLabor;
  std::vector<LaborKitRec> laborKits;
  std::vector<CannedNote> cannedNotes;
  std::string checklist;
  std::vector<PoTag> orders;
  std::vector<std::pair<std::string, std::string>> orderTexts;  // file name and text
  std::vector<FollowupRecord> followups;
  std::vector<VendorRecord> vendors;
  std::vector<SampleEstimate> estimates;
  std::vector<SampleWorkorder> workorders;      // by number, and so by the day they were opened
  std::array<std::int32_t, 7> standardHours{};  // Sunday to Saturday
  std::vector<SampleSpecialDay> specialDays;
};
SampleShop ImagineShop(const SampleOptions& options, const TellMaking& tell = NobodyTold);

// Lays a shop down. Fails as MakeEmptyShop does.
void WriteShop(const std::filesystem::path& path, const SampleShop& shop, Clock& clock,
               const TellMaking& tell = NobodyTold);
void MakeSampleShop(const std::filesystem::path& path, const SampleOptions& options, Clock& clock,
                    const TellMaking& tell = NobodyTold);

}  // namespace lantos
