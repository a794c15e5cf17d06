#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "admin/TestShop.h"
#include "history/frmWOHist.h"
#include "records/CheckList.h"
#include "records/Customers.h"
#include "records/Vehicles.h"
#include "workorders/TagOfWorkorder.h"

namespace lantos::test {

inline constexpr FileDate kTodayInFiles = 731868;  // 30 September 2003

// What tells one past work order from another.
struct Past {
  std::string last = "Adams";
  std::string first = "Beth";
  std::string vin = "1FAFP34P0XW000001";
  std::string license = "CAB 1";
  std::string part = "PF47";
};

// A shop with past work orders, and its browser.
class HistoryShop : public testing::Test, protected TestShop {
 protected:
  HistoryShop() { environment.log.Open(); }

  static Workorder Order(std::int32_t number, const Past& past = {}) {
    Workorder order;
    ClearWorkorder(order);
    order.WorkorderNumber = number;
    order.Status = "OPEN";
    order.Type = "Repair";
    order.Pricing = "Retail";
    order.Customer.Put(customer::Lastname, past.last);
    order.Customer.Put(customer::Firstname, past.first);
    order.Vehicle.Put(vehicle::Make, "Ford");
    order.Vehicle.Put(vehicle::VIN, past.vin);
    order.Vehicle.Put(vehicle::LicenseNumber, past.license);
    order.Totals.Put(wototals::DateOpen, kTodayInFiles);
    order.Totals.Put(wototals::Cost[0], 310);
    order.Totals.Put(wototals::Subtotal[0], 699);
    order.Totals.Put(wototals::WorkorderTotal, 739);
    order.Parts.Add({past.part, "OIL FILTER", 1, 310, 699, 750});
    return order;
  }
  void AddActive(const Workorder& order) {
    maker_.Current = order;
    maker_.WriteActiveWoTag();
    maker_.WriteArchivedWoTag();
    maker_.WriteWorkorderFile();
  }
  void AddArchived(Workorder order) {
    const std::string archive = directory.Content(std::string(kArchiveFile));
    const TextSurroundings around{environment.shopOptions, records.checkList, environment.Today()};
    AddArchivedTag(order, static_cast<FileLink>(archive.size()));
    directory.Put(std::string(kArchiveFile), archive + WorkorderText(order, around));
  }
  void AddArchivedTag(const Workorder& order, FileLink offset) {
    ActiveWoTag active;
    PutIntoTag(order, active);
    ArchivedWoTag tag;
    PutIntoTag(active, offset, tag);
    const std::string bytes(reinterpret_cast<const char*>(tag.Bytes().data()), tag.Bytes().size());
    const std::string name(kArchivedTagFile);
    directory.Put(name, directory.Content(name) + bytes);
  }

  // What the person does in the browser, from its opening to its closing.
  void Browse(const std::function<void(frmWOHist&)>& use) {
    desktop.WillUse([&](ui::Form& form) {
      use(dynamic_cast<frmWOHist&>(form));
      if (form.Visible()) Press(form, "Esc");
    });
    BrowseWorkorders(shop,
                     [this](const Workorders& workorders) { printed.push_back(workorders.Current.WorkorderNumber); });
  }
  static void Search(frmWOHist& form, ui::TextBox& box, std::string_view text) {
    Type(box, text);
    Press(form, "F10");
  }
  static std::vector<std::string> Lines(const ui::ListBox& list) {
    std::vector<std::string> lines;
    for (const ui::ListRow& row : list.Rows()) lines.push_back(row.text);
    return lines;
  }
  static void ExpectEmpty(const frmWOHist& form) {
    EXPECT_EQ(form.head.custname.Caption(), "");
    EXPECT_EQ(form.head.total1.Caption(), "");
    EXPECT_EQ(form.WoDetail.ListCount(), 0);
    EXPECT_EQ(form.WoDetailC.ListCount(), 0);
    EXPECT_EQ(form.lblCost.Caption(), "");
  }

  std::vector<std::int32_t> printed;  // numbers of the work orders

 private:
  Workorders maker_{environment, desktop, records};
};

}  // namespace lantos::test
