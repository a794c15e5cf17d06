#include "caretaker/check/Kinds.h"
#include "caretaker/check/Words.h"
#include "records/CannedLabor.h"
#include "records/Customers.h"
#include "records/Followups.h"
#include "records/MakesModels.h"
#include "records/Payroll.h"
#include "records/PurchaseOrders.h"
#include "records/Vendors.h"
#include "records/inventory/InventoryKits.h"
#include "records/inventory/UsageHistory.h"
#include "workorders/WorkorderTags.h"

namespace lantos {

namespace {

struct RecordFile {
  std::string_view name;
  std::size_t length;
};
constexpr RecordFile kFiles[] = {
    {kCustomerTagFile, CustomerTag::kLength},   {kCustomerFile, CustomerRecord::kLength},
    {kVehicleFile, VehicleRecord::kLength},     {kMakeModelFile, MakeModelRecord::kLength},
    {kEmployeeFile, EmployeeRecord::kLength},   {kPayrollFile, PayRecord::kLength},
    {kVendorFile, VendorRecord::kLength},       {kInventoryTagFile, InventoryTag::kLength},
    {kInventoryFile, InventoryRecord::kLength}, {kUsageFile, UsageRecord::kLength},
    {kKitFile, InventoryKitRecord::kLength},    {kFollowupFile, FollowupRecord::kLength},
    {kOpenOrdersFile, PoTag::kLength},          {kActiveTagFile, ActiveWoTag::kLength},
    {kArchivedTagFile, ArchivedWoTag::kLength},
};

}  // namespace

void FindLengths(ShopView& shop, const Tell& tell) {
  for (const RecordFile& file : kFiles) {
    const std::uint64_t length = shop.flat.Read(file.name).size();
    if (length % file.length == 0) continue;
    tell({.file = std::string(file.name),
          .record = RecordWords(length / file.length),
          .field = {},
          .words = fmt::format("it has {} of {} bytes, so the file isn't whole records", length % file.length,
                               file.length)});
  }
  const std::uint64_t system = shop.flat.Read(kSystemFile).size();
  if (system == SystemRecord::kLength) return;
  tell({.file = std::string(kSystemFile),
        .record = {},
        .field = {},
        .words = fmt::format("it has {} bytes in place of {}", system, SystemRecord::kLength)});
}

}  // namespace lantos
