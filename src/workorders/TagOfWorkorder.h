#pragma once

#include "workorders/Workorder.h"
#include "workorders/WorkorderTags.h"

namespace lantos {

// What the tags of a work order say of it. Texts are cut to their fields; a status without a code leaves the one that
// the tag has.
void PutIntoTag(const Workorder& workorder, ActiveWoTag& tag);
// The same, and where its text begins in the archive: kNoLink while it isn't there.
void PutIntoTag(const ActiveWoTag& active, FileLink masterOffset, ArchivedWoTag& tag);

}  // namespace lantos
