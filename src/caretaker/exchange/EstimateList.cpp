#include "caretaker/exchange/EstimateList.h"

#include <fmt/format.h>

#include <array>
#include <map>

#include "caretaker/check/FlatFiles.h"
#include "estimatedb/EngineChoice.h"
#include "estimatedb/EstimateDatabase.h"
#include "frame/Dates.h"
#include "frame/Text.h"
#include "records/Customers.h"

namespace lantos {

namespace {

using Columns = std::vector<std::string>;

const Columns kOfEstimates = {"EstimateNumber", "SchedDate", "Status", "CustomerNumber", "VehYear",
                              "VehMake",        "VehModel",  "VehLic", "Comments"};
const Columns kOfLabor = {"EstimateNumber", "LaborNumber", "Description", "LaborHours",
                          "LaborRate",      "LaborTotal",  "Mechanic"};

std::int64_t NumberOf(const Cell& cell) {
  if (const auto* whole = std::get_if<std::int64_t>(&cell)) return *whole;
  if (const auto* number = std::get_if<double>(&cell)) return static_cast<std::int64_t>(*number);
  return 0;
}

std::string TextOf(const Cell& cell) {
  const auto* text = std::get_if<std::string>(&cell);
  return text != nullptr ? Trim(*text) : std::string();
}

std::string Joined(std::initializer_list<std::string> words) {
  std::string text;
  for (const std::string& word : words) text += (text.empty() || word.empty() ? "" : " ") + word;
  return text;
}

std::map<std::int64_t, std::string> NamesOfCustomers(const FileIO& files) {
  FlatFiles flat(files);
  std::map<std::int64_t, std::string> names;
  for (const CustomerTag& tag : flat.Records<CustomerTag>(kCustomerTagFile)) {
    names.emplace(tag.Get(customertag::Number), ToUtf8(tag.Get(customertag::NameKey)));
  }
  return names;
}

template <class Take>
void EachRow(TableStore& tables, const std::string& table, const Columns& columns, const TellRows& tell, Take take) {
  constexpr std::uint64_t kTold = 1000;
  const std::unique_ptr<RowReader> rows = tables.Read(table, columns, tables.KeyOf(table));
  std::uint64_t done = 0;
  for (CellRow row; rows->Next(row); ++done) {
    if (done % kTold == 0) tell(0, 1);
    take(row);
  }
}

}  // namespace

EstimateList ReadEstimateList(const FileIO& files, const TellRows& tell) {
  EstimateList list;
  const std::map<std::int64_t, std::string> names = NamesOfCustomers(files);
  std::map<std::int64_t, std::int64_t> hours;
  OpenedTables opened = OpenTables(files.PathOf(kLantosDatabase), files.GetClock());
  opened.engine->ReadTogether([&] {
    EachRow(*opened.tables, "Labors", kOfLabor, tell, [&](const CellRow& row) {
      list.labor.push_back({NumberOf(row[0]), NumberOf(row[1]), TextOf(row[2]), NumberOf(row[3]), NumberOf(row[4]),
                            NumberOf(row[5]), NumberOf(row[6])});
      hours[list.labor.back().estimate] += list.labor.back().hours;
    });
    EachRow(*opened.tables, "Estimates", kOfEstimates, tell, [&](const CellRow& row) {
      ListedEstimate each;
      each.number = NumberOf(row[0]);
      each.day = ParseIsoDate(TextOf(row[1]));
      each.status = static_cast<std::int16_t>(NumberOf(row[2]));
      each.customer = NumberOf(row[3]);
      const auto name = names.find(each.customer);
      if (name != names.end() && each.customer != 0) each.name = name->second;
      each.vehicle = Joined({TextOf(row[4]), TextOf(row[5]), TextOf(row[6])});
      each.license = TextOf(row[7]);
      each.comments = TextOf(row[8]);
      each.hours = hours[each.number];
      list.estimates.push_back(std::move(each));
    });
  });
  return list;
}

}  // namespace lantos
