#pragma once

#include "masters/inventory/BlankList.h"

namespace lantos {

// The usage of one part, which Korvel alone lists.
class frmUsageList : public BlankList {
 public:
  frmUsageList(Shop& shop, const std::string& stockNumber)
      : BlankList(shop, "frmUsageList", "Usage", "Korvel shows the usage of " + stockNumber + ".") {}
};

}  // namespace lantos
