#pragma once

#include "Readers.h"
#include "records/CannedLabor.h"
#include "records/EditedLines.h"
#include "records/Followups.h"
#include "records/Payroll.h"
#include "records/PurchaseOrders.h"
#include "records/Vendors.h"

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

inline void ReadVendors(QuietShop& shop) {
  Records records(shop.environment, shop.desktop);
  Refusable([&] {
    Vendors& vendors = records.vendors;
    vendors.LoadVendors();
    for (std::size_t i = 0; i < vendors.Count(); ++i) {
      for (const TextField field :
           {vendor::VendorName, vendor::Contact, vendor::Address, vendor::City, vendor::State, vendor::Zip,
            vendor::Phone1, vendor::Phone1Ext, vendor::Phone2, vendor::Phone3, vendor::TaxIdNumber}) {
        See(vendors[i].Get(field));
      }
    }
    for (std::size_t i = 0; i < std::min<std::size_t>(vendors.Count(), 3); ++i) vendors.MakeCurrent(i);
    vendors.Find("Clearview Glass");
    vendors.LookAgain();
  });
}

inline void ChangeVendors(QuietShop& shop) {
  Records records(shop.environment, shop.desktop);
  Refusable([&] {
    Vendors& vendors = records.vendors;
    vendors.LoadVendors();
    if (vendors.Count() > 0) {
      vendors.MakeCurrent(0);
      vendors.CurrentVendor.Put(vendor::Contact, "Somebody");
      vendors.SaveVendor(0);
      vendors.DeleteVendor(vendors.Count() - 1);
    }
    vendors.AddVendor("Newcomer");
  });
}

// Employee 7 is the first of the employees, whose chain begins where the last four bytes of the record say.
inline void ReadPayroll(QuietShop& shop) {
  Records records(shop.environment, shop.desktop);
  Refusable([&] {
    for (const std::int32_t employee : {7, 0, -1}) {
      const PayChain chain = records.payroll.Load(employee);
      See(chain.damage);
      for (const PayEntry& entry : chain.entries) See(FormatHundredths(entry.record.Get(payrecord::Gross)));
    }
  });
}

inline void ChangePayroll(QuietShop& shop) {
  Records records(shop.environment, shop.desktop);
  Refusable([&] {
    std::vector<PayEntry> marked = records.payroll.Load(7).entries;
    if (marked.size() > 1) marked.erase(marked.begin() + 1);
    records.payroll.Remove(7, marked, [](const PayEntry&) {});
  });
}

inline void ReadCanned(QuietShop& shop) {
  Refusable([&] {
    for (const CannedLabor& entry : CannedLaborIn(EditedLines(shop.environment, kCannedLaborFile).Read())) {
      See(entry.Code() + entry.FirstLine());
    }
    for (const CannedNote& note : CannedNotesIn(EditedLines(shop.environment, kCannedNoteFile).Read())) {
      See(note[0] + note[7]);
    }
    See(LaborKits(shop.environment).KitOf("LOF"));
  });
}

}  // namespace lantos::fuzz
