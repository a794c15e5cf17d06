#pragma once

#include "Readers.h"
#include "records/CannedLabor.h"
#include "records/Followups.h"
#include "records/PurchaseOrders.h"

// What the program does with the shop's lists, whatever their bytes are.
namespace lantos::fuzz {

inline void ReadFollowups(QuietShop& shop) {
  Records records(shop.environment, shop.desktop);
  Refusable([&] {
    for (const std::int32_t customer : {0, 1, 1001}) {
      for (const Followup& each : records.followups.OpenFollowups(customer, "VIN", "")) {
        See(each.record.Get(followup::Description));
        See(FormatDate(FromFileDate(each.record.Get(followup::FollowupDate))));
      }
      records.followups.OpenFollowups(customer, "", "ABC");
      records.followups.Exists(customer, "VIN", "ABC", 1, 0, 0);
    }
  });
}

inline void ReadOrders(QuietShop& shop) {
  Records records(shop.environment, shop.desktop);
  Refusable([&] {
    for (const OrderedSublet& sublet : records.orders.GetOpenPOSublets()) See(sublet.vendor + sublet.description);
  });
}

inline void ReadCanned(QuietShop& shop) {
  Refusable([&] {
    for (const CannedLabor& entry : LoadCannedLabor(shop.environment)) See(entry.Code() + entry.FirstLine());
    for (const CannedNote& note : LoadCannedNotes(shop.environment)) See(note[0] + note[7]);
    See(LaborKits(shop.environment).KitOf("LOF"));
  });
}

}  // namespace lantos::fuzz
