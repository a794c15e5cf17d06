#include "board/Continue.h"

#include <algorithm>

#include "board/DayCapacity.h"
#include "board/EstimateCopy.h"
#include "board/frmContinue.h"
#include "contents/AmountFields.h"
#include "frame/Dates.h"
#include "frame/Numbers.h"
#include "frame/Text.h"
#include "records/modSystem.h"
#include "screens/EmployeeList.h"

namespace lantos {

namespace {

std::int32_t NextLaborNumber(de& database, std::int32_t estimate) {
  std::int32_t highest = 0;
  Recordset& labor = database.LaborForEstimate(estimate);
  for (; !labor.Eof(); labor.MoveNext()) highest = std::max(highest, labor.Long("LaborNumber"));
  labor.Close();
  return Sum(highest, 1);
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

}  // namespace

DaySerial ContinueCurrentEstimate(Shop& shop, EstimateDatabase& database) {
  const Estimate old = database.estimates.CurrentEstimate;
  de& data = database.lantosData;
  const DaySerial next = NextBusinessDay(data, old.SchedDate);
  frmContinue form(shop);
  form.SetCaption("Continue - Est. # " + FormatZeros(old.EstimateNumber, 6));
  form.SetDate(old.SchedDate);
  form.ShowModal();
  const double typed = Val(form.txtHours.Text()) * 100;
  const std::int32_t mechanic = EmployeeNumberOf(form.EmpList.Text());
  const bool goesOn = form.ok;
  form.Unload();
  if (!goesOn) return kNotContinued;
  // Tried before anything is made: what doesn't fit leaves all as it was.
  const Hundredths taken = WholeOrOverflow(-typed);
  TotalAtShopRate(shop, taken);
  if (taken != 0) NextLaborNumber(data, old.EstimateNumber);
  EstimateCopy copy(database.estimates);
  copy.Run([&] {
    copy.Make(next, old.Status);
    data.SetStatus(old.Status, copy.Number());
    if (taken != 0) TakeOff(shop, data, copy.Number(), {old.SchedDate, taken, mechanic});
    data.SetStatus(kContinued, old.EstimateNumber);
  });
  database.estimates.CurrentEstimate = old;
  return next;
}

}  // namespace lantos
