#include <optional>
#include <utility>
#include <variant>
#include <vector>

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

// Of money in cents and of hours in hundredths.
struct Amount {
  std::int64_t hundredths = 0;
};
using Field = std::variant<std::int64_t, Amount, std::optional<DaySerial>, std::string>;

// Where the rows of a list go to, each with as many fields as there are names.
class ListSink {
 public:
  virtual ~ListSink() = default;
  virtual void Begin(std::vector<std::string> names) = 0;
  virtual void Add(const std::vector<Field>& row) = 0;
};

class CsvSink : public ListSink {
 public:
  void Begin(std::vector<std::string> names) override {
    for (const std::string& name : names) text += (text.empty() ? std::string(kCsvMark) : ",") + name;
    text += "\r\n";
  }
  void Add(const std::vector<Field>& row) override {
    for (std::size_t i = 0; i < row.size(); ++i) text += (i == 0 ? "" : ",") + std::visit(*this, row[i]);
    text += "\r\n";
  }
  std::string operator()(std::int64_t number) const { return std::to_string(number); }
  std::string operator()(Amount amount) const { return FormatHundredths(amount.hundredths); }
  std::string operator()(std::optional<DaySerial> day) const { return day ? FormatIsoDate(*day) : std::string(); }
  std::string operator()(const std::string& words) const { return CsvText(words); }

  std::string text;
};

class JsonSink : public ListSink {
 public:
  void Begin(std::vector<std::string> names) override { names_ = std::move(names); }
  void Add(const std::vector<Field>& row) override {
    nlohmann::ordered_json object;
    for (std::size_t i = 0; i < row.size(); ++i) object[names_[i]] = std::visit(*this, row[i]);
    rows.push_back(std::move(object));
  }
  nlohmann::ordered_json operator()(std::int64_t number) const { return number; }
  nlohmann::ordered_json operator()(Amount amount) const { return static_cast<double>(amount.hundredths) / 100; }
  nlohmann::ordered_json operator()(std::optional<DaySerial> day) const {
    return day ? nlohmann::ordered_json(FormatIsoDate(*day)) : nlohmann::ordered_json();
  }
  nlohmann::ordered_json operator()(const std::string& words) const { return words; }

  nlohmann::ordered_json rows = nlohmann::ordered_json::array();

 private:
  std::vector<std::string> names_;
};

// Tells of each thousandth row.
class RowCount {
 public:
  RowCount(const TellRows& tell, std::size_t of) : tell_(tell), of_(of) { tell_(0, of_); }
  void Next() {
    if (++done_ % kTold == 0) tell_(done_, of_);
  }

 private:
  static constexpr std::uint64_t kTold = 1000;
  const TellRows& tell_;
  std::uint64_t of_;
  std::uint64_t done_ = 0;
};

std::optional<DaySerial> DayOf(FileDate date) {
  return date <= 0 ? std::nullopt : std::optional<DaySerial>(FromFileDate(date));
}

void ListCustomers(FlatFiles& flat, ListSink& list, const TellRows& tell) {
  list.Begin({"Number", "Last name", "First name", "Address", "City", "State", "Zip", "Home phone", "Work phone",
              "Other phone", "Since", "Comment"});
  const auto records = flat.Records<CustomerRecord>(kCustomerFile);
  RowCount count(tell, records.size());
  for (const CustomerRecord& each : records) {
    count.Next();
    const std::int32_t number = each.Get(customer::Number);
    if (number == 0) continue;
    std::vector<Field> row = {std::int64_t{number}};
    for (const TextField field :
         {customer::Lastname, customer::Firstname, customer::Address, customer::City, customer::State, customer::Zip,
          customer::HomePhone, customer::WorkPhone, customer::OtherPhone}) {
      row.emplace_back(ToUtf8(each.Get(field)));
    }
    row.emplace_back(DayOf(each.Get(customer::Date)));
    row.emplace_back(ToUtf8(each.Get(customer::Comment)));
    list.Add(row);
  }
}

void ListVehicles(FlatFiles& flat, ListSink& list, const TellRows& tell) {
  constexpr std::int32_t kDeleted = 86;
  list.Begin({"Customer", "Year", "Make", "Model", "Engine", "Transmission", "VIN", "License", "State", "Mileage",
              "Mileage of"});
  const auto records = flat.Records<VehicleRecord>(kVehicleFile);
  RowCount count(tell, records.size());
  for (const VehicleRecord& each : records) {
    count.Next();
    if (each.Get(vehicle::Deleted) == kDeleted) continue;
    std::vector<Field> row = {std::int64_t{each.Get(vehicle::Number)}};
    for (const TextField field : {vehicle::Year, vehicle::Make, vehicle::Model, vehicle::EngineSize,
                                  vehicle::Transmission, vehicle::VIN, vehicle::LicenseNumber, vehicle::State}) {
      row.emplace_back(ToUtf8(each.Get(field)));
    }
    row.emplace_back(std::int64_t{each.Get(vehicle::Mileage)});
    row.emplace_back(DayOf(each.Get(vehicle::Date)));
    list.Add(row);
  }
}

void ListParts(FlatFiles& flat, ListSink& list, const TellRows& tell) {
  list.Begin({"Number", "Description", "Cost", "Wholesale", "Resale", "Retail", "In stock"});
  const auto records = flat.Records<InventoryTag>(kInventoryTagFile);
  RowCount count(tell, records.size());
  for (const InventoryTag& each : records) {
    count.Next();
    if (each.View(inventorytag::StockNumber).empty()) continue;  // a deleted one
    std::vector<Field> row = {ToUtf8(each.Get(inventorytag::StockNumber)), ToUtf8(each.Get(inventorytag::Description))};
    for (const LongField price : inventorytag::Pricing) row.emplace_back(Amount{each.Get(price)});
    row.emplace_back(std::int64_t{each.Get(inventorytag::InStock)});
    list.Add(row);
  }
}

void ListEstimates(const FileIO& files, ListSink& list, const TellRows& tell) {
  list.Begin({"Number", "Day", "Status", "Customer", "Name", "Vehicle", "License", "Hours", "Comments"});
  const EstimateList read = ReadEstimateList(files, tell);
  RowCount count(tell, read.estimates.size());
  for (const ListedEstimate& each : read.estimates) {
    count.Next();
    list.Add({each.number, each.day, std::string(modEstimates::StatusWord(each.status)), each.customer, each.name,
              each.vehicle, each.license, Amount{each.hours}, each.comments});
  }
}

void ListLabor(const FileIO& files, ListSink& list, const TellRows& tell) {
  list.Begin({"Estimate", "Line", "Description", "Hours", "Rate", "Total", "Technician"});
  const EstimateList read = ReadEstimateList(files, tell);
  RowCount count(tell, read.labor.size());
  for (const ListedLabor& each : read.labor) {
    count.Next();
    list.Add({each.estimate, each.line, each.description, Amount{each.hours}, Amount{each.rate}, Amount{each.total},
              each.mechanic});
  }
}

void ListOf(const FileIO& files, ExportKind kind, ListSink& list, const TellRows& tell) {
  FlatFiles flat(files);
  switch (kind) {
    case ExportKind::Customers:
      return ListCustomers(flat, list, tell);
    case ExportKind::Vehicles:
      return ListVehicles(flat, list, tell);
    case ExportKind::Parts:
      return ListParts(flat, list, tell);
    case ExportKind::Labor:
      return ListLabor(files, list, tell);
    case ExportKind::Estimates:
      return ListEstimates(files, list, tell);
  }
}

}  // namespace

std::string ShopAsCsv(const FileIO& files, ExportKind kind, const TellRows& tell) {
  CsvSink list;
  ListOf(files, kind, list, tell);
  return std::move(list.text);
}

nlohmann::ordered_json ShopAsJson(const FileIO& files, ExportKind kind, const TellRows& tell) {
  JsonSink list;
  ListOf(files, kind, list, tell);
  return std::move(list.rows);
}

}  // namespace lantos
