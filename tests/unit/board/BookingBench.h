#pragma once

#include "board/BoardBench.h"
#include "masters/customers/frmCustSearch.h"

namespace lantos::test {

struct DetailBench : BoardBench {
  // Shows an estimate of today in the detail view.
  void Show(std::int32_t number) {
    if (!board.IsLoaded()) Start();
    test::Click(board.commands.cmdWeekView);
    Choose(board.week.List1[kTuesday], board.week.List1[kTuesday].FindData(number));
    test::Click(board.commands.cmdDetailView);
  }
  // Labor 97.50 + 16.25, parts 99.96, sublets 120.00 taxed and 30.00 not, waste 3.50 taxed.
  void Fill(std::int32_t number, std::int32_t customer) {
    AddEstimate(number, Today(), kArrived, customer);
    AddLabor(number, 1, 150, 9750);
    AddLabor(number, 2, 25, 1625);
    AddLabor(number, 3, -50, -3250, "HOURS APPLIED ON 09/29/2003");
    Do(
        fmt::format("insert into Parts (EstimateNumber, PartNumber, PartDesc, Quantity, PartPrice, PartTotal) "
                    "values ({}, 'BP', 'Pads', 4, 2499, 9996)",
                    number));
    database.lantosData.AddSublet(number, 1, {"Glass", "", 0, 12000, "", "", "", "", "Yes"});
    database.lantosData.AddSublet(number, 2, {"Cover", "", 0, 3000, "", "", "", "", "No"});
    database.lantosData.AddWaste(number, 1, {"Oil", "", 0, 350, "", "", "", "", "Yes"});
  }
  std::string StoredComments(std::int32_t number = 900) { return Stored("Comments", number); }
};

// A person who books.
struct BookingBench : DetailBench {
  void WillPickCustomer(std::int32_t number) {
    desktop.WillUse([number](ui::Form& form) {
      auto& search = dynamic_cast<frmCustSearch&>(form);
      search.Number.DoType(std::to_string(number));
      search.cmdSearch.DoClick();
      search.CustList.DoSelect(0);
      search.cmdSelect.DoClick();
    });
  }
  void WillLeave() {
    desktop.WillUse([](ui::Form& form) { form.PressKey(ui::ParseKey("Esc")); });
  }
  std::int32_t NextNumber() { return LongAt(directory.Content("TQSYSTEM.DAT"), 4); }
};

}  // namespace lantos::test
