#pragma once

#include <cstdint>
#include <optional>

#include "frame/Environment.h"
#include "frame/UpdateTurns.h"
#include "records/AskedTurn.h"
#include "records/Contention.h"
#include "records/Customers.h"
#include "records/OpenedFile.h"
#include "records/WriteAhead.h"

namespace lantos {

// Both files of the customers, held open for one writing. Others may have written to them while they were waited for,
// so where a tag and a master lie is looked at in the files themselves, in a turn that keeps other copies of this
// program from doing the same meanwhile. What others have put there meanwhile is never written over.
class CustomerFiles {
 public:
  CustomerFiles(Environment& environment, ui::Desktop& desktop);
  CustomerFiles(const CustomerFiles&) = delete;

  // Waits for the turn and opens both, asking as the rules of the files say. False when the person gave up;
  // GivenUp when they gave up the turn.
  bool Open();

  // The rest only once they are open; throws FileError.
  //
  // Whether one of the tags from this place on bears the number.
  bool HasTagFrom(std::size_t place, std::int32_t number) const;
  struct Places {
    std::uint64_t tag = 0;  // offset in bytes
    FileLink master = kNoLink;
  };
  // Of a customer whose tag stands at that place of the array: there too in the file, unless others have written theirs
  // there, and the master where the tag says, unless that is another's.
  Places PlacesOf(const CustomerTag& tag, std::size_t place) const;
  // Of a new one: at the ends of the files. An empty slot at the tag's place of the array is taken.
  Places PlacesOfNew(std::size_t place) const;
  CustomerRecord MasterAt(FileLink offset) const;
  const SharedFile& Tags() const { return *tags_; }

  // How far a writing came: the person may give up after each failure.
  enum class Written { Nothing, Tag, Both };
  // A tag whose master could not be written is put back, or gone again where it was new, already while the person is
  // asked about it; GivenUp names the customer whose tag could not even be put back.
  // written says how far it came when it throws, too. The turn isn't had while the person is asked. LookAgain: it was
  // taken again since, and others may have written meanwhile; nothing was written behind that, and the places have to
  // be looked at anew.
  enum class Outcome { Ended, LookAgain };
  Outcome Write(const Places& places, const CustomerTag& tag, const CustomerRecord& master, Written& written);
  // Ends the turn, closes both and flushes them, the tags first.
  void Close();

 private:
  std::int32_t NumberOfTagAt(std::uint64_t offset) const;
  struct FoundTag {
    bool isThere = false;
    std::uint64_t offset = 0;      // the end of the file when it isn't there
    std::uint64_t emptyAhead = 0;  // bytes of the empty slots ahead of it
  };
  FoundTag FindTag(std::int32_t number) const;
  bool MayLieAt(FileLink offset, std::int32_t number) const;
  std::uint64_t EndOfTags() const;
  FileLink EndOfMasters() const;
  // Nothing where the file ended.
  std::optional<CustomerTag> TagBefore(std::uint64_t offset) const;
  void NoteAhead(const Places& places, const CustomerTag& tag, const std::optional<CustomerTag>& tagBefore,
                 const CustomerRecord& master) const;
  // False when it could not be done.
  bool PutTagBack(std::uint64_t offset, const CustomerTag& written, const std::optional<CustomerTag>& before);

  Environment& environment_;
  ui::Desktop& desktop_;
  OpenedFile tagFile_;
  OpenedFile masterFile_;
  Contention tagContention_;
  Contention masterContention_;
  WriteAhead ahead_;  // until both are closed and on the disk
  std::optional<UpdateTurns> turns_;
  std::optional<AskedTurn> turn_;
  std::optional<SharedFile> tags_;  // for reading, as the next
  std::optional<SharedFile> masters_;
};

}  // namespace lantos
