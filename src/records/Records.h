#pragma once

#include "records/Customers.h"
#include "records/MakesModels.h"
#include "records/Passwords.h"
#include "records/Vehicles.h"
#include "records/modEmployees.h"
#include "records/modSystem.h"

namespace lantos {

// The shared flat files of one run, each family with its own working record.
struct Records {
  Records(Environment& environment, ui::Desktop& desktop)
      : system(environment, desktop),
        vehicles(environment, desktop, system),
        customers(environment, desktop, system, vehicles),
        makes(environment),
        employees(environment),
        passwords(environment) {}

  modSystem system;
  Vehicles vehicles;
  Customers customers;
  MakesModels makes;
  modEmployees employees;
  Passwords passwords;
};

}  // namespace lantos
