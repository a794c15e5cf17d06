#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "frame/Environment.h"
#include "records/OpenedFile.h"
#include "records/inventory/InventoryLayout.h"

namespace lantos {

// This copy's update file, to which the others append the tags of parts that they have changed. While it is open here
// nobody can append.
class Mailbox {
 public:
  explicit Mailbox(Environment& environment) : environment_(environment), file_(environment.openFiles) {}
  virtual ~Mailbox() = default;
  Mailbox(const Mailbox&) = delete;

  // False when no whole record waits, or somebody has the file.
  bool Open();
  bool IsOpen() const { return file_.IsOpen(); }
  // The records that come next, as many as one reading takes; none at the end. Half a record at the end doesn't count.
  // A reading that fails is tried three times, a second apart; then FileError.
  std::vector<InventoryTag> Next();
  // Closes; the records stay, for the next opening.
  void Leave();
  enum class Left { Nothing, More };
  // Closes and empties. More when others came between the two: their records are the ones of the next opening.
  Left Finish();

 protected:
  // Throws FileError. Virtual, so that a reading can be made to fail.
  virtual void Read(const SharedFile& file, std::uint64_t offset, std::span<InventoryTag> records) const;

 private:
  Left EmptyMyUpdateFile();

  Environment& environment_;
  OpenedFile file_;
  std::uint64_t length_ = 0;  // as it was opened, in bytes
  std::uint64_t next_ = 0;    // where the next reading begins
  std::uint64_t taken_ = 0;   // bytes at the head that an earlier opening has taken
};

}  // namespace lantos
