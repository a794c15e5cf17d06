#pragma once

#include <string>

#include "QuietShop.h"
#include "frame/Dates.h"
#include "frame/Numbers.h"
#include "records/Customers.h"
#include "records/MakesModels.h"
#include "records/Passwords.h"
#include "records/Vehicles.h"
#include "records/modEmployees.h"
#include "records/modSystem.h"

// Everything that the program does with each of the shared files, whatever their bytes are. The Read… procedures change
// no file. Each takes the shop as it lies on the disk, with nothing in memory.
namespace lantos::fuzz {

// Some bytes of a result, so that reading it isn't optimized away and a bad address shows.
inline volatile std::size_t g_seen = 0;
inline void See(std::string_view text) {
  std::size_t sum = text.size();
  for (char c : text) sum += static_cast<unsigned char>(c);
  g_seen = g_seen + sum;
}

// Of what the program refuses by an exception, these are meant.
template <class Work>
void Refusable(Work work) {
  try {
    work();
  } catch (const FileError&) {
  } catch (const std::overflow_error&) {
  } catch (const ProcessEnded&) {
  }
}

inline void SeeVehicle(const VehicleRecord& record) {
  for (const TextField field : {vehicle::Make, vehicle::Model, vehicle::Year, vehicle::EngineSize,
                                vehicle::Transmission, vehicle::VIN, vehicle::LicenseNumber, vehicle::State}) {
    See(record.Get(field));
  }
  for (const TextField field : vehicle::VComment) See(record.Get(field));
  See(FormatDate(FromFileDate(record.Get(vehicle::Date))));
}

inline void SeeCustomer(const CustomerRecord& record) {
  for (const TextField field :
       {customer::Lastname, customer::Firstname, customer::Spouse, customer::SpouseLast, customer::Address,
        customer::City, customer::State, customer::Zip, customer::HomePhone, customer::WorkPhone, customer::WorkExt,
        customer::OtherPhone, customer::tax_id_number, customer::Comment, customer::salesperson}) {
    See(record.Get(field));
  }
  See(FormatDate(FromFileDate(record.Get(customer::Date))));
}

inline void ReadCustomers(QuietShop& shop) {
  Records records(shop.environment, shop.desktop);
  Refusable([&] {
    Customers& customers = records.customers;
    customers.LoadCustomerTags();
    for (std::size_t i = 0; i < customers.Count(); ++i) {
      See(customers.Tag(i).Get(customertag::NameKey));
      See(customers.SpouseName(i));
      const std::int32_t number = customers.Tag(i).Get(customertag::Number);
      customers.FindCustomerTag(number);
      customers.MakeTagCurrent(i);
      if (customers.ReadCustomer()) SeeCustomer(customers.CurrentCustomer);
      customers.LatestVehicleDate(customers.CurrentCustomer);
      customers.LookupCustomer(number);
    }
    customers.FindCustomerTag(0);
    customers.LookupCustomer(-7);
    customers.RefreshCustomers();
    for (const CustomerIndexRow& row : customers.Index()) SeeCustomer(row.customer);
  });
}

inline void ReadVehicles(QuietShop& shop) {
  Records records(shop.environment, shop.desktop);
  Refusable([&] {
    Vehicles& vehicles = records.vehicles;
    vehicles.LoadVehicles();
    for (std::int32_t i = 0; i < vehicles.Count(); ++i) {
      VehicleRecord record = vehicles[static_cast<std::size_t>(i)];
      SeeVehicle(record);
      Vehicles::FollowFirstMileage(record);
      vehicles.ReadVehicle(record.Get(vehicle::VLink));
      vehicles.Walk(record.Get(vehicle::VLink), [](const VehicleRecord& met, FileLink) {
        SeeVehicle(met);
        return true;
      });
    }
  });
}

inline void ReadMakes(QuietShop& shop) {
  Records records(shop.environment, shop.desktop);
  Refusable([&] {
    MakesModels& makes = records.makes;
    makes.LoadMakes();
    for (const Make& make : makes.Makes()) {
      See(make.Name);
      makes.HasModels(make.Name);
    }
    for (const Model& model : makes.Models()) makes.HasModel(model.Make, model.Name);
  });
}

inline void ReadSystemRecord(QuietShop& shop) {
  Records records(shop.environment, shop.desktop);
  Refusable([&] {
    records.system.ReadSystem();
    for (const TextField field :
         {sysrec::company_name, sysrec::company_address, sysrec::company_city, sysrec::company_state,
          sysrec::company_zip, sysrec::company_phone1, sysrec::hand_msg1, sysrec::hand_msg2,
          sysrec::surcharge_description, sysrec::fleet_terms, sysrec::shell_command_line, sysrec::extra_company_name}) {
      See(records.system.SysRec.Get(field));
    }
    See(FormatHundredths(records.system.SysRec.Get(sysrec::shop_rate)));
    See(FormatTenThousandths(records.system.SysRec.Get(sysrec::tax_rate_parts)));
  });
}

inline void ReadPasswords(QuietShop& shop) {
  Records records(shop.environment, shop.desktop);
  Refusable([&] {
    records.passwords.LoadPasswords();
    for (const Section section : {Section::Workorders, Section::Inventory, Section::Customer, Section::Employee,
                                  Section::Vendor, Section::System, Section::EditMenu}) {
      See(records.passwords.Password(section));
    }
  });
}

inline void ReadEmployees(QuietShop& shop) {
  Records records(shop.environment, shop.desktop);
  Refusable([&] {
    for (const EmployeeName& name : records.employees.LoadEmployeeList()) See(name.Name);
    records.employees.LoadEmployees();
    for (const EmployeeRecord& record : records.employees.Employees()) See(record.Get(employee::EmpAddr));
  });
}

// The same files written to, as the screens do it.

inline void ChangeCustomers(QuietShop& shop) {
  Records records(shop.environment, shop.desktop);
  Refusable([&] {
    Customers& customers = records.customers;
    customers.LoadCustomerTags();
    customers.NewCustomer();
    customers.CurrentCustomer.Put(customer::Lastname, "Newcomer");
    customers.WriteCustomer();
    VehicleRecord vehicle = records.vehicles.NewVehicle();
    customers.AppendVehicle(vehicle);
  });
}

inline void ChangeMakes(QuietShop& shop) {
  Records records(shop.environment, shop.desktop);
  Refusable([&] {
    MakesModels& makes = records.makes;
    makes.LoadMakes();
    makes.AddMake("Newmake");
    makes.AddModel("Newmake", "Model one");
    if (makes.Makes().empty()) return;
    const std::string first = makes.Makes().front().Name;
    makes.AddModel(first, "Another");
    if (!makes.Models().empty()) makes.DeleteModel(makes.Models().front().Make, makes.Models().front().Name);
    makes.DeleteMake(first);
  });
}

inline void ChangeEmployees(QuietShop& shop) {
  Records records(shop.environment, shop.desktop);
  Refusable([&] {
    modEmployees& employees = records.employees;
    employees.LoadEmployees();
    const std::int32_t first =
        employees.Employees().empty() ? kNoEmployeeNumber : employees.Employees().front().Get(employee::EmpNumber);
    employees.UpdateEmployee(first, [](EmployeeRecord& record) { record.Put(employee::EmpAddr, "1 Mill Lane"); });
    EmployeeRecord added;
    added.Put(employee::EmpNumber, 8);
    added.Put(employee::PayrollHead, kNoLink);
    employees.AddEmployee(added);
    employees.SetPayrollHead(8, kNoLink);
    employees.DeleteEmployee(first);
    employees.DeleteEmployee(8);
  });
}

inline void TakeNumbers(QuietShop& shop) {
  Records records(shop.environment, shop.desktop);
  Refusable([&] {
    for (const LongField counter :
         {sysrec::last_workorder_number, sysrec::last_estimate_number, sysrec::last_customer_number}) {
      records.system.TakeNumber(counter);
    }
  });
}

}  // namespace lantos::fuzz
