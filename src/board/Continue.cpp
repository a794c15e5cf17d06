#include "board/Continue.h"

#include <utility>

#include "board/DayCapacity.h"
#include "board/EstimateCopy.h"
#include "board/frmContinue.h"
#include "contents/LineNumbers.h"
#include "contents/conversion/ReadAfresh.h"
#include "frame/Dates.h"
#include "frame/Numbers.h"
#include "frame/Text.h"
#include "records/GivenUp.h"
#include "records/modSystem.h"
#include "screens/EmployeeList.h"

namespace lantos {

namespace {

constexpr const char* kTitle = "Continue";

std::int32_t NextLaborNumber(de& database, std::int32_t estimate) {
  return NumberForNewLine(database.LaborForEstimate(estimate), "LaborNumber");
}

Cents TotalAtShopRate(const Shop& shop, Hundredths hours) {
  const std::int64_t rate = shop.records.system.SysRec.Get(sysrec::shop_rate);
  return LongOrOverflow(DivideHalfEven(hours * rate, 100));
}

struct HoursApplied {
  Hundredths taken = 0;  // below zero for hours that were worked
  std::int32_t mechanic = 0;

  bool operator==(const HoursApplied&) const = default;
};

// A continuation that may be refused at any of its steps, and tried again from there.
class Continuation {
 public:
  Continuation(Shop& shop, EstimateDatabase& database) : shop_(shop), database_(database), copy_(database.estimates) {}

  const Estimate& Old() const { return old_; }
  DaySerial Next() const { return next_; }
  bool HasCopied() const { return copy_.Number() != 0; }
  // What stands in the form, as the copy of the current estimate and the line that is taken off it.
  void CarryOn(const frmContinue& form);

 private:
  void TakeOff(const HoursApplied& applied);

  Shop& shop_;
  EstimateDatabase& database_;
  Estimate old_;  // and the day behind it, at the last try
  DaySerial next_ = kNotContinued;
  EstimateCopy copy_;
  std::int32_t shortened_ = 0;  // the copy that hours were taken off, and by which line
  HoursApplied takenOff_;
  std::int32_t lineOfHours_ = 0;
};

void Continuation::CarryOn(const frmContinue& form) {
  de& data = database_.lantosData;
  old_ = database_.estimates.CurrentEstimate;
  next_ = NextBusinessDay(data, old_.SchedDate);
  // Tried before anything is made: what doesn't fit leaves all as it was.
  const HoursApplied applied{.taken = WholeOrOverflow(-(Val(form.txtHours.Text()) * 100)),
                             .mechanic = EmployeeNumberOf(form.EmpList.Text())};
  TotalAtShopRate(shop_, applied.taken);
  if (applied.taken != 0) NextLaborNumber(data, old_.EstimateNumber);
  copy_.Run([&] {
    copy_.Make(next_, old_.Status);
    data.SetStatus(old_.Status, copy_.Number());
    if (std::exchange(shortened_, copy_.Number()) != copy_.Number()) takenOff_ = {};
    if (applied != takenOff_) TakeOff(applied);
    const bool isStored =
        StoreUnlessChanged(shop_, database_, kTitle, [&] { data.SetStatus(kContinued, old_.EstimateNumber); });
    if (!isStored) throw GivenUp("This estimate was left as it is.");
  });
}

// A line that brings the copy's hours down by what was done, in the place of the one of an earlier try.
void Continuation::TakeOff(const HoursApplied& applied) {
  de& data = database_.lantosData;
  // Taking the number has read the system record anew, and the rate with it.
  const Cents rate = shop_.records.system.SysRec.Get(sysrec::shop_rate);
  std::int32_t line = lineOfHours_;
  data.Connection().Together([&] {
    if (takenOff_.taken != 0) data.DeleteLabor(copy_.Number(), lineOfHours_);
    if (applied.taken == 0) return;
    line = NextLaborNumber(data, copy_.Number());
    data.AddLabor(copy_.Number(), line, "HOURS APPLIED ON " + FormatDate(old_.SchedDate), applied.taken, rate,
                  TotalAtShopRate(shop_, applied.taken), applied.mechanic);
  });
  lineOfHours_ = line;
  takenOff_ = applied;
}

}  // namespace

Continued ContinueCurrentEstimate(Shop& shop, EstimateDatabase& database) {
  Continuation continuation(shop, database);
  const Estimate& current = database.estimates.CurrentEstimate;
  frmContinue form(shop);
  form.SetCaption("Continue - Est. # " + FormatZeros(current.EstimateNumber, 6));
  while (true) {
    form.ok = false;
    form.SetDate(current.SchedDate);
    form.ShowModal();
    if (!form.ok) return {kNotContinued, continuation.HasCopied()};
    try {
      if (ReadAfresh(shop, database, kTitle) == Meanwhile::Stops) continue;
      continuation.CarryOn(form);
      database.estimates.CurrentEstimate = continuation.Old();
      return {continuation.Next(), true};
    } catch (const std::exception& error) {  // the hours are there for another try
      shop.desktop.EndEvent(error);
    }
  }
}

}  // namespace lantos
