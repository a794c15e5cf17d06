// The sharing rule of each routine's open, told by what another holder lets it do.
#include <functional>

#include "Fixture.h"
#include "records/Customers.h"
#include "records/MakesModels.h"
#include "records/Passwords.h"
#include "records/Vehicles.h"
#include "records/modEmployees.h"
#include "records/modSystem.h"

namespace lantos::test {
namespace {

using ui::Answer;

class Sharing : public ShopTest {
 protected:
  Sharing() {
    PutGolden();
    records.customers.LoadCustomerTags();
    records.customers.FindCustomerTag(1001);
  }

  // Whether a routine gets its file while another holds it.
  bool Passes(std::string_view file, Access access, Deny deny, const std::function<void()>& routine) {
    records.employees.LoadEmployees();  // saving all of them unloads them
    const SharedFile other = HeldByAnother(file, access, deny);
    // Whatever is asked is answered with the button that gives up.
    const std::size_t before = desktop.boxes.size();
    GivingUp giveUp(desktop);
    try {
      routine();
    } catch (const FileError&) {
      return false;
    } catch (const ProcessEnded&) {
      return false;
    }
    return desktop.boxes.size() == before;
  }

  struct Routine {
    std::string name;
    std::string_view file;
    Access access;
    Deny deny;
    std::function<void()> run;
  };
  std::vector<Routine> Routines() {
    Customers& customers = records.customers;
    Vehicles& vehicles = records.vehicles;
    const auto readCustomer = [&] {
      customers.CurrentCustomer = {};
      customers.ReadCustomer();
    };
    const auto writeCustomer = [&] {
      customers.FindCustomerTag(1001);
      customers.CurrentCustomer.Put(customer::Number, 1001);
      customers.WriteCustomer();
    };
    return {
        {"LoadCustomerTags", kCustomerTagFile, Access::Read, Deny::None, [&] { customers.LoadCustomerTags(); }},
        {"ReadCustomer", kCustomerFile, Access::Read, Deny::None, readCustomer},
        {"WriteCustomer, tag", kCustomerTagFile, Access::Write, Deny::None, writeCustomer},
        {"WriteCustomer", kCustomerFile, Access::Write, Deny::None, writeCustomer},
        {"OpenVehicleForRead", kVehicleFile, Access::Read, Deny::None,
         [&] { vehicles.Walk(kNoLink, [](const VehicleRecord&, FileLink) { return true; }); }},
        {"LoadVehicles", kVehicleFile, Access::Read, Deny::None, [&] { vehicles.LoadVehicles(); }},
        {"ReadVehicle", kVehicleFile, Access::Read, Deny::All, [&] { vehicles.ReadVehicle(0); }},
        {"WriteVehicle", kVehicleFile, Access::Write, Deny::All,
         [&] {
           vehicles.CurrentVehicleOffset = 0;
           vehicles.WriteVehicle();
         }},
        {"ReadSystem", kSystemFile, Access::Read, Deny::All, [&] { records.system.ReadSystem(); }},
        {"WriteSystem", kSystemFile, Access::Write, Deny::All, [&] { records.system.WriteSystem(); }},
        {"LoadMakes", kMakeModelFile, Access::Read, Deny::All, [&] { records.makes.LoadMakes(); }},
        {"AddMake", kMakeModelFile, Access::ReadWrite, Deny::All, [&] { records.makes.AddMake("Nash"); }},
        {"AddModel", kMakeModelFile, Access::ReadWrite, Deny::All, [&] { records.makes.AddModel("Nash", "Rambler"); }},
        {"DeleteModel", kMakeModelFile, Access::ReadWrite, Deny::All,
         [&] { records.makes.DeleteModel("Nash", "Rambler"); }},
        {"DeleteMake", kMakeModelFile, Access::ReadWrite, Deny::All, [&] { records.makes.DeleteMake("Nash"); }},
        {"TakeNumber", kSystemFile, Access::ReadWrite, Deny::All,
         [&] { records.system.TakeNumber(sysrec::last_customer_number); }},
        {"LoadEmployeeList", kEmployeeFile, Access::Read, Deny::None, [&] { records.employees.LoadEmployeeList(); }},
        {"LoadEmployees", kEmployeeFile, Access::Read, Deny::All, [&] { records.employees.LoadEmployees(); }},
        {"UpdateEmployee", kEmployeeFile, Access::ReadWrite, Deny::All,
         [&] { records.employees.UpdateEmployee(7, [](EmployeeRecord&) {}); }},
        {"AddEmployee", kEmployeeFile, Access::ReadWrite, Deny::All,
         [&] { records.employees.AddEmployee(EmployeeRecord()); }},
        {"DeleteEmployee", kEmployeeFile, Access::ReadWrite, Deny::All, [&] { records.employees.DeleteEmployee(3); }},
        {"SaveEmployees", kEmployeeFile, Access::Write, Deny::All, [&] { records.employees.SaveEmployees(); }},
        {"LoadPasswords", kPasswordFile, Access::Read, Deny::None, [&] { records.passwords.LoadPasswords(); }},
    };
  }

 private:
  // Leaves no answer over when nothing is asked.
  class GivingUp {
   public:
    explicit GivingUp(TestDesktop& desktop) : desktop_(desktop) {
      desktop_.otherwise = [](const ui::Box& box) { return ui::ButtonsOf(box).back(); };
    }
    ~GivingUp() { desktop_.otherwise = nullptr; }

   private:
    TestDesktop& desktop_;
  };
};

struct Holder {
  Access access;
  Deny deny;
};

TEST_F(Sharing, EachRoutineIsKeptOutExactlyByWhatItsSharingModeMeets) {
  for (const Routine& routine : Routines()) {
    for (const Holder holder : {Holder{Access::Read, Deny::None}, Holder{Access::Write, Deny::None},
                                Holder{Access::ReadWrite, Deny::None}, Holder{Access::Read, Deny::Write},
                                Holder{Access::Write, Deny::Write}, Holder{Access::ReadWrite, Deny::All}}) {
      const bool writes = routine.access != Access::Read;
      const bool kept = routine.deny == Deny::All || holder.deny == Deny::All || (holder.deny == Deny::Write && writes);
      EXPECT_EQ(Passes(routine.file, holder.access, holder.deny, routine.run), !kept)
          << routine.name << " against " << static_cast<int>(holder.access) << "/" << static_cast<int>(holder.deny);
    }
    EXPECT_NO_THROW(HeldByAnother(routine.file)) << routine.name << " holds its file";
  }
}

}  // namespace
}  // namespace lantos::test
