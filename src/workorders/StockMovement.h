#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "frame/UpdateTurns.h"
#include "records/inventory/UsageHistory.h"
#include "shop/Records.h"
#include "ui/Desktop.h"
#include "workorders/Workorder.h"

namespace lantos {

// The one place that takes parts out of stock: their use goes into the history, then tag and master are written, and
// the list in memory and whoever shows it follow. Stands for as long as the parts of one work order are moved. Each
// part is claimed for its own update only, so other copies see the stock fall part by part.
class StockMovement {
 public:
  // The list of parts is loaded to its end first. Each finished step is told in words.
  StockMovement(Environment& environment, ui::Desktop& desktop, Records& records,
                std::function<void(std::string step)> onDone);

  struct Taken {
    std::string number;  // trimmed
    std::int16_t quantity = 0;
    Cents cost = 0, price = 0;  // a unit
  };
  // Returns the stock that is left, below 0 when more was taken than there was. Nothing for a part that isn't in the
  // inventory, or whose record the person gave up to read: nothing moves then. A stock of more than 16 bits is
  // std::overflow_error, with nothing moved either.
  std::optional<std::int16_t> TakeOut(const Taken& part, const Workorder& order);

  // The numbers of the parts whose records the person gave up to read.
  const std::vector<std::string>& NotMoved() const { return notMoved_; }

  static UsageHistory::Use UseIn(const Workorder& order);

 private:
  void CheckNumber(std::string_view found, const std::string& wanted, std::string_view file);

  Environment& environment_;
  ui::Desktop& desktop_;
  Inventory& inventory_;
  UsageHistory& usageHistory_;
  std::function<void(std::string step)> onDone_;
  const FileIO::SteadyNames names_;
  UpdateTurns turns_;
  std::vector<std::string> notMoved_;
};

}  // namespace lantos
