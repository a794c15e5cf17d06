#pragma once

#include <cstdint>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "frame/Environment.h"
#include "records/Record.h"
#include "ui/Desktop.h"

namespace lantos {

// TQOPENPO.DAT: the purchase orders that are open.
namespace potag {
inline constexpr LongField Number{0};
inline constexpr TextField VendorName{Number.End(), 32};
inline constexpr TextField VendorInvoice{VendorName.End(), 11};
inline constexpr IntegerField Status{VendorInvoice.End()};
inline constexpr OpaqueField amounts{Status.End(), 106};
inline constexpr TextField FileName{amounts.End(), 16};  // of the order's detail text, in the data directory
static_assert(FileName.End() == 171);
}  // namespace potag
using PoTag = Record<potag::FileName.End()>;

inline constexpr std::string_view kOpenOrdersFile = "TQOPENPO.DAT";
inline constexpr std::int16_t kOrderClosed = 1;
inline constexpr std::int16_t kOrderOnAccount = 4;

// A sublet bought on a purchase order.
struct OrderedSublet {
  std::int32_t orderNumber = 0;
  std::string vendor, invoice;
  Cents cost = 0, price = 0;
  std::string description;
};

// A line of the section "[Sublets]", in fixed columns; amounts are decimal text.
OrderedSublet ParseSubletLine(std::string_view line);

class PurchaseOrders {
 public:
  PurchaseOrders(Environment& environment, ui::Desktop& desktop) : environment_(environment), desktop_(desktop) {}

  // The sublets with a price above 0 of all orders that are closed or on account, in file order. A file that somebody
  // holds is the person's to retry or skip; without the tags the list ends as far as it came. Orders whose detail file
  // isn't there are named in one box, each of them once in a run.
  std::vector<OrderedSublet> GetOpenPOSublets();

 private:
  void TellMissing(const std::vector<std::string>& names);

  Environment& environment_;
  ui::Desktop& desktop_;
  std::set<std::string> told_;  // detail files that aren't there
};

}  // namespace lantos
