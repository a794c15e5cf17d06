#include "printing/VehicleSummary.h"

#include <algorithm>

#include "frame/Dates.h"
#include "frame/Numbers.h"
#include "records/Customers.h"
#include "records/OpenedFile.h"
#include "records/Vehicles.h"

namespace lantos {

namespace {

constexpr std::size_t kBlock = 256;  // tags
constexpr const char* kNotesRule = "*-*-*-*-*-*-*-*-*-*-*-*-*-*-*-*-*-*-*-*-*-*-*-*-*-*-*-*-*-*-*-*-*-*-*-*";
constexpr const char* kNotesHeading = "*-*-*-*-*-*-*-*-*-*-*-*-*-* Workorder Notes *-*-*-*-*-*-*-*-*-*-*-*-*-*";

// The same day of an earlier year; of a year without that day the day before it.
DaySerial YearsBack(DaySerial day, int years) {
  CivilDate date = FromSerial(day);
  date.year = std::max(date.year - years, 100);
  if (!IsValid(date)) date.day = 28;
  return ToSerial(date);
}

// An old record has the bare serial. 0 for a tag without its day.
template <std::size_t Length>
FileDate DayOf(const Record<Length>& tag) {
  const FileDate date = DateOf(tag);
  return date == 0 ? 0 : ToFileDate(FromFileDate(date));
}

bool ReadTag(Workorders& workorders, FileHandle file, std::int64_t position, ActiveWoTag& tag) {
  return workorders.ReadActiveWO(file, position, tag);
}
bool ReadTag(Workorders& workorders, FileHandle file, std::int64_t position, ArchivedWoTag& tag) {
  return workorders.ReadArchWO(file, position, tag);
}

// The newest first; of one day the higher number.
template <std::size_t Length>
void Sort(std::vector<Record<Length>>& tags) {
  std::stable_sort(tags.begin(), tags.end(), [](const Record<Length>& a, const Record<Length>& b) {
    const FileDate dayA = DayOf(a), dayB = DayOf(b);
    return dayA != dayB ? dayA > dayB : a.Get(wotag::WorkorderNumber) > b.Get(wotag::WorkorderNumber);
  });
}

}  // namespace

template <std::size_t Length>
std::vector<Record<Length>> VehicleSummary::Find(FileHandle handle, std::string_view vin) {
  const FileDate latest = ToFileDate(environment_.Today());
  const FileDate cutoff = ToFileDate(YearsBack(environment_.Today(), environment_.printOptions.VehSummaryYears));
  const SharedFile& file = environment_.openFiles[handle];
  std::vector<Record<Length>> found, block(kBlock);
  std::uint64_t end = file.Length();
  while (end >= Length) {
    const auto count = static_cast<std::size_t>(std::min<std::uint64_t>(end / Length, kBlock));
    end -= count * Length;
    file.ReadAt(end, std::as_writable_bytes(std::span(block).first(count)));
    for (std::size_t i = count; i-- > 0;) {
      // Nearly all tags are told apart by the first byte; a blank may stand ahead of the text.
      const char first = static_cast<char>(block[i].Bytes()[wotag::VIN.offset]);
      if ((first != vin.front() && first != ' ') || block[i].View(wotag::VIN) != vin) continue;
      const FileDate date = DayOf(block[i]);
      if (date != 0 && date >= cutoff && date <= latest) found.push_back(block[i]);
    }
  }
  // In a file that isn't whole tags the first one begins inside another's place, which is told.
  if (end > 0 && file.Length() >= Length) ReadTag(workorders_, handle, static_cast<std::int64_t>(end), block.front());
  Sort(found);
  return found;
}

VehicleSummary::VehicleSummary(Environment& environment, ui::Desktop& desktop, Records& records)
    : environment_(environment),
      checkList_(records.checkList),
      workorders_(environment, desktop, records, checkList_) {}

void VehicleSummary::Compose(std::string_view vin, ReportLines& lines) {
  lines.Add("***** Vehicle Summary *****");
  lines.AddBlank();
  OpenedFile file(environment_.openFiles);
  file.TakeOver(workorders_.OpenActiveWOForReading());
  const auto active = Find<ActiveWoTag::kLength>(file.Handle(), vin);
  file.Close();
  for (const ActiveWoTag& tag : active) {
    workorders_.CurrentActiveTag = tag;
    if (workorders_.GetCurrWoRec()) PrintWorkorder(DayOf(tag), lines);
  }
  file.TakeOver(workorders_.OpenArchWOForReading("cmdPrintWorksheet"));
  const auto archived = Find<ArchivedWoTag::kLength>(file.Handle(), vin);
  file.Close();
  for (const ArchivedWoTag& tag : archived) {
    const FileLink offset = tag.Get(wotag::MasterOffset);
    if (offset == kNoLink) continue;  // active still, and printed above
    if (workorders_.GetArchWo(tag.Get(wotag::WorkorderNumber), offset)) PrintWorkorder(DayOf(tag), lines);
  }
}

void VehicleSummary::PrintWorkorder(FileDate date, ReportLines& lines) const {
  const Workorder& order = workorders_.Current;
  lines.Add("Workorder: " + FormatZeros(order.WorkorderNumber, 6) + " " + FormatDate(FromFileDate(date)) +
            " Mileage: " + std::to_string(order.Vehicle.Get(vehicle::Mileage)) +
            " Customer: " + order.Customer.Get(customer::Lastname) + ", " + order.Customer.Get(customer::Firstname));
  const int shown = environment_.printOptions.VehSummaryLaborLines;
  order.Labor.ForEach([&](const WoLaborLine& labor) {
    for (std::size_t i = 0; i < labor.Desc.size(); ++i) {
      if (i == 0 || (static_cast<int>(i) < shown && !Trim(labor.Desc[i]).empty())) lines.Add("       " + labor.Desc[i]);
    }
  });
  bool any = false;
  for (const WoNote& note : order.Notes) {
    for (const std::string& line : note) {
      if (Trim(line).empty()) continue;
      if (!any) lines.Add(kNotesHeading);
      any = true;
      lines.Add(line);
    }
  }
  if (any) lines.Add(kNotesRule);
  lines.AddBlank();
}

}  // namespace lantos
