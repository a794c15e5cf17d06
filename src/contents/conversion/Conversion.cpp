#include "contents/conversion/Conversion.h"

#include <limits>
#include <stdexcept>

#include "contents/labor/LaborRows.h"
#include "contents/parts/PartRows.h"
#include "estimatedb/VehicleSnapshots.h"
#include "frame/Dates.h"
#include "frame/FileError.h"
#include "frame/Numbers.h"
#include "frame/UpdateTurns.h"
#include "masters/vehicles/frmVehEdit.h"
#include "records/CheckList.h"
#include "records/Customers.h"
#include "records/LaborText.h"
#include "records/VehicleMatch.h"
#include "records/Vehicles.h"
#include "records/inventory/Inventory.h"
#include "records/inventory/UsageHistory.h"
#include "records/modEmployees.h"
#include "records/modSystem.h"
#include "screens/CheckPassword.h"
#include "workorders/LaborCost.h"
#include "workorders/RunningTotals.h"

namespace lantos {

namespace {

constexpr const char* kTitle = "Convert to WO";

// Quantities of work orders and stock have 16 bits.
std::int16_t Quantity16(std::int64_t value) {
  if (value < std::numeric_limits<std::int16_t>::min() || value > std::numeric_limits<std::int16_t>::max()) {
    throw std::overflow_error("Overflow: the quantity " + std::to_string(value) + " is too large for a work order.");
  }
  return static_cast<std::int16_t>(value);
}

}  // namespace

void Conversion::Run() {
  if (!MayEnter(bench_.shop, Section::Workorders) || !MayConvert() || !FindCustomer() || !Confirm()) return;
  ClearWorkorder(Order());
  if (!bench_.shop.records.checkList.ChecklistLoaded) bench_.shop.records.checkList.ClearCheckListValues();
  TakeCustomer();
  try {
    if (!TakeVehicle()) return;
    TakeNumber();
    FillHeader();
    TakeParts();
    TakeLabor();
    Recordset sublets = bench_.Data().SubletsForEstimate(bench_.Number());
    TakeExtras(sublets, Order().Sublets);
    Recordset waste = bench_.Data().WasteForEstimate(bench_.Number());
    TakeExtras(waste, Order().Waste);
    TakeNotes();
    WriteFiles();
    TellOfReorders();
    MarkEstimate();
    ChangeStatus();
  } catch (const std::exception& error) {
    RethrowWithWords(error);
  }
}

bool Conversion::MayConvert() {
  const StatusOptions& options = bench_.shop.environment.statusOptions;
  const std::int16_t status = Current().Status;
  std::string text;
  if (status == kScheduled && options[StatusOption::ScheduledToComplete] == 'E') {
    text = "Can not Convert to WO if estimate status is 'Scheduled'";
  } else if (status == kArrived && options[StatusOption::ArrivedToComplete] == 'E') {
    text = "Can not Convert to WO if estimate status is 'Arrived'";
  } else if (status < kScheduled || status >= kCompleted) {
    text = "Estimate status of '" + bench_.database.estimates.StatusText(Current().Status, Current().SchedDate) +
           "' can not be converted to a workorder";
  }
  if (!text.empty()) bench_.shop.desktop.Tell(text, kTitle, ui::Icon::Exclamation);
  return text.empty();
}

bool Conversion::FindCustomer() {
  if (bench_.shop.records.customers.LookupCustomer(Current().CustomerNumber, kNoLink)) return true;
  bench_.shop.desktop.Tell("The customer of this estimate isn't on file. Choose a customer first.", kTitle,
                           ui::Icon::Information);
  return false;
}

bool Conversion::Confirm() {
  const CustomerRecord& customer = bench_.shop.records.customers.CurrentCustomer;
  const std::string text =
      "This function will convert an estimate\rto a workorder which can then be managed\r"
      "by the Korvel application.\r\rThe estimate to be converted is # " +
      FormatZeros(bench_.Number(), 6) + "\rfor " + customer.Get(customer::Firstname) + " " +
      customer.Get(customer::Lastname) + ".\r\rDo you wish to continue?";
  return bench_.shop.desktop.Ask(text, kTitle, ui::Buttons::YesNo, ui::Icon::Question) == ui::Answer::Yes;
}

// Whole, but a salesperson who was never set stays what a cleared work order has.
void Conversion::TakeCustomer() {
  const std::string nobody = Order().Customer.Get(customer::salesperson);
  Order().Customer = bench_.shop.records.customers.CurrentCustomer;
  if (Order().Customer.View(customer::salesperson).empty()) Order().Customer.Put(customer::salesperson, nobody);
}

bool Conversion::TakeVehicle() {
  Vehicles& vehicles = bench_.shop.records.vehicles;
  const CustomerRecord& customer = bench_.shop.records.customers.CurrentCustomer;
  vehicles.CurrentVehicle = VehicleOf(SnapshotIn(Current()), customer.Get(customer::Number));
  vehicles.CurrentVehicleOffset = kNoLink;
  MatchVehicle(vehicles, customer.Get(customer::VLink));
  Order().Vehicle = vehicles.CurrentVehicle;
  const bool hasVehicle = !Trim(Current().VehYear + Current().VehMake + Current().VehModel).empty();
  if (!hasVehicle) return true;
  if (!EditVehicle()) return false;
  StoreVehicleIfChanged();
  return true;
}

bool Conversion::EditVehicle() {
  frmVehEdit form(bench_.shop, "Convert to WO - Vehicle Information");
  form.ShowModal();
  const bool saved = form.Saved();
  form.Unload();
  return saved || bench_.shop.desktop.Ask("Vehicle update cancelled.\r\rDo you wish to continue with the conversion?",
                                          kTitle, ui::Buttons::YesNo) == ui::Answer::Yes;
}

void Conversion::StoreVehicleIfChanged() {
  Vehicles& vehicles = bench_.shop.records.vehicles;
  if (IsSnapshotOf(SnapshotIn(Current()), vehicles.CurrentVehicle)) return;
  vehicles.WriteVehicle();
  const FileLink written = vehicles.CurrentVehicleOffset;
  if (written != kNoLink) Done("the vehicle was written");
  Order().Vehicle = vehicles.CurrentVehicle;
  const FileLink link = written != kNoLink ? written : Current().VehicleLink;
  const auto snapshot = SnapshotOf(vehicles.CurrentVehicle);
  // The record in memory last: while it differs, the next conversion stores it once more.
  bench_.Data().SetVehicleNew(link, snapshot, bench_.Number());
  Done("the estimate has its vehicle as it is now");
  PutSnapshot(Current(), snapshot);
  Current().VehicleLink = link;
}

// From here on the number is used up, whatever follows.
void Conversion::TakeNumber() {
  Order().WorkorderNumber = bench_.shop.records.system.TakeNumber(sysrec::last_workorder_number);
  Done("the number was taken");
}

void Conversion::FillHeader() {
  Workorder& order = Order();
  const SystemRecord& system = bench_.System();
  order.Status = kWoStatusTexts[static_cast<std::size_t>(WoStatus::Open)];
  order.Type = "Repair";
  const Inventory::PriceLevel level = order.Customer.Get(customer::pricing_level);
  order.Pricing = kPriceLevelNames[static_cast<std::size_t>(static_cast<int>(level))];
  order.Totals.Put(wototals::DateOpen, ToFileDate(Current().SchedDate));  // not today
  if (!order.Customer.View(customer::tax_id_number).empty()) return;
  constexpr LongField rates[] = {sysrec::tax_rate_parts, sysrec::tax_rate_labor, sysrec::tax_rate_sublet,
                                 sysrec::tax_rate_waste};
  for (std::size_t i = 0; i < std::size(rates); ++i) order.Totals.Put(wototals::TaxRate[i], system.Get(rates[i]));
}

void Conversion::TakeParts() {
  bench_.inventoryList.FinishLoading();
  Environment& environment = bench_.shop.environment;
  const FileIO::SteadyNames names(environment.files);
  UpdateTurns turns(environment.files.PathOf(kInventoryTagFile), environment.clock);
  Recordset rows = bench_.Data().PartsTable(bench_.Number());
  for (; !rows.Eof(); rows.MoveNext()) {
    const PartLine part = ReadPartLine(rows);
    WoPartLine line;
    line.PartNumber = CutToField(part.partNumber, WoPartLine::kNumberWidth);
    line.Description = CutToField(part.description, WoPartLine::kDescriptionWidth);
    line.Quantity = Quantity16(part.quantity);
    line.Cost = part.cost;
    line.Price = part.price;
    line.List = part.list;
    Order().Parts.Add(line);
    AddWoCost(Order(), WoCategory::Parts, static_cast<std::int64_t>(line.Quantity) * line.Cost);
    AddWoAmount(Order(), WoCategory::Parts, 0, LongOrOverflow(static_cast<std::int64_t>(line.Quantity) * line.Price));
    const std::string number = Trim(part.partNumber);
    // Other copies that take from stock wait from the reading to the writing: the stock falls by all of them.
    const UpdateTurns::Turn turn(turns);
    const std::int16_t stock = UpdateStockForConversion(number, line.Quantity, line.Cost, line.Price);
    if (stock < 1) reorderList_ += "\r" + number + " quantity in stock is now " + std::to_string(stock);
  }
}

void Conversion::CheckStockNumber(std::string_view found, const std::string& wanted, const char* file) {
  if (found == wanted) return;
  bench_.shop.desktop.Tell("Warning! Inventory " + std::string(file) + " file problem.\rLooking for '" + wanted +
                               "'\rFound '" + std::string(found) + "'",
                           "Convert - Update Inventory");
}

std::int16_t Conversion::UpdateStockForConversion(const std::string& partNumber, std::int16_t quantity, Cents cost,
                                                  Cents price) {
  Records& records = bench_.shop.records;
  Inventory& inventory = records.inventory;
  const Inventory::PartIndex index = inventory.FindPart(partNumber);
  if (index == Inventory::kNoPart) return 1;
  Environment& environment = bench_.shop.environment;
  FileLink offset = kNoLink;
  if (!inventory.ReadInventory(offset, index)) {
    environment.log.Write("Convert: the stock of " + partNumber + " could not be read and was not moved");
    return 1;
  }
  CheckStockNumber(inventory.CurrentInvTag.View(inventorytag::StockNumber), partNumber, "tag");
  CheckStockNumber(inventory.CurrentInv.View(inventory::StockNumber), partNumber, "master");
  const std::int16_t stock =
      Quantity16(static_cast<std::int64_t>(inventory.CurrentInvTag.Get(inventorytag::InStock)) - quantity);
  inventory.CurrentInvTag.Put(inventorytag::InStock, stock);
  inventory.CurrentInv.Put(inventory::QtyInStock, stock);
  const CustomerRecord& owner = Order().Customer;
  const UsageHistory::Use use{Order().WorkorderNumber, Order().Totals.Get(wototals::DateOpen),
                              owner.Get(customer::Lastname), owner.Get(customer::Firstname)};
  // The cost goes where the history has the price, and the price where it has the cost: so every record was made.
  const FileLink link = records.usageHistory.UpdateUsage(use, cost, price, quantity);
  if (link != kNoLink) inventory.CurrentInv.Put(inventory::UsageLink, link);
  Done("the usage of " + partNumber + " was noted");
  inventory.WriteInventory(offset, index, false, true);
  bench_.inventoryList.UpdateListRow(offset, index, false);
  Done("the stock of " + partNumber + " is now " + std::to_string(stock));
  return stock;
}

// Hours that were applied on an earlier day are negative, and stay behind.
void Conversion::TakeLabor() {
  modEmployees& employees = bench_.shop.records.employees;
  Recordset rows = bench_.Data().LaborForEstimate(bench_.Number());
  for (; !rows.Eof(); rows.MoveNext()) {
    WoLaborLine line = ReadLaborLine(rows);
    if (line.Hours < 0) continue;
    line.Date = FormatDate(Current().SchedDate);
    line.Commission = GetMechanicCommission(employees, line.Mechanic);
    for (std::string& text : line.Desc) text = CutToField(text, WoLaborLine::kDescWidth);
    AddWoCost(Order(), WoCategory::Labor, GetLaborCost(employees, line.Hours, line.Rate, line.Mechanic));
    AddWoAmount(Order(), WoCategory::Labor, 0, line.Total);
    Order().Labor.Add(std::move(line));
  }
}

// Waste too is totalled as sublets, and so has their tax. The written text sorts the subtotals out again; tax and
// total stay.
void Conversion::TakeExtras(Recordset& rows, WoLines<WoExtraLine>& lines) {
  for (; !rows.Eof(); rows.MoveNext()) {
    WoExtraLine line;
    line.Vendor = CutToField(rows.Text("VendorName"), WoExtraLine::kVendorWidth);
    line.Invoice = CutToField(rows.Text("VendorInvoice"), WoExtraLine::kInvoiceWidth);
    line.Cost = rows.Long("Cost");
    line.Price = rows.Long("Price");
    line.Description =
        rows.Text("Desc1") + "\t" + rows.Text("Desc2") + "\t" + rows.Text("Desc3") + "\t" + rows.Text("Desc4");
    const std::string taxable = rows.Text("Taxable");
    line.Taxable = taxable.empty() ? ' ' : taxable[0];
    const WoCategory category = line.IsTaxable() ? WoCategory::Sublet : WoCategory::NonTaxSublet;
    AddWoCost(Order(), category, line.Cost);
    AddWoAmount(Order(), category, 0, line.Price);
    lines.Add(std::move(line));
  }
}

void Conversion::TakeNotes() {
  Recordset rows = bench_.Data().NotesForEstimate(bench_.Number());
  for (std::size_t i = 0; !rows.Eof(); rows.MoveNext(), ++i) {
    if (i == kMaxNotes) {
      throw std::out_of_range("Subscript out of range: a work order has room for " + std::to_string(kMaxNotes) +
                              " notes.");
    }
    WoNote& note = Order().Notes[i];
    for (std::size_t line = 0; line < note.size(); ++line) note[line] = rows.Text("Desc" + std::to_string(line + 1));
  }
}

void Conversion::WriteFiles() {
  workorders_.WriteActiveWoTag();
  Done("the tag in " + std::string(kActiveTagFile) + " was written");
  if (workorders_.WriteArchivedWoTag()) {
    Done("the tag in " + std::string(kArchivedTagFile) + " was written");
  } else {
    bench_.shop.environment.log.Write("Convert: work order " + OrderNumber() + " has no tag in " +
                                      std::string(kArchivedTagFile));
  }
  workorders_.WriteWorkorderFile();
  isWritten_ = true;
  Done("the work order was written to " + Workorders::FileNameOf(Order().WorkorderNumber));
}

void Conversion::TellOfReorders() {
  if (reorderList_.empty()) return;
  bench_.shop.desktop.Tell("Parts which might need to be ordered.\r" + reorderList_, "Convert - Inventory Status",
                           ui::Icon::Information);
}

void Conversion::MarkEstimate() {
  bench_.estimate.StoreComments("Workorder # " + OrderNumber() + " " + Trim(bench_.estimate.CommentsOnShow()));
  Done("the comments of the estimate name the work order");
  bench_.shop.desktop.Tell("Estimate # " + FormatZeros(bench_.Number(), 6) + " is now Workorder # " + OrderNumber(),
                           kTitle, ui::Icon::Information);
}

void Conversion::ChangeStatus() {
  constexpr StatusOption options[] = {StatusOption::ScheduledToComplete, StatusOption::ArrivedToComplete,
                                      StatusOption::InProgressToComplete};
  ui::Desktop& desktop = bench_.shop.desktop;
  const auto status = static_cast<std::size_t>(Current().Status);
  const char letter = bench_.shop.environment.statusOptions[options[status]];
  if (letter == 'Y' ||
      (letter == 'A' && desktop.Ask("Change status to 'Completed'?", kTitle, ui::Buttons::YesNo) == ui::Answer::Yes)) {
    Current().Status = kCompleted;
    bench_.database.estimates.SaveStatus();
  }
  if (Current().Status == kCompleted) return;
  desktop.Tell(
      "Estimate status is still '" + bench_.database.estimates.StatusText(Current().Status, Current().SchedDate) + "'",
      kTitle, ui::Icon::Information);
}

std::string Conversion::OrderNumber() const { return FormatZeros(Order().WorkorderNumber, 6); }

std::string Conversion::Goal() const {
  return Order().WorkorderNumber == 0 ? "a work order" : "work order # " + OrderNumber();
}

void Conversion::Done(std::string step) {
  bench_.shop.environment.log.Write("Convert: estimate " + FormatZeros(bench_.Number(), 6) + " to " + Goal() + ": " +
                                    step);
  done_.push_back(std::move(step));
}

// Nothing is undone, so the operator has to know how far it came.
void Conversion::RethrowWithWords(const std::exception& error) const {
  if (done_.empty()) throw;
  std::string text =
      std::string(error.what()) + "\r\rThe conversion to " + Goal() + " stopped here. What was done before stays:";
  for (const std::string& step : done_) text += "\r- " + step;
  text += "\rThe next step was not finished.";
  if (isWritten_) text += "\r\rThe work order is there. Don't convert the estimate once more.";
  throw std::runtime_error(text);
}

}  // namespace lantos
