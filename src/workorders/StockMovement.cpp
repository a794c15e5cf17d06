#include "workorders/StockMovement.h"

#include "records/GivenUp.h"
#include "records/inventory/Inventory.h"
#include "records/inventory/TagPlaces.h"

namespace lantos {

namespace {

// The inventory's list comes before the names that are looked up for the update.
FileIO& LoadedFiles(Environment& environment, const Inventory& inventory) {
  inventory.FinishLoading();
  return environment.files;
}

}  // namespace

StockMovement::StockMovement(Environment& environment, ui::Desktop& desktop, Records& records,
                             std::function<void(std::string step)> onDone, Beforehand beforehand)
    : environment_(environment),
      desktop_(desktop),
      inventory_(records.inventory),
      usageHistory_(records.usageHistory),
      onDone_(std::move(onDone)),
      beforehand_(std::move(beforehand)),
      names_(LoadedFiles(environment, records.inventory)),
      turns_(environment.files.PathOf(kInventoryTagFile), environment.clock) {}

void StockMovement::Foresee(const std::vector<std::string>& numbers) {
  std::vector<Inventory::PartIndex> parts;
  for (const std::string& number : numbers) {
    if (const Inventory::PartIndex index = inventory_.FindPart(number); index != Inventory::kNoPart) {
      parts.push_back(index);
    }
  }
  TagPlaces(environment_, desktop_, inventory_).FindWhereFree(std::move(parts));
}

std::optional<std::int16_t> StockMovement::TakeOut(const Taken& part, const Workorder& order) {
  // Other copies that take from stock wait from the reading to the writing: the stock falls by all of them.
  const Inventory::PartIndex index = inventory_.FindPart(part.number);
  if (index == Inventory::kNoPart) return std::nullopt;
  usage_ = kNoLink;
  written_.reset();
  try {
    const AskedTurn turn(turns_, desktop_, kInventoryTagFile);
    return MoveInTurn(part, order, index);
  } catch (const GivenUp& error) {
    environment_.log.Write(error.what());
    GiveUp(part.number, index);
    return std::nullopt;
  }
}

// Tag and master are put back alike; where the tag couldn't be, what was noted of the use holds for it. Of a stock that
// didn't move the history must not tell a use.
void StockMovement::GiveUp(const std::string& number, Inventory::PartIndex index) {
  if (written_ && inventory_.Tag(index).Get(inventorytag::InStock) == *written_) {
    return Note(notDone_.inTagAlone, number, "was moved in the tag alone");
  }
  Note(notDone_.notWritten, number, "could not be written and was not moved");
  if (usage_ == kNoLink) return;
  if (!usageHistory_.TakeBack(usage_)) return Note(notDone_.onlyNoted, number, "has a use that is none");
  onDone_("the usage of " + number + " was taken back");
}

std::optional<std::int16_t> StockMovement::MoveInTurn(const Taken& part, const Workorder& order,
                                                      Inventory::PartIndex index) {
  FileLink offset = kNoLink;
  if (!inventory_.ReadInventory(offset, index)) {
    Note(notDone_.notRead, part.number, "could not be read and was not moved");
    return std::nullopt;
  }
  InventoryTag& tag = inventory_.CurrentInvTag;
  InventoryRecord& master = inventory_.CurrentInv;
  CheckNumber(tag.View(inventorytag::StockNumber), part.number, "tag");
  CheckNumber(master.View(inventory::StockNumber), part.number, "master");
  const std::int16_t left = WoQuantity(std::int64_t{tag.Get(inventorytag::InStock)} - part.quantity);
  if (beforehand_.part) {
    beforehand_.part({part.number, part.quantity, tag.Get(inventorytag::InStock), master.Get(inventory::QtyInStock),
                      master.Get(inventory::UsageLink)});
  }
  tag.Put(inventorytag::InStock, left);
  master.Put(inventory::QtyInStock, left);
  // The cost goes where the history has the price, and the price where it has the cost: so every record was made.
  const FileLink link = usageHistory_.UpdateUsage(UseIn(order), part.cost, part.price, part.quantity);
  if (beforehand_.stock) beforehand_.stock(part.number, link);
  usage_ = link;
  if (link != kNoLink) {
    master.Put(inventory::UsageLink, link);
    onDone_("the usage of " + part.number + " was noted");
  } else {
    Note(notDone_.notNoted, part.number, "is moved without a note of its usage");
  }
  if (part.quantity != 0) written_ = left;
  inventory_.WriteInventory(offset, index, Inventory::Core::Stays, Inventory::Broadcast::Yes);
  onDone_("the stock of " + part.number + " is now " + std::to_string(left));
  return left;
}

void StockMovement::Note(std::vector<std::string>& list, const std::string& number, const std::string& what) {
  environment_.log.Write("Convert: the stock of " + number + " " + what);
  list.push_back(number);
}

void StockMovement::CheckNumber(std::string_view found, const std::string& wanted, std::string_view file) {
  if (found == wanted) return;
  desktop_.Tell("Warning! Inventory " + std::string(file) + " file problem.\rLooking for '" + wanted + "'\rFound '" +
                    std::string(found) + "'",
                "Convert - Update Inventory");
}

UsageHistory::Use StockMovement::UseIn(const Workorder& order) {
  return {order.WorkorderNumber, order.Totals.Get(wototals::DateOpen), order.Customer.Get(customer::Lastname),
          order.Customer.Get(customer::Firstname)};
}

}  // namespace lantos
