// The browser of past work orders.
#include "HistoryShop.h"

namespace lantos::test {
namespace {

using testing::ElementsAre;

using WOHist = HistoryShop;

TEST_F(WOHist, OpensOnCriteriaWithNothingToStepThrough) {
  Browse([&](frmWOHist& form) {
    EXPECT_EQ(form.Caption(), "Workorder History");
    EXPECT_EQ(form.cmdSearch.Caption(), "&Search");
    EXPECT_TRUE(form.srchName.HasFocus());
    for (const ui::Button* button : {&form.cmdFirst, &form.cmdPrev, &form.cmdNext, &form.cmdLast, &form.cmdPrintWO,
                                     &form.cmdName, &form.cmdVIN, &form.cmdLicense}) {
      EXPECT_FALSE(button->Enabled()) << button->Name();
    }
    EXPECT_FALSE(form.lblSearching.Visible());
    EXPECT_FALSE(form.cmdCancelSearch.Visible());
    ExpectEmpty(form);
  });
}

TEST_F(WOHist, WithoutCriteriaItAsksForThem) {
  Browse([&](frmWOHist& form) {
    Type(form.srchVIN, "   ");
    desktop.WillAnswer(ui::Answer::Ok);
    Press(form, "F10");
    EXPECT_EQ(form.srchVIN.Text(), "");
  });
  ASSERT_EQ(desktop.boxes.size(), 1u);
  EXPECT_EQ(desktop.boxes[0].text, "You must enter search criteria!");
  EXPECT_EQ(desktop.boxes[0].title, "Workorder History");
}

TEST_F(WOHist, AHitIsShownWithHeadAndLines) {
  Workorder order = Order(4711);
  order.Customer.Put(customer::Spouse, "Carl");
  order.Customer.Put(customer::SpouseLast, "Lee");
  order.Customer.Put(customer::Address, "5 Oak Street");
  order.Customer.Put(customer::City, "Dayton");
  order.Customer.Put(customer::State, "OH");
  order.Customer.Put(customer::Zip, "45402");
  order.Customer.Put(customer::HomePhone, "937-555-0142");
  order.Customer.Put(customer::WorkPhone, "937-555-0143");
  order.Customer.Put(customer::WorkExt, "12");
  order.Customer.Put(customer::OtherPhone, "937-555-0144");
  order.Customer.Put(customer::tax_id_number, "EX-1");
  order.Vehicle.Put(vehicle::Year, "1999");
  order.Vehicle.Put(vehicle::Model, "Focus");
  order.Vehicle.Put(vehicle::EngineSize, "2.0L");
  order.Vehicle.Put(vehicle::Transmission, "Auto");
  order.Vehicle.Put(vehicle::State, "OH");
  order.Vehicle.Put(vehicle::Mileage, 51234);
  order.Totals.Put(wototals::WorkorderTax, 40);
  order.Totals.Put(wototals::PaymentMethod, 1);
  order.PaymentComment = "half now";
  AddActive(order);
  Browse([&](frmWOHist& form) {
    Search(form, form.srchName, " ada ");
    EXPECT_EQ(form.srchName.Text(), "ada");
    EXPECT_EQ(form.Caption(), "Workorder History by Name");
    WorkorderHead& head = form.head;
    std::vector<std::string> shown;
    for (ui::Label* label :
         {&head.custname,       &head.spousename,  &head.address,        &head.citystatezip,     &head.phonenumbers,
          &head.yearmakemodel,  &head.engmiles,    &head.licvin,         &head.workorder_number, &head.status,
          &head.workorder_type, &head.status_date, &head.method,         &head.total1,           &head.wo_po_tax,
          &head.tax_id_number,  &head.salesperson, &head.paymentcomment, &head.pricing,          &form.done}) {
      shown.push_back(label->Caption());
    }
    EXPECT_THAT(shown,
                ElementsAre("Adams,Beth", "Lee,Carl", "5 Oak Street", "Dayton, OH 45402",
                            "937-555-0142  937-555-0143 x12  937-555-0144", "1999 Ford Focus", "51234 miles: 2.0L Auto",
                            "Lic: OH CAB 1 VIN: 1FAFP34P0XW000001", "4711", "OPEN", "Repair", "09/30/2003", "Cash",
                            "7.39", "0.40", "EX-1", "None", "half now", "Retail", "Hit 1 of 1 so far"));
    EXPECT_EQ(Lines(form.WoDetail)[0], "____Parts____");
    EXPECT_EQ(form.WoDetail.ListCount(), form.WoDetailC.ListCount());
    EXPECT_GT(form.WoDetail.HorizontalExtent(), 0);
  });
}

TEST_F(WOHist, WhatIsBlankInTheHeadHasNoMarksBetweenNothing) {
  AddActive(Order(1));
  Workorder order = Order(2);
  order.Customer.Put(customer::Spouse, "Carl");
  AddActive(order);
  Browse([&](frmWOHist& form) {
    Search(form, form.srchName, "adams");
    EXPECT_EQ(form.head.spousename.Caption(), ",Carl") << "as the name of the customer reads";
    Click(form.cmdNext);
    EXPECT_EQ(form.head.spousename.Caption(), "");
    EXPECT_EQ(form.head.citystatezip.Caption(), "");
    EXPECT_EQ(form.head.phonenumbers.Caption(), "");
    EXPECT_EQ(form.head.yearmakemodel.Caption(), "Ford");
  });
}

TEST_F(WOHist, TheDateIsThatOfThePaymentOrTheClosingOrTheOpening) {
  Workorder order = Order(1);
  AddActive(order);
  order = Order(2);
  order.Totals.Put(wototals::DateClosed, kTodayInFiles + 1);
  AddActive(order);
  order = Order(3);
  order.Totals.Put(wototals::DateClosed, kTodayInFiles + 1);
  order.Totals.Put(wototals::DatePaid, kTodayInFiles + 2);
  AddActive(order);
  order = Order(4);
  order.Totals.Put(wototals::DateOpen, 0);
  order.Totals.Put(wototals::DatePaid, kTodayInFiles + 2);
  AddActive(order);
  Browse([&](frmWOHist& form) {
    Search(form, form.srchName, "adams");
    std::vector<std::string> dates;
    for (int i = 0; i < 4; ++i) {
      dates.push_back(form.head.status_date.Caption());
      if (i < 3) Click(form.cmdNext);
    }
    EXPECT_THAT(dates, ElementsAre("Unknown", "10/02/2003", "10/01/2003", "09/30/2003"));
  });
}

TEST_F(WOHist, TheStepsAndWhereTheyEnd) {
  for (int i = 1; i <= 3; ++i) AddActive(Order(i));
  Browse([&](frmWOHist& form) {
    const auto shown = [&] { return form.head.workorder_number.Caption() + ", " + form.done.Caption(); };
    Search(form, form.srchName, "adams");
    EXPECT_EQ(shown(), "3, Hit 1 of 1 so far");
    EXPECT_TRUE(form.cmdNext.HasFocus());
    Click(form.cmdPrev);
    EXPECT_EQ(desktop.beeps, 1) << "it never searches";
    Press(form, "Alt+N");
    EXPECT_EQ(shown(), "2, Hit 2 of 2 so far");
    Click(form.cmdPrev);
    EXPECT_EQ(shown(), "3, Hit 1 of 2 so far");
    Press(form, "Alt+L");
    EXPECT_EQ(shown(), "2, Hit 2 of 2 so far") << "the last that was found";
    Click(form.cmdNext);
    EXPECT_EQ(shown(), "1, Hit 3 of 3 so far");
    EXPECT_EQ(desktop.beeps, 1);
    Click(form.cmdNext);
    EXPECT_EQ(shown(), "1, Hit 3 of 3");
    EXPECT_EQ(desktop.beeps, 2);
    EXPECT_TRUE(form.cmdNext.HasFocus());
    Press(form, "Alt+F");
    EXPECT_EQ(shown(), "3, Hit 1 of 3");
    form.WoDetail.SetFocus();
    Press(form, "Enter");
    EXPECT_EQ(shown(), "2, Hit 2 of 3") << "Enter in the lines goes on";
  });
}

TEST_F(WOHist, EnterInTheLinesGoesOnFromHitToHitAndStaysThere) {
  for (int i = 1; i <= 2; ++i) AddActive(Order(i));
  Browse([&](frmWOHist& form) {
    Search(form, form.srchName, "adams");
    for (ui::ListBox* list : {&form.WoDetail, &form.WoDetailC}) {
      list->SetFocus();
      for (const char* shown : {"Hit 2 of 2", "Hit 2 of 2"}) {
        Press(form, "Enter");
        EXPECT_THAT(form.done.Caption(), testing::StartsWith(shown));
        EXPECT_TRUE(list->HasFocus());
      }
      Press(form, "Alt+F4");
    }
  });
  EXPECT_EQ(desktop.beeps, 3) << "behind the last there is nothing";
}

TEST_F(WOHist, NothingFoundIsToldAndTheCriteriaStay) {
  AddActive(Order(1));
  Browse([&](frmWOHist& form) {
    desktop.WillAnswer(ui::Answer::Ok);
    Search(form, form.srchVIN, "nowhere");
    EXPECT_EQ(form.srchVIN.Text(), "nowhere");
    EXPECT_TRUE(form.srchVIN.HasFocus());
    EXPECT_EQ(form.cmdSearch.Caption(), "&Search");
    EXPECT_EQ(form.Caption(), "Workorder History by VIN #");
    EXPECT_FALSE(form.cmdNext.Enabled());
  });
  ASSERT_EQ(desktop.boxes.size(), 1u);
  EXPECT_EQ(desktop.boxes[0].text, "No data found.");
  EXPECT_EQ(desktop.boxes[0].title, "Workorder History");
}

TEST_F(WOHist, TheFirstCriterionThatIsFilledIsTaken) {
  AddActive(Order(1, {.last = "Baker"}));
  AddActive(Order(2));
  Browse([&](frmWOHist& form) {
    Type(form.srchLic, "CAB");
    Type(form.srchVIN, "1FA");
    Search(form, form.srchName, "baker");
    EXPECT_EQ(form.head.workorder_number.Caption(), "1");
    Press(form, "F10");
    Type(form.srchLic, "nowhere");
    Search(form, form.srchVIN, "1fa");
    EXPECT_EQ(form.Caption(), "Workorder History by VIN #");
    EXPECT_EQ(form.head.workorder_number.Caption(), "2");
    Press(form, "F10");
    Search(form, form.srchLic, "cab");
    EXPECT_EQ(form.Caption(), "Workorder history by License #");
  });
}

TEST_F(WOHist, ANewSearchBeginsWithBlankCriteria) {
  AddActive(Order(1));
  Browse([&](frmWOHist& form) {
    Search(form, form.srchName, "adams");
    EXPECT_EQ(form.cmdSearch.Caption(), "New &Search");
    EXPECT_FALSE(form.srchName.Enabled());
    EXPECT_TRUE(form.cmdPrintWO.Enabled());
    Press(form, "F10");
    EXPECT_EQ(form.cmdSearch.Caption(), "&Search");
    EXPECT_EQ(form.Caption(), "Workorder History");
    EXPECT_EQ(form.srchName.Text(), "");
    EXPECT_TRUE(form.srchName.HasFocus());
    for (const ui::Button* button : {&form.cmdFirst, &form.cmdPrev, &form.cmdNext, &form.cmdLast, &form.cmdPrintWO}) {
      EXPECT_FALSE(button->Enabled()) << button->Name();
    }
    EXPECT_EQ(form.head.custname.Caption(), "Adams,Beth") << "what was shown last stays until something is looked for";
    EXPECT_TRUE(form.cmdName.Enabled());
    desktop.WillAnswer(ui::Answer::Ok);
    Search(form, form.srchName, "nobody");
    ExpectEmpty(form);
    EXPECT_FALSE(form.cmdName.Enabled());
  });
}

TEST_F(WOHist, TheShownWorkOrdersOwnNameVinAndLicenseAreLookedFor) {
  AddActive(Order(1, {.last = "Baker", .vin = "VIN-1", .license = "LIC-2"}));
  AddActive(Order(2, {.last = "Clark", .vin = "VIN-2", .license = "LIC-1"}));
  AddActive(Order(3, {.last = "Adams", .vin = "VIN-1", .license = "LIC-1"}));
  Browse([&](frmWOHist& form) {
    Search(form, form.srchName, "adams");
    Press(form, "Ctrl+V");
    EXPECT_EQ(form.srchVIN.Text(), "VIN-1");
    EXPECT_EQ(form.srchName.Text(), "");
    EXPECT_EQ(form.Caption(), "Workorder History by VIN #");
    Press(form, "Alt+N");
    EXPECT_EQ(form.head.workorder_number.Caption(), "1");
    Press(form, "Ctrl+N");
    EXPECT_EQ(form.srchName.Text(), "Baker,Beth");
    EXPECT_EQ(form.head.workorder_number.Caption(), "1");
    Press(form, "Ctrl+U");
    EXPECT_EQ(form.Caption(), "Workorder History by Name") << "no unit here";
    Press(form, "Ctrl+L");
    EXPECT_EQ(form.srchLic.Text(), "LIC-2");
    EXPECT_EQ(form.Caption(), "Workorder history by License #");
  });
}

TEST_F(WOHist, ANameThatIsCutInItsTagFindsItself) {
  AddActive(Order(1, {.last = "Featherstonehaugh-Chol", .first = "Maximilian Alexander"}));
  Browse([&](frmWOHist& form) {
    Search(form, form.srchName, "feather");
    Press(form, "Ctrl+N");
    EXPECT_EQ(form.head.workorder_number.Caption(), "1");
  });
  EXPECT_TRUE(desktop.boxes.empty());
}

TEST_F(WOHist, AVinThatTheShownOneHasNotIsNothingToLookFor) {
  AddActive(Order(1, {.vin = ""}));
  Browse([&](frmWOHist& form) {
    Search(form, form.srchName, "adams");
    desktop.WillAnswer(ui::Answer::Ok);
    Press(form, "Ctrl+V");
    EXPECT_EQ(form.head.workorder_number.Caption(), "1");
    EXPECT_TRUE(form.cmdNext.Enabled()) << "the browse goes on";
  });
  EXPECT_EQ(desktop.boxes.at(0).text, "You must enter search criteria!");
  EXPECT_EQ(desktop.boxes.at(0).title, "Workorder History by Name");
}

TEST_F(WOHist, KeysOfWhatCanNotBeDoneBeep) {
  Browse([&](frmWOHist& form) {
    form.cmdSearch.SetFocus();
    int beeps = 0;
    for (const char* key : {"Alt+F2", "Ctrl+N", "Ctrl+V", "Ctrl+L"}) {
      Press(form, key);
      EXPECT_EQ(desktop.beeps, ++beeps) << key;
    }
  });
  EXPECT_TRUE(printed.empty());
}

TEST_F(WOHist, InWhatIsTypedCtrlVPastes) {
  AddActive(Order(1));
  Browse([&](frmWOHist& form) {
    Search(form, form.srchName, "adams");
    Press(form, "F10");
    desktop.clipboard = "1FAFP";
    form.srchVIN.SetFocus();
    Press(form, "Ctrl+V");
    EXPECT_EQ(form.srchVIN.Text(), "1FAFP");
    EXPECT_EQ(form.Caption(), "Workorder History");
  });
}

}  // namespace
}  // namespace lantos::test
