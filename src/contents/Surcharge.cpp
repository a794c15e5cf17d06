#include "contents/Surcharge.h"

#include <limits>

#include "contents/AmountFields.h"
#include "contents/EstimateTotals.h"
#include "frame/Numbers.h"
#include "frame/PlainWords.h"
#include "frame/Text.h"
#include "records/modSystem.h"

namespace lantos {

// The twins, each with the commands of its own.
struct SurchargeTable {
  std::string_view noun;
  std::string_view number;  // the column of the line's number
  LongField taxRate;
  Recordset& (de::*get)(std::int32_t estimate);
  void (de::*set)(Cents amount, std::int32_t estimate, std::int32_t number);
  void (de::*add)(std::int32_t estimate, const de::SurchargeLine& line);
  Recordset& (de::*line)(std::int32_t estimate, std::int32_t number);
};

namespace {

constexpr SurchargeTable kSublets = {"sublet",
                                     "SubletNumber",
                                     sysrec::tax_rate_sublet,
                                     &de::GetSubletSurcharge,
                                     &de::SetSubletSurcharge,
                                     &de::AddSubletSurcharge,
                                     &de::GetSublet};
constexpr SurchargeTable kWaste = {"waste charge",         "WasteNumber",          sysrec::tax_rate_waste,
                                   &de::GetWasteSurcharge, &de::SetWasteSurcharge, &de::AddWasteSurcharge,
                                   &de::GetWaste};
constexpr std::int32_t kNumberOfSurcharge = 1;  // always: a line of another origin that has it keeps it out
constexpr std::int64_t kWholeRate = 1000000;
constexpr std::int64_t kFlatUnit = 100;  // a flat amount is in hundredths of a cent

}  // namespace

Cents SurchargeOn(std::int64_t sum, Millionths rate) {
  if (rate == 0 || sum <= 0) return 0;
  if (rate < 0) return LongOrOverflow(DivideHalfEven(-static_cast<std::int64_t>(rate), kFlatUnit));
  constexpr std::int64_t kMost = std::numeric_limits<std::int64_t>::max();
  return LongOrOverflow(sum > kMost / rate ? kMost : DivideHalfEven(sum * rate, kWholeRate));
}

Surcharge::Refusal Surcharge::StoreWithSurcharge(const std::function<void()>& change, PartsCounted parts) {
  Refusal refusal;
  bench_.Data().Connection().Together([&] {
    change();
    refusal = TryToWrite(parts);
  });
  return refusal;
}

void Surcharge::TellRefusal(const Refusal& refusal) {
  if (!refusal) return;
  try {
    std::rethrow_exception(refusal);
  } catch (const std::exception& error) {
    bench_.estimate.RefreshTotals();
    bench_.estimate.RefreshDay();
    bench_.shop.desktop.EndEvent(error);
  }
}

void Surcharge::ApplySurcharge() { TellRefusal(TryToWrite(PartsCounted::NoneOffScreen)); }

Surcharge::Refusal Surcharge::TryToWrite(PartsCounted parts) {
  hasMadeItsLine_ = false;
  try {
    bench_.Data().Connection().Apart([&] { Write(parts); });
    return nullptr;
  } catch (const std::exception&) {
    hasMadeItsLine_ = false;
    return std::current_exception();
  }
}

void Surcharge::Write(PartsCounted parts) {
  const SystemRecord& system = bench_.System();
  if (system.Get(sysrec::labor_surcharge_percent) == 0 && system.Get(sysrec::parts_surcharge_percent) == 0) return;
  if (system.View(sysrec::surcharge_description).empty()) return;
  bench_.Data().ForeseeSurcharge(bench_.Number());
  SetSurchargeLine(IsSublet() ? kSublets : kWaste, Amount(StoredSums(parts)));
}

bool Surcharge::IsSublet() const { return bench_.System().Get(sysrec::surcharge_is_sublet) == 'Y'; }

Surcharge::Sums Surcharge::StoredSums(PartsCounted parts) {
  Sums sums;
  if (bench_.System().Get(sysrec::labor_surcharge_percent) != 0) {
    Recordset& labor = bench_.Data().LaborForEstimate(bench_.Number());
    for (; !labor.Eof(); labor.MoveNext()) {
      if (!lines_.labor.IsOffScreen(labor.Long("LaborNumber"))) sums.labor += CountedLabor(labor.Long("LaborTotal"));
    }
    labor.Close();
  }
  if (bench_.System().Get(sysrec::parts_surcharge_percent) != 0) {
    Recordset& stored = bench_.Data().PartsTable(bench_.Number());
    for (; !stored.Eof(); stored.MoveNext()) {
      const bool isOffScreen = lines_.partsOffScreen.contains(Trim(stored.Text("PartNumber")));
      if (parts == PartsCounted::All || !isOffScreen) sums.parts += stored.Long("PartTotal");
    }
    stored.Close();
  }
  return sums;
}

void Surcharge::MakeRoomInWaste() {
  if (IsSublet()) return;
  Recordset& row = bench_.Data().GetWasteSurcharge(bench_.Number());
  if (!row.Eof()) bench_.Data().DeleteWaste(bench_.Number(), row.Long(kWaste.number));
  row.Close();
}

Cents Surcharge::Amount(const Sums& sums) const {
  const SystemRecord& system = bench_.System();
  return Sum(SurchargeOn(sums.labor, system.Get(sysrec::labor_surcharge_percent)),
             SurchargeOn(sums.parts, system.Get(sysrec::parts_surcharge_percent)));
}

void Surcharge::SetSurchargeLine(const SurchargeTable& table, Cents amount) {
  de& data = bench_.Data();
  const std::int32_t estimate = bench_.Number();
  Recordset& row = (data.*table.get)(estimate);
  const bool isThere = !row.Eof();
  const std::int32_t number = isThere ? row.Long(table.number) : 0;
  row.Close();
  if (isThere) return (data.*table.set)(amount, estimate, number);
  try {
    Add(table, amount);
  } catch (const DatabaseError& error) {
    if (error.Kind() != DatabaseErrorKind::Duplicate) throw;
    throw WordedError(error.what(), WordsOfRefusal(table));
  }
}

void Surcharge::Add(const SurchargeTable& table, Cents amount) {
  const SystemRecord& system = bench_.System();
  (bench_.Data().*table.add)(
      bench_.Number(), {amount, system.Get(sysrec::surcharge_description), DefaultTaxable(system.Get(table.taxRate))});
  hasMadeItsLine_ = true;
}

// What is in the way, and how to get it out of there: a line that is added again has the next number.
std::string Surcharge::WordsOfRefusal(const SurchargeTable& table) {
  Recordset& row = (bench_.Data().*table.line)(bench_.Number(), kNumberOfSurcharge);
  const std::string holder = row.Eof() ? std::string() : Trim(row.Text("VendorName"));
  row.Close();
  const std::string noun(table.noun);
  return "The surcharge could not be stored: it needs the first place among the lines of its kind, and the " + noun +
         " \"" + holder + "\" stands there.\r\rWhat you changed is stored. To make room, add this " + noun +
         " once more, then remove the first one; the surcharge comes with the next change of labor or parts.";
}

}  // namespace lantos
