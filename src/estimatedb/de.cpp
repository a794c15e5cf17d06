#include "estimatedb/de.h"

namespace lantos {

namespace {

Value Long(std::int32_t value) { return std::int64_t{value}; }
Value Text(std::string_view value) { return std::string(value); }
Value Day(DaySerial day) { return DateValue{day}; }

// Of a week, as the commands of a whole week take them.
std::vector<Value> DaysFrom(DaySerial sunday) {
  std::vector<Value> days;
  for (DaySerial day = sunday; day < sunday + 7; ++day) days.push_back(Day(day));
  return days;
}

// The snapshot's columns never hold a text of no length.
Value BlankIfEmpty(const std::string& value) { return value.empty() ? std::string(" ") : value; }

constexpr std::string_view kEstimates = "Estimates";
constexpr std::string_view kStandardHours = "StandardHours";
constexpr std::string_view kSpecialDays = "SpecialDays";
constexpr std::string_view kChecklist = "Checklist";
constexpr std::string_view kParts = "Parts";

std::vector<Value> LineValues(std::int32_t estimate, std::int32_t number, const de::Extra& line) {
  return {Long(estimate),   Long(number),     Text(line.VendorName), Text(line.VendorInvoice),
          Long(line.Cost),  Long(line.Price), Text(line.Desc1),      Text(line.Desc2),
          Text(line.Desc3), Text(line.Desc4), Text(line.Taxable)};
}

std::vector<Value> SurchargeValues(std::int32_t estimate, const de::SurchargeLine& line) {
  return {Long(estimate), Long(line.amount), Long(line.amount), Text(line.description), Text(line.taxable)};
}

}  // namespace

void de::KeepTrail(const Clock& clock, TrailAuthor author, Trail::Note note) {
  trail_ = std::make_unique<Trail>(*this, clock, std::move(author), std::move(note));
}

void de::Change(std::string_view command, const std::vector<Value>& values) {
  Follow(command, values, [&] { Run(command, values); });
}

void de::PostChange(std::string_view command, const std::vector<Value>& values) {
  Follow(command, values, [&] { Post(command, values); });
}

void de::Follow(std::string_view command, const std::vector<Value>& values, const std::function<void()>& change) {
  if (trail_) {
    trail_->Follow(command, values, change);
  } else {
    change();
  }
}

void de::NewEstimate(std::int32_t estimate, DaySerial date) { Change("NewEstimate", {Long(estimate), Day(date)}); }

void de::SetCustomer(std::int32_t customer, std::int32_t estimate) {
  Change("SetCustomer", {Long(customer), Long(estimate)});
}

void de::SetVehicle(FileLink vehicleLink, std::int32_t estimate) {
  Change("SetVehicle", {Long(vehicleLink), Long(estimate)});
}

Recordset& de::GetEstimatesByDate(DaySerial date) { return Run("GetEstimatesByDate", {Day(date)}); }

Recordset& de::EstimateByNumber(std::int32_t estimate) { return Run("EstimateByNumber", {Long(estimate)}); }

Recordset& de::HighestEstimate(std::int32_t upTo) { return Run("HighestEstimate", {Long(upTo)}); }

Recordset& de::LaborForEstimate(std::int32_t estimate) { return Run("LaborForEstimate", {Long(estimate)}); }

void de::AddLabor(std::int32_t estimate, std::int32_t laborNumber, std::string_view description, Hundredths hours,
                  Cents rate, Cents total, std::int32_t employee) {
  PostChange("AddLabor", {Long(estimate), Long(laborNumber), Text(description), Long(hours), Long(rate), Long(total),
                          Long(employee)});
}

void de::DeleteLabor(std::int32_t estimate, std::int32_t laborNumber) {
  Change("DeleteLabor", {Long(estimate), Long(laborNumber)});
}

void de::SetComments(std::string_view comments, std::int32_t estimate) {
  Change("SetComments", {Text(comments), Long(estimate)});
}

Recordset& de::GetStdHours() { return Run("GetStdHours", {}); }

Recordset& de::TotalsForEstimate(std::int32_t estimate) { return Run("TotalsForEstimate", {Long(estimate)}); }

Recordset& de::EstimatesOfWeek(DaySerial sunday) { return Run("EstimatesOfWeek", DaysFrom(sunday)); }

Recordset& de::TotalsOfWeek(DaySerial sunday) { return Run("TotalsOfWeek", DaysFrom(sunday)); }

Recordset& de::LaborOfDay(DaySerial date) { return Run("LaborOfDay", {Day(date)}); }

Recordset& de::EstimatesTable(DaySerial date) { return Run("EstimatesTable", {Day(date)}); }

Recordset& de::PartsTable(std::int32_t estimate) { return Run("PartsTable", {Long(estimate)}); }

void de::DeletePart(std::int32_t estimate, std::string_view part) {
  Change("DeletePart", {Long(estimate), Text(part)});
}

Recordset& de::SpecialDaysByDate(DaySerial date) { return Run("SpecialDaysByDate", {Day(date)}); }

Recordset& de::SpecialDaysTable(std::string_view from) { return Run("SpecialDaysTable", {Text(from)}); }

void de::SetStatus(std::int32_t status, std::int32_t estimate) { Change("SetStatus", {Long(status), Long(estimate)}); }

void de::CloneEstimate(std::int32_t oldEstimate, std::int32_t newEstimate) {
  Change("CloneEstimate", {Long(oldEstimate), Long(newEstimate)});
}

void de::CloneLabors(std::int32_t newEstimate, std::int32_t oldEstimate) {
  Change("CloneLabors", {Long(newEstimate), Long(oldEstimate)});
}

void de::CloneParts(std::int32_t newEstimate, std::int32_t oldEstimate) {
  Change("CloneParts", {Long(newEstimate), Long(oldEstimate)});
}

Recordset& de::NotesForEstimate(std::int32_t estimate) { return Run("NotesForEstimate", {Long(estimate)}); }

void de::AddNote(std::int32_t estimate, std::int32_t note, const std::vector<std::string>& eightLines) {
  std::vector<Value> values{Long(estimate), Long(note)};
  values.insert(values.end(), eightLines.begin(), eightLines.end());
  PostChange("AddNote", values);
}

void de::DeleteNote(std::int32_t estimate, std::int32_t note) { Change("DeleteNote", {Long(estimate), Long(note)}); }

void de::CloneNotes(std::int32_t newEstimate, std::int32_t oldEstimate) {
  Change("CloneNotes", {Long(newEstimate), Long(oldEstimate)});
}

Recordset& de::SubletsForEstimate(std::int32_t estimate) { return Run("SubletsForEstimate", {Long(estimate)}); }

void de::AddSublet(std::int32_t estimate, std::int32_t sublet, const Extra& line) {
  PostChange("AddSublet", LineValues(estimate, sublet, line));
}

void de::DeleteSublet(std::int32_t estimate, std::int32_t sublet) {
  Change("DeleteSublet", {Long(estimate), Long(sublet)});
}

void de::CloneSublets(std::int32_t newEstimate, std::int32_t oldEstimate) {
  Change("CloneSublets", {Long(newEstimate), Long(oldEstimate)});
}

Recordset& de::GetSublet(std::int32_t estimate, std::int32_t sublet) {
  return Run("GetSublet", {Long(estimate), Long(sublet)});
}

Recordset& de::EstimatesByCustomer(std::int32_t customer) { return Run("EstimatesByCustomer", {Long(customer)}); }

Recordset& de::SelectQuery() { return Run("SelectQuery", {}); }

void de::UpdateQuery() { Change("UpdateQuery", {}); }

Recordset& de::TechHours() { return Run("TechHours", {}); }

void de::SetVehicleNew(FileLink vehicleLink, const VehicleSnapshot& vehicle, std::int32_t estimate) {
  Change("SetVehicleNew", {Long(vehicleLink), BlankIfEmpty(vehicle.VehYear), BlankIfEmpty(vehicle.VehMake),
                           BlankIfEmpty(vehicle.VehModel), BlankIfEmpty(vehicle.VehVIN), BlankIfEmpty(vehicle.VehLic),
                           BlankIfEmpty(vehicle.VehDate), BlankIfEmpty(vehicle.VehMileage),
                           BlankIfEmpty(vehicle.VehEng), BlankIfEmpty(vehicle.VehTrans), Long(estimate)});
}

Recordset& de::WasteForEstimate(std::int32_t estimate) { return Run("WasteForEstimate", {Long(estimate)}); }

void de::AddWaste(std::int32_t estimate, std::int32_t waste, const Extra& line) {
  PostChange("AddWaste", LineValues(estimate, waste, line));
}

void de::DeleteWaste(std::int32_t estimate, std::int32_t waste) {
  Change("DeleteWaste", {Long(estimate), Long(waste)});
}

void de::CloneWaste(std::int32_t newEstimate, std::int32_t oldEstimate) {
  Change("CloneWaste", {Long(newEstimate), Long(oldEstimate)});
}

Recordset& de::GetWaste(std::int32_t estimate, std::int32_t waste) {
  return Run("GetWaste", {Long(estimate), Long(waste)});
}

Recordset& de::ChecklistForEstimate(std::int32_t estimate) { return Run("ChecklistForEstimate", {Long(estimate)}); }

void de::DeleteChecklist(std::int32_t estimate) { Change("DeleteChecklist", {Long(estimate)}); }

Recordset& de::ChecklistTable() { return Run("ChecklistTable", {}); }

Recordset& de::GetSubletSurcharge(std::int32_t estimate) { return Run("GetSubletSurcharge", {Long(estimate)}); }

void de::SetSubletSurcharge(Cents amount, std::int32_t estimate, std::int32_t sublet) {
  Change("SetSubletSurcharge", {Long(amount), Long(amount), Long(estimate), Long(sublet)});
}

void de::AddSubletSurcharge(std::int32_t estimate, const SurchargeLine& line) {
  Change("AddSubletSurcharge", SurchargeValues(estimate, line));
}

Recordset& de::GetWasteSurcharge(std::int32_t estimate) { return Run("GetWasteSurcharge", {Long(estimate)}); }

void de::SetWasteSurcharge(Cents amount, std::int32_t estimate, std::int32_t waste) {
  Change("SetWasteSurcharge", {Long(amount), Long(amount), Long(estimate), Long(waste)});
}

void de::AddWasteSurcharge(std::int32_t estimate, const SurchargeLine& line) {
  Change("AddWasteSurcharge", SurchargeValues(estimate, line));
}

void de::AddPartRow(std::int32_t estimate, const Part& part) {
  const std::vector<Value> values = {Long(estimate),      Text(part.PartNumber), Text(part.PartDesc),
                                     Long(part.Quantity), Long(part.PartPrice),  Long(part.PartTotal),
                                     Long(part.PartCost), Long(part.PartList)};
  Follow("AddPartRow", values, [&] {
    Connection().Insert(
        kParts,
        {"EstimateNumber", "PartNumber", "PartDesc", "Quantity", "PartPrice", "PartTotal", "PartCost", "PartList"},
        values);
  });
}

void de::UpdatePartRow(std::int32_t estimate, std::string_view storedNumber, const Part& part) {
  Change("UpdatePartRow", {Text(part.PartDesc), Long(part.Quantity), Long(part.PartPrice), Long(part.PartTotal),
                           Long(part.PartCost), Long(part.PartList), Long(estimate), Text(storedNumber)});
}

void de::AddChecklistRow(std::int32_t estimate, std::string_view data) {
  const std::vector<Value> values = {Long(estimate), Text(data)};
  Follow("AddChecklistRow", values, [&] {
    Connection().Insert(kChecklist, {"EstimateNumber", "ChecklistData"}, values);
  });
}

void de::AddEstimateRow(std::int32_t estimate, DaySerial date, std::int32_t status) {
  const std::vector<Value> values = {Long(estimate), Day(date), Long(status)};
  Follow("AddEstimateRow", values, [&] {
    Connection().Insert(kEstimates, {"EstimateNumber", "SchedDate", "Status"}, values);
  });
}

void de::UpdateStdHours(const std::array<std::int32_t, 7>& sundayToSaturday, std::int32_t fudgeFactor) {
  Recordset& row = GetStdHours();
  const bool isMissing = row.Eof();
  row.Close();
  if (isMissing) throw DatabaseError("StandardHours has no row with RecNum 1 to be changed.");
  std::vector<Value> values(sundayToSaturday.begin(), sundayToSaturday.end());
  values.push_back(Long(fudgeFactor));
  Follow("UpdateStdHours", {}, [&] {
    Connection().UpdateFirst(
        kStandardHours,
        {"SunHours", "MonHours", "TueHours", "WedHours", "ThuHours", "FriHours", "SatHours", "FudgeFactor"}, values,
        {"RecNum", Long(1)});
  });
}

void de::SaveSpecialDay(DaySerial date, std::int32_t hours, std::string_view description) {
  Recordset& row = SpecialDaysByDate(date);
  const bool isNew = row.Eof();
  row.Close();
  Follow("SaveSpecialDay", {Day(date)}, [&] {
    if (isNew) {
      Connection().Insert(kSpecialDays, {"SpecialDate", "SpecialHours", "SpecialDesc"},
                          {Day(date), Long(hours), Text(description)});
    } else {
      Connection().UpdateFirst(kSpecialDays, {"SpecialHours", "SpecialDesc"}, {Long(hours), Text(description)},
                               {"SpecialDate", Day(date)});
    }
  });
}

void de::DeleteSpecialDay(DaySerial date) {
  Follow("DeleteSpecialDay", {Day(date)}, [&] { Connection().DeleteFirst(kSpecialDays, {"SpecialDate", Day(date)}); });
}

void de::ForeseeDays(DaySerial sunday) {
  if (!Connection().IsFar()) return;
  std::vector<Foreseen> commands{{"GetStdHours", {}}};
  for (const Value& day : DaysFrom(sunday)) {
    commands.push_back({"SpecialDaysByDate", {day}});
    commands.push_back({"GetEstimatesByDate", {day}});
  }
  Foresee(commands);
}

void de::ForeseeWeek(DaySerial sunday, std::optional<DaySerial> laborOf) {
  if (!Connection().IsFar()) return;
  const std::vector<Value> days = DaysFrom(sunday);
  std::vector<Foreseen> commands{{"GetStdHours", {}}, {"EstimatesOfWeek", days}, {"TotalsOfWeek", days}};
  for (const Value& day : days) commands.push_back({"SpecialDaysByDate", {day}});
  if (laborOf) commands.push_back({"LaborOfDay", {Day(*laborOf)}});
  Foresee(commands);
}

void de::ForeseeEstimates(const std::vector<std::int32_t>& estimates) {
  if (!Connection().IsFar()) return;
  std::vector<Foreseen> commands;
  for (const std::string_view command : {"EstimateByNumber", "TotalsForEstimate", "LaborForEstimate"}) {
    for (const std::int32_t estimate : estimates) commands.push_back({command, {Long(estimate)}});
  }
  Foresee(commands);
}

void de::ForeseeLines(const std::vector<std::int32_t>& totalsOf, const std::vector<std::int32_t>& laborOf) {
  if (!Connection().IsFar()) return;
  std::vector<Foreseen> commands;
  for (const std::int32_t estimate : totalsOf) commands.push_back({"TotalsForEstimate", {Long(estimate)}});
  for (const std::int32_t estimate : laborOf) commands.push_back({"LaborForEstimate", {Long(estimate)}});
  Foresee(commands);
}

void de::ForeseeSurcharge(std::int32_t estimate) {
  if (!Connection().IsFar()) return;
  std::vector<Foreseen> commands;
  for (const std::string_view command : {"LaborForEstimate", "PartsTable", "GetSubletSurcharge", "GetWasteSurcharge"}) {
    commands.push_back({command, {Long(estimate)}});
  }
  Foresee(commands);
}

void de::ReadLinesAhead(std::int32_t estimate, const std::function<void()>& work) {
  std::vector<Foreseen> commands;
  for (const std::string_view command : {"PartsTable", "LaborForEstimate", "SubletsForEstimate", "WasteForEstimate",
                                         "ChecklistForEstimate", "NotesForEstimate"}) {
    commands.push_back({command, {Long(estimate)}});
  }
  ReadAhead(commands, work);
}

void de::ReadChargesAhead(std::int32_t estimate, const std::function<void()>& work) {
  ReadAhead({{"SubletsForEstimate", {Long(estimate)}}, {"WasteForEstimate", {Long(estimate)}}}, work);
}

}  // namespace lantos
