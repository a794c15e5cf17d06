#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "records/AskedTurn.h"
#include "records/inventory/UsageHistory.h"
#include "shop/Records.h"
#include "ui/Desktop.h"
#include "workorders/ConversionJournal.h"
#include "workorders/Workorder.h"

namespace lantos {

// The one place that takes parts out of stock: their use goes into the history, then tag and master are written, and
// the list in memory and whoever shows it follow. Stands for as long as the parts of one work order are moved. Each
// part is claimed for its own update only, so other copies see the stock fall part by part.
class StockMovement {
 public:
  // Who wants to know beforehand: how a part is ahead of its first step, and which record its usage got (kNoLink: the
  // person goes on without) ahead of its stock. What they throw ends the movement there.
  struct Beforehand {
    std::function<void(const JournaledPart& part)> part;
    std::function<void(const std::string& part, FileLink usage)> stock;
  };
  // The list of parts is loaded to its end first. Each finished step is told in words.
  StockMovement(Environment& environment, ui::Desktop& desktop, Records& records,
                std::function<void(std::string step)> onDone, Beforehand beforehand = {});

  // Seeks the parts of these numbers in the tag file in one walk; sought one by one, each would cost a walk of its own.
  void Foresee(const std::vector<std::string>& numbers);

  struct Taken {
    std::string number;  // trimmed
    std::int16_t quantity = 0;
    Cents cost = 0, price = 0;  // a unit
  };
  // Returns the stock that is left, below 0 when more was taken than there was. Nothing for a part that isn't in the
  // inventory, or whose record the person gave up to read or to write: its stock doesn't move then. A stock of more
  // than 16 bits is std::overflow_error, with nothing moved either.
  std::optional<std::int16_t> TakeOut(const Taken& part, const Workorder& order);

  // The numbers of the parts that the person gave up.
  struct GivenUpParts {
    std::vector<std::string> notRead;     // nothing was done for them
    std::vector<std::string> notWritten;  // their stock is as it was
    std::vector<std::string> notNoted;    // their stock was moved, and the usage history doesn't tell of it
    std::vector<std::string> inTagAlone;  // their stock was moved in the tag, and the master couldn't follow
    std::vector<std::string> onlyNoted;   // their stock is as it was, and the usage history tells of a use
  };
  const GivenUpParts& NotDone() const { return notDone_; }

  static UsageHistory::Use UseIn(const Workorder& order);

 private:
  std::optional<std::int16_t> MoveInTurn(const Taken& part, const Workorder& order, Inventory::PartIndex index);
  void GiveUp(const std::string& number, Inventory::PartIndex index);
  void Note(std::vector<std::string>& list, const std::string& number, const std::string& what);
  void CheckNumber(std::string_view found, const std::string& wanted, std::string_view file);

  Environment& environment_;
  ui::Desktop& desktop_;
  Inventory& inventory_;
  UsageHistory& usageHistory_;
  std::function<void(std::string step)> onDone_;
  Beforehand beforehand_;
  const FileIO::SteadyNames names_;
  UpdateTurns turns_;
  GivenUpParts notDone_;
  // Of the part that is being moved: its usage, once that is noted, and the stock that its records are to have.
  FileLink usage_ = kNoLink;
  std::optional<std::int16_t> written_;
};

}  // namespace lantos
