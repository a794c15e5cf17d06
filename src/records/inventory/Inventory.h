#pragma once

#include <functional>
#include <optional>
#include <string_view>

#include "frame/Environment.h"
#include "records/AskedTurn.h"
#include "records/inventory/InventoryLayout.h"
#include "records/inventory/InventoryList.h"
#include "records/inventory/UpdateUnderWay.h"
#include "records/modSystem.h"
#include "ui/Desktop.h"

namespace lantos {

struct ContentionRule;

// The parts: the list in memory, and the two files behind it, with which it is kept in step.
class Inventory : public InventoryList {
 public:
  Inventory(Environment& environment, ui::Desktop& desktop, modSystem& system)
      : environment_(environment), desktop_(desktop), system_(system) {}

  // The part that the screens work on, and its master as it was read. What merely looks at or follows another part
  // leaves them alone.
  InventoryTag CurrentInvTag;
  InventoryRecord CurrentInv;
  InventoryRecord OriginalInv;

  // Empties the list, with room for as many tags as the file has: at the start of the run.
  void SizeArrays();

  // The two files opened for a write, with no sharing. Another copy's hold is waited out without end; of another
  // failure that the person gives up, GivenUp.
  FileHandle OpenInventoryTagForWrite();
  FileHandle OpenInventoryForWrite(const std::function<void()>& beforeAsking = nullptr);

  // Byte offset of the part's tag, sought from the end of the file; kNoLink when it isn't there. The file is waited
  // for without end.
  FileLink FindTagLocation(PartIndex index);
  // The same of a number that the list may not have; master tells the tags without a number apart.
  FileLink FindTagOf(std::string_view stockNumber, FileLink master = kNoLink);

  struct Part {
    InventoryTag tag;
    InventoryRecord master;
    FileLink offset = kNoLink;  // of the master
    // As it was read; nothing for a new part.
    std::optional<InventoryRecord> onFile = {};
  };
  // A part from the files. One that can't be read is the person's to retry; nothing when they gave up, or when the tag
  // leads to the master of another part, which is told.
  std::optional<Part> Read(PartIndex index) { return ReadAt(kNoLink, index); }
  // The tag alone, straight from the file. False when it could not be read.
  bool ReadInventoryTag(PartIndex index, InventoryTag& tag);
  // Fills CurrentInvTag, CurrentInv and OriginalInv. An offset of kNoLink is taken from the tag, and set. False, and
  // nothing changed, where Read has nothing.
  bool ReadInventory(FileLink& offset, PartIndex index);

  enum class Core { Follows, Stays };  // what becomes of the core of a part that has one
  enum class Broadcast { Yes, No };    // whether the other copies are told
  // Stores a part: the tag at its place (at the end for an index past the list, which then grows up to it), the master
  // at its offset. A blank description becomes the stock number, unless the part is deleted. The files are waited for
  // without end while another copy has them; what else is in the way is asked about, and Cancel throws GivenUp. When
  // the master could not be written the tag is as it was, or gone again where it was new, already while the person is
  // asked about it; GivenUp names the part whose tag could not even be put back. A negative offset throws FileError.
  // Within an update, Overtaken.
  void Write(Part& part, PartIndex index, Core core, Broadcast broadcast);
  // The same for the working records.
  void WriteInventory(FileLink offset, PartIndex index, Core core, Broadcast broadcast);
  // A new part of that number, read into the working records and written. The list is told, unless it is a core. False,
  // and nothing written, when a tag on file has the number already.
  bool NewInventoryPart(std::string_view stockNumber, PartIndex& index);
  // From the reading of a part to its last writing: other copies of this program wait for their turn meanwhile, and
  // the names of the files are looked up once. Doesn't nest; a new part has its own. GivenUp when the turn doesn't come
  // and the person waits no longer. While the person is asked about a file the turn is let go, with nothing half
  // written.
  class OneUpdate {
   public:
    explicit OneUpdate(Inventory& inventory);
    ~OneUpdate() { inventory_.update_.End(); }
    OneUpdate(const OneUpdate&) = delete;

   private:
    Inventory& inventory_;
    const FileIO::SteadyNames names_;
    UpdateTurns turns_;
    AskedTurn turn_;
    WriteAhead ahead_;
  };
  // Keeps the alternates of two parts symmetrical after the part's alternate changed from old to new.
  void CrossReferenceAlternate(std::string_view part, std::string_view oldAlternate, std::string_view newAlternate);

  // Told by the routines above, when set: a part joined the list, a part of the list was written, the count changed, a
  // change is to be told to the other copies.
  std::function<void(FileLink offset, PartIndex index)> onNewPart;
  std::function<void(FileLink offset, PartIndex index)> onPartChanged;
  std::function<void()> onCountChanged;
  std::function<void(const InventoryTag& tag)> onBroadcast;
  // The list is filled bit by bit after the start of the run. Who must not take a part for unknown asks for the rest,
  // and whoever fills the list reads it at once.
  void FinishLoading() const {
    if (onFinishLoading) onFinishLoading();
  }
  std::function<void()> onFinishLoading;

 private:
  FileHandle OpenWithoutEnd(std::string_view name, Access access, Deny deny,
                            const std::function<void()>& beforeAsking = nullptr);
  FileLink KnownLocation(PartIndex index);
  std::optional<Part> ReadAt(FileLink offset, PartIndex index);
  bool ReadMaster(Part& part, PartIndex index);
  bool ReadTag(const ContentionRule& rule, PartIndex index, InventoryTag& tag);
  // What stood there before; nothing where the file ended. The place of the tag is in the list then.
  std::optional<InventoryTag> WriteTag(Part& part, PartIndex index);
  enum class Listed { Yes, No };  // whether the part was in the list before its tag was written
  // False when the person was asked about the master's file and wants another try; the tag is as it was then.
  bool WriteBoth(Part& part, PartIndex index, Listed listed);
  void UndoTag(const std::optional<InventoryTag>& before, const InventoryTag& tag, PartIndex index, Listed listed);
  void PutTagBack(const InventoryTag& before, const InventoryTag& written, PartIndex index);
  void TakeTagAway(const InventoryTag& tag, PartIndex index, Listed listed);
  struct NewPlace {
    FileLink master = kNoLink;
    FileLink taken = kNoLink;  // where a tag lies that has the number already
    InventoryTag tag;          // that one
  };
  NewPlace PlaceOfNew(std::string_view stockNumber);
  void KeepInList(const InventoryTag& tag, PartIndex index, FileLink location);
  Part AddPart(std::string_view stockNumber, const NewPlace& place, PartIndex& index);
  void UpdateCorePart(const InventoryRecord& part);
  void ForgetAlternate(std::string_view part, PartIndex from);
  void AddAlternate(std::string_view part, PartIndex to, std::string_view named);

  Environment& environment_;
  ui::Desktop& desktop_;
  modSystem& system_;
  UpdateUnderWay update_;
};

// Whether the number of the part's core still fits the field; without room the part has no core.
bool HasRoomForCore(std::string_view stockNumber);
// Whether the number is that of a core.
bool IsCore(std::string_view stockNumber);

}  // namespace lantos
