#pragma once

#include <set>

#include "frame/Environment.h"
#include "records/OpenedFile.h"
#include "records/inventory/Inventory.h"
#include "ui/Desktop.h"

namespace lantos {

// The tags of many parts straight from the tag file, one after the other under one open.
class TagsOnFile {
 public:
  TagsOnFile(Environment& environment, ui::Desktop& desktop, Inventory& inventory)
      : environment_(environment), desktop_(desktop), inventory_(inventory), file_(environment.openFiles) {}

  enum class Outcome { Read, NotThere, GivenUp };
  // Of a part of the list. NotThere: the file has no tag of that number. GivenUp: by the person, when it could not be
  // read.
  Outcome Read(Inventory::PartIndex index, InventoryTag& tag);
  // At a place of the file; number is the part's that the person is asked about when it can't be read. False when they
  // gave up.
  bool ReadOrAsk(FileLink place, const std::string& number, InventoryTag& tag);
  // The same without a word to anybody: false when it can't be read.
  bool ReadAt(FileLink place, InventoryTag& tag);
  // Lets writers have the file; the next read opens it again.
  void Close() { file_.Close(); }
  // Parts that weren't there may have come.
  void LookAgain() { notThere_.clear(); }

 private:
  FileLink Seek(Inventory::PartIndex index);

  Environment& environment_;
  ui::Desktop& desktop_;
  Inventory& inventory_;
  OpenedFile file_;
  std::set<Inventory::PartIndex> notThere_;
};

}  // namespace lantos
