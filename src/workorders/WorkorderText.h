#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "frame/Environment.h"
#include "records/CheckList.h"
#include "records/Customers.h"
#include "records/TextLineReader.h"
#include "ui/Desktop.h"
#include "workorders/Workorder.h"

// A work order as text: sections of lines, each opened by its heading and ended by an empty line. The same text stands
// alone in the file of an active work order, and among others in the archive.
namespace lantos {

inline constexpr std::string_view kWorkorderHeading = "[Workorder]";
inline constexpr std::string_view kNumberKey = "WorkorderNumber=";

// What writing and reading need beside the work order itself.
struct TextSurroundings {
  const ShopOptions& options;
  CheckListTable& checkList;
  DaySerial today;
};

// All sections in order, with their headings and empty lines. Sublets, waste and credits are summed up anew first, and
// a split payment without a date is dated today. A sum that 32 bits can't hold is std::overflow_error.
std::vector<std::string> WorkorderLines(Workorder& workorder, const TextSurroundings& around);
// The same with their line ends, as they stand in the archive. The text of an active one has a NUL behind them.
std::string WorkorderText(Workorder& workorder, const TextSurroundings& around);

// Reads sections into a work order that has been cleared. Nothing in a text is an error: what is missing or blank stays
// as cleared, what can't be understood is passed over.
class WorkorderReader {
 public:
  WorkorderReader(Workorder& workorder, const TextSurroundings& around, ui::Desktop& desktop, LineSource& lines)
      : workorder_(workorder), around_(around), desktop_(desktop), lines_(lines) {}
  // The record of a number from the customer files; false when there is none. Asked for as soon as the text names the
  // customer, whose other keys then overwrite it.
  std::function<bool(std::int32_t number, CustomerRecord& record)> liveCustomer;
  // Told the name of each check list entry that the table hasn't; without it a box tells the person at once.
  std::function<void(const std::string& name)> unknownEntry;

  // The section whose heading the line begins with, if it is one. Leaves in line what ended it: an empty line, the
  // heading of the next work order, or nothing more.
  void ParseWoSection(std::string& line);
  // The rest of [Workorder], from the line on.
  void ReadHeader(std::string& line);

 private:
  struct Sections;
  void ReadKeys(std::string& line, void (WorkorderReader::*take)(const std::string& key, const std::string& value));
  void ReadRows(std::string& line, void (WorkorderReader::*take)(const std::string& row));
  void TakeHeaderKey(const std::string& key, const std::string& value);
  void TakeTotalsKey(const std::string& key, const std::string& value);
  void TakeSplitKey(const std::string& key, const std::string& value);
  void TakeCustomerKey(const std::string& key, const std::string& value);
  void TakeVehicleKey(const std::string& key, const std::string& value);
  void TakePart(const std::string& row);
  void TakeLabor(const std::string& row);
  void TakeSublet(const std::string& row);
  void TakeWaste(const std::string& row);
  void TakeCredit(const std::string& row);
  void TakeNote(const std::string& row);
  void LoadCheckListValues(std::string& line);
  void TakeCheckListRow(const std::string& row);
  void TakePaymentMethod(ByteField field, const std::string& name);

  Workorder& workorder_;
  const TextSurroundings& around_;
  ui::Desktop& desktop_;
  LineSource& lines_;
  std::size_t notes_ = 0;
};

// Tells of check list entries that texts name and the shop hasn't (any more), all in one box; nothing of none.
void TellUnknownEntries(ui::Desktop& desktop, const std::vector<std::string>& names);

}  // namespace lantos
