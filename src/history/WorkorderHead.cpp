#include "history/WorkorderHead.h"

#include "frame/Dates.h"
#include "frame/Numbers.h"

namespace lantos {

namespace {

std::string StatusDate(const WoTotals& totals) {
  if (totals.Get(wototals::DateOpen) < 1) return "Unknown";
  for (const LongField field : {wototals::DatePaid, wototals::DateClosed}) {
    if (totals.Get(field) > 0) return FormatDate(FromFileDate(totals.Get(field)));
  }
  return FormatDate(FromFileDate(totals.Get(wototals::DateOpen)));
}

// Nothing at all is empty, and not the marks between nothing.
std::string Unless(bool isBlank, std::string text) { return isBlank ? std::string() : text; }

std::string Phones(const CustomerRecord& owner) {
  std::string phones;
  const auto add = [&phones](const std::string& phone) {
    if (!phone.empty()) phones += (phones.empty() ? "" : "  ") + phone;
  };
  add(owner.Get(customer::HomePhone));
  const std::string extension = owner.Get(customer::WorkExt);
  add(Trim(owner.Get(customer::WorkPhone) + (extension.empty() ? "" : " x" + extension)));
  add(owner.Get(customer::OtherPhone));
  return phones;
}

}  // namespace

void WorkorderHead::Clear() {
  for (ui::Label* label : {&custname, &spousename, &address, &citystatezip, &phonenumbers, &yearmakemodel, &engmiles,
                           &licvin, &tax_id_number, &salesperson, &workorder_number, &workorder_type, &status,
                           &status_date, &pricing, &method, &total1, &wo_po_tax, &paymentcomment}) {
    label->SetCaption("");
  }
}

void WorkorderHead::Show(const Workorder& workorder, const PaymentMethodTable& methods, Naming naming) {
  ShowOwner(workorder.Customer);
  ShowVehicle(workorder.Vehicle, naming);
  const WoTotals& totals = workorder.Totals;
  const std::size_t way = totals.Get(wototals::PaymentMethod);
  workorder_number.SetCaption(std::to_string(workorder.WorkorderNumber));
  workorder_type.SetCaption(workorder.Type);
  status.SetCaption(workorder.Status);
  status_date.SetCaption(StatusDate(totals));
  pricing.SetCaption(workorder.Pricing);
  method.SetCaption(way < methods.size() ? Trim(methods[way]) : "");
  total1.SetCaption(FormatHundredths(totals.Get(wototals::WorkorderTotal)));
  wo_po_tax.SetCaption(FormatHundredths(totals.Get(wototals::WorkorderTax)));
  paymentcomment.SetCaption(workorder.PaymentComment);
}

void WorkorderHead::ShowOwner(const CustomerRecord& owner) {
  const std::string spouse = owner.Get(customer::Spouse);
  const std::string spouseLast = owner.Get(customer::SpouseLast);
  const std::string city = owner.Get(customer::City);
  const std::string state = owner.Get(customer::State);
  const std::string zip = owner.Get(customer::Zip);
  custname.SetCaption(owner.Get(customer::Lastname) + "," + owner.Get(customer::Firstname));
  spousename.SetCaption(Unless(spouse.empty() && spouseLast.empty(), spouseLast + "," + spouse));
  address.SetCaption(owner.Get(customer::Address));
  citystatezip.SetCaption(Unless(city.empty() && state.empty() && zip.empty(), city + ", " + state + " " + zip));
  phonenumbers.SetCaption(Phones(owner));
  tax_id_number.SetCaption(owner.Get(customer::tax_id_number));
  salesperson.SetCaption(owner.Get(customer::salesperson));
}

void WorkorderHead::ShowVehicle(const VehicleRecord& car, Naming naming) {
  yearmakemodel.SetCaption(Trim(car.Get(vehicle::Year) + " " + car.Get(vehicle::Make) + " " + car.Get(vehicle::Model)));
  engmiles.SetCaption(std::to_string(car.Get(vehicle::Mileage)) + " miles: " + car.Get(vehicle::EngineSize) + " " +
                      car.Get(vehicle::Transmission));
  licvin.SetCaption((naming == Naming::Unit ? "Unit: " : "Lic: ") +
                    Trim(car.Get(vehicle::State) + " " + car.Get(vehicle::LicenseNumber)) +
                    " VIN: " + car.Get(vehicle::VIN));
}

}  // namespace lantos
