#pragma once

#include <string_view>

#include "records/Customers.h"
#include "records/MakesModels.h"
#include "records/Vehicles.h"
#include "workorders/Workorder.h"

// The sections of a work order's text as tables of their fields, in the order in which they are written. Writer and
// reader go by the same tables.
namespace lantos::wotext {

// [Workorder], behind the number. Times are written when they aren't blank.
enum class Blank { IsWritten, IsLeftOut };
struct HeaderKey {
  std::string_view key;
  std::string Workorder::*field;
  std::size_t limit;  // characters, 0 for any number
  Blank blank;
};
inline constexpr HeaderKey kHeaderKeys[] = {
    {"Status", &Workorder::Status, 0, Blank::IsWritten},
    {"Type", &Workorder::Type, 0, Blank::IsWritten},
    {"Pricing", &Workorder::Pricing, 0, Blank::IsWritten},
    {"TimeIn", &Workorder::TimeIn, kTimeWidth, Blank::IsLeftOut},
    {"TimeOut", &Workorder::TimeOut, kTimeWidth, Blank::IsLeftOut},
    {"TimePromised", &Workorder::TimePromised, kTimeWidth, Blank::IsLeftOut},
};

// [Totals]. Written when not 0: a date as mm/dd/yyyy, anything else as a number.
enum class Total { Number, Date };
struct TotalsKey {
  std::string_view key;
  LongField field;
  Total kind = Total::Number;
};
inline constexpr TotalsKey kTotalsKeys[] = {
    {"DateOpen", wototals::DateOpen, Total::Date},
    {"DateClosed", wototals::DateClosed, Total::Date},
    {"DatePaid", wototals::DatePaid, Total::Date},
    {"PartsTaxRate", wototals::TaxRate[0]},
    {"LaborTaxRate", wototals::TaxRate[1]},
    {"SubletTaxRate", wototals::TaxRate[2]},
    {"WasteTaxRate", wototals::TaxRate[3]},
    {"PartsCost", wototals::Cost[0]},
    {"LaborCost", wototals::Cost[1]},
    {"SubletCost", wototals::Cost[2]},
    {"NonTaxSubletCost", wototals::Cost[4]},
    {"WasteCost", wototals::Cost[3]},
    {"NonTaxWasteCost", wototals::Cost[5]},
    {"PartsSubtotal", wototals::Subtotal[0]},
    {"LaborSubtotal", wototals::Subtotal[1]},
    {"SubletSubtotal", wototals::Subtotal[2]},
    {"NonTaxSubletSubtotal", wototals::Subtotal[4]},
    {"WasteSubtotal", wototals::Subtotal[3]},
    {"NonTaxWasteSubtotal", wototals::Subtotal[5]},
    {"CreditSubtotal", wototals::Subtotal[6]},
    {"FuelSubtotal", wototals::Subtotal[7]},
    {"PartsDiscount", wototals::Discount[0]},
    {"LaborDiscount", wototals::Discount[1]},
    {"SubletDiscount", wototals::Discount[2]},
    {"WasteDiscount", wototals::Discount[3]},
    {"DollarDiscount", wototals::DollarDiscount},
    {"WorkorderTax", wototals::WorkorderTax},
    {"WorkorderTotal", wototals::WorkorderTotal},
};

// [Customer], behind the number. Each is written when it isn't blank.
struct TextKey {
  std::string_view key;
  TextField field;
};
inline constexpr TextKey kCustomerKeys[] = {
    {"Lastname", customer::Lastname},
    {"Firstname", customer::Firstname},
    {"Spouse", customer::Spouse},
    {"SpouseLastname", customer::SpouseLast},
    {"Address", customer::Address},
    {"City", customer::City},
    {"State", customer::State},
    {"Zip", customer::Zip},
    {"Phone1", customer::HomePhone},
    {"Phone2", customer::WorkPhone},
    {"Phone2ext", customer::WorkExt},
    {"Phone3", customer::OtherPhone},
    {"TaxIDNumber", customer::tax_id_number},
    {"Salesperson", customer::salesperson},
};

// [Vehicle]. The whole section is left out when the make is blank; other texts are written when they aren't.
inline constexpr TextKey kVehicleKeys[] = {
    {"Year", vehicle::Year},
    {"Make", vehicle::Make},
    {"Model", vehicle::Model},
    {"Engine", vehicle::EngineSize},
    {"Transmission", vehicle::Transmission},
    {"VIN", vehicle::VIN},
    {"LicenseNumber", vehicle::LicenseNumber},
    {"State", vehicle::State},
};
inline constexpr TextKey kVehicleComments[] = {
    {"VComment1", vehicle::VComment[0]},
    {"VComment2", vehicle::VComment[1]},
    {"VComment3", vehicle::VComment[2]},
    {"VComment4", vehicle::VComment[3]},
};

// Columns of the rows, counted from 1.
struct Column {
  std::size_t position;
  std::size_t width;
  constexpr std::size_t End() const { return position + width; }
};
namespace part {
inline constexpr Column PartNumber{1, 20};
inline constexpr Column Description{PartNumber.End(), 38};
inline constexpr Column Quantity{Description.End(), 5};
inline constexpr Column Cost{Quantity.End(), 12};
inline constexpr Column Price{Cost.End(), 12};
inline constexpr Column List{Price.End(), 12};
static_assert(List.End() == 100);
}  // namespace part
namespace labor {
inline constexpr std::size_t kDateWidth = 10;  // ahead of all, when the shop dates its labor
inline constexpr Column Mechanic{1, 6};
inline constexpr Column Hours{Mechanic.End(), 12};
inline constexpr Column Rate{Hours.End(), 12};
inline constexpr Column Commission{Rate.End(), 12};
inline constexpr Column Total{Commission.End(), 12};
inline constexpr std::size_t kDescription = Total.End();
// Behind the eighth tab.
inline constexpr Column FollowupMiles{1, 7};
inline constexpr Column FollowupDays{FollowupMiles.End() + 1, 5};
inline constexpr Column FollowupDate{FollowupDays.End() + 1, 7};
inline constexpr std::size_t kRepairCode = FollowupDate.End() + 1;
static_assert(kDescription == 55 && kRepairCode == 23);
}  // namespace labor
namespace extra {
inline constexpr Column Vendor{1, 31};
inline constexpr Column Invoice{Vendor.End(), 10};
inline constexpr Column Taxable{Invoice.End(), 1};
inline constexpr Column Cost{Taxable.End(), 12};
inline constexpr Column Price{Cost.End(), 12};
inline constexpr std::size_t kDescription = Price.End();
static_assert(kDescription == 67);
}  // namespace extra
namespace credit {
inline constexpr Column Amount{1, 12};
inline constexpr std::size_t kText = Amount.End();
}  // namespace credit

inline constexpr char kLineMark = '\t';

}  // namespace lantos::wotext
