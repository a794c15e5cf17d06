#include <fmt/format.h>

#include "caretaker/check/FlatFiles.h"
#include "caretaker/exchange/EstimateList.h"
#include "caretaker/exchange/ShopExport.h"
#include "estimatedb/modEstimates.h"
#include "frame/CsvText.h"
#include "frame/Dates.h"
#include "frame/Numbers.h"
#include "frame/Text.h"
#include "records/Customers.h"
#include "records/inventory/InventoryLayout.h"

namespace lantos {

namespace {

std::string InPage(const std::string& text) { return CsvText(ToUtf8(text)); }

std::string DayOf(FileDate date) { return date <= 0 ? std::string() : FormatIsoDate(FromFileDate(date)); }

std::string CustomersOf(FlatFiles& flat) {
  std::string text =
      "Number,Last name,First name,Address,City,State,Zip,Home phone,Work phone,Other phone,Since,Comment\r\n";
  for (const CustomerRecord& each : flat.Records<CustomerRecord>(kCustomerFile)) {
    const std::int32_t number = each.Get(customer::Number);
    if (number == 0) continue;
    text += std::to_string(number);
    for (const TextField field :
         {customer::Lastname, customer::Firstname, customer::Address, customer::City, customer::State, customer::Zip,
          customer::HomePhone, customer::WorkPhone, customer::OtherPhone}) {
      text += ',' + InPage(each.Get(field));
    }
    text += fmt::format(",{},{}\r\n", DayOf(each.Get(customer::Date)), InPage(each.Get(customer::Comment)));
  }
  return text;
}

std::string VehiclesOf(FlatFiles& flat) {
  constexpr std::int32_t kDeleted = 86;
  std::string text = "Customer,Year,Make,Model,Engine,Transmission,VIN,License,State,Mileage,Mileage of\r\n";
  for (const VehicleRecord& each : flat.Records<VehicleRecord>(kVehicleFile)) {
    if (each.Get(vehicle::Deleted) == kDeleted) continue;
    text += std::to_string(each.Get(vehicle::Number));
    for (const TextField field : {vehicle::Year, vehicle::Make, vehicle::Model, vehicle::EngineSize,
                                  vehicle::Transmission, vehicle::VIN, vehicle::LicenseNumber, vehicle::State}) {
      text += ',' + InPage(each.Get(field));
    }
    text += fmt::format(",{},{}\r\n", each.Get(vehicle::Mileage), DayOf(each.Get(vehicle::Date)));
  }
  return text;
}

std::string PartsOf(FlatFiles& flat) {
  std::string text = "Number,Description,Cost,Wholesale,Resale,Retail,In stock\r\n";
  for (const InventoryTag& each : flat.Records<InventoryTag>(kInventoryTagFile)) {
    if (each.View(inventorytag::StockNumber).empty()) continue;  // a deleted one
    text += InPage(each.Get(inventorytag::StockNumber)) + ',' + InPage(each.Get(inventorytag::Description));
    for (const LongField price : inventorytag::Pricing) text += ',' + FormatHundredths(each.Get(price));
    text += fmt::format(",{}\r\n", each.Get(inventorytag::InStock));
  }
  return text;
}

std::string EstimatesOf(const FileIO& files) {
  std::string text = "Number,Day,Status,Customer,Name,Vehicle,License,Hours,Comments\r\n";
  for (const ListedEstimate& each : ReadEstimateList(files).estimates) {
    text +=
        fmt::format("{},{},{},{},{},{},{},{},{}\r\n", each.number, each.day ? FormatIsoDate(*each.day) : "",
                    CsvText(modEstimates::StatusWord(each.status)), each.customer, CsvText(each.name),
                    CsvText(each.vehicle), CsvText(each.license), FormatHundredths(each.hours), CsvText(each.comments));
  }
  return text;
}

std::string LaborOf(const FileIO& files) {
  std::string text = "Estimate,Line,Description,Hours,Rate,Total,Technician\r\n";
  for (const ListedLabor& each : ReadEstimateList(files).labor) {
    text += fmt::format("{},{},{},{},{},{},{}\r\n", each.estimate, each.line, CsvText(each.description),
                        FormatHundredths(each.hours), FormatHundredths(each.rate), FormatHundredths(each.total),
                        each.mechanic);
  }
  return text;
}

}  // namespace

std::string ShopAsCsv(const FileIO& files, ExportKind kind) {
  FlatFiles flat(files);
  const std::string mark(kCsvMark);
  switch (kind) {
    case ExportKind::Customers:
      return mark + CustomersOf(flat);
    case ExportKind::Vehicles:
      return mark + VehiclesOf(flat);
    case ExportKind::Parts:
      return mark + PartsOf(flat);
    case ExportKind::Labor:
      return mark + LaborOf(files);
    case ExportKind::Estimates:
      break;
  }
  return mark + EstimatesOf(files);
}

}  // namespace lantos
