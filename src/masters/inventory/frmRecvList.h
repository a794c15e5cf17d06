#pragma once

#include "masters/inventory/BlankList.h"

namespace lantos {

// The receiving of one part, which Korvel alone lists.
class frmRecvList : public BlankList {
 public:
  frmRecvList(Shop& shop, const std::string& stockNumber)
      : BlankList(shop, "frmRecvList", "Receiving", "Korvel shows the receiving of " + stockNumber + ".") {}
};

}  // namespace lantos
