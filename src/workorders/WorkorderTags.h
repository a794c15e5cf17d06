#pragma once

#include <array>
#include <cstdint>
#include <string_view>

#include "records/Record.h"

namespace lantos {

// The money of a work order: 211 bytes that stand in its tags, and as keys in its text. Amounts are cents, rates
// millionths, dates FileDates.
namespace wototals {
inline constexpr LongField DateOpen{0};
inline constexpr LongField DateClosed{DateOpen.End()};
inline constexpr LongField DatePaid{DateClosed.End()};
inline constexpr LongField TaxRate[4] = {
    {DatePaid.End()}, {DatePaid.End() + 4}, {DatePaid.End() + 8}, {DatePaid.End() + 12}};
inline constexpr LongField Cost[6] = {{TaxRate[3].End()},      {TaxRate[3].End() + 4},  {TaxRate[3].End() + 8},
                                      {TaxRate[3].End() + 12}, {TaxRate[3].End() + 16}, {TaxRate[3].End() + 20}};
inline constexpr OpaqueField reserved{Cost[5].End(), 8};  // kept 0
inline constexpr LongField Subtotal[8] = {{reserved.End()},      {reserved.End() + 4},  {reserved.End() + 8},
                                          {reserved.End() + 12}, {reserved.End() + 16}, {reserved.End() + 20},
                                          {reserved.End() + 24}, {reserved.End() + 28}};
inline constexpr LongField Discount[4] = {
    {Subtotal[7].End()}, {Subtotal[7].End() + 4}, {Subtotal[7].End() + 8}, {Subtotal[7].End() + 12}};
inline constexpr LongField DollarDiscount{Discount[3].End()};
inline constexpr LongField WorkorderTax{DollarDiscount.End()};
inline constexpr LongField WorkorderTotal{WorkorderTax.End()};
inline constexpr ByteField PaymentMethod{WorkorderTotal.End()};  // index into PaymentMethodNames
inline constexpr std::size_t kSplits = 10;
constexpr ByteField SplitType(std::size_t row) { return {PaymentMethod.End() + row}; }
constexpr LongField SplitAmount(std::size_t row) { return {PaymentMethod.End() + kSplits + 4 * row}; }
constexpr LongField SplitDate(std::size_t row) { return {SplitAmount(kSplits).offset + 4 * row}; }
static_assert(SplitDate(kSplits).offset == 211);
}  // namespace wototals
using WoTotals = Record<wototals::SplitDate(wototals::kSplits).offset>;

// What an amount is for. Subtotals have all eight kinds, costs the first six, tax and discount rates the first four.
enum class WoCategory { Parts, Labor, Sublet, Waste, NonTaxSublet, NonTaxWaste, Credit, Fuel };

// TQOPENWO.DAT: the work orders that are open, closed or paid but not yet archived.
namespace wotag {
inline constexpr LongField WorkorderNumber{0};
inline constexpr TextField CustomerName{WorkorderNumber.End(), 32};  // "Last,First"
inline constexpr LongField CustomerNumber{CustomerName.End()};
inline constexpr TextField VIN{CustomerNumber.End(), 21};
inline constexpr TextField LicenseNumber{VIN.End(), 11};
inline constexpr ByteField Status{LicenseNumber.End()};  // place in kWoStatusTexts
inline constexpr ByteField Type{Status.End()};           // place in kWoTypeTexts
inline constexpr ByteField TaxExempt{Type.End()};        // 1 for a customer with a tax number
inline constexpr OpaqueField Totals{TaxExempt.End(), WoTotals::kLength};
inline constexpr TextField FileName{Totals.End(), 16};  // of the work order's text, in the data directory
static_assert(FileName.End() == 302);
// TQINCTAG.DAT: every work order. The same fields up to here, then where its text begins in TQINVOIC.DAT.
inline constexpr LongField MasterOffset{Totals.End()};  // kNoLink while it isn't archived
static_assert(MasterOffset.End() == 290);
}  // namespace wotag
using ActiveWoTag = Record<wotag::FileName.End()>;
using ArchivedWoTag = Record<wotag::MasterOffset.End()>;

inline constexpr std::string_view kActiveTagFile = "TQOPENWO.DAT";
inline constexpr std::string_view kArchivedTagFile = "TQINCTAG.DAT";
inline constexpr std::string_view kArchiveFile = "TQINVOIC.DAT";

enum class WoStatus { Open, Closed, Paid, Void, OnAccount };
inline constexpr std::array<std::string_view, 5> kWoStatusTexts = {"OPEN", "CLOSED", "PAID", "VOID", "ON ACCT"};
inline constexpr std::array<std::string_view, 7> kWoTypeTexts = {"repair",  "sales",   "estimate", "warranty",
                                                                 "sales 2", "sales 3", "sales 4"};

template <std::size_t Length>
WoTotals TotalsOf(const Record<Length>& tag) {
  WoTotals totals;
  std::copy_n(tag.Bytes().begin() + wotag::Totals.offset, WoTotals::kLength, totals.Bytes().begin());
  return totals;
}

// The day that counts for a work order: of its payment, its closing or its opening, by its status.
template <std::size_t Length>
std::int32_t DateOf(const Record<Length>& tag) {
  const WoTotals totals = TotalsOf(tag);
  switch (static_cast<WoStatus>(tag.Get(wotag::Status))) {
    case WoStatus::Paid:
      return totals.Get(wototals::DatePaid);
    case WoStatus::Closed:
    case WoStatus::OnAccount:
      return totals.Get(wototals::DateClosed);
    default:
      return totals.Get(wototals::DateOpen);
  }
}

// By the text in lower case without the blanks around it; 0 for any other.
std::uint8_t WoTypeCode(std::string_view text);
// By the exact text; the code given for any other.
std::uint8_t WoStatusCode(std::string_view text, std::uint8_t otherwise);

}  // namespace lantos
