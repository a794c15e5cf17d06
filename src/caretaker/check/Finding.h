#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace lantos {

// Bytes that take the place of others in a flat file, or stand behind its last.
struct Edit {
  std::string file;
  std::uint64_t offset = 0;
  std::string bytes;
};

// The one right answer to a finding, where there is one.
struct Mending {
  std::string words;  // "it leads nowhere from here on"; empty: it can't be mended
  std::vector<Edit> edits;
  std::string removes = {};  // a file that goes
};

// What is wrong in one place of a shop. Texts are in the program's page, and for the person.
struct Finding {
  std::string file;
  std::string record;  // "record 3 (customer 000007)"; empty: the file as such
  std::string field;   // as docs/file-formats.md and docs/database.md name it; empty: the record as such
  std::string words;
  Mending mending = {};
  std::string_view kind = {};  // set by whoever asks the kinds

  bool CanBeMended() const { return !mending.words.empty(); }
};
using Tell = std::function<void(Finding finding)>;

// "TQCSTTAG.DAT, record 3 (customer 000007), Offset: it leads behind the end of TQCSTDAT.DAT."
std::string LineOf(const Finding& finding);
// Whether two looks have found the same.
bool IsSame(const Finding& one, const Finding& other);

}  // namespace lantos
