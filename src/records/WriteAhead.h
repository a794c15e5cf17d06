#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "frame/Environment.h"
#include "frame/SharedFile.h"
#include "records/Record.h"

namespace lantos {

// Bytes that are about to be written, and what lies there by then.
struct RecordBytes {
  std::string file;
  std::uint64_t offset = 0;
  std::string before;  // empty past the end of the file
  std::string after;
};

// A record's bytes, for that.
template <std::size_t Length>
std::string TextOf(const Record<Length>& record) {
  return {reinterpret_cast<const char*>(record.Bytes().data()), Length};
}

// What of a customer, a vehicle or a part is about to be written into two files, as a journal in DataDir tells it: made
// ahead of the first writing, gone behind the last. A program that ends in between leaves it, and the next start
// finishes what was begun. docs/file-formats.md has its lines. A journal that can't be written is noted in the run log,
// and keeps nobody from storing.
class WriteAhead {
 public:
  explicit WriteAhead(Environment& environment) : environment_(environment) {}
  ~WriteAhead();
  WriteAhead(const WriteAhead&) = delete;

  // Ahead of the first writing, in the place of what was noted before and is written by now. what is for the person:
  // "Customer 000007".
  void Note(std::string_view what, const std::vector<RecordBytes>& records);

 private:
  Environment& environment_;
  std::string name_;  // empty: there is none
  SharedFile file_;
};

struct WrittenAhead {
  std::string what;
  std::string when, where;  // "2003-09-30T08:15:00"; the computer's name
  std::vector<RecordBytes> records;
  // Unfinished: its program ended at the journal itself, and nothing else was begun. Damaged, or no such journal: the
  // rest is what stands ahead of the damage.
  enum class State { Whole, Unfinished, Damaged };
  State state = State::Unfinished;
};
WrittenAhead ReadWriteAhead(std::string_view content);

}  // namespace lantos
