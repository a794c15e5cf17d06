#include "board/Continue.h"

#include "board/DayCapacity.h"
#include "board/EstimateCopy.h"
#include "board/frmContinue.h"
#include "contents/LineNumbers.h"
#include "contents/conversion/ReadAfresh.h"
#include "frame/Dates.h"
#include "frame/Numbers.h"
#include "frame/Text.h"
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

// A line that brings the copy's hours down by what was done.
struct HoursApplied {
  Hundredths taken = 0;  // below zero for hours that were worked
  std::int32_t mechanic = 0;

  bool operator==(const HoursApplied&) const = default;
};

// As it stands in a copy.
struct LineOfHours {
  std::int32_t copy = 0;  // none: 0
  std::int32_t number = 0;
  HoursApplied applied;
};

// A continuation that may be refused at any of its steps, and tried again from there.
class Continuation {
 public:
  Continuation(Shop& shop, EstimateDatabase& database)
      : shop_(shop),
        database_(database),
        old_(database.estimates.CurrentEstimate),
        next_(NextBusinessDay(database.lantosData, old_.SchedDate)),
        copy_(shop, database, kTitle) {}

  const Estimate& Old() const { return old_; }
  DaySerial Next() const { return next_; }
  bool HasCopied() const { return copy_.Number() != 0; }
  // What another copy has made of the estimate while the form was up is told and asked about.
  bool IsStillMeant();
  // What stands in the form, as the copy of the estimate and the line that is taken off it.
  void CarryOn(const frmContinue& form);

 private:
  // The estimate has another status or day than this began with.
  struct WasChanged {};
  void TakeUp();
  void CarryOnOnce(const frmContinue& form);
  void SetStatus(std::int32_t estimate, std::int16_t status);
  LineOfHours TakenOff(const HoursApplied& applied, const LineOfHours& before);

  Shop& shop_;
  EstimateDatabase& database_;
  Estimate old_;
  DaySerial next_;
  EstimateCopy copy_;
  LineOfHours line_;
};

void Continuation::CarryOn(const frmContinue& form) {
  for (;;) {
    try {
      return CarryOnOnce(form);
    } catch (const WasChanged&) {  // and the person goes on
      TakeUp();
    }
  }
}

void Continuation::CarryOnOnce(const frmContinue& form) {
  de& data = database_.lantosData;
  // Tried before anything is made: what doesn't fit leaves all as it was.
  const HoursApplied applied{.taken = WholeOrOverflow(-(Val(form.txtHours.Text()) * 100)),
                             .mechanic = EmployeeNumberOf(form.EmpList.Text())};
  TotalAtShopRate(shop_, applied.taken);
  if (applied.taken != 0) NextLaborNumber(data, old_.EstimateNumber);
  LineOfHours line = line_;
  const auto before = [&] {
    const Estimate& now = database_.estimates.CurrentEstimate;
    if (now.Status != old_.Status || now.SchedDate != old_.SchedDate) throw WasChanged{};
  };
  const auto rest = [&] {
    SetStatus(copy_.Number(), old_.Status);
    line = TakenOff(applied, line_);
    SetStatus(old_.EstimateNumber, kContinued);
  };
  copy_.Make(next_, old_.Status, {.before = before, .rest = rest, .stored = [&] { line_ = line; }});
}

void Continuation::SetStatus(std::int32_t estimate, std::int16_t status) {
  de& data = database_.lantosData;
  data.Connection().Apart([&] { data.SetStatus(status, estimate); });
}

bool Continuation::IsStillMeant() {
  if (ReadAfresh(shop_, database_, kTitle) == Meanwhile::Stops) return false;
  TakeUp();
  return true;
}

void Continuation::TakeUp() {
  old_ = database_.estimates.CurrentEstimate;
  next_ = NextBusinessDay(database_.lantosData, old_.SchedDate);
}

// In the place of the line of an earlier try.
LineOfHours Continuation::TakenOff(const HoursApplied& applied, const LineOfHours& before) {
  de& data = database_.lantosData;
  const LineOfHours old = before.copy == copy_.Number() ? before : LineOfHours{.copy = copy_.Number(), .applied = {}};
  if (applied == old.applied) return old;
  // Taking the number has read the system record anew, and the rate with it.
  const Cents rate = shop_.records.system.SysRec.Get(sysrec::shop_rate);
  LineOfHours line{.copy = old.copy, .applied = applied};
  data.Connection().Apart([&] {
    if (old.applied.taken != 0) data.DeleteLabor(old.copy, old.number);
    if (applied.taken == 0) return;
    line.number = NextLaborNumber(data, line.copy);
    data.AddLabor(line.copy, line.number, "HOURS APPLIED ON " + FormatDate(old_.SchedDate), applied.taken, rate,
                  TotalAtShopRate(shop_, applied.taken), applied.mechanic);
  });
  return line;
}

}  // namespace

Continued ContinueCurrentEstimate(Shop& shop, EstimateDatabase& database) {
  Continuation continuation(shop, database);
  const Estimate& old = continuation.Old();
  frmContinue form(shop);
  form.SetCaption("Continue - Est. # " + FormatZeros(old.EstimateNumber, 6));
  while (true) {
    form.ok = false;
    form.SetDate(old.SchedDate);
    form.ShowModal();
    if (!form.ok) return {kNotContinued, continuation.HasCopied()};
    try {
      if (!continuation.IsStillMeant()) continue;
      continuation.CarryOn(form);
      database.estimates.CurrentEstimate = old;
      return {continuation.Next(), true};
    } catch (const std::exception& error) {
      // What can't be carried on at all leaves all as it was; what was refused has its hours there for another try.
      if (!continuation.HasCopied() && dynamic_cast<const DatabaseError*>(&error) == nullptr) throw;
      shop.desktop.EndEvent(error);
    }
  }
}

}  // namespace lantos
