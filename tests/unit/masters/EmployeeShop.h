#pragma once

#include <utility>

#include "MasterShop.h"
#include "estimatedb/EstimateDatabase.h"
#include "masters/employees/frmEmpMaint.h"
#include "masters/employees/frmEmpNew.h"
#include "masters/employees/frmEmpPRInfo.h"
#include "records/modEmployees.h"

namespace lantos::test {

// A shop of four employees, the second of whom has left it, and the main application's database.
class EmployeeShop : public MasterShop {
 protected:
  EmployeeShop() {
    directory.Put("TQSYSTEM.DAT", RawRecord(1038).Long(16, 14).Bytes());
    directory.Put("TQEMPLOY.DAT", Zoe().Bytes() + Pat().Bytes() + Bert().Bytes() + Abe().Bytes());
    Connect(database, environment);
    CreateKorvelDatabase(directory / "Korvel.mdb", clock);
    environment.hasKorvelDatabase = true;
  }

  static constexpr std::size_t kLength = 199;
  static Image Zoe() {
    return Person(12, "Zoe Young")
        .Text(36, "000-00-0012")
        .Text(51, "1 Mill Lane")
        .Text(84, "Springfield")
        .Text(105, "OH")
        .Text(108, "45501")
        .Text(119, "937-555-0912")
        .Long(134, 693974 + 36000)  // 07/24/1998
        .Text(142, std::string("\1\2\0", 3))
        .Long(145, 1875)
        .Text(149, "\1")
        .Text(155, "\2")
        .Long(156, 125000)
        .Long(160, 2550)
        .Text(164, "\1")
        .Long(165, 1000)
        .Text(169, "held")
        .Long(173, 725)
        .Text(177, "eighteen held ones")
        .Long(195, 606);
  }
  static Image Pat() { return Person(9, "Pat Old").Long(138, 731000); }  // left on 05/15/2001
  static Image Bert() { return Person(3, "bert Wood"); }
  static Image Abe() { return Person(7, "Abe Lee"); }

  std::string File() const { return directory.Content("TQEMPLOY.DAT"); }
  // What another workstation does.
  void Change(std::size_t index, const std::function<void(Image&)>& change) const {
    Image record(File().substr(index * kLength, kLength));
    change(record);
    directory.Put("TQEMPLOY.DAT", File().replace(index * kLength, kLength, record.Bytes()));
  }
  void Remove(std::size_t index) const { directory.Put("TQEMPLOY.DAT", File().erase(index * kLength, kLength)); }

  using Names = std::vector<std::string>;
  static Names NamesIn(const ui::ComboBox& list) {
    Names names;
    for (const ui::ListRow& row : list.Rows()) names.push_back(row.text);
    return names;
  }
  static void Choose(ui::ComboBox& list, const std::string& text) {
    ASSERT_GE(list.FindText(text), 0) << text;
    list.DoSelect(list.FindText(text));
  }

  void Maintain(const std::function<void(frmEmpMaint&)>& use) {
    desktop.WillUse([use](ui::Form& shown) { use(As<frmEmpMaint>(shown)); });
    frmEmpMaint form(shop, database.korvelData);
    form.ShowModal();
    form.Unload();
  }
  void KeepPay(std::int32_t employee, const std::function<void(frmEmpPRInfo&)>& use) {
    desktop.WillUse([use](ui::Form& shown) { use(As<frmEmpPRInfo>(shown)); });
    frmEmpPRInfo form(shop, database.korvelData, employee);
    form.ShowModal();
    form.Unload();
  }
  void WillName(const std::function<void(frmEmpNew&)>& use) {
    desktop.WillUse([use](ui::Form& shown) { use(As<frmEmpNew>(shown)); });
  }
  const ui::Box& LastBox() const { return desktop.boxes.back(); }

  EstimateDatabase database{environment, records};

 private:
  static Image Person(std::int32_t number, std::string_view name) { return EmployeeImage(number, name).Long(195, -1); }
};

}  // namespace lantos::test
