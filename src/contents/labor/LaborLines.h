#pragma once

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
  void StoreLaborLine(std::int32_t number, WoLaborLine line);
  // List, database and the day follow; surcharge and totals are the caller's.
  void RemoveLaborLine(std::int32_t number);
  std::string EstimateDate() const;

  Workbench& bench_;
  NumberedList<WoLaborLine>& list_;  // by LaborNumber
  Surcharge& surcharge_;
};

}  // namespace lantos
