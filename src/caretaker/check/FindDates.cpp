#include "caretaker/check/FieldTable.h"
#include "caretaker/check/Kinds.h"
#include "caretaker/check/Words.h"
#include "frame/Dates.h"

namespace lantos {

namespace {

constexpr FileDate kNoDate = 0, kNone = -1;

// Bare serials of old records are dates too.
bool IsDate(FileDate value) {
  static const FileDate last = ToFileDate(ToSerial({9999, 12, 31}));
  return value == kNoDate || value == kNone || (value > 0 && value <= last);
}

}  // namespace

void FindDates(ShopView& shop, const Tell& tell) {
  for (const FieldsOfFile& file : FieldTable()) {
    if (file.dates.empty()) continue;
    const FlatFiles::Bytes bytes = shop.flat.Read(file.file);
    for (std::size_t record = 0; (record + 1) * file.length <= bytes.size(); ++record) {
      for (const FieldsOfFile::Named& field : file.dates) {
        Record<4> value;
        std::memcpy(value.Bytes().data(), bytes.data() + record * file.length + field.offset, 4);
        const FileDate date = value.Get(LongField{0});
        if (IsDate(date)) continue;
        tell({std::string(file.file), RecordWords(record), std::string(field.name),
              fmt::format("{} is no date of the calendar", date)});
      }
    }
  }
  for (const EstimateRows::BadCell& cell : shop.Estimates().badDates) {
    tell({cell.database, fmt::format("{} {}", cell.table, cell.row), cell.column,
          fmt::format("\"{}\" is no date of the calendar", cell.text)});
  }
}

}  // namespace lantos
