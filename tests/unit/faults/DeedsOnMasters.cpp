#include "admin/SystemScreensBench.h"
#include "admin/frmCompanyInfo.h"
#include "admin/frmDisclaimer.h"
#include "admin/frmSystemParameters.h"
#include "faults/Deed.h"
#include "masters/EmployeeShop.h"
#include "masters/VendorShop.h"
#include "masters/customers/frmCustSearch.h"
#include "masters/employees/frmEmpPRHist.h"
#include "masters/vehicles/frmVehEdit.h"
#include "payroll/PayImage.h"
#include "records/PayrollBench.h"
#include "records/Vehicles.h"

// Customers and their vehicles, vendors, employees, the shop itself.
namespace lantos::test {

namespace {

struct OnCustomers : DeedOnTest<MasterShop> {
  OnCustomers() {
    PutCustomers({{5, "SMITH", "JOHN", "", "", "", "", "", 0}, {6, "ROE", "AL"}, {7, "ACME", ""}});
    PutVehicles({{5, "1999", "HONDA", "CIVIC", "LIC", "V3", 300}});
    MakeCustomerCurrent(5);
    gaps = {"TQSYSTEM.DAT"};
    inTurn = {"TQCSTTAG.DAT", "TQVEHICL.DAT"};  // the vehicle, its owner's tag, the owner
    isJournaledWhenKilled = true;
  }
  void Settle(Settling) override { FinishRecords(*this); }
};

struct EditCustomer : OnCustomers {
  EditCustomer() {
    forms["frmCustEdit"] = [](ui::Form& form) {
      As<frmCustEdit>(form).Address.DoType("2 Oak St");
      As<frmCustEdit>(form).Home.DoType("555-2222");
      Press(form, "F10");
    };
  }
  void Do() override {
    std::unique_ptr<frmCustEdit> window;
    screens.EditCustomer(MasterScreens::Window::New, window);
    window->Unload();
  }
};

struct NewCustomer : OnCustomers {
  NewCustomer() {
    Once("frmCustSearch", [](ui::Form& form) {
      As<frmCustSearch>(form).NameKey.DoType("Doe, Ann");
      Press(form, "Insert");
    });
    forms["frmCustEdit"] = [](ui::Form& form) { Press(form, "F10"); };
  }
  void Do() override { screens.CustomerMaintenance(MasterScreens::Purpose::ChooseForEstimate); }
};

struct EditVehicle : OnCustomers {
  EditVehicle() {
    Once("frmVehList", [](ui::Form& form) {
      As<frmVehList>(form).DataGrid1.DoSelect(0);
      As<frmVehList>(form).cmdEdit.DoClick();
    });
    forms["frmVehEdit"] = [](ui::Form& form) {
      As<frmVehEdit>(form).Mileage.DoType("500");
      Press(form, "F10");
    };
  }
  void Do() override { screens.VehicleMaintenance(); }
};

struct NewVehicle : OnCustomers {
  NewVehicle() {
    Once("frmVehList", [](ui::Form& form) { Press(form, "Insert"); });
    forms["frmVehEdit"] = [](ui::Form& form) {
      As<frmVehEdit>(form).VIN.DoType("1FAFP34P1XW123456");
      As<frmVehEdit>(form).Mileage.DoType("10");
      Press(form, "F10");
    };
  }
  void Do() override { screens.VehicleMaintenance(); }
};

struct OnVendors : DeedOnTest<VendorShop> {
  void Do() override {
    frmVendorList list(shop, frmVendorList::Purpose::Maintain);
    list.ShowModal();
    list.Unload();
  }
};
struct EditVendor : OnVendors {
  EditVendor() {
    forms["frmVendorList"] = [](ui::Form& form) {
      As<frmVendorList>(form).VendorList.DoSelect(0);
      As<frmVendorList>(form).cmdEdit.DoClick();
    };
    forms["frmVendorEdit"] = [](ui::Form& form) {
      Type(As<frmVendorEdit>(form).Contact, "Bea Bell");
      Press(form, "F10");
    };
  }
};
struct AddVendor : OnVendors {
  AddVendor() {
    forms["frmVendorList"] = [](ui::Form& form) { Press(form, "Insert"); };
    forms["frmVendorAdd"] = [](ui::Form& form) {
      Type(As<frmVendorAdd>(form).VendorName, "Epsilon Tires");
      Press(form, "F10");
    };
  }
};

struct DeleteVendor : OnVendors {
  DeleteVendor() {
    answers = {{"Deleting vendor\r", ui::Answer::Yes}};
    forms["frmVendorList"] = [](ui::Form& form) {
      As<frmVendorList>(form).VendorList.DoSelect(0);
      As<frmVendorList>(form).cmdDelete.DoClick();
    };
  }
};

struct OnEmployees : DeedOnTest<EmployeeShop> {
  EstimateDatabase* Database() override { return &database; }
  void Do() override {
    frmEmpMaint form(shop, database.korvelData);
    form.ShowModal();
    form.Unload();
  }
};
struct EditEmployee : OnEmployees {
  EditEmployee() {
    forms["frmEmpMaint"] = [](ui::Form& form) {
      auto& screen = As<frmEmpMaint>(form);
      const int row = screen.EmpList.FindText("Zoe Young");
      if (row < 0) return;
      screen.EmpList.DoSelect(row);
      Type(screen.EmpAddr, "2 Mill Lane");
      Press(form, "F10");
    };
  }
};
struct NewEmployee : OnEmployees {
  NewEmployee() {
    forms["frmEmpMaint"] = [](ui::Form& form) { Press(form, "Insert"); };
    forms["frmEmpNew"] = [](ui::Form& form) {
      Type(As<frmEmpNew>(form).EmpName, "Mia North");
      Press(form, "F10");
    };
    gaps = {"TQSYSTEM.DAT"};
    mark = "Mia North";
  }
};
struct EditPay : OnEmployees {
  EditPay() {
    inTurn = {"TQEMPLOY.DAT"};  // then a row of the main application's database
    forms["frmEmpPRInfo"] = [](ui::Form& form) {
      Type(As<frmEmpPRInfo>(form).Wage, "19.25");
      Press(form, "F10");
    };
  }
  void Do() override {
    frmEmpPRInfo form(shop, database.korvelData, 12);
    form.ShowModal();
    form.Unload();
  }
};

// The newest pay, with what the main application's database has of it.
struct DeletePay : DeedOnTest<MasterShop> {
  DeletePay() {
    std::string file;
    for (const CivilDate& date : {CivilDate{2006, 1, 6}, CivilDate{2006, 1, 13}}) {
      PayRecord pay = PayOf({date, 60000, 2});
      if (!file.empty()) pay.Put(payrecord::NextRecord, 0);
      file.append(reinterpret_cast<const char*>(pay.Bytes().data()), PayRecord::kLength);
    }
    directory.Put("TQPAYROL.DAT", file);
    directory.Put("TQEMPLOY.DAT", PaidEmployees(kPayLength));
    CreateKorvelDatabase(directory / "Korvel.mdb", clock);
    Connect(database, environment);
    environment.hasKorvelDatabase = true;
    database.korvelData.Connection().Run(
        "insert into EmpPRHist (EmployeeNumber, PayrollDate, AdditionalFederal) values (7, '01/13/2006', 777)", {});
    forms["frmEmpPRHist"] = [](ui::Form& form) {
      auto& history = As<frmEmpPRHist>(form);
      history.ListView1.DoSelect(0);
      test::Click(history.cmdDelete);
      Press(form, "F10");
    };
    answers = {{"Delete", ui::Answer::Yes}};
    inTurn = {"TQEMPLOY.DAT", "TQPAYROL.DAT"};  // then the row of the database
  }
  EstimateDatabase* Database() override { return &database; }
  void Do() override {
    frmEmpPRHist form(shop, database.korvelData, 7);
    form.ShowModal();
    form.Unload();
  }
  EstimateDatabase database{environment, records};
};

template <class Screen>
struct OnSystem : DeedOn<SystemShop> {
  void Do() override {
    Screen form(shop);
    form.LoadForm();
    form.ShowModal();
    form.Unload();
  }
};
struct EditCompany : OnSystem<frmCompanyInfo> {
  EditCompany() {
    forms["frmCompanyInfo"] = [](ui::Form& form) {
      Type(As<frmCompanyInfo>(form).company_address, "13 Elm St");
      Press(form, "F10");
    };
  }
};
struct EditParameters : OnSystem<frmSystemParameters> {
  EditParameters() {
    directory.Put("Lantos.ini", "[Lantos Defaults]\r\nBackupCmdWait=True\r\n");
    forms["frmSystemParameters"] = [](ui::Form& form) {
      Type(As<frmSystemParameters>(form).shop_rate, "70.00");
      Press(form, "F10");
    };
  }
};

struct EditDisclaimer : OnSystem<frmDisclaimer> {
  EditDisclaimer() {
    directory.Put("DISC_EST.TXT", "Good for 30 days.");
    forms["frmDisclaimer"] = [](ui::Form& form) {
      Type(As<frmDisclaimer>(form).txtDisclaimer, "Good for no more than 30 days.");
      Press(form, "F10");
      Press(form, "Esc");
    };
  }
};

template <class Made>
NamedDeed Named(const char* name) {
  return {name, [] { return std::make_unique<Made>(); }};
}

}  // namespace

std::vector<NamedDeed> DeedsOnMasters() {
  return {Named<EditCustomer>("customer: edit"),    Named<NewCustomer>("customer: new"),
          Named<EditVehicle>("vehicle: edit"),      Named<NewVehicle>("vehicle: new"),
          Named<EditVendor>("vendor: edit"),        Named<AddVendor>("vendor: add"),
          Named<DeleteVendor>("vendor: delete"),    Named<EditEmployee>("employee: edit"),
          Named<NewEmployee>("employee: new"),      Named<EditPay>("employee: pay"),
          Named<DeletePay>("employee: delete pay"), Named<EditCompany>("company"),
          Named<EditParameters>("system record"),   Named<EditDisclaimer>("disclaimer")};
}

}  // namespace lantos::test
