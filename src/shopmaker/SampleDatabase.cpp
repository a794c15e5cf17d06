#include <fmt/format.h>

#include "estimatedb/engine/Engine.h"
#include "frame/Dates.h"
#include "records/Customers.h"
#include "records/Vehicles.h"
#include "shopmaker/SampleSteps.h"

namespace lantos::sample {

namespace {

using Columns = std::vector<std::string>;

// An empty text is written as one blank, since the columns of the vehicle take no empty one.
std::string OrBlank(std::string text) { return text.empty() ? " " : text; }

Value OrNull(const std::string& text) { return text.empty() ? Value{} : Value{text}; }

std::int64_t Whole(std::int32_t value) { return value; }

void AppendVehicleColumns(const SampleShop& shop, const SampleEstimate& estimate, std::vector<Value>& values) {
  if (estimate.vehicle == kNoLink) {
    for (int i = 0; i < 9; ++i) values.emplace_back(std::string(" "));
    return;
  }
  const VehicleRecord& record = shop.vehicles[IndexOf(estimate.vehicle)];
  const FileDate seen = record.Get(vehicle::Date);
  for (const TextField field : {vehicle::Year, vehicle::Make, vehicle::Model, vehicle::VIN, vehicle::LicenseNumber}) {
    values.emplace_back(OrBlank(record.Get(field)));
  }
  values.emplace_back(seen > 0 ? FormatDate(FromFileDate(seen)) : std::string(" "));
  values.emplace_back(fmt::format("{}", record.Get(vehicle::Mileage)));
  values.emplace_back(OrBlank(record.Get(vehicle::EngineSize)));
  values.emplace_back(OrBlank(record.Get(vehicle::Transmission)));
}

void WriteEstimate(Engine& engine, const SampleShop& shop, const SampleEstimate& estimate) {
  static const Columns kColumns = {"EstimateNumber", "CustomerNumber", "VehicleLink", "SchedDate",  "Status",
                                   "Mechanic",       "TotalPrice",     "Comments",    "CreateDate", "VehYear",
                                   "VehMake",        "VehModel",       "VehVIN",      "VehLic",     "VehDate",
                                   "VehMileage",     "VehEng",         "VehTrans"};
  const std::int32_t mechanic = estimate.labors.empty() ? 0 : estimate.labors.front().mechanic;
  std::vector<Value> values = {Whole(estimate.number),
                               Whole(shop.customers[estimate.customer].Get(customer::Number)),
                               Whole(estimate.vehicle),
                               DateValue{estimate.scheduled},
                               Whole(estimate.status),
                               Whole(mechanic),
                               std::int64_t{0},
                               OrNull(estimate.comments),
                               DateValue{estimate.created}};
  AppendVehicleColumns(shop, estimate, values);
  engine.Insert("Estimates", kColumns, values);
}

void WriteLabors(Engine& engine, const SampleEstimate& estimate) {
  static const Columns kColumns = {"EstimateNumber", "LaborNumber", "Description", "LaborHours",
                                   "LaborRate",      "LaborTotal",  "Mechanic"};
  std::int64_t line = 0;
  for (const SampleLabor& labor : estimate.labors) {
    engine.Insert("Labors", kColumns,
                  {Whole(estimate.number), ++line, labor.description, Whole(labor.hours), Whole(labor.rate),
                   Whole(labor.Total()), Whole(labor.mechanic)});
  }
}

void WriteParts(Engine& engine, const SampleEstimate& estimate) {
  static const Columns kColumns = {"EstimateNumber", "PartNumber", "PartDesc", "Quantity",
                                   "PartPrice",      "PartTotal",  "PartCost", "PartList"};
  for (const SamplePart& part : estimate.parts) {
    engine.Insert("Parts", kColumns,
                  {Whole(estimate.number), part.number, part.description, Whole(part.quantity), Whole(part.price),
                   Whole(part.quantity * part.price), Whole(part.cost), Whole(part.list)});
  }
}

void WriteExtras(Engine& engine, std::string_view table, const std::string& numberColumn, std::int32_t estimate,
                 const std::vector<de::Extra>& lines) {
  const Columns columns = {"EstimateNumber", numberColumn, "VendorName", "VendorInvoice", "Cost",   "Price",
                           "Desc1",          "Desc2",      "Desc3",      "Desc4",         "Taxable"};
  std::int64_t number = 0;
  for (const de::Extra& line : lines) {
    engine.Insert(table, columns,
                  {Whole(estimate), ++number, line.VendorName, line.VendorInvoice, Whole(line.Cost), Whole(line.Price),
                   line.Desc1, line.Desc2, line.Desc3, line.Desc4, line.Taxable});
  }
}

void WriteNotes(Engine& engine, const SampleEstimate& estimate) {
  static const Columns kColumns = {"EstimateNumber", "NoteNumber", "Desc1", "Desc2", "Desc3",
                                   "Desc4",          "Desc5",      "Desc6", "Desc7", "Desc8"};
  std::int64_t number = 0;
  for (const auto& note : estimate.notes) {
    std::vector<Value> values = {Whole(estimate.number), ++number};
    values.insert(values.end(), note.begin(), note.end());
    engine.Insert("Notes", kColumns, values);
  }
}

}  // namespace

void WriteEstimates(de& database, const SampleShop& shop, const TellMaking& tell) {
  Engine& engine = database.Connection();
  engine.Together([&] {
    for (const SampleSpecialDay& special : shop.specialDays) {
      engine.Insert("SpecialDays", {"SpecialDate", "SpecialHours", "SpecialDesc"},
                    {DateValue{special.date}, Whole(special.hours), special.description});
    }
    std::uint64_t written = 0;
    for (const SampleEstimate& estimate : shop.estimates) {
      tell("estimates", written++, shop.estimates.size());
      WriteEstimate(engine, shop, estimate);
      WriteLabors(engine, estimate);
      WriteParts(engine, estimate);
      WriteExtras(engine, "Sublets", "SubletNumber", estimate.number, estimate.sublets);
      WriteExtras(engine, "Waste", "WasteNumber", estimate.number, estimate.wastes);
      WriteNotes(engine, estimate);
    }
  });
}

}  // namespace lantos::sample
