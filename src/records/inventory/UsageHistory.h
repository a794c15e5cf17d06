#pragma once

#include "frame/Environment.h"
#include "records/inventory/Inventory.h"
#include "ui/Desktop.h"

namespace lantos {

// TQUSEHST.DAT: parts that left the stock for work orders, each part's records chained from its master, newest first.
namespace usage {
inline constexpr TextField StockNumber{0, 21};
inline constexpr LongField WorkorderNumber{StockNumber.End()};
inline constexpr LongField Date{WorkorderNumber.End()};  // FileDate of the work order
inline constexpr TextField CustomerKey{Date.End(), 32};  // "Last,First"
inline constexpr IntegerField Quantity{CustomerKey.End()};
inline constexpr LongField Price{Quantity.End()};  // Cents; a conversion puts the part's cost here
inline constexpr LongField Cost{Price.End()};      // and here its price
inline constexpr LongField PrevLink{Cost.End()};   // FileLink of the part's record before this one
inline constexpr ByteField reserved{PrevLink.End()};
static_assert(reserved.End() == 76);
}  // namespace usage
using UsageRecord = Record<usage::reserved.End()>;

inline constexpr std::string_view kUsageFile = "TQUSEHST.DAT";

class UsageHistory {
 public:
  UsageHistory(Environment& environment, ui::Desktop& desktop, Inventory& inventory)
      : environment_(environment), desktop_(desktop), inventory_(inventory) {}

  // What the parts are used for.
  struct Use {
    std::int32_t workorderNumber = 0;
    FileDate date = 0;
    std::string customerLastname, customerFirstname;
  };
  // Adds a record for the part in the working records of the inventory, and returns its link, which the caller puts
  // into the part's master. A file that somebody holds is waited for, with a box after each three tries; kNoLink when
  // something else keeps it from being written and the person goes on without it.
  FileLink UpdateUsage(const Use& use, Cents price, Cents cost, std::int16_t quantity);
  // Takes a record from the history that nothing leads to any more: cut off where it is the last one. Another one's
  // place must stay what links say it is: it is blanked, and is nobody's. A file that can't be had is asked about;
  // false when the person gives it up.
  bool TakeBack(FileLink link);
  // The record that it adds; the part's newest one until then is at prevLink.
  static UsageRecord RecordOf(const Use& use, std::string_view stockNumber, Cents price, Cents cost,
                              std::int16_t quantity, FileLink prevLink);

 private:
  Environment& environment_;
  ui::Desktop& desktop_;
  Inventory& inventory_;
};

}  // namespace lantos
