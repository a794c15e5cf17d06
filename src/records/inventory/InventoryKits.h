#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "frame/Environment.h"
#include "records/Record.h"
#include "ui/Desktop.h"

namespace lantos {

// TQINVKIT.DAT: the components of the parts that are kits.
namespace inventorykit {
inline constexpr std::size_t kLineCount = 50;
inline constexpr std::size_t kLineWidth = 39;
inline constexpr std::size_t kLineUsed = 21;  // the characters of a line that count
inline constexpr TextField KitNumber{0, 21};
constexpr TextField Line(std::size_t number) { return {KitNumber.End() + number * kLineWidth, kLineWidth}; }
static_assert(Line(kLineCount - 1).End() == 1971);
}  // namespace inventorykit
using InventoryKitRecord = Record<inventorykit::Line(inventorykit::kLineCount - 1).End()>;

inline constexpr std::string_view kKitFile = "TQINVKIT.DAT";

// The two texts of a line: "BRAKEPAD(4)" is four of BRAKEPAD, "BRAKEPAD" is one, and so is "BRAKEPAD()".
struct KitLineTexts {
  std::string partNumber;
  std::string quantity;  // "1" when the line has none
};
KitLineTexts SplitKitLine(std::string_view line);
std::string JoinKitLine(const KitLineTexts& texts);  // a quantity of 1 isn't written
// Why a line with these texts would not be read back as it was written; empty when it would.
std::string WhyNoKitLine(const KitLineTexts& texts);

// The same with the quantity as a number; 0 is what is none.
struct KitComponent {
  std::string partNumber;
  std::int32_t quantity = 1;
};
KitComponent ParseKitLine(std::string_view line);
std::string KitLine(const KitComponent& component);  // a quantity of 1 isn't written
// The components of a kit in order, blank lines passed over.
std::vector<KitComponent> ComponentsOf(const InventoryKitRecord& kit);

// The kits' own prices behind "KIT:" in a master's Location, as "KIT:(12.50,14.00)"; zeros without a parenthesis.
struct KitPrices {
  Cents sale = 0;
  Cents list = 0;
};
bool IsKit(std::string_view location);
KitPrices ParseKitPrices(std::string_view location);

class InventoryKits {
 public:
  InventoryKits(Environment& environment, ui::Desktop& desktop) : environment_(environment), desktop_(desktop) {}

  // kNoHandle when it can't be opened, which has been told. Exclusive is for a write.
  enum class Sharing { Shared, Exclusive };
  FileHandle OpenKitFile(Sharing sharing);
  // The offset of the kit's record, or kNoLink with a blank record of that number. kNoHandle as handle opens the file
  // for the search and closes it.
  FileLink FindKit(std::string_view stockNumber, InventoryKitRecord& kit, FileHandle handle = kNoHandle);
  // Over the kit's record, or behind the last one; what is left of a record that was cut off keeps its place. False
  // when the file could not be opened.
  bool SaveKit(const InventoryKitRecord& kit) { return Save(kit, nullptr) == Saving::Stored; }
  // The same where the file has the kit as it was read; where it hasn't, nothing is written, and read is what it has.
  enum class Saving { Stored, NotOpened, ChangedMeanwhile };
  Saving SaveKitUnlessChanged(const InventoryKitRecord& kit, InventoryKitRecord& read) { return Save(kit, &read); }
  // The numbers of all kits, in file order, blank ones passed over.
  std::vector<std::string> KitNumbers();

 private:
  Saving Save(const InventoryKitRecord& kit, InventoryKitRecord* read);

  Environment& environment_;
  ui::Desktop& desktop_;
};

}  // namespace lantos
