#pragma once

#include <functional>
#include <optional>

#include "contents/EstimateLines.h"
#include "contents/Surcharge.h"
#include "contents/Workbench.h"

namespace lantos {

// The labor of the estimate on show: its list, and the commands on it.
class LaborLines {
 public:
  LaborLines(Workbench& bench, NumberedList<WoLaborLine>& list, Surcharge& surcharge)
      : bench_(bench), list_(list), surcharge_(surcharge) {}

  // Stores the line under the next number. List, surcharge, totals and the day follow. The person has seen it in
  // frmLabor, or wants it as it is.
  void AddLaborLine(const WoLaborLine& line);
  // Fills the list from the database.
  void LoadLaborList();
  // On the screen only: the lines stay in the database, and keep their numbers.
  void ClearLaborList() { list_.Clear(); }
  // The line as the person leaves it in the labor screen; nothing when it isn't to be kept.
  std::optional<WoLaborLine> EditLaborLine(const WoLaborLine& line);

  // The commands of the board. Each works on the estimate on show.
  void Add();
  void Change();
  void Remove();

 private:
  // Surcharge, totals and the day follow the change. Where it fails on its way, list and all of them follow what the
  // database has.
  void Make(const std::function<void()>& change);
  // Database, list and the hours of the day.
  void StoreLaborLine(std::int32_t number, WoLaborLine line);
  void RemoveLaborLine(std::int32_t number);
  void GoBack();
  void AddToTheDay(Hundredths hours);
  std::string EstimateDate() const;

  Workbench& bench_;
  NumberedList<WoLaborLine>& list_;  // by LaborNumber
  Surcharge& surcharge_;
  std::int64_t hoursOfTheDay_ = 0;  // of the estimate, seen or not: as loaded, with what was changed since
};

}  // namespace lantos
