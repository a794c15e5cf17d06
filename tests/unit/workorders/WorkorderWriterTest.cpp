// Each section of a work order's text against lines written by hand.
#include "WorkorderBench.h"
#include "records/Customers.h"
#include "records/MakesModels.h"
#include "records/Vehicles.h"

namespace lantos::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Text = std::vector<std::string>;

class WorkorderWriter : public WorkorderBench {
 protected:
  Workorder workorder = Cleared();
  Text Section(const std::string& heading) { return SectionOf(workorder, heading); }
};

TEST_F(WorkorderWriter, AClearedWorkOrderIsItsHeadingsAndWhatIsAlwaysThere) {
  EXPECT_THAT(Written(workorder),
              ElementsAre("[Workorder]", "WorkorderNumber=000000", "Status=", "Type=", "Pricing=", "",  //
                          "[Totals]", "PaymentMethod=        ", "",                                     //
                          "[Customer]", "CustomerNumber=", "Salesperson=None", "",                      //
                          "[Parts]", "", "[Labor]", "", "[Sublets]", "", "[Waste]", "", "[Credits]", "", "[Notes]", "",
                          "[Check List]", ""));
}

TEST_F(WorkorderWriter, ASalespersonThatWasNeverSetIsNone) {
  EXPECT_THAT(Section("[Customer]"), testing::Contains("Salesperson=None"));
  workorder.Customer.Put(customer::salesperson, "Bob");
  EXPECT_THAT(Section("[Customer]"), testing::Contains("Salesperson=Bob"));
}

TEST_F(WorkorderWriter, TheSectionsStandInTheirOrder) {
  workorder = Sample();
  Text headings;
  for (const std::string& line : Written(workorder)) {
    if (line.starts_with("[")) headings.push_back(line);
  }
  EXPECT_THAT(headings, ElementsAre("[Workorder]", "[Totals]", "[Customer]", "[Vehicle]", "[Parts]", "[Labor]",
                                    "[Sublets]", "[Waste]", "[Credits]", "[Notes]", "[Check List]"));
}

TEST_F(WorkorderWriter, TheHeader) {
  workorder.WorkorderNumber = 1234567;
  workorder.Status = "ON ACCT  ";
  workorder.Type = " Sales 2 ";
  workorder.Pricing = "Wholesale";
  workorder.TimeIn = " 8:15 ";
  workorder.TimeOut = "      ";
  workorder.TimePromised = "12:30PM";
  EXPECT_THAT(Section("[Workorder]"), ElementsAre("WorkorderNumber=1234567", "Status=ON ACCT", "Type= Sales 2",
                                                  "Pricing=Wholesale", "TimeIn=8:15", "TimePromised=12:30P"));
}

TEST_F(WorkorderWriter, EveryTotalStandsInItsPlaceAndZerosAreLeftOut) {
  WoTotals& totals = workorder.Totals;
  const LongField fields[] = {
      wototals::DateOpen,       wototals::DateClosed,   wototals::DatePaid,      wototals::TaxRate[0],
      wototals::TaxRate[1],     wototals::TaxRate[2],   wototals::TaxRate[3],    wototals::Cost[0],
      wototals::Cost[1],        wototals::Subtotal[0],  wototals::Subtotal[1],   wototals::Subtotal[7],
      wototals::Discount[0],    wototals::Discount[1],  wototals::Discount[2],   wototals::Discount[3],
      wototals::DollarDiscount, wototals::WorkorderTax, wototals::WorkorderTotal};
  for (std::int32_t i = 0; i < static_cast<std::int32_t>(std::size(fields)); ++i) {
    totals.Put(fields[i], i < 3 ? kToday + i : 101 + i);
  }
  totals.Put(wototals::WorkorderTax, -100000000);
  totals.Put(wototals::PaymentMethod, 4);
  workorder.PaymentComment = " half now ";
  // Costs and subtotals of sublets, waste and credits come from the lines.
  workorder.Sublets.Add({"A", "", 1, 2, "", 'Y'});
  workorder.Sublets.Add({"B", "", 3, 4, "", 'N'});
  workorder.Waste.Add({"C", "", 5, 6, "", 'Y'});
  workorder.Waste.Add({"D", "", 7, 8, "", 'N'});
  workorder.Credits.Add({9, {"E"}});
  EXPECT_THAT(Section("[Totals]"),
              ElementsAre("DateOpen=09/30/2003", "DateClosed=10/01/2003", "DatePaid=10/02/2003", "PartsTaxRate=104",
                          "LaborTaxRate=105", "SubletTaxRate=106", "WasteTaxRate=107", "PartsCost=108", "LaborCost=109",
                          "SubletCost=1", "NonTaxSubletCost=3", "WasteCost=5", "NonTaxWasteCost=7", "PartsSubtotal=110",
                          "LaborSubtotal=111", "SubletSubtotal=2", "NonTaxSubletSubtotal=4", "WasteSubtotal=6",
                          "NonTaxWasteSubtotal=8", "CreditSubtotal=9", "FuelSubtotal=112", "PartsDiscount=113",
                          "LaborDiscount=114", "SubletDiscount=115", "WasteDiscount=116", "DollarDiscount=117",
                          "WorkorderTax=-100000000", "WorkorderTotal=119", "PaymentMethod=MasterCd",
                          "PaymentComment=half now"));
}

TEST_F(WorkorderWriter, AStoredDateBelow693975IsTakenAsAPlainSerial) {
  workorder.Totals.Put(wototals::DateOpen, 37894);
  workorder.Totals.Put(wototals::DateClosed, -1);
  workorder.Totals.Put(wototals::DatePaid, 693975);
  EXPECT_THAT(Section("[Totals]"), ElementsAre("DateOpen=09/30/2003", "DatePaid=12/31/1899", "PaymentMethod=        "));
}

TEST_F(WorkorderWriter, APaymentMethodIsPaddedToEight) {
  Options().PaymentMethodNames[1] = "Cash";
  workorder.Totals.Put(wototals::PaymentMethod, 1);
  EXPECT_THAT(Section("[Totals]"), ElementsAre("PaymentMethod=Cash    "));
  workorder.Totals.Put(wototals::PaymentMethod, 13);
  EXPECT_THAT(Section("[Totals]"), ElementsAre("PaymentMethod=        ")) << "there is no such method";
}

TEST_F(WorkorderWriter, ASplitHasTenRowsOfWhichTheFirstIsWrittenInFull) {
  WoTotals& totals = workorder.Totals;
  totals.Put(wototals::PaymentMethod, 12);
  totals.Put(wototals::SplitType(1), 2);
  totals.Put(wototals::SplitAmount(1), 728);
  totals.Put(wototals::SplitDate(1), kToday - 1);
  totals.Put(wototals::SplitType(9), 3);
  totals.Put(wototals::SplitAmount(9), -5);
  Text expected = {"PaymentMethod=Split   ", "SplitType1=        ", "SplitAmount1=0",       "SplitDate1=09/30/2003",
                   "SplitType2=Check   ",    "SplitAmount2=728",    "SplitDate2=09/29/2003"};
  for (const char* row : {"3", "4", "5", "6", "7", "8", "9"}) {
    expected.push_back(std::string("SplitType") + row + "=        ");
    expected.push_back(std::string("SplitAmount") + row + "=0");
    expected.push_back(std::string("SplitDate") + row + "=          ");
  }
  expected.insert(expected.end(), {"SplitType10=Visa    ", "SplitAmount10=-5", "SplitDate10=          "});
  EXPECT_EQ(Section("[Totals]"), expected);
  EXPECT_EQ(totals.Get(wototals::SplitDate(0)), kToday) << "the date of the first becomes today in the work order too";
}

TEST_F(WorkorderWriter, NoRowsOfASplitWithoutThatMethod) {
  workorder.Totals.Put(wototals::SplitAmount(0), 500);
  workorder.Totals.Put(wototals::PaymentMethod, 1);
  EXPECT_THAT(Section("[Totals]"), ElementsAre("PaymentMethod=Cash    "));
  EXPECT_EQ(workorder.Totals.Get(wototals::SplitDate(0)), 0);
}

TEST_F(WorkorderWriter, TheCustomer) {
  CustomerRecord& record = workorder.Customer;
  record.Put(customer::Number, 1002);
  const std::pair<TextField, const char*> texts[] = {{customer::Lastname, " Adams "},
                                                     {customer::Firstname, "John"},
                                                     {customer::Spouse, "Mary"},
                                                     {customer::SpouseLast, "Lee"},
                                                     {customer::Address, "1 First Street"},
                                                     {customer::City, "Springfield"},
                                                     {customer::State, "OH"},
                                                     {customer::Zip, "45501"},
                                                     {customer::HomePhone, "937-555-0101"},
                                                     {customer::WorkPhone, "937-555-0102"},
                                                     {customer::WorkExt, "12"},
                                                     {customer::OtherPhone, "none"},
                                                     {customer::tax_id_number, "EX-1"},
                                                     {customer::Comment, "not written"},
                                                     {customer::salesperson, "Bob"}};
  for (const auto& [field, text] : texts) record.Put(field, text);
  EXPECT_THAT(
      Section("[Customer]"),
      ElementsAre("CustomerNumber=1002", "Lastname=Adams", "Firstname=John", "Spouse=Mary", "SpouseLastname=Lee",
                  "Address=1 First Street", "City=Springfield", "State=OH", "Zip=45501", "Phone1=937-555-0101",
                  "Phone2=937-555-0102", "Phone2ext=12", "Phone3=none", "TaxIDNumber=EX-1", "Salesperson=Bob"));
  record = {};
  record.Put(customer::City, std::string_view("  \0old", 6));
  record.Put(customer::Number, 1234567);
  EXPECT_THAT(Section("[Customer]"), ElementsAre("CustomerNumber=1234567"));
}

TEST_F(WorkorderWriter, TheVehicle) {
  VehicleRecord& record = workorder.Vehicle;
  const std::pair<TextField, const char*> texts[] = {
      {vehicle::Year, "1998"},           {vehicle::Make, "Ford"},         {vehicle::Model, "Crown Victoria"},
      {vehicle::EngineSize, "4.6L"},     {vehicle::Transmission, "AUTO"}, {vehicle::VIN, "2FAFP71W0WX100001"},
      {vehicle::LicenseNumber, "CAB 1"}, {vehicle::State, "OH"},          {vehicle::VComment[0], "one"},
      {vehicle::VComment[1], "two"},     {vehicle::VComment[2], "three"}, {vehicle::VComment[3], "four"}};
  for (const auto& [field, text] : texts) record.Put(field, text);
  record.Put(vehicle::Mileage, 188000);
  record.Put(vehicle::Date, kToday);
  record.Put(vehicle::FirstMileage, 40000);
  record.Put(vehicle::FirstDate, kToday - 30);
  EXPECT_THAT(Section("[Vehicle]"),
              ElementsAre("Year=1998", "Make=Ford", "Model=Crown Victoria", "Engine=4.6L", "Transmission=AUTO",
                          "VIN=2FAFP71W0WX100001", "LicenseNumber=CAB 1", "State=OH", "Mileage=188000",
                          "Date=09/30/2003", "VComment1=one", "VComment2=two", "VComment3=three", "VComment4=four",
                          "OrigMileage=40000", "OrigDate=08/31/2003"));
}

TEST_F(WorkorderWriter, AVehicleOfJustAMakeHasItsMileagesAndOrigDateAllTheSame) {
  workorder.Vehicle.Put(vehicle::Make, "Ford");
  EXPECT_THAT(Section("[Vehicle]"), ElementsAre("Make=Ford", "Mileage=", "OrigMileage=", "OrigDate="));
  workorder.Vehicle.Put(vehicle::FirstDate, kToday);
  EXPECT_THAT(Section("[Vehicle]"), ElementsAre("Make=Ford", "Mileage=", "OrigMileage=", "OrigDate="));
  workorder.Vehicle.Put(vehicle::FirstDate, 0);
  workorder.Vehicle.Put(vehicle::FirstMileage, 7);
  EXPECT_THAT(Section("[Vehicle]"), ElementsAre("Make=Ford", "Mileage=", "OrigMileage=7", "OrigDate="));
}

TEST_F(WorkorderWriter, WithoutAMakeThereIsNoVehicle) {
  workorder.Vehicle.Put(vehicle::Model, "Impala");
  workorder.Vehicle.Put(vehicle::Make, "   ");
  const Text lines = Written(workorder);
  EXPECT_THAT(lines, testing::Not(testing::Contains("[Vehicle]")));
  const auto customer = std::find(lines.begin(), lines.end(), "[Customer]");
  EXPECT_EQ(*(std::find(customer, lines.end(), "") + 1), "[Parts]") << "its empty line is left out too";
}

TEST_F(WorkorderWriter, Parts) {
  workorder.Parts.Add({" PF47 ", std::string("OIL FILTER\0old", 14), 2, 310, 699, 750});
  workorder.Parts.Add({"free", "removed", 1, 1, 1, 1});
  workorder.Parts.Add({"  ", "no number", 1, 1, 1, 1});
  workorder.Parts.Add({"X", "", 0, 0, 0, 0});
  workorder.Parts.Add({"123456789012345678901", "1234567890123456789012345678901234567890", -9999, -2147483647, 1, 0});
  workorder.Parts.Add({" done ", "", 1, 1, 1, 1});
  workorder.Parts.Add({"BEHIND", "", 1, 1, 1, 1});
  EXPECT_THAT(Section("[Parts]"), ElementsAre("PF47                "
                                              "OIL FILTER                            "
                                              "    2"
                                              "         310"
                                              "         699"
                                              "         750",
                                              "X                   "
                                              "                                      "
                                              "     "
                                              "            "
                                              "            "
                                              "            ",
                                              "12345678901234567890"
                                              "12345678901234567890123456789012345678"
                                              "-9999"
                                              " -2147483647"
                                              "           1"
                                              "            "));
}

class LaborWriter : public WorkorderWriter {
 protected:
  LaborWriter() {
    line.Date = "09/30/2003";
    line.Mechanic = 12;
    line.Hours = 250;
    line.Rate = 6500;
    line.Commission = 100000;
    line.Total = 16250;
    line.Desc = {" TIMING BELT ", "", "CHECK PUMP", "", "", "", "", ""};
    line.RepairCode = "TB1";
  }
  std::string Row() {
    workorder.Labor.Clear();
    workorder.Labor.Add(line);
    const Text rows = Section("[Labor]");
    EXPECT_EQ(rows.size(), 1u);
    return rows.empty() ? "" : rows[0];
  }
  WoLaborLine line;
  const std::string figures =
      "000012"
      "         250"
      "        6500"
      "      100000"
      "       16250";
  const std::string texts = "TIMING BELT\t\tCHECK PUMP\t\t\t\t\t\t";
};

TEST_F(LaborWriter, WithoutFollowup) { EXPECT_EQ(Row(), figures + texts + "0      \t0    \t       "); }

TEST_F(LaborWriter, WithFollowup) {
  line.FollowupMiles = 60000;
  line.FollowupDays = 180;
  line.FollowupDate = kToday;
  EXPECT_EQ(Row(), figures + texts + "  60000\t  180\t 731868");
  line.FollowupMiles = 0;
  line.FollowupDays = 0;
  EXPECT_EQ(Row(), figures + texts + "      0\t    0\t 731868");
  line.FollowupDays = 1;
  line.FollowupDate = 0;
  EXPECT_EQ(Row(), figures + texts + "      0\t    1\t      0");
  line.FollowupDays = -1;
  EXPECT_EQ(Row(), figures + texts + "0      \t0    \t       ") << "below 1 is none";
}

TEST_F(LaborWriter, ADateGoesAheadOfAll) {
  Options().LaborDateOption = true;
  EXPECT_EQ(Row(), "09/30/2003" + figures + texts + "0      \t0    \t       ");
  line.Date.clear();
  EXPECT_EQ(Row(), "          " + figures + texts + "0      \t0    \t       ");
}

TEST_F(LaborWriter, ARepairCodeStandsBehindAll) {
  Options().RepairCodeOption = true;
  EXPECT_EQ(Row(), figures + texts + "0      \t0    \t       \tTB1");
  line.FollowupMiles = 5;
  EXPECT_EQ(Row(), figures + texts + "      5\t    0\t      0\tTB1");
  line.RepairCode = std::string(" TB2 \0old", 9);
  EXPECT_EQ(Row(), figures + texts + "      5\t    0\t      0\tTB2") << "trimmed and cut at its first NUL";
}

TEST_F(LaborWriter, HoursOfZeroPrintAsTwelveBlanks) {
  line = {};
  line.Desc[0] = "COURTESY CHECK";
  EXPECT_EQ(Row(),
            "000000"
            "            "
            "            "
            "           0"
            "            "
            "COURTESY CHECK\t\t\t\t\t\t\t\t"
            "0      \t0    \t       ");
}

TEST_F(LaborWriter, RemovedAndBlankEntriesAreLeftOut) {
  workorder.Labor.Add({"", 1, 1, 1, 1, 1, {"free"}, 0, 0, 0, ""});
  workorder.Labor.Add({"", 1, 1, 1, 1, 1, {"", "second line alone"}, 0, 0, 0, ""});
  EXPECT_THAT(Section("[Labor]"), IsEmpty());
}

TEST_F(WorkorderWriter, SubletsAndWaste) {
  for (auto* lines : {&workorder.Sublets, &workorder.Waste}) {
    lines->Add({"Riverside Radiator", "81120", 18900, 24570, " RECORE RADIATOR\tBY FRIDAY ", 'Y'});
    lines->Add({"free", "", 1, 1, "", 'Y'});
    lines->Add({"", "", 1, 1, "", 'Y'});
    lines->Add({"12345678901234567890123456789012", "12345678901", 0, -5, "", 'N'});
  }
  const auto expected = ElementsAre(
      "Riverside Radiator             "
      "81120     "
      "Y"
      "       18900"
      "       24570"
      "RECORE RADIATOR\tBY FRIDAY",
      "1234567890123456789012345678901"
      "1234567890"
      "N"
      "           0"
      "          -5");
  EXPECT_THAT(Section("[Sublets]"), expected);
  EXPECT_THAT(Section("[Waste]"), expected);
}

TEST_F(WorkorderWriter, Credits) {
  workorder.Credits.Add({1500, {" Coupon ", "", "spring", ""}});
  workorder.Credits.Add({0, {"a", "b", "c", "d"}});
  workorder.Credits.Add({-2147483647, {"one"}});
  workorder.Credits.Add({1, {"free"}});
  workorder.Credits.Add({1, {"", "no mark"}});
  EXPECT_THAT(Section("[Credits]"),
              ElementsAre("1500        Coupon\t\tspring", "0           a\tb\tc\td", "-2147483647 one"));
}

TEST_F(WorkorderWriter, ANoteOfLines1And3KeepsAnEmptyMiddleItem) {
  workorder.Notes[0] = {"first", "  ", " third ", "", "", "", "", ""};
  EXPECT_THAT(Section("[Notes]"), ElementsAre("first\t\tthird"));
}

TEST_F(WorkorderWriter, BlankNotesWriteNoLineAndLeaveNoGap) {
  workorder.Notes[1][7] = "eighth";
  workorder.Notes[5][0] = "   ";
  workorder.Notes[29][0] = "last";
  EXPECT_THAT(Section("[Notes]"), ElementsAre("\t\t\t\t\t\t\teighth", "last"));
}

TEST_F(WorkorderWriter, TheCheckListIsWrittenOnlyWhenItWasLoaded) {
  LoadChecks();
  EXPECT_THAT(Section("[Check List]"), ElementsAre("[Engine]", "Oil,changed,3000", "Hoses, , "));
  Checks().ChecklistLoaded = false;
  EXPECT_THAT(Section("[Check List]"), IsEmpty());
}

TEST_F(WorkorderWriter, EveryListHasNothingBetweenItsHeadingAndItsEmptyLine) {
  for (const char* heading : {"[Parts]", "[Labor]", "[Sublets]", "[Waste]", "[Credits]", "[Notes]", "[Check List]"}) {
    EXPECT_THAT(Section(heading), IsEmpty()) << heading;
  }
}

}  // namespace
}  // namespace lantos::test
