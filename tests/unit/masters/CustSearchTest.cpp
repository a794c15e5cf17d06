#include "MasterShop.h"
#include "masters/customers/frmCustSearch.h"
#include "records/Customers.h"
#include "records/MakesModels.h"

namespace lantos::test {
namespace {

class CustSearch : public MasterShop {
 protected:
  CustSearch() {
    PutCustomers({{5, "SMITH", "JOHN", "", "JANE", "555-1111", "444-2222"},
                  {6, "ROE", "AL", "", "", "333-0000", "555-9999"},
                  {1234567, "ACME", "", "", "", "", "", "777"}});
    PutVehicles({{6, "1999", "HONDA", "CIVIC", "ABC123", "VIN1"},
                 {5, "2001", "FORD", "F150", "XYZ", "VIN2"},
                 {6, "1999", "HONDA", "ACCORD", "ABC999", "VIN3"},
                 {99, "1999", "HONDA", "LOST", "ABC000", "VIN4"}});
  }
  // Searches with one field filled in; the texts of the list.
  std::vector<std::string> Search(ui::TextBox frmCustSearch::*field, const std::string& text) {
    form.LoadForm();
    (form.*field).DoType(text);
    form.cmdSearch.DoClick();
    std::vector<std::string> lines;
    for (const ui::ListRow& row : form.CustList.Rows()) lines.push_back(row.text);
    return lines;
  }

  frmCustSearch form{shop};
};

TEST_F(CustSearch, ARowIsTheNumberAndTheNameKeyAndASpouseGetsASecondRow) {
  EXPECT_EQ(Search(&frmCustSearch::NameKey, "smi"),
            (std::vector<std::string>{"000005 " + LeftJustify("SMITH,JOHN", 38),
                                      "000005 S" + LeftJustify("SMITH,JANE", 37)}));
  EXPECT_EQ(form.CustList.ItemData(0), 0);
  EXPECT_EQ(form.CustList.ItemData(1), 0);
  EXPECT_EQ(form.Msg.Caption(), "Found 1 matching Customer Name records.");
}

TEST_F(CustSearch, ASpousesNameFindsTheCustomer) {
  EXPECT_EQ(Search(&frmCustSearch::NameKey, "jane").size(), 2U);
  EXPECT_EQ(Search(&frmCustSearch::NameKey, "smith,jane").size(), 0U);
}

TEST_F(CustSearch, TheHitsGetTheFocusAndNoneOfThemIsChosen) {
  form.Show();
  Search(&frmCustSearch::NameKey, "smi");
  EXPECT_EQ(form.Focus(), &form.CustList);
  EXPECT_EQ(form.CustList.ListIndex(), -1);
  desktop.WillAnswer(ui::Answer::Ok);
  Press(form, "Enter");
  EXPECT_EQ(desktop.boxes.at(0).text, "No item currently selected.");
  Type(form.NameKey, "nobody");
  Press(form, "Enter");
  EXPECT_EQ(form.Focus(), &form.NameKey);
}

TEST_F(CustSearch, TheLettersOfLabelsThatOnlyTheDesignHasLeadToTheirFields) {
  form.Show();
  Press(form, "Alt+P");
  EXPECT_EQ(form.Focus(), &form.Phone);
  Press(form, "Alt+Y");
  EXPECT_EQ(form.Focus(), &form.Year);
}

TEST_F(CustSearch, ACustomerWithoutASpouseGetsOneRow) {
  EXPECT_EQ(Search(&frmCustSearch::NameKey, "roe"), (std::vector<std::string>{"000006 " + LeftJustify("ROE,AL", 38)}));
}

TEST_F(CustSearch, ALongNumberIsNotCut) {
  EXPECT_EQ(Search(&frmCustSearch::NameKey, "ACME").front().substr(0, 13), "1234567 ACME,");
}

TEST_F(CustSearch, ACommaAsTheWholeTextMatchesEveryKey) {
  EXPECT_EQ(Search(&frmCustSearch::NameKey, ",").size(), 4U);
  EXPECT_EQ(form.Msg.Caption(), "Found 3 matching Customer Name records.");
}

TEST_F(CustSearch, ANumberFindsItsCustomerByValue) {
  EXPECT_EQ(Search(&frmCustSearch::Number, "0006").size(), 1U);
  EXPECT_EQ(form.Msg.Caption(), "Found 1 matching Customer # records.");
}

TEST_F(CustSearch, ANumberThatNoTagHoldsGivesZeroRowsAndTheCountZero) {
  EXPECT_TRUE(Search(&frmCustSearch::Number, "77").empty());
  EXPECT_EQ(form.Msg.Caption(), "Found 0 matching Customer # records.");
}

TEST_F(CustSearch, APartOfALicenseFindsTheOwnerOnceForEachVehicle) {
  EXPECT_EQ(Search(&frmCustSearch::License, "BC"),
            (std::vector<std::string>(2, "000006 " + LeftJustify("ROE,AL", 38))));
  EXPECT_EQ(form.Msg.Caption(), "Found 2 matching License # records.");
}

TEST_F(CustSearch, LicenseAndVinAreSearchedWithRegardToCase) {
  EXPECT_TRUE(Search(&frmCustSearch::License, "abc").empty());
  form.cmdClear.DoClick();
  EXPECT_TRUE(Search(&frmCustSearch::VIN, "vin2").empty());
  EXPECT_EQ(Search(&frmCustSearch::VIN, "IN2").size(), 2U);
  EXPECT_EQ(form.Msg.Caption(), "Found 1 matching VIN # records.");
}

TEST_F(CustSearch, APhoneSearchFindsAWorkPhoneWhereTheHomePhoneDoesNotHoldIt) {
  EXPECT_EQ(Search(&frmCustSearch::Phone, "555").size(), 3U);
  EXPECT_EQ(form.Msg.Caption(), "Found 2 matching Phone # records.");
  EXPECT_EQ(Search(&frmCustSearch::Phone, "777").size(), 1U);
  EXPECT_TRUE(Search(&frmCustSearch::Phone, "888").empty());
}

TEST_F(CustSearch, APhoneSearchGoesOnBehindADamagedOffset) {
  std::string tags = directory.Content("TQCSTTAG.DAT");
  tags.replace(68, 4, "\x7f\x7f\x7f\x7f", 4);
  directory.Put("TQCSTTAG.DAT", tags);
  desktop.WillAnswer(Answer::Ok);
  EXPECT_EQ(Search(&frmCustSearch::Phone, "9999").size(), 1U);
}

TEST_F(CustSearch, GivingUpOnALockedFileEndsAPhoneSearch) {
  const SharedFile held(directory.Path() / "TQCSTDAT.DAT", Access::ReadWrite, Deny::All);
  desktop.WillAnswer(Answer::Cancel);
  EXPECT_TRUE(Search(&frmCustSearch::Phone, "9999").empty());
  EXPECT_EQ(desktop.boxes.size(), 1U);
}

TEST_F(CustSearch, YearMakeAndModelMustAllBeFound) {
  form.LoadForm();
  form.Year.DoType("99");
  form.Make.DoType("HON");
  form.cmdSearch.DoClick();
  EXPECT_EQ(form.CustList.ListCount(), 2);
  form.Model.DoType("ACC");
  form.cmdSearch.DoClick();
  EXPECT_EQ(form.CustList.ListCount(), 1);
  EXPECT_EQ(form.Msg.Caption(), "Found 1 matching Year/Make/Model records.");
}

TEST_F(CustSearch, TheFirstFieldThatIsNotBlankDecides) {
  form.LoadForm();
  form.NameKey.DoType("  ");
  form.Number.DoType("5");
  form.License.DoType("ABC");
  form.cmdSearch.DoClick();
  EXPECT_EQ(form.Msg.Caption(), "Found 1 matching Customer # records.");
  form.NameKey.DoType("roe");
  form.cmdSearch.DoClick();
  EXPECT_EQ(form.Msg.Caption(), "Found 1 matching Customer Name records.");
}

TEST_F(CustSearch, WithNothingFilledInItSaysSo) {
  form.LoadForm();
  form.cmdSearch.DoClick();
  EXPECT_EQ(form.Msg.Caption(), "Fill in one of the items, then click [Search].");
}

TEST_F(CustSearch, ClearEmptiesTheFieldsAndTheList) {
  Search(&frmCustSearch::NameKey, "smi");
  Press(form, "F2");
  EXPECT_EQ(form.NameKey.Text(), "");
  EXPECT_EQ(form.CustList.ListCount(), 0);
}

TEST_F(CustSearch, SelectingNeedsARow) {
  form.LoadForm();
  desktop.WillAnswer({Answer::Ok, Answer::Ok});
  form.cmdSelect.DoClick();
  EXPECT_EQ(desktop.boxes.back().text, "No items in list.");
  EXPECT_EQ(desktop.boxes.back().title, "Customer Search");
  Search(&frmCustSearch::NameKey, "smi");
  form.cmdSelect.DoClick();
  EXPECT_EQ(desktop.boxes.back().text, "No item currently selected.");
}

TEST_F(CustSearch, ATagThatIsGoneIsAFatalError) {
  Search(&frmCustSearch::NameKey, "acme");
  PutCustomers({{5, "SMITH", "JOHN"}});
  records.customers.LoadCustomerTags();
  form.CustList.DoSelect(0);
  desktop.WillAnswer(Answer::Ok);
  form.cmdSelect.DoClick();
  EXPECT_EQ(desktop.boxes.back().text, "ERROR: Could not locate customer tag record!");
  EXPECT_EQ(desktop.boxes.back().title, "Customer Search: Fatal Error");
}

TEST_F(CustSearch, BothRowsOfACustomerLeadToTheSameRecord) {
  Search(&frmCustSearch::NameKey, "smi");
  for (const int row : {1, 0}) {
    form.CustList.DoSelect(row);
    form.CustList.DoDoubleClick();
    EXPECT_EQ(form.Result(), frmCustSearch::Request::Selected);
    EXPECT_EQ(records.customers.CurrentCustomer.Get(customer::Number), 5);
  }
}

TEST_F(CustSearch, AFleetShopSearchesUnitNumbers) {
  EXPECT_EQ(form.lblLicense.Caption(), "License #");
  environment.fleetVersion = true;
  const frmCustSearch fleet(shop);
  EXPECT_EQ(fleet.lblLicense.Caption(), "Unit #");
}

TEST_F(CustSearch, TheWindowsPlaceIsKept) {
  form.LoadForm();
  form.DoResize(15000, 12000, ui::WindowState::Normal);
  form.Unload();
  EXPECT_EQ(Setting("frmCustSearchWidth"), "15000");
  EXPECT_EQ(Setting("frmCustSearchHeight"), "12000");
  EXPECT_EQ(Setting("frmCustSearchState"), "0");
  frmCustSearch next(shop);
  next.LoadForm();
  EXPECT_EQ(next.Width(), 15000);
  next.Unload();
}

TEST_F(CustSearch, SearchingWritesToNoFile) {
  const std::string tags = directory.Content("TQCSTTAG.DAT");
  const std::string masters = directory.Content("TQCSTDAT.DAT");
  const std::string vehicles = directory.Content("TQVEHICL.DAT");
  Search(&frmCustSearch::Phone, "9");
  Search(&frmCustSearch::License, "A");
  EXPECT_EQ(directory.Content("TQCSTTAG.DAT"), tags);
  EXPECT_EQ(directory.Content("TQCSTDAT.DAT"), masters);
  EXPECT_EQ(directory.Content("TQVEHICL.DAT"), vehicles);
}

// The search as the rest of the program runs it.

TEST_F(CustSearch, ForAnEstimateASelectionIsTheResult) {
  desktop.WillUse([](ui::Form& shown) {
    auto& search = As<frmCustSearch>(shown);
    EXPECT_EQ(search.Caption(), "Customer Search");
    search.Number.DoType("6");
    Press(search, "F10");
    search.CustList.DoSelect(0);
    search.cmdSelect.DoClick();
  });
  EXPECT_TRUE(screens.CustomerMaintenance(MasterScreens::Purpose::ChooseForEstimate));
  EXPECT_EQ(records.customers.CurrentCustomer.Get(customer::Number), 6);
  EXPECT_EQ(desktop.statuses.front(), "Performing Customer Maintenance...");
}

TEST_F(CustSearch, ACancelledSearchLeavesTheWorkingRecordAsItWas) {
  MakeCustomerCurrent(6);
  desktop.WillUse([](ui::Form& shown) {
    auto& search = As<frmCustSearch>(shown);
    search.Phone.DoType("777");
    Press(search, "F10");
    Press(search, "Esc");
  });
  EXPECT_FALSE(screens.CustomerMaintenance(MasterScreens::Purpose::ChooseForEstimate));
  EXPECT_EQ(records.customers.CurrentCustomer.Get(customer::Number), 6);
  EXPECT_EQ(records.customers.CurrentTag.Get(customertag::Number), 6);
}

TEST_F(CustSearch, InMaintenanceASelectionIsEditedAndTheSearchComesBackWithTheNewName) {
  MakeCustomerCurrent(6);
  desktop.WillUse([](ui::Form& shown) {
    auto& search = As<frmCustSearch>(shown);
    search.NameKey.DoType("roe");
    Press(search, "F10");
    search.CustList.DoSelect(0);
    Press(search, "F10");
    search.CustList.DoSelect(0);
    search.CustList.DoDoubleClick();
  });
  desktop.WillUse([](ui::Form& shown) {
    As<frmCustEdit>(shown).Lastname.DoType("ROSE");
    Press(shown, "F10");
  });
  desktop.WillUse([](ui::Form& shown) {
    EXPECT_EQ(As<frmCustSearch>(shown).CustList.List(0), "000006 " + LeftJustify("ROSE,AL", 38));
    shown.DoClose();
  });
  EXPECT_FALSE(screens.CustomerMaintenance(MasterScreens::Purpose::Maintain));
  // What was on hold was written meanwhile: its old state would undo the change.
  EXPECT_EQ(records.customers.CurrentCustomer.Get(customer::Lastname), "ROSE");
  EXPECT_EQ(TextAt(directory.Content("TQCSTTAG.DAT"), 96 + 4, 32), "ROSE,AL");
}

TEST_F(CustSearch, ANewCustomerForAnEstimateIsTheChosenOneAndTakesTheTypedName) {
  desktop.WillUse([](ui::Form& shown) {
    As<frmCustSearch>(shown).NameKey.DoType("Doe, Ann");
    Press(shown, "Insert");
  });
  desktop.WillUse([](ui::Form& shown) {
    auto& edit = As<frmCustEdit>(shown);
    EXPECT_EQ(edit.CustomerNumber.Text(), "001001");
    EXPECT_EQ(edit.Lastname.Text(), "Doe");
    EXPECT_EQ(edit.Firstname.Text(), "Ann");
    EXPECT_EQ(edit.City.Text(), "Fresno");
    EXPECT_EQ(edit.State.Text(), "CA");
    EXPECT_EQ(edit.PricingLevel.Text(), "Retail");
    EXPECT_EQ(edit.Date.Text(), "09/30/2003");
    EXPECT_FALSE(edit.cmdVehicles.Enabled());
    Press(shown, "F10");
    EXPECT_TRUE(edit.Visible());
    EXPECT_TRUE(edit.cmdVehicles.HasFocus());
    EXPECT_EQ(edit.cmdCancel.Caption(), "Close");
    Press(shown, "Esc");
  });
  EXPECT_TRUE(screens.CustomerMaintenance(MasterScreens::Purpose::ChooseForEstimate));
  EXPECT_EQ(records.customers.CurrentCustomer.Get(customer::Number), 1001);
  const std::string tag = directory.Content("TQCSTTAG.DAT").substr(3 * 96);
  EXPECT_EQ(tag, RawRecord(96).Long(0, 1001).Text(4, "Doe,Ann").Text(36, ",").Long(68, 3 * 317).Bytes());
  const std::string master = directory.Content("TQCSTDAT.DAT").substr(3 * 317);
  EXPECT_EQ(master, RawRecord(317)
                        .Long(0, 1001)
                        .Text(4, "Doe")
                        .Text(25, "Ann")
                        .Text(121, "Fresno")
                        .Text(142, "CA")
                        .Integer(207, 3)
                        .Long(209, 731868)
                        .Long(313, -1)
                        .Bytes());
}

TEST_F(CustSearch, ANewCustomerWhoIsNotSavedLeavesAGapInTheNumbersAndNothingElse) {
  MakeCustomerCurrent(5);
  const std::string tags = directory.Content("TQCSTTAG.DAT");
  desktop.WillUse([](ui::Form& shown) { Press(shown, "Insert"); });
  desktop.WillUse([](ui::Form& shown) { Press(shown, "Esc"); });
  desktop.WillUse([](ui::Form& shown) { Press(shown, "Esc"); });
  EXPECT_FALSE(screens.CustomerMaintenance(MasterScreens::Purpose::ChooseForEstimate));
  EXPECT_EQ(LongAt(directory.Content("TQSYSTEM.DAT"), 12), 1002);
  EXPECT_EQ(directory.Content("TQCSTTAG.DAT"), tags);
  EXPECT_EQ(records.customers.CurrentCustomer.Get(customer::Number), 5);
}

TEST_F(CustSearch, WithoutLeaveToEditThereAreNoNewCustomers) {
  desktop.WillUse([](ui::Form& shown) {
    EXPECT_FALSE(As<frmCustSearch>(shown).cmdNew.Enabled());
    Press(shown, "Insert");
    EXPECT_TRUE(shown.Visible());
    Press(shown, "Esc");
  });
  EXPECT_FALSE(screens.CustomerMaintenance(MasterScreens::Purpose::ChooseOnly));
}

}  // namespace
}  // namespace lantos::test
