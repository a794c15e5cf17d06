#pragma once

#include <functional>
#include <optional>
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

// The estimate as it stands in the database; what its row doesn't have stays as it was shown. Nothing for one that is
// gone. Throws DatabaseError.
std::optional<Estimate> OnFile(de& data, const Estimate& shown);
// Whether two estimates name the same customer and the same vehicle, in all that the database has of it.
bool HasCustomerAndVehicleOf(const Estimate& one, const Estimate& other);

// Stores something of the current estimate in one transaction with a look at it: what another copy has made of it
// meanwhile is told and asked about as above, before anything is written. False when the person doesn't go on, with the
// current estimate as it stands in the database. Comments that another copy wrote are in it when store is run.
bool StoreUnlessChanged(Shop& shop, EstimateDatabase& database, const std::string& title,
                        const std::function<void()>& store);

}  // namespace lantos
