#include "shopmaker/SampleShop.h"

#include "records/Statements.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <functional>
#include <limits>

#include "frame/Dates.h"
#include "frame/Numbers.h"
#include "records/CheckList.h"
#include "records/Passwords.h"
#include "records/inventory/UsageHistory.h"
#include "shopmaker/SampleSteps.h"

namespace lantos {

namespace {

const ShopIdentity kSampleIdentity = {
    "Cedar Street Auto Repair", "1420 Cedar St", "Millbrook", "OR", "97331", "541-555-0142"};
constexpr std::int32_t kFirstWorkorder = 12001;
constexpr std::int32_t kSampleTaxRate = 62500;  // Millionths

SystemRecord SampleSystemRecord() {
  SystemRecord record = FirstSystemRecord(kSampleIdentity);
  record.Put(sysrec::last_workorder_number, kFirstWorkorder);
  record.Put(sysrec::tax_rate_parts, kSampleTaxRate);
  record.Put(sysrec::tax_rate_sublet, kSampleTaxRate);
  record.Put(sysrec::tax_rate_waste, kSampleTaxRate);
  record.Put(sysrec::shop_rate, 8500);
  record.Put(sysrec::company_phone2, "541-555-0143");
  record.Put(sysrec::state_reg_number, "AR-004711");
  record.Put(sysrec::hand_msg1, "All repairs carry a warranty of 12 months or 12,000 miles.");
  record.Put(sysrec::hand_msg2, "Thank you for your business.");
  record.Put(sysrec::fleet_terms, "Net 30 days.");
  return record;
}

template <class RecordType>
void AddRecords(ShopDirectory& directory, std::string_view name, const std::vector<RecordType>& records) {
  static_assert(sizeof(RecordType) == RecordType::kLength);
  directory.AddFile(name, std::as_bytes(std::span(records)));
}

// One line of text, a column a name.
template <class Names>
std::string NameLine(const Names& names) {
  std::string line;
  for (const std::string_view name : names) line += LeftJustify(name, kNameColumn);
  return line + "\r\n";
}

std::vector<std::string_view> Departments() {
  std::vector<std::string_view> departments = {"CORES", "KITS"};
  for (const sample::PartKindEntry& kind : sample::kPartKinds) {
    if (std::find(departments.begin(), departments.end(), kind.department) == departments.end()) {
      departments.push_back(kind.department);
    }
  }
  return departments;
}

constexpr const char* kTermsOfWork =
    "All parts removed are discarded unless asked for before the work begins.\r\n"
    "Work is guaranteed for 90 days or 4,000 miles, whichever comes first.\r\n";
constexpr const char* kTermsOfEstimates =
    "This is an estimate, not an invoice. Prices hold for 30 days.\r\n"
    "Work that shows to be needed beyond it is done only after your approval.\r\n"
    "I authorize the work above, and the testing of the vehicle on the road.\r\n"
    "\r\n"
    "Signed: ______________________________________   Date: ________________\r\n";

std::string CannedLaborText(const std::vector<CannedLabor>& entries) {
  std::string text;
  for (const CannedLabor& entry : entries) text += CannedLaborLine(entry) + "\r\n";
  return text;
}

std::string CannedNoteText(const std::vector<CannedNote>& notes) {
  std::string text;
  for (const CannedNote& note : notes) text += CannedNoteLine(note) + "\r\n";
  return text;
}

void AddListFiles(ShopDirectory& directory, const SampleShop& shop) {
  directory.AddFile(kDepartmentFile, NameLine(Departments()));
  directory.AddFile(kManufacturerFile, NameLine(sample::kManufacturers));
  AddRecords(directory, kKitFile, shop.kits);
  directory.AddFile(kCannedLaborFile, CannedLaborText(shop.cannedLabor));
  AddRecords(directory, kLaborKitFile, shop.laborKits);
  directory.AddFile(kCannedNoteFile, CannedNoteText(shop.cannedNotes));
  directory.AddFile(kCheckListFile, shop.checklist);
  AddRecords(directory, kOpenOrdersFile, shop.orders);
  for (const auto& [name, text] : shop.orderTexts) directory.AddFile(name, text);
  AddRecords(directory, kFollowupFile, shop.followups);
  AddRecords(directory, kVendorFile, shop.vendors);
  // A year, as without the file, would leave most vehicles without a past on the worksheet.
  directory.AddFile("Lantos.ini",
                    std::string_view("[Print Options]\r\nVehSummaryYears=3\r\nVehSummaryLaborLines=2\r\n"));
  directory.AddFile(kWorkorderDisclaimer, std::string_view(kTermsOfWork));
  directory.AddFile(kEstimateDisclaimer, std::string_view(kTermsOfEstimates));
}

// The parts with the links to their newest use.
std::vector<InventoryRecord> UsedParts(const SampleShop& shop, const std::vector<FileLink>& newestUse) {
  std::vector<InventoryRecord> parts = shop.parts;
  for (std::size_t i = 0; i < parts.size(); ++i) parts[i].Put(inventory::UsageLink, newestUse[i]);
  return parts;
}

void AddFlatFiles(ShopDirectory& directory, const SampleShop& shop, Clock& clock, const TellMaking& tell) {
  directory.AddFile(kSystemFile, shop.system.Bytes());
  AddRecords(directory, kCustomerTagFile, shop.customerTags);
  AddRecords(directory, kCustomerFile, shop.customers);
  AddRecords(directory, kVehicleFile, shop.vehicles);
  AddRecords(directory, kMakeModelFile, shop.makes);
  AddRecords(directory, kEmployeeFile, shop.employees);
  AddRecords(directory, kInventoryTagFile, shop.partTags);
  AddRecords(directory, kInventoryFile, UsedParts(shop, sample::WriteWorkorders(directory, shop, clock, tell)));
  AddListFiles(directory, shop);
}

void CheckRange(std::string_view what, std::int64_t value, std::int64_t most) {
  if (value < 0 || value > most) throw ShopError(fmt::format("{} must lie between 0 and {}.", what, most));
}

}  // namespace

Cents SampleLabor::Total() const {
  return static_cast<Cents>(DivideHalfEven(static_cast<std::int64_t>(hours) * rate, 100));
}

void CheckSampleOptions(const SampleOptions& options) {
  constexpr std::int64_t kFarthestLink = std::numeric_limits<FileLink>::max();
  CheckRange("The number of customers", options.customers, static_cast<std::int64_t>(kCustomerLimit));
  CheckRange("The number of vehicles", options.vehicles,
             kFarthestLink / static_cast<std::int64_t>(VehicleRecord::kLength));
  CheckRange("The number of parts", options.parts, kFarthestLink / static_cast<std::int64_t>(InventoryRecord::kLength));
  CheckRange("The number of estimates", options.estimates, 1000000);
  if (options.customers == 0 && (options.vehicles > 0 || options.estimates > 0)) {
    throw ShopError("Vehicles and estimates need customers.");
  }
  const int year = FromSerial(options.date).year;
  if (year < 1980 || year > 2100) throw ShopError("The date must lie between 1980 and 2100.");
}

SampleShop ImagineShop(const SampleOptions& options, const TellMaking& tell) {
  CheckSampleOptions(options);
  SampleShop shop;
  shop.system = SampleSystemRecord();
  const std::array<std::function<void()>, 12> steps = {[&] { sample::ImagineSchedule(shop, options); },
                                                       [&] { sample::ImagineStaff(shop, options); },
                                                       [&] { sample::ImagineCustomers(shop, options); },
                                                       [&] { sample::ImagineVehicles(shop, options); },
                                                       [&] { sample::ImagineMakes(shop); },
                                                       [&] { sample::ImagineParts(shop, options); },
                                                       [&] { sample::ImagineKits(shop, options); },
                                                       [&] { sample::ImagineEstimates(shop, options); },
                                                       [&] { sample::ImagineWork(shop, options); },
                                                       [&] { sample::ImagineLists(shop, options); },
                                                       [&] { sample::ImagineVendors(shop, options); },
                                                       [&] { sample::ImagineWorkorders(shop, options); }};
  for (std::size_t i = 0; i < steps.size(); ++i) {
    tell("imagined", i, steps.size());
    steps[i]();
  }
  return shop;
}

void MakeSampleShop(const std::filesystem::path& path, const SampleOptions& options, Clock& clock,
                    const TellMaking& tell) {
  WriteShop(path, ImagineShop(options, tell), clock, tell);
}

void WriteShop(const std::filesystem::path& path, const SampleShop& shop, Clock& clock, const TellMaking& tell) {
  ShopDirectory directory(path);
  AddFlatFiles(directory, shop, clock, tell);
  AddEmptyFiles(directory, {kSystemFile,     kCustomerTagFile,     kCustomerFile,  kVehicleFile,     kMakeModelFile,
                            kEmployeeFile,   kInventoryTagFile,    kInventoryFile, kDepartmentFile,  kManufacturerFile,
                            kKitFile,        kCannedLaborFile,     kLaborKitFile,  kCannedNoteFile,  kCheckListFile,
                            kOpenOrdersFile, kFollowupFile,        kActiveTagFile, kArchivedTagFile, kArchiveFile,
                            kUsageFile,      kWorkorderDisclaimer, kVendorFile});
  AddDatabases(directory, clock);
  de database;
  ConnectTo(database, directory, clock);
  SetStandardHours(database, shop.standardHours, kFirstFudgeFactor);
  sample::WriteEstimates(database, shop, tell);
  database.Disconnect();
  directory.Keep();
}

}  // namespace lantos
