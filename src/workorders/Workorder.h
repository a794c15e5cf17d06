#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "frame/Types.h"
#include "records/Customers.h"
#include "records/Vehicles.h"
#include "workorders/WorkorderTags.h"

namespace lantos {

// Each detail list of a work order ends in an entry with the first mark; one with the second was removed and is passed
// over. The mark stands where MarkerOf looks.
inline constexpr std::string_view kDone = "done";
inline constexpr std::string_view kFree = "free";

// Texts are at most a character less than their field: the last byte is its NUL.
inline std::string CutToField(std::string_view text, std::size_t width) {
  return TrimNull(text.substr(0, std::min(text.find('\0'), width - 1)));
}

// Quantities of work orders and stock have 16 bits; std::overflow_error for more.
std::int16_t WoQuantity(std::int64_t value);

struct WoPartLine {
  static constexpr std::size_t kNumberWidth = 21;
  static constexpr std::size_t kDescriptionWidth = 39;
  std::string PartNumber;
  std::string Description;
  std::int16_t Quantity = 0;
  Cents Cost = 0, Price = 0, List = 0;  // a unit
};

// A line of labor, of an estimate or a work order.
struct WoLaborLine {
  static constexpr std::size_t kDescWidth = 64;
  std::string Date;           // "mm/dd/yyyy", or empty
  std::int32_t Mechanic = 0;  // employee number, 0 for none
  Hundredths Hours = 0;
  Cents Rate = 0;  // an hour
  Millionths Commission = 0;
  Cents Total = 0;  // what was typed, not Hours x Rate
  std::array<std::string, 8> Desc;
  std::int32_t FollowupMiles = 0;
  std::int32_t FollowupDays = 0;
  FileDate FollowupDate = 0;
  std::string RepairCode;
};

// A line of sublets or waste as the screens hold it.
struct ExtraLine {
  std::string Vendor;   // at most 31 characters
  std::string Invoice;  // at most 10
  Cents Cost = 0;
  Cents Price = 0;
  std::array<std::string, 4> Desc;
  std::string Taxable;  // "Yes" or "No"
};
inline constexpr std::string_view kSurchargeVendor = "SURCHARGE";

// The same in a work order.
struct WoExtraLine {
  static constexpr std::size_t kVendorWidth = 32;
  static constexpr std::size_t kInvoiceWidth = 11;
  std::string Vendor;
  std::string Invoice;
  Cents Cost = 0, Price = 0;
  std::string Description;  // its lines joined by tabs
  char Taxable = ' ';       // 'Y' when it is

  bool IsTaxable() const { return Taxable == 'Y'; }
};

struct WoCreditLine {
  Cents Amount = 0;
  std::array<std::string, 4> Text;
};

inline std::string& MarkerOf(WoPartLine& line) { return line.PartNumber; }
inline std::string& MarkerOf(WoLaborLine& line) { return line.Desc[0]; }
inline std::string& MarkerOf(WoExtraLine& line) { return line.Vendor; }
inline std::string& MarkerOf(WoCreditLine& line) { return line.Text[0]; }

// A detail list with its sentinel. Adding and walking go by the marks, not by a count.
template <class Line>
class WoLines {
 public:
  WoLines() { Clear(); }
  void Clear() {
    lines_.assign(1, {});
    MarkerOf(lines_.back()) = kDone;
  }
  // In front of the sentinel.
  void Add(Line line) { lines_.insert(lines_.end() - 1, std::move(line)); }
  // The entries up to the first sentinel, removed ones left out. What a damaged text holds behind a mark of its own
  // isn't looked at.
  template <class Use>
  void ForEach(Use use) const {
    for (const Line& line : lines_) {
      const std::string_view marker = TrimView(MarkerOf(const_cast<Line&>(line)));
      if (marker == kDone) return;
      if (marker != kFree) use(line);
    }
  }
  std::size_t Size() const { return lines_.size(); }  // the sentinel counted
  const Line& operator[](std::size_t index) const { return lines_.at(index); }

 private:
  std::vector<Line> lines_;
};

inline constexpr std::size_t kNoteLines = 8;
inline constexpr std::size_t kMaxNotes = 30;
using WoNote = std::array<std::string, kNoteLines>;

inline constexpr std::size_t kTimeWidth = 6;
inline constexpr std::size_t kPaymentCommentWidth = 32;

// The one current work order of a run, shared by all who read or write one. Cleared until an estimate is converted;
// that work order stays. Cleared means: texts empty but for the salesperson "None", no vehicle, all figures 0, every
// list just its sentinel.
struct Workorder {
  Workorder();

  std::int32_t WorkorderNumber = 0;
  std::string Status, Type, Pricing;  // Pricing is the name of a price level
  std::string TimeIn, TimeOut, TimePromised;
  std::string PaymentComment;
  CustomerRecord Customer;
  VehicleRecord Vehicle;
  WoTotals Totals;
  Cents AmountDue = 0;  // the total less what was paid in a split; never stored
  WoLines<WoPartLine> Parts;
  WoLines<WoLaborLine> Labor;
  WoLines<WoExtraLine> Sublets;
  WoLines<WoExtraLine> Waste;
  WoLines<WoCreditLine> Credits;
  std::array<WoNote, kMaxNotes> Notes;
};

void ClearWorkorder(Workorder& workorder);

}  // namespace lantos
