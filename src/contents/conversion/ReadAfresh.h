#pragma once

#include <string>

#include "contents/Workbench.h"
#include "estimatedb/EstimateDatabase.h"
#include "shop/Shop.h"

namespace lantos {

// What other copies have made of the current estimate since it was shown here, as far as it is about to be made
// again: became a work order, moved to another day, got another status.
enum class Meanwhile { Nothing, GoesOn, Stops };

// Reads the current estimate afresh, ahead of a conversion or a move. When something of this has happened the person
// is told what, and asked whether to go on; the current estimate is as it stands in the database then, whatever the
// answer and whatever else was changed. One that was deleted is told of and stops. Throws DatabaseError.
Meanwhile ReadAfresh(Shop& shop, EstimateDatabase& database, const std::string& title);
// The same, and comments that another copy has written go on show. Where the person has typed some that aren't saved
// yet, a box with both asks which are to be stored.
Meanwhile ReadAfresh(Shop& shop, EstimateDatabase& database, EstimateOnShow& onShow, const std::string& title);

}  // namespace lantos
