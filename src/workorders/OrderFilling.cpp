#include "workorders/OrderFilling.h"

#include <stdexcept>

#include "frame/Dates.h"
#include "frame/Numbers.h"
#include "records/inventory/Inventory.h"
#include "workorders/LaborCost.h"
#include "workorders/RunningTotals.h"

namespace lantos {

void OrderFilling::TakeCustomer(const CustomerRecord& customer) {
  const std::string nobody = order_.Customer.Get(customer::salesperson);
  order_.Customer = customer;
  if (order_.Customer.View(customer::salesperson).empty()) order_.Customer.Put(customer::salesperson, nobody);
}

void OrderFilling::TakeHeader(DaySerial day, const SystemRecord& system) {
  day_ = day;
  order_.Status = kWoStatusTexts[static_cast<std::size_t>(WoStatus::Open)];
  order_.Type = "Repair";
  const Inventory::PriceLevel level = order_.Customer.Get(customer::pricing_level);
  order_.Pricing = kPriceLevelNames[static_cast<std::size_t>(static_cast<int>(level))];
  order_.Totals.Put(wototals::DateOpen, ToFileDate(day));  // not today
  if (!order_.Customer.View(customer::tax_id_number).empty()) return;
  constexpr LongField rates[] = {sysrec::tax_rate_parts, sysrec::tax_rate_labor, sysrec::tax_rate_sublet,
                                 sysrec::tax_rate_waste};
  for (std::size_t i = 0; i < std::size(rates); ++i) order_.Totals.Put(wototals::TaxRate[i], system.Get(rates[i]));
}

WoPartLine OrderFilling::TakePart(const de::Part& part) {
  WoPartLine line;
  line.PartNumber = CutToField(part.PartNumber, WoPartLine::kNumberWidth);
  line.Description = CutToField(part.PartDesc, WoPartLine::kDescriptionWidth);
  line.Quantity = WoQuantity(part.Quantity);
  line.Cost = part.PartCost;
  line.Price = part.PartPrice;
  line.List = part.PartList;
  order_.Parts.Add(line);
  AddWoCost(order_, WoCategory::Parts, static_cast<std::int64_t>(line.Quantity) * line.Cost);
  AddWoAmount(order_, WoCategory::Parts, 0, LongOrOverflow(static_cast<std::int64_t>(line.Quantity) * line.Price));
  return line;
}

void OrderFilling::TakeLabor(WoLaborLine line) {
  if (line.Hours < 0) return;
  line.Date = FormatDate(day_);
  line.Commission = GetMechanicCommission(employees_, line.Mechanic);
  for (std::string& text : line.Desc) text = CutToField(text, WoLaborLine::kDescWidth);
  AddWoCost(order_, WoCategory::Labor, GetLaborCost(employees_, line.Hours, line.Rate, line.Mechanic));
  AddWoAmount(order_, WoCategory::Labor, 0, line.Total);
  order_.Labor.Add(std::move(line));
}

void OrderFilling::TakeExtra(const de::Extra& from, WoLines<WoExtraLine>& lines) {
  WoExtraLine line;
  line.Vendor = CutToField(from.VendorName, WoExtraLine::kVendorWidth);
  line.Invoice = CutToField(from.VendorInvoice, WoExtraLine::kInvoiceWidth);
  line.Cost = from.Cost;
  line.Price = from.Price;
  line.Description = from.Desc1 + "\t" + from.Desc2 + "\t" + from.Desc3 + "\t" + from.Desc4;
  line.Taxable = from.Taxable.empty() ? ' ' : from.Taxable[0];
  const WoCategory category = line.IsTaxable() ? WoCategory::Sublet : WoCategory::NonTaxSublet;
  AddWoCost(order_, category, line.Cost);
  AddWoAmount(order_, category, 0, line.Price);
  lines.Add(std::move(line));
}

void OrderFilling::TakeNote(const WoNote& note) {
  if (notes_ == kMaxNotes) {
    throw std::out_of_range("Subscript out of range: a work order has room for " + std::to_string(kMaxNotes) +
                            " notes.");
  }
  order_.Notes[notes_++] = note;
}

}  // namespace lantos
