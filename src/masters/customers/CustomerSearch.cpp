#include "masters/customers/CustomerSearch.h"

#include <array>

#include "frame/Numbers.h"
#include "masters/customers/NameSearch.h"

namespace lantos {
namespace {

constexpr std::array<std::string_view, 7> kLabels = {"",      "Customer Name", "Customer #",     "License #",
                                                     "VIN #", "Phone #",       "Year/Make/Model"};
constexpr std::string_view kInProgress = "Search in progress...";

bool IsBlank(std::string_view text) { return TrimView(text).empty(); }

// A blank needle asks for nothing.
bool FieldHolds(const VehicleRecord& record, TextField field, std::string_view needle) {
  return needle.empty() || Contains(record.View(field), needle);
}

bool MasterHoldsPhone(const CustomerRecord& record, std::string_view needle) {
  for (const TextField field : {customer::HomePhone, customer::WorkPhone, customer::OtherPhone}) {
    if (Contains(record.View(field), needle)) return true;
  }
  return false;
}

}  // namespace

std::string_view LabelOf(SearchKey key) { return kLabels[static_cast<std::size_t>(key)]; }

SearchKey KeyOf(const CustomerQuery& query) {
  if (!IsBlank(query.NameKey)) return SearchKey::Name;
  if (!IsBlank(query.Number)) return SearchKey::Number;
  if (!IsBlank(query.License)) return SearchKey::License;
  if (!IsBlank(query.VIN)) return SearchKey::Vin;
  if (!IsBlank(query.Phone)) return SearchKey::Phone;
  if (!IsBlank(query.Year) || !IsBlank(query.Make) || !IsBlank(query.Model)) return SearchKey::Vehicle;
  return SearchKey::None;
}

std::vector<std::size_t> CustomerSearch::Find(const CustomerQuery& query) {
  hits_.clear();
  if (shop_.records.customers.Count() == 0) {
    say_("Retrieving customer records...");
    shop_.records.customers.LoadCustomerTags();
  }
  say_(kInProgress);
  const auto findIn = [this](TextField field, std::string needle) {
    FindByVehicle([field, &needle](const VehicleRecord& record) { return FieldHolds(record, field, needle); });
  };
  switch (KeyOf(query)) {
    case SearchKey::None:
      break;
    case SearchKey::Name:
      FindByName(query.NameKey);
      break;
    case SearchKey::Number:
      FindByNumber(query.Number);
      break;
    case SearchKey::License:
      findIn(vehicle::LicenseNumber, Trim(query.License));
      break;
    case SearchKey::Vin:
      findIn(vehicle::VIN, Trim(query.VIN));
      break;
    case SearchKey::Phone:
      FindByPhone(TrimView(query.Phone));
      break;
    case SearchKey::Vehicle:
      FindByModel(TrimView(query.Year), TrimView(query.Make), TrimView(query.Model));
      break;
  }
  return std::move(hits_);
}

void CustomerSearch::FindByName(std::string_view text) {
  const Customers& customers = shop_.records.customers;
  const NameQuery query(text);
  const std::size_t count = customers.Count();
  for (std::size_t i = 0; i < count; ++i) {
    if (query.Matches(customers.Tag(i))) hits_.push_back(i);
  }
}

void CustomerSearch::FindByNumber(std::string_view text) {
  const Customers& customers = shop_.records.customers;
  const double number = Val(text);
  for (std::size_t i = 0; i < customers.Count(); ++i) {
    if (static_cast<double>(customers.Tag(i).Get(customertag::Number)) != number) continue;
    hits_.push_back(i);
    return;
  }
}

void CustomerSearch::FindByPhone(std::string_view text) {
  Customers& customers = shop_.records.customers;
  for (std::size_t i = 0; i < customers.Count(); ++i) {
    if (Contains(customers.Tag(i).View(customertag::Phone), text)) {
      hits_.push_back(i);
      continue;
    }
    const CustomerTag& tag = customers.Tag(i);
    if (const std::optional<CustomerRecord> master = customers.Master(tag)) {
      if (MasterHoldsPhone(*master, text)) hits_.push_back(i);
      continue;
    }
    // Not read: a damaged offset has been told of and spoils this customer alone. Any other cause is the person who
    // gave up on a locked file, and isn't to be asked once more for each customer of the shop.
    if (!customers.LeadsNowhere(tag)) return;
  }
}

void CustomerSearch::FindByModel(std::string_view year, std::string_view make, std::string_view model) {
  FindByVehicle([=](const VehicleRecord& record) {
    return FieldHolds(record, vehicle::Year, year) && FieldHolds(record, vehicle::Make, make) &&
           FieldHolds(record, vehicle::Model, model);
  });
}

void CustomerSearch::FindByVehicle(const std::function<bool(const VehicleRecord&)>& matches) {
  Vehicles& vehicles = shop_.records.vehicles;
  if (!vehicles.Loaded()) {
    say_("Loading vehicle information...");
    vehicles.LoadVehicles();
    say_(kInProgress);
  }
  for (std::int32_t i = 0; i < vehicles.Count(); ++i) {
    const VehicleRecord& record = vehicles[static_cast<std::size_t>(i)];
    if (matches(record)) AddOwner(record.Get(vehicle::Number));
  }
}

// As the search by number: of two tags of one number the first counts.
void CustomerSearch::AddOwner(std::int32_t number) {
  Customers& customers = shop_.records.customers;
  const std::size_t index = customers.IndexOf(number);
  if (index != customers.Count()) hits_.push_back(index);
}

std::vector<std::string> CustomerLines(Customers& customers, std::size_t index) {
  const std::string number = FormatZeros(customers.Tag(index).Get(customertag::Number), 6);
  std::vector<std::string> lines = {number + " " + LeftJustify(customers.Tag(index).View(customertag::NameKey), 38)};
  const std::string_view spouse = customers.Tag(index).View(customertag::SpouseKey);
  // A customer without a spouse has the bare comma between two empty names as the key.
  if (spouse.empty() || spouse == ",") return lines;
  lines.push_back(number + " S" + LeftJustify(customers.SpouseName(index), 37));
  return lines;
}

}  // namespace lantos
