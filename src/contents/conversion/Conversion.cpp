#include "contents/conversion/Conversion.h"

#include <algorithm>

#include "contents/CustomerOfEstimate.h"
#include "contents/conversion/ReadAfresh.h"
#include "contents/parts/PartRows.h"
#include "estimatedb/VehicleSnapshots.h"
#include "frame/Numbers.h"
#include "frame/UpdateTurns.h"
#include "masters/vehicles/StoredVehicle.h"
#include "masters/vehicles/frmVehEdit.h"
#include "records/CheckList.h"
#include "records/Customers.h"
#include "records/GivenUp.h"
#include "records/VehicleMatch.h"
#include "records/Vehicles.h"
#include "records/modEmployees.h"
#include "records/modSystem.h"
#include "screens/CheckPassword.h"
#include "workorders/JournalsOnDisk.h"
#include "workorders/StockMovement.h"
#include "workorders/WorkorderNumbers.h"

namespace lantos {

namespace {

constexpr const char* kTitle = "Convert to WO";

// A paragraph behind the last message; empty when there is nothing to name.
std::string Named(const std::string& what, const std::vector<std::string>& parts) {
  if (parts.empty()) return {};
  std::string text = "\r\r" + what + "\r";
  for (const std::string& part : parts) text += "\r" + part;
  return text;
}

// Nothing was typed: one that is on file is written as it lies there.
void WriteUntyped(Vehicles& vehicles) {
  if (vehicles.CurrentVehicleOffset == kNoLink) return vehicles.WriteVehicle();
  if (!vehicles.Update(vehicles.CurrentVehicleOffset, [](VehicleRecord&) {})) vehicles.CurrentVehicleOffset = kNoLink;
}

}  // namespace

Conversion::Conversion(const Workbench& bench, Workorders& workorders)
    : bench_(bench),
      workorders_(workorders),
      filling_(workorders.Current, bench.shop.records.employees),
      done_(bench.shop.environment.log, bench.Number(), workorders.Current) {}

void Conversion::Run() {
  if (!MayEnter(bench_.shop, Section::Workorders) || !IsStillMeant()) return;
  try {
    if (!AskAll()) return;
    TakeNumber();
    rows_.emplace(bench_.Data(), bench_.Number());
    journal_->Holds(rows_->Contents(Current()));
    journal_->Force();
    TakeLinesAndWrite({});
  } catch (const std::exception& error) {
    done_.Rethrow(error);
  }
}

// The questions take minutes: what other copies have made of the estimate meanwhile is looked at behind them, and for
// another customer or vehicle they are asked anew.
bool Conversion::AskAll() {
  for (;;) {
    if (!MayConvert() || !HasCustomer(bench_.shop, Current().CustomerNumber, kTitle) || !Confirm()) return false;
    BeginOrder();
    if (!TakeVehicle()) return false;
    const Estimate asked = Current();
    if (!IsStillMeant()) return false;
    if (HasCustomerAndVehicleOf(Current(), asked)) return Current().Status == asked.Status || MayConvert();
  }
}

void Conversion::BeginOrder() {
  ClearWorkorder(Order());
  if (!bench_.shop.records.checkList.ChecklistLoaded) bench_.shop.records.checkList.ClearCheckListValues();
  filling_.TakeCustomer(bench_.shop.records.customers.CurrentCustomer);
}

Finishing Conversion::Finish(const BegunConversion& begun, ConversionJournal& journal) {
  begun_ = &begun;
  journal_ = &journal;
  if (begun.hasFiles) {
    FinishEstimate();
    return Finishing::Ended;
  }
  const CustomerFound customer = FindCustomer(bench_.shop, Current().CustomerNumber);
  if (customer == CustomerFound::NotRead) {
    throw GivenUp("The customer of this estimate could not be read. The conversion stays half done.");
  }
  if (customer == CustomerFound::NotOnFile) {
    TellNotFound(bench_.shop, customer, kTitle);
    return Finishing::NotPossible;
  }
  const Workorders::FilesWritten written = workorders_.FilesOf(begun.workorder);
  rows_.emplace(bench_.Data(), bench_.Number());
  if (!SellsWhatItBegan(written)) return Finishing::Ended;
  BeginOrder();
  FindVehicle();
  Order().WorkorderNumber = begun.workorder;
  hasTakenNumber_ = true;
  try {
    TakeLinesAndWrite(written);
  } catch (const std::exception& error) {
    done_.Rethrow(error);
  }
  return Finishing::Ended;
}

// The main application may have closed and archived the work order by then: none of its files is touched.
void Conversion::FinishEstimate() {
  Order().WorkorderNumber = begun_->workorder;
  hasTakenNumber_ = true;
  try {
    MarkEstimate();
    ChangeStatus();
    journal_->Remove();
  } catch (const std::exception& error) {
    done_.Rethrow(error);
  }
}

// Of lines that were changed since a conversion without files is undone, and one with a tag asked about. The text tells
// what was sold, once it is there.
bool Conversion::SellsWhatItBegan(const Workorders::FilesWritten& written) {
  ui::Desktop& desktop = bench_.shop.desktop;
  const StockRepair stock(bench_.shop.environment, desktop, bench_.shop.records, begun_->workorder);
  std::vector<JournaledPart> moved = begun_->parts;
  std::erase_if(moved, [&](const JournaledPart& part) { return stock.UseOf(part) == StockRepair::Use::NotNoted; });
  const std::vector<std::string> lacking = rows_->Lacking(moved);
  const std::string undo = "\rUndo the conversion, and convert it anew.";
  if (!written.Any() && !lacking.empty()) {
    desktop.Tell("The parts of this estimate were changed since: " + lacking.front() +
                     " was taken out of stock as it was then." + undo,
                 kTitle, ui::Icon::Exclamation);
    return false;
  }
  isAsBegun_ = !begun_->contents || *begun_->contents == rows_->Contents(Current());
  if (isAsBegun_ || written.text) return true;
  const std::string text = "The estimate was changed since its conversion was begun, and would be sold as it is now.";
  if (!written.Any()) {
    desktop.Tell(text + undo, kTitle, ui::Icon::Exclamation);
    return false;
  }
  notDone_ += Named("The stock of these parts was changed as the estimate had them before:", lacking);
  return desktop.Ask(text + "\rIt can not be undone, since its tag is there.\r\rDo you wish to finish it so?", kTitle,
                     ui::Buttons::YesNo, ui::Icon::Exclamation) == ui::Answer::Yes;
}

void Conversion::TakeLinesAndWrite(const Workorders::FilesWritten& written) {
  filling_.TakeHeader(Current().SchedDate, bench_.System());
  TakeParts(written);
  rows_->TakeOthers(filling_);
  WriteFiles(written);
  TellOfReorders();
  MarkEstimate();
  ChangeStatus();
  journal_->Remove();
}

bool Conversion::IsStillMeant() {
  return ReadAfresh(bench_.shop, bench_.database, bench_.estimate, kTitle) != Meanwhile::Stops;
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

bool Conversion::Confirm() {
  const CustomerRecord& customer = bench_.shop.records.customers.CurrentCustomer;
  const std::string text =
      "This function will convert an estimate\rto a workorder which can then be managed\r"
      "by the Korvel application.\r\rThe estimate to be converted is # " +
      FormatZeros(bench_.Number(), 6) + "\rfor " + customer.Get(customer::Firstname) + " " +
      customer.Get(customer::Lastname) + ".\r\rDo you wish to continue?";
  return bench_.shop.desktop.Ask(text, kTitle, ui::Buttons::YesNo, ui::Icon::Question) == ui::Answer::Yes;
}

void Conversion::FindVehicle() {
  Vehicles& vehicles = bench_.shop.records.vehicles;
  const CustomerRecord& customer = bench_.shop.records.customers.CurrentCustomer;
  const VehicleRecord wanted = VehicleOf(SnapshotIn(Current()), customer.Get(customer::Number));
  const auto found = MatchVehicle(vehicles, wanted, customer.Get(customer::VLink));
  vehicles.MakeCurrent(found ? found->record : wanted, found ? found->offset : kNoLink);
  filling_.TakeVehicle(vehicles.CurrentVehicle);
}

bool Conversion::TakeVehicle() {
  FindVehicle();
  const bool hasVehicle = !Trim(Current().VehYear + Current().VehMake + Current().VehModel).empty();
  if (!hasVehicle) return true;
  if (!EditVehicle()) return false;
  StoreVehicleIfChanged();
  return true;
}

bool Conversion::EditVehicle() {
  isVehicleWritten_ = false;
  frmVehEdit form(bench_.shop, bench_.shop.records.vehicles.CurrentVehicle, "Convert to WO - Vehicle Information",
                  [this](const VehicleRecord& read, VehicleRecord& ours) { return StoreEdited(read, ours); });
  form.ShowModal();
  const bool saved = form.Saved();
  form.Unload();
  return saved || bench_.shop.desktop.Ask("Vehicle update cancelled.\r\rDo you wish to continue with the conversion?",
                                          kTitle, ui::Buttons::YesNo) == ui::Answer::Yes;
}

// With the screen up, so that whoever goes back from a question finds what was typed. One that isn't on file yet can't
// have been changed by others.
bool Conversion::StoreEdited(const VehicleRecord& read, VehicleRecord& ours) {
  const FileLink place = bench_.shop.records.vehicles.CurrentVehicleOffset;
  if (place == kNoLink || IsSnapshotOf(SnapshotIn(Current()), ours)) return true;
  const VehicleStored stored = StoreVehicle(bench_.shop, place, read, ours, kTitle);
  if (stored == VehicleStored::GoneBack) return false;
  isVehicleWritten_ = true;
  if (stored == VehicleStored::NotWritten) bench_.shop.records.vehicles.CurrentVehicleOffset = kNoLink;
  return true;
}

// An estimate that another copy has given another customer or vehicle keeps them, and so does the vehicles' file: the
// look behind the questions takes them over.
void Conversion::StoreVehicleIfChanged() {
  Vehicles& vehicles = bench_.shop.records.vehicles;
  if (!isVehicleWritten_ && IsSnapshotOf(SnapshotIn(Current()), vehicles.CurrentVehicle)) return;
  try {
    if (!HasItsVehicleStill()) return;
  } catch (const DatabaseError&) {  // which the write below runs into too, and tells with what was done by then
  }
  if (!isVehicleWritten_) WriteUntyped(vehicles);
  const FileLink written = vehicles.CurrentVehicleOffset;
  if (written != kNoLink) done_.Add("the vehicle was written");
  filling_.TakeVehicle(vehicles.CurrentVehicle);
  const FileLink link = written != kNoLink ? written : Current().VehicleLink;
  const auto snapshot = SnapshotOf(vehicles.CurrentVehicle);
  bool isStored = false;
  bench_.Data().Connection().Together([&] {
    isStored = HasItsVehicleStill();
    // The record in memory last: while it differs, the next conversion stores it once more.
    if (isStored) bench_.Data().SetVehicleNew(link, snapshot, bench_.Number());
  });
  if (!isStored) return;
  done_.Add("the estimate has its vehicle as it is now");
  PutSnapshot(Current(), snapshot);
  Current().VehicleLink = link;
}

bool Conversion::HasItsVehicleStill() {
  const std::optional<Estimate> now = OnFile(bench_.Data(), Current());
  return now && HasCustomerAndVehicleOf(*now, Current());
}

// From here on the number is used up, whatever follows.
void Conversion::TakeNumber() {
  Environment& environment = bench_.shop.environment;
  WorkorderNumbers numbers(environment, bench_.shop.desktop);
  const LoneTurn turn(environment.files.PathOf(kSystemFile), environment.clock);  // a backup lets none begin
  // Nobody else takes a number meanwhile: the second of two that convert the estimate finds the first one's journal.
  const auto begin = [&](std::int32_t number) {
    if (ownJournal_) ownJournal_->Remove();
    const std::vector<JournalOnDisk> journals = LookAtJournals(environment);
    const JournalOnDisk* const other = FindConversionOf(journals, bench_.Number());
    if (other != nullptr) throw GivenUp(BeingConverted(*other->begun));
    ownJournal_.emplace(environment, bench_.shop.desktop, bench_.Number(), number);
  };
  const std::optional<std::int32_t> taken = bench_.shop.records.system.TakeFreeNumber(
      sysrec::last_workorder_number, [&](std::int32_t number) { return numbers.IsTaken(number); },
      {.found = {}, .beforehand = begin, .highest = [&] { return numbers.Highest(); }});
  if (!taken) throw std::runtime_error("The work order was given no number.");
  Order().WorkorderNumber = *taken;
  hasTakenNumber_ = true;
  journal_ = &*ownJournal_;
  done_.Add("the number was taken");
  journal_->TakesNumber();
}

void Conversion::TakeParts(const Workorders::FilesWritten& written) {
  FinishStock();
  StockMovement stock(bench_.shop.environment, bench_.shop.desktop, bench_.shop.records,
                      [this](std::string step) { done_.Add(std::move(step)); },
                      {.part = [this](const JournaledPart& part) { journal_->WillMove(part); },
                       .stock = [this](const std::string& part, FileLink usage) { journal_->HasNoted(part, usage); }});
  const bool isSold = written.text && !isAsBegun_;  // whatever the lines are by now
  if (!isSold) stock.Foresee(PartNumbers(rows_->Parts()));
  for (Recordset rows = rows_->Parts(); !rows.Eof(); rows.MoveNext()) {
    const PartLine part = ReadPartLine(rows);
    const WoPartLine line = filling_.TakePart(RowOf(part));
    if (isSold || IsMoved(part.partNumber)) continue;
    const auto left = stock.TakeOut({part.partNumber, line.Quantity, line.Cost, line.Price}, Order());
    if (left && *left < 1)
      reorderList_ += "\r" + part.partNumber + " quantity in stock is now " + std::to_string(*left);
  }
  const StockMovement::GivenUpParts& notDone = stock.NotDone();
  notDone_ += Named("The stock of these parts could not be read and was not changed:", notDone.notRead) +
              Named("The stock of these parts could not be written and was not changed:", notDone.notWritten) +
              Named("The use of these parts could not be noted in the usage history:", notDone.notNoted) +
              Named("The stock of these parts was changed in " + std::string(kInventoryTagFile) + ", but not in " +
                        std::string(kInventoryFile) + ":",
                    notDone.inTagAlone) +
              Named("The usage history tells a use of these parts, whose stock was not changed:", notDone.onlyNoted);
}

// By what ended in the middle: what is missing of it has been done then.
bool Conversion::IsMoved(const std::string& number) {
  if (begun_ == nullptr) return false;
  const auto part = std::find_if(begun_->parts.begin(), begun_->parts.end(),
                                 [&](const JournaledPart& journaled) { return journaled.number == number; });
  return part != begun_->parts.end() && isNoted_[static_cast<std::size_t>(part - begun_->parts.begin())];
}

// Ahead of the turns of the parts that weren't begun.
void Conversion::FinishStock() {
  if (begun_ == nullptr) return;
  StockRepair repair(bench_.shop.environment, bench_.shop.desktop, bench_.shop.records, begun_->workorder);
  for (const JournaledPart& part : begun_->parts) {
    isNoted_.push_back(repair.UseOf(part) != StockRepair::Use::NotNoted);
    repair.Complete(part);
  }
  notDone_ += Named("Count the stock of these parts, which was changed meanwhile:", repair.ToBeCounted());
}

void Conversion::WriteFiles(const Workorders::FilesWritten& written) {
  journal_->WillWrite("tags and text");
  journal_->Force();
  if (!written.activeTag) {
    workorders_.WriteActiveWoTag();
    done_.Add("the tag in " + std::string(kActiveTagFile) + " was written");
  }
  if (!written.archivedTag) WriteArchivedTag(written);
  // A text that is there to its end may have been worked on since.
  if (!written.text) workorders_.WriteWorkorderFile();
  done_.AddText("the work order was written to " + Workorders::FileNameOf(Order().WorkorderNumber));
}

// Of other lines than the text has it would tell other totals.
void Conversion::WriteArchivedTag(const Workorders::FilesWritten& written) {
  workorders_.PrepareTag();
  if ((isAsBegun_ || !written.text) && workorders_.WriteArchivedWoTag()) {
    done_.Add("the tag in " + std::string(kArchivedTagFile) + " was written");
  } else {
    bench_.shop.environment.log.Write("Convert: work order " + OrderNumber() + " has no tag in " +
                                      std::string(kArchivedTagFile));
  }
}

void Conversion::TellOfReorders() {
  if (reorderList_.empty()) return;
  bench_.shop.desktop.Tell("Parts which might need to be ordered.\r" + reorderList_, "Convert - Inventory Status",
                           ui::Icon::Information);
}

void Conversion::MarkEstimate() {
  journal_->WillWriteComments();
  const std::string mark = "Workorder # " + OrderNumber() + " ";
  const std::string comments = Trim(bench_.estimate.CommentsOnShow());
  if (begun_ == nullptr || !comments.starts_with(Trim(mark))) bench_.estimate.StoreComments(mark + comments);
  done_.Add("the comments of the estimate name the work order");
  const std::string text = "Estimate # " + FormatZeros(bench_.Number(), 6) + " is now Workorder # " + OrderNumber();
  bench_.shop.desktop.Tell(text + notDone_, kTitle, ui::Icon::Information);
}

void Conversion::ChangeStatus() {
  journal_->WillWriteStatus();
  constexpr StatusOption options[] = {StatusOption::ScheduledToComplete, StatusOption::ArrivedToComplete,
                                      StatusOption::InProgressToComplete};
  if (begun_ != nullptr && (Current().Status < kScheduled || Current().Status >= kCompleted)) return;
  ui::Desktop& desktop = bench_.shop.desktop;
  const auto status = static_cast<std::size_t>(Current().Status);
  const char letter = bench_.shop.environment.statusOptions[options[status]];
  if (letter == 'Y' ||
      (letter == 'A' && desktop.Ask("Change status to 'Completed'?", kTitle, ui::Buttons::YesNo) == ui::Answer::Yes)) {
    StoreUnlessChanged(bench_.shop, bench_.database, kTitle,
                       [this] { bench_.database.estimates.ChangeStatus(kCompleted); });
  }
  if (Current().Status == kCompleted) return;
  desktop.Tell(
      "Estimate status is still '" + bench_.database.estimates.StatusText(Current().Status, Current().SchedDate) + "'",
      kTitle, ui::Icon::Information);
}

std::string Conversion::OrderNumber() const { return FormatZeros(Order().WorkorderNumber, 6); }

}  // namespace lantos
