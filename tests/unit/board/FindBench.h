#pragma once

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "board/BookingBench.h"
#include "board/frmFind.h"

namespace lantos::test {

// Beth Adams (7) has a Ford, a deleted Fiat and a BMW, City School (8) and Al Young (9) have nothing. Beth's estimates
// are 900 of yesterday, 901 of today, 902 of tomorrow.
struct FindBench : BookingBench {
  static constexpr FileLink kFord = 0;
  static constexpr FileLink kFiat = 397;

  FindBench() {
    directory.Put("TQCSTTAG.DAT", Image()
                                      .Append(CustomerTagImage(9, "young,al", 634))
                                      .Append(CustomerTagImage(7, "Adams,Beth", 0).Text(72, "555-0142"))
                                      .Append(CustomerTagImage(8, "School,City", 317)));
    directory.Put("TQCSTDAT.DAT", Image()
                                      .Append(CustomerImage(7, "Adams", kFord).Text(25, "Beth"))
                                      .Append(CustomerImage(8, "School").Text(25, "City"))
                                      .Append(CustomerImage(9, "Young").Text(25, "Al")));
    directory.Put("TQVEHICL.DAT",
                  Image()
                      .Append(VehicleImage(7, "FORD", kFiat).Text(29, "TAURUS").Text(50, "1998").Text(117, "RED WAGON"))
                      .Append(VehicleImage(7, "FIAT", 794).Text(29, "UNO").Text(50, "1988").Long(4, 86))
                      .Append(VehicleImage(7, "BMW", -1).Text(29, "325").Text(50, "2001")));
    AddEstimate(901, Today(), kArrived);
    AddEstimate(902, Today() + 1, kEstimateOnly);
    AddEstimate(900, Today() - 1, kScheduled);
    for (const auto& [number, link] : {std::pair{900, kFord}, {901, 794}, {902, kNoLink}}) {
      Do("update Estimates set VehicleLink = " + std::to_string(link) +
         " where EstimateNumber = " + std::to_string(number));
    }
    AddLabor(901, 1, 150, 9750, "CHECK BRAKES\tFRONT");
    AddLabor(901, 2, 25, 1625, "ROAD TEST");
  }
  frmFind& Open() {
    form.emplace(shop, database, masters);
    form->LoadForm();
    form->Show();
    return *form;
  }
  void OpenFor(std::int32_t number) {
    Open();
    form->Combo1.DoSelect(form->Combo1.FindData(number));
  }
  Texts Lines() const { return TextsOf(form->List1); }
  Texts Vehicles() const {
    Texts texts;
    for (const ui::ListRow& row : form->Combo2.Rows()) texts.push_back(row.text);
    return texts;
  }
  std::optional<frmFind> form;
};

}  // namespace lantos::test
