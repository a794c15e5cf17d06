#pragma once

#include <optional>

#include "contents/EstimateLines.h"
#include "contents/ListedLine.h"
#include "contents/Surcharge.h"
#include "contents/Workbench.h"

namespace lantos {

// The labor of the estimate on show: its list, and the commands on it.
class LaborLines {
 public:
  LaborLines(Workbench& bench, NumberedList<WoLaborLine>& list, Surcharge& surcharge)
      : bench_(bench), list_(list), surcharge_(surcharge) {}

  // Stores the line under a new number. List, surcharge, totals and the day follow. The person has seen it, or wants it
  // as it is.
  void AddLaborLine(const WoLaborLine& line);
  // The same with the line as the person leaves it in the labor screen, which stays until it is stored. False when it
  // isn't to be kept.
  bool EditAndAdd(const WoLaborLine& line);
  // Fills the list from the database.
  void LoadLaborList();
  // On the screen only: the lines stay in the database, and keep their numbers.
  void ClearLaborList();

  // The commands of the board. Each works on the estimate on show.
  void Add();
  void Change();
  void Remove();

 private:
  // What stands in the database and isn't seen yet.
  struct Stored {
    std::int32_t number = 0;
    WoLaborLine line;
    Surcharge::Refusal refusal;
  };
  // One that is to take the place of the line that has its number.
  struct Replaced {
    std::int32_t number;
    ListedLine line;
  };
  // Under a new number, or in place of another. Where the database refuses it, list, totals and the day follow what it
  // has.
  Stored Store(WoLaborLine line, Replaced* replaced = nullptr);
  void Write(Stored& stored, Replaced* replaced);
  // Asks where the line that is to be replaced is another by then; nothing when that one is kept.
  std::optional<Stored> StoreInPlace(const WoLaborLine& line, Replaced& replaced);
  std::optional<Stored> EditAndStore(const WoLaborLine& line, Replaced* replaced = nullptr);
  std::optional<LineValues> ValuesStored(std::int32_t number);
  void Show(const Stored& stored);
  void PutStored(const Stored& stored);
  void ShowWhatFollows(const Surcharge::Refusal& refusal);
  void RemoveLaborLine(std::int32_t number);
  void GoBack();
  void FollowDatabase();
  void AddToTheDay(Hundredths hours);
  std::string EstimateDate() const;

  Workbench& bench_;
  NumberedList<WoLaborLine>& list_;  // by LaborNumber
  Surcharge& surcharge_;
  std::int64_t hoursOfTheDay_ = 0;  // of the estimate, seen or not: as loaded, with what was changed since
};

}  // namespace lantos
