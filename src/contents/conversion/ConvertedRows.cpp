#include "contents/conversion/ConvertedRows.h"

#include <fmt/format.h>

#include <string_view>

#include "contents/labor/LaborRows.h"
#include "contents/parts/PartRows.h"
#include "estimatedb/VehicleSnapshots.h"
#include "frame/Text.h"

namespace lantos {

namespace {

de::Extra ReadExtra(const Recordset& row) {
  return {row.Text("VendorName"), row.Text("VendorInvoice"), row.Long("Cost"),  row.Long("Price"),  row.Text("Desc1"),
          row.Text("Desc2"),      row.Text("Desc3"),         row.Text("Desc4"), row.Text("Taxable")};
}

WoNote ReadNote(const Recordset& row) {
  WoNote note;
  for (std::size_t line = 0; line < note.size(); ++line) note[line] = row.Text("Desc" + std::to_string(line + 1));
  return note;
}

// FNV-1a, 64 bits, of texts with an end each: two that follow each other aren't taken for others.
class Digest {
 public:
  void Add(std::string_view text) {
    for (const char c : text) AddByte(static_cast<unsigned char>(c));
    AddByte(0);
  }
  void AddValue(const Value& value) {
    if (const auto* text = std::get_if<std::string>(&value)) return Add(std::string_view(*text));
    if (const auto* whole = std::get_if<std::int64_t>(&value)) return Add(fmt::format("{}", *whole));
    if (const auto* number = std::get_if<double>(&value)) return Add(fmt::format("{}", *number));
    if (const auto* date = std::get_if<DateValue>(&value)) return Add(fmt::format("day {}", date->day));
    Add(std::string_view("null"));
  }
  void AddRows(Recordset& rows) {
    for (rows.MoveFirst(); !rows.Eof(); rows.MoveNext()) {
      for (const std::string& column : rows.Columns()) AddValue(rows[column]);
    }
    rows.MoveFirst();
    Add(std::string_view("end"));
  }
  std::uint64_t Sum() const { return hash_; }

 private:
  void AddByte(unsigned char byte) { hash_ = (hash_ ^ byte) * 1099511628211u; }

  std::uint64_t hash_ = 14695981039346656037u;
};

}  // namespace

ConvertedRows::ConvertedRows(de& data, std::int32_t estimate) {
  data.Connection().ReadTogether([&] {
    parts_ = data.PartsTable(estimate);
    labor_ = data.LaborForEstimate(estimate);
    sublets_ = data.SubletsForEstimate(estimate);
    waste_ = data.WasteForEstimate(estimate);
    notes_ = data.NotesForEstimate(estimate);
  });
}

void ConvertedRows::TakeOthers(OrderFilling& filling) {
  for (labor_.MoveFirst(); !labor_.Eof(); labor_.MoveNext()) filling.TakeLabor(ReadLaborLine(labor_));
  for (sublets_.MoveFirst(); !sublets_.Eof(); sublets_.MoveNext()) filling.TakeSublet(ReadExtra(sublets_));
  for (waste_.MoveFirst(); !waste_.Eof(); waste_.MoveNext()) filling.TakeWaste(ReadExtra(waste_));
  for (notes_.MoveFirst(); !notes_.Eof(); notes_.MoveNext()) filling.TakeNote(ReadNote(notes_));
}

std::vector<std::string> ConvertedRows::Lacking(const std::vector<JournaledPart>& parts) const {
  std::vector<JournaledPart> missing = parts;
  for (Recordset rows = parts_; !rows.Eof(); rows.MoveNext()) {
    const PartLine line = ReadPartLine(rows);
    std::erase_if(missing, [&](const JournaledPart& part) {
      return part.number == line.partNumber && part.quantity == line.quantity;
    });
  }
  std::vector<std::string> numbers;
  for (const JournaledPart& part : missing) numbers.push_back(part.number);
  return numbers;
}

std::uint64_t ConvertedRows::Contents(const Estimate& estimate) {
  Digest digest;
  digest.Add(fmt::format("{} {}", estimate.SchedDate, estimate.CustomerNumber));
  // As the columns hold it.
  const de::VehicleSnapshot vehicle = SnapshotIn(estimate);
  const std::string* texts[] = {&vehicle.VehYear,    &vehicle.VehMake, &vehicle.VehModel,
                                &vehicle.VehVIN,     &vehicle.VehLic,  &vehicle.VehDate,
                                &vehicle.VehMileage, &vehicle.VehEng,  &vehicle.VehTrans};
  for (std::size_t i = 0; i < std::size(texts); ++i) digest.Add(Trim(Left(*texts[i], kSnapshotColumns[i].width)));
  for (Recordset* rows : {&parts_, &labor_, &sublets_, &waste_, &notes_}) digest.AddRows(*rows);
  return digest.Sum();
}

}  // namespace lantos
