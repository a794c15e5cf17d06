#pragma once

#include <string>
#include <vector>

#include "records/CheckList.h"
#include "workorders/Workorder.h"

namespace lantos {

// What a past work order holds, as lines of a fixed pitch, group by group. The same lines twice: what customers may
// see, and with what parts, sublets and waste cost the shop.
struct DetailLines {
  std::vector<std::string> plain;
  std::vector<std::string> withCost;  // as many
};

DetailLines ComposeDetail(const Workorder& workorder, const CheckListTable& checkList,
                          const PaymentMethodTable& methods);

}  // namespace lantos
