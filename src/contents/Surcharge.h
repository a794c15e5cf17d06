#pragma once

#include <exception>
#include <functional>
#include <string>

#include "contents/EstimateLines.h"
#include "contents/Workbench.h"

namespace lantos {

// The one line that the program writes by itself: it follows the totals of labor and parts. They are summed up in the
// transaction that writes it, over all that is stored by then, other workstations' lines too; only what the person has
// taken off the screen isn't counted.
class Surcharge {
 public:
  Surcharge(Workbench& bench, const EstimateLines& lines) : bench_(bench), lines_(lines) {}

  // Which parts are counted: a change that reads its list anew brings back those that were taken off the screen.
  enum class PartsCounted { NoneOffScreen, All };

  // A change of labor or parts and the surcharge that follows it, in one transaction. The line is written, 0 included,
  // to Sublets or Waste; nothing at all when the shop has no rate or no description for it. One that is refused leaves
  // the change as it is: why it was refused is handed back, for TellRefusal once the change can be seen.
  using Refusal = std::exception_ptr;
  [[nodiscard]] Refusal StoreWithSurcharge(const std::function<void()>& change,
                                           PartsCounted parts = PartsCounted::NoneOffScreen);
  // In a box, with totals and the day as they are then. Nothing where nothing was refused.
  void TellRefusal(const Refusal& refusal);
  // Where the lists have followed another workstation's lines.
  void ApplySurcharge();

  // Whether what was written last is a line of its own, and not the new amount of the one that there was.
  bool HasMadeItsLine() const { return hasMadeItsLine_; }
  // Takes a line among the waste away again, so that one that is added has the number that it would have without. To be
  // asked in a transaction that writes the surcharge behind it.
  void MakeRoomInWaste();

 private:
  // What it is worked out from, in cents.
  struct Sums {
    std::int64_t labor = 0;
    std::int64_t parts = 0;
  };
  Refusal TryToWrite(PartsCounted parts);
  void Write(PartsCounted parts);
  bool IsSublet() const;
  Sums StoredSums(PartsCounted parts);
  Cents Amount(const Sums& sums) const;
  void SetSurchargeLine(const struct SurchargeTable& table, Cents amount);
  void Add(const struct SurchargeTable& table, Cents amount);
  std::string WordsOfRefusal(const struct SurchargeTable& table);

  Workbench& bench_;
  const EstimateLines& lines_;
  bool hasMadeItsLine_ = false;
};

// A rate on a sum of cents, to a whole cent, halves to even: millionths of it, or, negative, a flat amount. Nothing
// without a sum. What doesn't fit ends the event: std::overflow_error.
Cents SurchargeOn(std::int64_t sum, Millionths rate);

}  // namespace lantos
