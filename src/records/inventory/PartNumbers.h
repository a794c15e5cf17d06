#pragma once

#include <string_view>

#include "records/inventory/Inventory.h"
#include "records/inventory/PartUpdate.h"

// What ends the life of a part number. Both work on the working records, which hold the part as it was stored then.
// Nothing follows the number: cores, kits, and alternates that name it stay as they are.
namespace lantos {

// Reads the part, marks it as deleted and blanks the number of its tag; its place in both files stays its own. The
// other copies aren't told: a tag without a number says nothing to them. Nothing is changed when the person gave up on
// a part that could not be read, and of one that another copy has deleted or renumbered meanwhile, which is WasDeleted.
// Files held by others are waited for without end.
PartUpdated DeletePart(Inventory& inventory, Inventory::PartIndex index);

// Reads the part and gives it another number, in place, with no usage and no receiving behind it. The other copies are
// told of the new number. The caller sees to it that no part of the list has the number; of one
// that the tag file has it is NumberIsTaken, with nothing changed. Otherwise the same answers.
PartUpdated ChangePartNumber(Inventory& inventory, Inventory::PartIndex index, std::string_view newNumber);

}  // namespace lantos
