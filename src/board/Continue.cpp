#include "board/Continue.h"

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
  DaySerial day;
  Hundredths taken;  // below zero for hours that were worked
  std::int32_t mechanic;
};

// A line that brings the copy's hours down by what was done.
void TakeOff(const Shop& shop, de& data, std::int32_t copy, const HoursApplied& applied) {
  // Taking the number has read the system record anew, and the rate with it.
  const Cents rate = shop.records.system.SysRec.Get(sysrec::shop_rate);
  data.AddLabor(copy, NextLaborNumber(data, copy), "HOURS APPLIED ON " + FormatDate(applied.day), applied.taken, rate,
                TotalAtShopRate(shop, applied.taken), applied.mechanic);
}

// What stands in the form, as the copy of the estimate and the line that is taken off it.
void CarryOn(Shop& shop, EstimateDatabase& database, const Estimate& old, DaySerial next, const frmContinue& form) {
  de& data = database.lantosData;
  const std::int32_t mechanic = EmployeeNumberOf(form.EmpList.Text());
  // Tried before anything is made: what doesn't fit leaves all as it was.
  const Hundredths taken = WholeOrOverflow(-(Val(form.txtHours.Text()) * 100));
  TotalAtShopRate(shop, taken);
  if (taken != 0) NextLaborNumber(data, old.EstimateNumber);
  EstimateCopy copy(database.estimates);
  copy.Run([&] {
    copy.Make(next, old.Status);
    data.SetStatus(old.Status, copy.Number());
    if (taken != 0) TakeOff(shop, data, copy.Number(), {old.SchedDate, taken, mechanic});
    const bool isStored =
        StoreUnlessChanged(shop, database, kTitle, [&] { data.SetStatus(kContinued, old.EstimateNumber); });
    if (!isStored) throw GivenUp("This estimate was left as it is.");
  });
}

}  // namespace

DaySerial ContinueCurrentEstimate(Shop& shop, EstimateDatabase& database) {
  const Estimate& current = database.estimates.CurrentEstimate;
  frmContinue form(shop);
  form.SetCaption("Continue - Est. # " + FormatZeros(current.EstimateNumber, 6));
  while (true) {
    form.ok = false;
    form.SetDate(current.SchedDate);
    form.ShowModal();
    if (!form.ok) return kNotContinued;
    try {
      if (ReadAfresh(shop, database, kTitle) == Meanwhile::Stops) continue;
      const Estimate old = current;
      const DaySerial next = NextBusinessDay(database.lantosData, old.SchedDate);
      CarryOn(shop, database, old, next, form);
      database.estimates.CurrentEstimate = old;
      return next;
    } catch (const DatabaseError& error) {  // nothing has been made yet: the hours are there for another try
      shop.desktop.EndEvent(error);
    }
  }
}

}  // namespace lantos
