#pragma once

#include "records/Customers.h"
#include "shop/Records.h"
#include "workorders/WorkorderText.h"

namespace lantos {

// The files of the work orders: two tag files, the text of each active one, and the archive of the others. New tags go
// to the end and no tag is ever changed here, so readers need no lock.
class Workorders {
 public:
  Workorders(Environment& environment, ui::Desktop& desktop, Records& records)
      : Workorders(environment, desktop, records, records.checkList) {}
  // With a check list of its own, whose values are those of the work order that was read last.
  Workorders(Environment& environment, ui::Desktop& desktop, Records& records, CheckListTable& checkList)
      : environment_(environment), desktop_(desktop), records_(records), checkList_(checkList) {}
  Workorders(const Workorders&) = delete;

  Workorder Current;
  ActiveWoTag CurrentActiveTag;
  ArchivedWoTag CurrentArchivedTag;
  // For whoever reads many, and tells once: the names of check list entries that the shop hasn't. Each is told in a box
  // where nobody listens.
  std::function<void(const std::string& name)> onUnknownEntry;

  // Reads the work order of CurrentActiveTag. False when its file isn't there or is held, and the person skips it.
  // With keptOpen the file stays open with no sharing, and keptOpen has its number.
  bool GetCurrWoRec(FileHandle* keptOpen = nullptr);
  // Reads an archived work order by the place of its text. False for a place or number that leads nowhere, when the
  // text there is another one (which is told), and when the person gave up a held archive.
  bool GetArchWo(std::int32_t workorderNumber, FileLink masterOffset);

  // Shared. kNoHandle when another copy holds the file and the person gives it up; any other failure is a FileError.
  FileHandle OpenActiveWOForReading();
  FileHandle OpenArchWOForReading(std::string_view caller);
  // The tag at a byte position. True at the end of the file, which a negative position is too (nothing is read then);
  // what the file doesn't hold of a tag reads as zeros.
  bool ReadActiveWO(FileHandle file, std::int64_t position, ActiveWoTag& tag);
  bool ReadArchWO(FileHandle file, std::int64_t position, ArchivedWoTag& tag);

  // The three files of a new work order, from Current and in this order. What can't be written is asked about, a file
  // that somebody else has after two seconds; first tag and text throw GivenUp then. The second tag is false when the
  // person gave it up: there is no such tag then.
  void WriteActiveWoTag();
  bool WriteArchivedWoTag();
  void WriteWorkorderFile();
  // CurrentActiveTag from Current, for a second tag whose first one is there already.
  void PrepareTag();
  // How many of the three a work order has, whose writing may have ended in between.
  struct FilesWritten {
    bool activeTag = false, archivedTag = false, text = false;  // the text to its end
    bool Any() const { return activeTag || archivedTag || text; }
  };
  // What can't be looked at is asked about; GivenUp then.
  FilesWritten FilesOf(std::int32_t workorderNumber);
  static std::string FileNameOf(std::int32_t workorderNumber);  // "W0001234.tqa"

 private:
  bool AppendInTurn(SharedFile& file, std::string_view name, std::span<const std::byte> tag, std::uint64_t unit);
  void Clear();
  TextSurroundings Around();
  WorkorderReader Reader(LineSource& lines, const TextSurroundings& around);
  bool ReadLiveCustomer(std::int32_t number, CustomerRecord& record);
  bool OpenWorkorderFile(const std::string& name, OpenedFile& file);
  bool FindInArchive(LineSource& lines, const std::string& number, std::string& line);

  Environment& environment_;
  ui::Desktop& desktop_;
  Records& records_;
  CheckListTable& checkList_;
};

}  // namespace lantos
