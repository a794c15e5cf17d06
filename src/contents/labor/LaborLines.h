#pragma once

#include <map>

#include "contents/Surcharge.h"
#include "contents/Workbench.h"

namespace lantos {

// The labor of the estimate on show: the line in work, the list, and the commands on it.
class LaborLines {
 public:
  LaborLines(Workbench& bench, Surcharge& surcharge) : bench_(bench), surcharge_(surcharge) {}

  static constexpr std::int32_t kNextNumber = -1;

  WoLaborLine CurrentLabor;
  std::int32_t LastLaborNumber = 0;  // the highest seen of the estimate on show

  void ClearLaborLine(Cents rate);
  // Stores CurrentLabor: under the next number for kNextNumber, which the variable then has. List, surcharge, totals
  // and the day follow. The person must have looked at it in frmLabor, or wants it as it is.
  void AddLaborLine(std::int32_t& laborNumber);
  // Of the number row. List, database and the day follow; surcharge and totals are the caller's.
  void RemoveLaborLine(int numberRow);
  // Fills the list, empty until now, from the database.
  void LoadLaborList();
  // CurrentLabor through the labor screen. True when it is to be kept.
  bool EditLaborLine();

  // The commands of the board. Each works on the estimate on show.
  void Add();
  void Change();
  void Remove();

 private:
  void ShowLaborLine(std::int32_t laborNumber);
  int SelectedNumberRow() const;  // -1 when no row is selected
  std::string EstimateDate() const;

  Workbench& bench_;
  Surcharge& surcharge_;
  std::map<std::int32_t, WoLaborLine> lines_;  // behind the rows, by LaborNumber
};

}  // namespace lantos
