#include "caretaker/check/FieldTable.h"

#include "records/Customers.h"
#include "records/Followups.h"
#include "records/MakesModels.h"
#include "records/Payroll.h"
#include "records/PurchaseOrders.h"
#include "records/Vendors.h"
#include "records/inventory/InventoryKits.h"
#include "records/inventory/UsageHistory.h"
#include "records/modSystem.h"
#include "workorders/WorkorderTags.h"

namespace lantos {

namespace {

using Named = FieldsOfFile::Named;

constexpr Named Text(std::string_view name, TextField field) { return {name, field.offset, field.width}; }
constexpr Named Date(std::string_view name, LongField field) { return {name, field.offset, 4}; }

FieldsOfFile OfCustomers() {
  using namespace customer;
  return {kCustomerFile,
          CustomerRecord::kLength,
          {Text("Lastname", Lastname), Text("Firstname", Firstname), Text("Spouse", Spouse),
           Text("SpouseLast", SpouseLast), Text("Address", Address), Text("City", City), Text("State", State),
           Text("Zip", Zip), Text("HomePhone", HomePhone), Text("WorkPhone", WorkPhone), Text("WorkExt", WorkExt),
           Text("OtherPhone", OtherPhone), Text("tax_id_number", tax_id_number), Text("Comment", Comment),
           Text("salesperson", salesperson)},
          {Date("Date", customer::Date)}};
}

FieldsOfFile OfVehicles() {
  using namespace vehicle;
  FieldsOfFile fields{kVehicleFile,
                      VehicleRecord::kLength,
                      {Text("Make", vehicle::Make), Text("Model", vehicle::Model), Text("Year", Year),
                       Text("EngineSize", EngineSize), Text("Transmission", Transmission), Text("VIN", VIN),
                       Text("LicenseNumber", LicenseNumber), Text("State", State)},
                      {Date("Date", vehicle::Date), Date("FirstDate", FirstDate)}};
  for (const TextField comment : VComment) fields.texts.push_back(Text("VComment", comment));
  return fields;
}

FieldsOfFile OfParts() {
  using namespace inventory;
  FieldsOfFile fields{
      kInventoryFile,
      InventoryRecord::kLength,
      {Text("StockNumber", StockNumber), Text("Description", Description), Text("Department", Department),
       Text("Manufacturer", Manufacturer), Text("Comment", Comment), Text("Location", Location)},
      {}};
  for (const TextField alternate : AltNumber) fields.texts.push_back(Text("AltNumber", alternate));
  return fields;
}

FieldsOfFile OfEmployees() {
  using namespace employee;
  return {kEmployeeFile,
          EmployeeRecord::kLength,
          {Text("Name", Name), Text("SocSecNum", SocSecNum), Text("EmpAddr", EmpAddr), Text("EmpCity", EmpCity),
           Text("EmpState", EmpState), Text("EmpZip", EmpZip), Text("EmpPhone", EmpPhone)},
          {Date("DateHired", DateHired), Date("DateTerminated", DateTerminated)}};
}

FieldsOfFile OfVendors() {
  using namespace vendor;
  return {kVendorFile,
          VendorRecord::kLength,
          {Text("VendorName", VendorName), Text("Contact", Contact), Text("Address", Address), Text("City", City),
           Text("State", State), Text("Zip", Zip), Text("Phone1", Phone1), Text("Phone2", Phone2),
           Text("Phone3", Phone3), Text("TaxIdNumber", TaxIdNumber)},
          {}};
}

FieldsOfFile OfSystem() {
  using namespace sysrec;
  return {
      kSystemFile,
      SystemRecord::kLength,
      {Text("company_name", company_name), Text("company_address", company_address), Text("company_city", company_city),
       Text("company_state", company_state), Text("company_zip", company_zip), Text("company_phone1", company_phone1),
       Text("hand_msg1", hand_msg1), Text("hand_msg2", hand_msg2), Text("surcharge_description", surcharge_description),
       Text("fleet_terms", fleet_terms), Text("extra_company_name", extra_company_name)},
      {}};
}

FieldsOfFile OfFollowups() {
  using namespace followup;
  return {kFollowupFile,
          FollowupRecord::kLength,
          {Text("VIN", VIN), Text("LicenseNumber", LicenseNumber), Text("Description", Description)},
          {Date("FollowupDate", FollowupDate)}};
}

FieldsOfFile OfWorkorders(std::string_view file, std::size_t length) {
  FieldsOfFile fields{
      file,
      length,
      {Text("CustomerName", wotag::CustomerName), Text("VIN", wotag::VIN), Text("LicenseNumber", wotag::LicenseNumber)},
      {}};
  const auto addDate = [&](std::string_view name, LongField field) {
    fields.dates.push_back(Date(name, LongField{wotag::Totals.offset + field.offset}));
  };
  addDate("DateOpen", wototals::DateOpen);
  addDate("DateClosed", wototals::DateClosed);
  addDate("DatePaid", wototals::DatePaid);
  for (std::size_t row = 0; row < wototals::kSplits; ++row) addDate("SplitDate", wototals::SplitDate(row));
  return fields;
}

std::vector<FieldsOfFile> MakeTable() {
  return {OfSystem(),
          OfCustomers(),
          {kCustomerTagFile,
           CustomerTag::kLength,
           {Text("NameKey", customertag::NameKey), Text("SpouseKey", customertag::SpouseKey),
            Text("Phone", customertag::Phone)},
           {}},
          OfVehicles(),
          {kMakeModelFile, MakeModelRecord::kLength, {Text("Name", makemodel::Name)}, {}},
          OfEmployees(),
          {kPayrollFile, PayRecord::kLength, {}, {Date("PayrollDate", payrecord::PayrollDate)}},
          OfVendors(),
          {kInventoryTagFile,
           InventoryTag::kLength,
           {Text("StockNumber", inventorytag::StockNumber), Text("Description", inventorytag::Description)},
           {}},
          OfParts(),
          {kUsageFile,
           UsageRecord::kLength,
           {Text("StockNumber", usage::StockNumber), Text("CustomerKey", usage::CustomerKey)},
           {Date("Date", usage::Date)}},
          {kKitFile, InventoryKitRecord::kLength, {Text("KitNumber", inventorykit::KitNumber)}, {}},
          OfFollowups(),
          {kOpenOrdersFile, PoTag::kLength, {Text("VendorName", potag::VendorName)}, {}},
          OfWorkorders(kActiveTagFile, ActiveWoTag::kLength),
          OfWorkorders(kArchivedTagFile, ArchivedWoTag::kLength)};
}

}  // namespace

const std::vector<FieldsOfFile>& FieldTable() {
  static const std::vector<FieldsOfFile> table = MakeTable();
  return table;
}

}  // namespace lantos
