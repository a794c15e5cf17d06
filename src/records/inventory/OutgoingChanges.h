#pragma once

#include <string>
#include <vector>

#include "frame/Environment.h"
#include "records/inventory/InventoryLayout.h"
#include "ui/Desktop.h"

namespace lantos {

// This copy's changes of parts that the other copies haven't been told of yet. Each copy owns an update file, its
// mailbox, in the data directory: a row of whole inventory tags that the others append to and the owner takes in. One
// prefix, of the day on which the run began, tells which of them are written to.
class OutgoingChanges {
 public:
  OutgoingChanges(Environment& environment, ui::Desktop& desktop) : environment_(environment), desktop_(desktop) {}

  // A part as it was written just now.
  void AddAuditRecord(const InventoryTag& tag);
  // Tells of what was changed ahead of this second. A row of this very second waits.
  void SendDue();
  // The same at the end of the run, when there is no later: the second is waited for.
  void SendAll();
  std::size_t Count() const { return rows_.size(); }

 private:
  struct Row {
    LocalTime time;  // to the second
    InventoryTag tag;
  };
  void BroadcastUpdate(const std::vector<InventoryTag>& tags);
  void AppendTo(const std::string& peer, const std::vector<InventoryTag>& tags);
  LocalTime ThisSecond() const;

  Environment& environment_;
  ui::Desktop& desktop_;
  std::vector<Row> rows_;
};

}  // namespace lantos
