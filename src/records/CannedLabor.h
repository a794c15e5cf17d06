#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "frame/Environment.h"
#include "records/Record.h"

namespace lantos {

inline constexpr std::size_t kCannedLines = 8;
inline constexpr std::string_view kDeletedEntry = "<del>";  // as first line: not saved, not shown

// TQCANLAB.DAT: the shop's standard jobs, a line of text each.
inline constexpr std::string_view kCannedLaborFile = "TQCANLAB.DAT";
inline constexpr std::size_t kLaborCodeWidth = 5;  // of the code that the first line begins with

struct CannedLabor {
  Hundredths Hours = 0;
  Cents Rate = 0;
  Cents Total = 0;
  std::array<std::string, kCannedLines> Desc;

  bool IsDeleted() const { return Desc[0] == kDeletedEntry; }
  std::string Code() const;       // without the blanks that pad it
  std::string FirstLine() const;  // behind the code
};
CannedLabor ParseCannedLabor(std::string_view line);
std::string CannedLaborLine(const CannedLabor& entry);

// In file order.
std::vector<CannedLabor> CannedLaborIn(const std::vector<std::string>& lines);
// The whole file, without the deleted entries.
std::vector<std::string> LinesOf(const std::vector<CannedLabor>& entries);

// TQLABKIT.DAT: which inventory kit goes with which code.
namespace laborkit {
inline constexpr TextField Code{0, 5};
inline constexpr TextField Kit{Code.End(), 21};
static_assert(Kit.End() == 26);
}  // namespace laborkit
using LaborKitRec = Record<laborkit::Kit.End()>;
inline constexpr std::string_view kLaborKitFile = "TQLABKIT.DAT";

// In memory for the whole run, once loaded; other workstations store kits too.
class LaborKits {
 public:
  explicit LaborKits(Environment& environment) : environment_(environment) {}

  void LoadOnce();
  // As the file has them at the moment. FileError when it can't be read: the kits are as before then.
  void Load();
  // The kit of a code; empty when there is no row. Loads if need be.
  std::string KitOf(std::string_view code);
  // Sets or adds the row in the file as it is once nobody else has it, and rewrites it, rows without a code left out.
  // FileError when it can't be written: the kit is as before then.
  void Save(std::string_view code, std::string_view kit);

 private:
  struct Row {
    std::string code, kit;
  };
  std::vector<Row> RowsIn(const SharedFile& file) const;
  static void Write(const std::vector<Row>& rows, SharedFile& file);

  Environment& environment_;
  bool loaded_ = false;
  std::vector<Row> rows_;
};

// TQCANNOT.DAT: notes that the shop uses again and again, a line of text each.
inline constexpr std::string_view kCannedNoteFile = "TQCANNOT.DAT";
using CannedNote = std::array<std::string, kCannedLines>;
bool IsDeleted(const CannedNote& note);
std::string CannedNoteLine(const CannedNote& note);
std::vector<CannedNote> CannedNotesIn(const std::vector<std::string>& lines);
std::vector<std::string> LinesOf(const std::vector<CannedNote>& notes);

}  // namespace lantos
