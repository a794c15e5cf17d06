#include "masters/inventory/InventoryUpdates.h"

#include <utility>

#include "records/inventory/Inventory.h"

namespace lantos {

namespace {

// In milliseconds.
constexpr int kInterval = 5000;
constexpr int kGoOn = 1;  // until the rest of what waits is taken in

// A timer stands still during its tick, and runs on however that ends.
class StandsStill {
 public:
  explicit StandsStill(ui::Timer& timer) : timer_(timer) { timer_.SetEnabled(false); }
  ~StandsStill() {
    if (interval_ == 0) return;
    timer_.SetInterval(interval_);
    timer_.SetEnabled(true);
  }
  StandsStill(const StandsStill&) = delete;
  void RunOnIn(int milliseconds) { interval_ = milliseconds; }
  void StaySo() { interval_ = 0; }

 private:
  ui::Timer& timer_;
  int interval_ = kInterval;
};

}  // namespace

InventoryUpdates::InventoryUpdates(Shop& shop, ui::Timer& audit, ui::Timer& update, List list)
    : shop_(shop),
      audit_(audit),
      update_(update),
      list_(std::move(list)),
      outgoing_(shop.environment, shop.desktop),
      mailbox_(shop.environment),
      intake_(shop.environment, shop.desktop, shop.records.inventory, mailbox_) {
  for (ui::Timer* timer : {&audit_, &update_}) {
    timer->SetEnabled(false);
    timer->SetInterval(kInterval);
  }
  audit_.OnTimer = [this] { AuditTick(); };
  update_.OnTimer = [this] { UpdateTick(); };
  shop_.records.inventory.onBroadcast = [this](const InventoryTag& tag) {
    outgoing_.AddAuditRecord(tag);
    intake_.Follow(tag);
  };
  intake_.onChanged = [this](Inventory::PartIndex index, const InventoryTag& before) {
    changed_ = true;
    list_.onChanged(index, before);
  };
  intake_.onNew = [this](Inventory::PartIndex index) {
    changed_ = true;
    list_.onNew(index);
  };
}

InventoryUpdates::~InventoryUpdates() { shop_.records.inventory.onBroadcast = nullptr; }

void InventoryUpdates::Start() {
  for (ui::Timer* timer : {&audit_, &update_}) timer->SetEnabled(true);
}

void InventoryUpdates::Finish() {
  for (ui::Timer* timer : {&audit_, &update_}) timer->SetEnabled(false);
  mailbox_.Leave();
  outgoing_.SendAll();
}

void InventoryUpdates::AuditTick() {
  const StandsStill still(audit_);
  outgoing_.SendDue();
}

void InventoryUpdates::UpdateTick() {
  StandsStill still(update_);
  if (list_.isLoading()) return;  // a part that the load hasn't come to would be listed twice
  const FileIO& files = shop_.environment.files;
  const std::string& name = shop_.environment.updateFileName;
  if (!files.FileExists(name)) {
    still.StaySo();
    return WarnOfMissingFile();
  }
  intake_.ReadOverdue();
  if (files.Length(name) != 0 && intake_.ProcessInventoryUpdates() == Mailbox::Left::More) still.RunOnIn(kGoOn);
  if (std::exchange(changed_, false)) list_.show();
}

void InventoryUpdates::WarnOfMissingFile() {
  shop_.desktop.Tell("Warning!\rInventory update file " + shop_.environment.updateFileName +
                         " does not exist.\rPlease exit and restart Korvel.",
                     "Automatic Inventory Update", ui::Icon::Exclamation);
}

}  // namespace lantos
