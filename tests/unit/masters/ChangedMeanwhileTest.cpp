#include "EmployeeShop.h"
#include "VendorShop.h"
#include "masters/customers/frmCustSearch.h"
#include "masters/vehicles/frmVehEdit.h"
#include "records/Customers.h"
#include "records/Vehicles.h"

namespace lantos::test {
namespace {

// Records that somebody else stores while a screen has them: what only one has changed is kept, and of one field that
// both have changed the person is asked.
constexpr const char* kQuestionEnd = "\r\rDo you want to store yours?\rNo keeps what is stored, CANCEL goes back.";

std::string QuestionOf(const std::string& fields) {
  return "Somebody else has changed this meanwhile:\r\r" + fields + kQuestionEnd;
}

class ChangedCustomer : public MasterShop {
 protected:
  ChangedCustomer() {
    PutCustomers({{5, "SMITH", "JOHN"}, {6, "ROE", "AL", "", "", "", "", "", 0}});
    PutVehicles({{6, "1999", "HONDA", "CIVIC", "LIC", "V3", 300}});
    MakeCustomerCurrent(6);
  }
  std::string Masters() const { return directory.Content("TQCSTDAT.DAT"); }
  // What another workstation stores of the second customer.
  void StoreByAnother(std::size_t offset, const std::string& bytes) const {
    directory.Put("TQCSTDAT.DAT", Masters().replace(317 + offset, bytes.size(), bytes));
  }
  bool Edit(const std::function<void(frmCustEdit&)>& use) {
    desktop.WillUse([use](ui::Form& shown) { use(As<frmCustEdit>(shown)); });
    std::unique_ptr<frmCustEdit> window;
    const bool saved = screens.EditCustomer(MasterScreens::Window::New, window);
    window->Unload();
    return saved;
  }
};

TEST_F(ChangedCustomer, ASaveKeepsTheOthersFieldsAndTheirVehicle) {
  Edit([this](frmCustEdit& form) {
    StoreByAnother(121, "Xenia");
    StoreByAnother(313, RawRecord(4).Long(0, 794).Bytes());
    form.Zip.DoType("45385");
    form.cmdSave.DoClick();
  });
  EXPECT_EQ(Masters().substr(317 + 121, 5), "Xenia");
  EXPECT_EQ(Masters().substr(317 + 145, 5), "45385");
  EXPECT_EQ(LongAt(Masters(), 317 + 313), 794) << "the chain's head is the file's";
  EXPECT_EQ(records.customers.CurrentCustomer.Get(customer::City), "Xenia");
}

TEST_F(ChangedCustomer, OneFieldOfBothAsksAndCancelKeepsTheScreen) {
  desktop.WillAnswer({Answer::Cancel, Answer::Yes});
  Edit([this](frmCustEdit& form) {
    StoreByAnother(121, "Xenia");
    form.City.DoType("Dayton");
    form.cmdSave.DoClick();
    EXPECT_TRUE(form.Visible());
    EXPECT_EQ(form.City.Text(), "Dayton");
    EXPECT_EQ(Masters().substr(317 + 121, 6), std::string("Xenia\0", 6));
    form.cmdSave.DoClick();
  });
  EXPECT_EQ(desktop.boxes.at(0).text, QuestionOf("City: \"Xenia\" is stored, \"Dayton\" is yours"));
  EXPECT_EQ(desktop.boxes.at(0).title, "Edit Customer");
  EXPECT_EQ(Masters().substr(317 + 121, 6), "Dayton");
}

TEST_F(ChangedCustomer, AScreenReadsTheFileWhateverIsInMemory) {
  StoreByAnother(121, "Xenia");
  desktop.WillUse([](ui::Form& shown) {
    auto& search = As<frmCustSearch>(shown);
    search.Number.DoType("6");
    search.cmdSearch.DoClick();
    search.CustList.DoSelect(0);
    search.cmdSelect.DoClick();
  });
  desktop.WillUse([](ui::Form& shown) {
    EXPECT_EQ(As<frmCustEdit>(shown).City.Text(), "Xenia");
    Press(shown, "Esc");
  });
  desktop.WillUse([](ui::Form& shown) { Press(shown, "Esc"); });
  screens.CustomerMaintenance(MasterScreens::Purpose::Maintain);
}

TEST_F(ChangedCustomer, AVehicleKeepsTheOthersFieldsAndItsChain) {
  const auto storeByAnother = [this](std::size_t offset, const std::string& bytes) {
    directory.Put("TQVEHICL.DAT", directory.Content("TQVEHICL.DAT").replace(offset, bytes.size(), bytes));
  };
  desktop.WillAnswer(Answer::No);
  desktop.WillUse([](ui::Form& list) { As<frmVehList>(list).cmdEdit.DoClick(); });
  desktop.WillUse([&](ui::Form& shown) {
    auto& form = As<frmVehEdit>(shown);
    storeByAnother(82, "OTHER");
    storeByAnother(377, RawRecord(4).Long(0, 500).Bytes());
    storeByAnother(393, RawRecord(4).Long(0, 794).Bytes());
    form.Model.DoType("ACCORD");
    form.Mileage.DoType("400");
    Press(form, "F10");
  });
  desktop.WillUse([](ui::Form& list) { Press(list, "Esc"); });
  screens.VehicleMaintenance();
  EXPECT_EQ(desktop.boxes.at(0).text, QuestionOf("Mileage: \"500\" is stored, \"400\" is yours"));
  const std::string vehicle = directory.Content("TQVEHICL.DAT");
  EXPECT_EQ(TextAt(vehicle, 29, 21), "ACCORD");
  EXPECT_EQ(TextAt(vehicle, 82, 21), "OTHER");
  EXPECT_EQ(LongAt(vehicle, 377), 500);
  EXPECT_EQ(LongAt(vehicle, 393), 794);
}

TEST_F(ChangedCustomer, AVehicleThatCanNotBeStoredLeavesItsScreenUp) {
  desktop.WillAnswer({Answer::Ok, Answer::Yes});
  desktop.WillUse([](ui::Form& list) { As<frmVehList>(list).cmdEdit.DoClick(); });
  desktop.WillUse([&](ui::Form& shown) {
    auto& form = As<frmVehEdit>(shown);
    form.Model.DoType("ACCORD");
    {
      const SharedFile held(directory.Path() / "TQVEHICL.DAT", Access::ReadWrite, Deny::All);
      Press(form, "F10");
    }
    EXPECT_EQ(desktop.boxes.back().title, "WriteVehicle");
    EXPECT_TRUE(form.Visible());
    EXPECT_EQ(form.Model.Text(), "ACCORD");
    Press(form, "Esc");
  });
  desktop.WillUse([](ui::Form& list) { Press(list, "Esc"); });
  screens.VehicleMaintenance();
}

class ChangedVendor : public VendorShop {
 protected:
  ChangedVendor() { records.vendors.LoadVendors(); }
  bool Edit(const std::function<void(frmVendorEdit&)>& use) {
    WillEdit(use);
    records.vendors.MakeCurrent(0);
    frmVendorEdit form(shop, frmVendorEdit::Purpose::Edit, {0, 2, 3}, 0);
    form.ShowModal();
    const bool saved = form.Saved();
    form.Unload();
    return saved;
  }
};

TEST_F(ChangedVendor, ASaveKeepsTheOthersFieldsAndAsksAboutTheSame) {
  desktop.WillAnswer(Answer::Yes);
  EXPECT_TRUE(Edit([this](frmVendorEdit& form) {
    Replace(0, Alpha().Text(32, "Bea Brown").Text(121, "99999"));
    Type(form.Zip, "45401");
    Type(form.City, "Xenia");
    Press(form, "F10");
  }));
  EXPECT_EQ(desktop.boxes.at(0).text, QuestionOf("Zip: \"99999\" is stored, \"45401\" is yours"));
  EXPECT_EQ(TextAt(RecordAt(0), 32, 32), "Bea Brown");
  EXPECT_EQ(TextAt(RecordAt(0), 97, 21), "Xenia");
  EXPECT_EQ(TextAt(RecordAt(0), 121, 11), "45401");
}

TEST_F(ChangedVendor, AVendorThatAnotherHasDeletedIsNotBroughtBack) {
  desktop.WillAnswer({Answer::Ok, Answer::Yes});
  EXPECT_FALSE(Edit([this](frmVendorEdit& form) {
    Replace(0, std::string(204, '\0'));
    Type(form.City, "Xenia");
    Press(form, "F10");
    EXPECT_TRUE(form.Visible());
    Press(form, "Esc");
  }));
  EXPECT_EQ(desktop.boxes.at(0).text, "This vendor has been deleted by another user.");
  EXPECT_EQ(RecordAt(0), std::string(204, '\0'));
}

class ChangedEmployee : public EmployeeShop {};

TEST_F(ChangedEmployee, OneFieldOfBothAsksAndNoKeepsTheOthers) {
  desktop.WillAnswer(Answer::No);
  Maintain([this](frmEmpMaint& form) {
    Choose(form.EmpList, "Zoe Young");
    Change(0, [](Image& record) { record.Text(84, Padded("Xenia", 21)).Text(51, "9 Oak Lanes"); });
    form.EmpCity.DoType("Dayton");
    form.EmpZip.DoType("45402");
    Press(form, "F10");
    EXPECT_EQ(form.EmpCity.Text(), "Xenia") << "the screen shows what is stored";
    Press(form, "Esc");
  });
  EXPECT_EQ(desktop.boxes.at(0).text, QuestionOf("City: \"Xenia\" is stored, \"Dayton\" is yours"));
  EXPECT_EQ(TextAt(File(), 51, 33), "9 Oak Lanes");
  EXPECT_EQ(TextAt(File(), 84, 21), "Xenia");
  EXPECT_EQ(TextAt(File(), 108, 11), "45402");
}

TEST_F(ChangedEmployee, CancelKeepsTheScreenAsItWasTyped) {
  desktop.WillAnswer({Answer::Cancel, Answer::Yes});
  Maintain([this](frmEmpMaint& form) {
    Choose(form.EmpList, "Zoe Young");
    Change(0, [](Image& record) { record.Text(108, "99999"); });
    form.EmpZip.DoType("45402");
    Press(form, "F10");
    EXPECT_EQ(form.EmpZip.Text(), "45402");
    EXPECT_EQ(TextAt(File(), 108, 11), "99999");
    Press(form, "Esc");
  });
}

TEST_F(ChangedEmployee, AWageOfBothAsks) {
  desktop.WillAnswer(Answer::Yes);
  KeepPay(12, [this](frmEmpPRInfo& form) {
    Change(0, [](Image& record) { record.Long(145, 2000).Long(156, 130000); });
    form.Wage.DoType("21");
    Press(form, "F10");
    Press(form, "Esc");
  });
  EXPECT_EQ(desktop.boxes.at(0).text, QuestionOf("Wage: \"20.00\" is stored, \"21.00\" is yours"));
  EXPECT_EQ(LongAt(File(), 145), 2100);
  EXPECT_EQ(LongAt(File(), 156), 130000);
}

}  // namespace
}  // namespace lantos::test
