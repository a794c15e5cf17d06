#include "printing/Letterhead.h"

#include <algorithm>

#include "frame/Dates.h"
#include "frame/Numbers.h"
#include "frame/Text.h"

namespace lantos {

namespace {

void SetIfThere(ui::Report& report, std::string_view name, std::string text) {
  const auto& labels = report.design.labels;
  const bool isThere = std::any_of(labels.begin(), labels.end(), [&](const auto& label) { return label.name == name; });
  if (isThere) report.SetLabel(name, std::move(text));
}

std::string CityStateZip(const std::string& city, const std::string& state, const std::string& zip) {
  return city + ", " + state + " " + zip;
}

std::string TaxNumbers(const SystemRecord& system) {
  struct Number {
    const char* label;
    TextField field;
  };
  constexpr Number kNumbers[] = {{"Federal ID Number: ", sysrec::fed_id_number},
                                 {"State ID Number: ", sysrec::state_id_number},
                                 {"Local ID Number: ", sysrec::local_id_number}};
  std::string text;
  for (const Number& number : kNumbers) {
    const std::string value = system.Get(number.field);
    if (!value.empty()) text += (text.empty() ? "" : "  ") + std::string(number.label) + value;
  }
  return text;
}

std::string Phones(const CustomerRecord& customer) {
  std::string text;
  const auto add = [&text](const std::string& phone, const std::string& extension) {
    if (!phone.empty()) text += " " + phone + (extension.empty() ? "" : " x" + extension);
  };
  add(customer.Get(customer::HomePhone), "");
  add(customer.Get(customer::WorkPhone), customer.Get(customer::WorkExt));
  add(customer.Get(customer::OtherPhone), "");
  return text;
}

std::string TimeOfDay(LocalTime now) {
  const int minutes = static_cast<int>(now.millisecondOfDay / 60'000);
  const int hour = minutes / 60 % 12;
  return FormatZeros(hour == 0 ? 12 : hour, 2) + ":" + FormatZeros(minutes % 60, 2) +
         (minutes < 12 * 60 ? " AM" : " PM");
}

}  // namespace

void FillCompany(ui::Report& report, const SystemRecord& system) {
  const std::string phone2 = system.Get(sysrec::company_phone2);
  SetIfThere(report, "lblCompanyName", system.Get(sysrec::company_name));
  SetIfThere(report, "lblCompanyName2", system.Get(sysrec::extra_company_name));
  SetIfThere(report, "lblCompanyAddress", system.Get(sysrec::company_address));
  SetIfThere(report, "lblCompanyCSZ",
             CityStateZip(system.Get(sysrec::company_city), system.Get(sysrec::company_state),
                          system.Get(sysrec::company_zip)));
  SetIfThere(report, "lblCompanyPhone", system.Get(sysrec::company_phone1) + (phone2.empty() ? "" : "  " + phone2));
  SetIfThere(report, "lblCompanyTaxID", TaxNumbers(system));
}

void FillCustomer(ui::Report& report, const CustomerRecord& customer) {
  SetIfThere(report, "lblCustName", customer.Get(customer::Firstname) + " " + customer.Get(customer::Lastname));
  SetIfThere(report, "lblSpouse", customer.Get(customer::Spouse) + " " + customer.Get(customer::SpouseLast));
  SetIfThere(report, "lblAddress", customer.Get(customer::Address));
  SetIfThere(report, "lblCSZ",
             CityStateZip(customer.Get(customer::City), customer.Get(customer::State), customer.Get(customer::Zip)));
  SetIfThere(report, "lblPhone", Phones(customer));
}

void FillEstimate(ui::Report& report, const Estimate& estimate) {
  SetIfThere(report, "lblMake", estimate.VehYear + " " + estimate.VehMake + " " + estimate.VehModel);
  SetIfThere(report, "lblEngTran", estimate.VehEng + " " + estimate.VehTrans);
  SetIfThere(report, "lblVIN", estimate.VehVIN);
  SetIfThere(report, "lblLic", estimate.VehLic);
  SetIfThere(report, "lblMileage", std::to_string(ToLongOrZero(Trim(estimate.VehMileage))));
  SetIfThere(report, "lblWONumber", std::to_string(estimate.EstimateNumber));
  SetIfThere(report, "lblDate", FormatDate(estimate.SchedDate));
}

void FillVehicle(ui::Report& report, const VehicleRecord& record) {
  SetIfThere(report, "lblMake",
             record.Get(vehicle::Year) + " " + record.Get(vehicle::Make) + " " + record.Get(vehicle::Model));
  SetIfThere(report, "lblEngTran", record.Get(vehicle::EngineSize) + " " + record.Get(vehicle::Transmission));
  SetIfThere(report, "lblVIN", record.Get(vehicle::VIN));
  SetIfThere(report, "lblLic", record.Get(vehicle::LicenseNumber));
  SetIfThere(report, "lblMileage", std::to_string(record.Get(vehicle::Mileage)));
}

void FillPrintTime(ui::Report& report, LocalTime now) {
  SetIfThere(report, "lblPrintDate", FormatDate(now.day));
  SetIfThere(report, "lblPrintTime", TimeOfDay(now));
}

}  // namespace lantos
