#pragma once

#include <functional>

#include "records/inventory/Inventory.h"

namespace lantos {

enum class PartUpdated { Yes, GivenUp, WasDeleted, NumberIsTaken };  // the last by a new number alone

// Saves what a person changed of a part. The part is read anew, change puts what the person changed into its master,
// and all else stays as other copies have stored it meanwhile: stock that was sold, alternates that came from other
// parts. With nobody else at it, what is stored is what the screen shows. The tag follows the master, the core is made
// or written when the part has one since this very change, the other copies are told, and each alternate that came or
// went gets to know the part or forgets it. From the reading to the last writing no other copy of this program changes
// a part.
//
// The working records hold the part as it was stored; they are as before when it was not. GivenUp: it could not be
// read. Files held by others are waited for without end.
PartUpdated UpdatePart(Inventory& inventory, Inventory::PartIndex index,
                       const std::function<void(InventoryRecord& master)>& change);

}  // namespace lantos
