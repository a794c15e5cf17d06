#pragma once

#include "MasterShop.h"
#include "masters/vendors/frmVendorAdd.h"
#include "masters/vendors/frmVendorEdit.h"
#include "masters/vendors/frmVendorList.h"
#include "records/VendorImage.h"
#include "records/Vendors.h"

namespace lantos::test {

// A shop of four vendors, the second of them deleted.
class VendorShop : public MasterShop {
 protected:
  VendorShop() { directory.Put("TQVENDOR.DAT", Alpha().Bytes() + std::string(204, '\0') + Gamma() + Delta()); }

  static Image Alpha() {
    return VendorImage("Alpha Glass", "Dayton", "OH")
        .Text(32, "Ann Adams")
        .Text(64, "1 Pane Street")
        .Text(121, "45402")
        .Text(132, "937-555-0101")
        .Text(147, "11")
        .Text(153, "937-555-0102")
        .Text(168, "937-555-0103")
        .Text(183, "31-1");
  }
  // Something old stands behind the first NUL.
  static std::string Gamma() { return VendorImage("Gamma Towing").Text(45, "left over").Bytes(); }
  static std::string Delta() { return VendorImage("Delta Paint").Bytes(); }

  std::string File() const { return directory.Content("TQVENDOR.DAT"); }
  std::string RecordAt(std::size_t index) const { return File().substr(index * 204, 204); }
  void Replace(std::size_t index, const std::string& bytes) const {
    directory.Put("TQVENDOR.DAT", File().replace(index * 204, 204, bytes));
  }

  using Names = std::vector<std::string>;
  static Names NamesIn(const frmVendorList& list) {
    Names names;
    for (const ui::ListRow& row : list.VendorList.Rows()) names.push_back(row.text);
    return names;
  }
  void Show(frmVendorList::Purpose purpose, const std::function<void(frmVendorList&)>& use) {
    desktop.WillUse([use](ui::Form& shown) { use(As<frmVendorList>(shown)); });
    frmVendorList list(shop, purpose);
    list.ShowModal();
    list.Unload();
  }
  void Maintain(const std::function<void(frmVendorList&)>& use) { Show(frmVendorList::Purpose::Maintain, use); }
  void View(const std::function<void(frmVendorList&)>& use) { Show(frmVendorList::Purpose::View, use); }
  void WillEdit(const std::function<void(frmVendorEdit&)>& use) {
    desktop.WillUse([use](ui::Form& shown) { use(As<frmVendorEdit>(shown)); });
  }
  void WillAdd(const std::function<void(frmVendorAdd&)>& use) {
    desktop.WillUse([use](ui::Form& shown) { use(As<frmVendorAdd>(shown)); });
  }
  const ui::Box& OnlyBox() const {
    EXPECT_EQ(desktop.boxes.size(), 1U);
    return desktop.boxes.at(0);
  }
};

}  // namespace lantos::test
