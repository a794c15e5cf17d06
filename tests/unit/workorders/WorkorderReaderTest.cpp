// Texts as this program and others write them, read into a work order.
#include "WorkorderReaderBench.h"
#include "records/Customers.h"
#include "records/Vehicles.h"

namespace lantos::test {
namespace {

using testing::Each;
using testing::ElementsAre;

TEST_F(WorkorderReaderTest, AnEmptyTextIsAClearedWorkOrder) {
  EXPECT_EQ(Told(ReadBack({})), Told(Cleared()));
  EXPECT_EQ(Told(ReadBack({"", "", std::string(1, '\0')})), Told(Cleared()));
}

TEST_F(WorkorderReaderTest, AWorkOrderWithNoPartsHoldsOnlyTheSentinel) {
  Workorder workorder = ReadBack({"[Parts]", ""});
  ASSERT_EQ(workorder.Parts.Size(), 1u);
  EXPECT_EQ(workorder.Parts[0].PartNumber, "done");
  EXPECT_THAT(SectionOf(workorder, "[Parts]"), testing::IsEmpty());
}

TEST_F(WorkorderReaderTest, EveryListEndsInItsSentinel) {
  const Workorder workorder = ReadBack(
      {"[Parts]", "A", "", "[Labor]", "1", "", "[Sublets]", "A", "", "[Waste]", "A", "", "[Credits]", "1", ""});
  ASSERT_EQ(workorder.Parts.Size(), 2u);
  EXPECT_EQ(workorder.Parts[1].PartNumber, "done");
  EXPECT_EQ(workorder.Labor[1].Desc[0], "done");
  EXPECT_EQ(workorder.Sublets[1].Vendor, "done");
  EXPECT_EQ(workorder.Waste[1].Vendor, "done");
  EXPECT_EQ(workorder.Credits[1].Text[0], "done");
}

TEST_F(WorkorderReaderTest, TheHeaderByItsKeys) {
  const Workorder workorder =
      ReadBack({"[Workorder]", "WorkorderNumber=004711", "Status=ON ACCT", "Type=Sales 2", "Pricing=Cost",
                "TimeIn=8:15AM", "TimeOut=10:30AM", "TimePromised=", "status=no such key", "Unknown=1", "no equals"});
  EXPECT_EQ(workorder.WorkorderNumber, 4711);
  EXPECT_EQ(workorder.Status, "ON ACCT");
  EXPECT_EQ(workorder.Type, "Sales 2");
  EXPECT_EQ(workorder.Pricing, "Cost");
  EXPECT_EQ(workorder.TimeIn, "8:15AM");
  EXPECT_EQ(workorder.TimeOut, "10:30A") << "six characters each";
  EXPECT_EQ(workorder.TimePromised, "");
}

TEST_F(WorkorderReaderTest, TheFirstKeyMayStandBehindTheHeading) {
  const Workorder workorder = ReadBack({"[Workorder]WorkorderNumber=004711", "Status=PAID", ""});
  EXPECT_EQ(workorder.WorkorderNumber, 4711);
  EXPECT_EQ(workorder.Status, "PAID");
}

TEST_F(WorkorderReaderTest, AnUnknownSectionIsPassedOver) {
  const Workorder workorder =
      ReadBack({"[Tires]", "WorkorderNumber=7", "", "[parts]", "A", "", "[Workorder]", "WorkorderNumber=9", ""});
  EXPECT_EQ(workorder.WorkorderNumber, 9);
  EXPECT_EQ(workorder.Parts.Size(), 1u) << "headings are compared exactly";
}

TEST_F(WorkorderReaderTest, AHeadingCountsUpToItsBracket) {
  EXPECT_EQ(ReadBack({"[Parts] of the job", "A", ""}).Parts.Size(), 2u);
  EXPECT_EQ(ReadBack({"[Parts", "A", ""}).Parts.Size(), 1u);
  EXPECT_EQ(ReadBack({" [Parts]", "A", ""}).Parts.Size(), 1u);
}

TEST_F(WorkorderReaderTest, EachTotalGoesToItsField) {
  const std::pair<const char*, LongField> keys[] = {{"PartsTaxRate", wototals::TaxRate[0]},
                                                    {"LaborTaxRate", wototals::TaxRate[1]},
                                                    {"SubletTaxRate", wototals::TaxRate[2]},
                                                    {"WasteTaxRate", wototals::TaxRate[3]},
                                                    {"PartsCost", wototals::Cost[0]},
                                                    {"LaborCost", wototals::Cost[1]},
                                                    {"SubletCost", wototals::Cost[2]},
                                                    {"WasteCost", wototals::Cost[3]},
                                                    {"NonTaxSubletCost", wototals::Cost[4]},
                                                    {"NonTaxWasteCost", wototals::Cost[5]},
                                                    {"PartsSubtotal", wototals::Subtotal[0]},
                                                    {"LaborSubtotal", wototals::Subtotal[1]},
                                                    {"SubletSubtotal", wototals::Subtotal[2]},
                                                    {"WasteSubtotal", wototals::Subtotal[3]},
                                                    {"NonTaxSubletSubtotal", wototals::Subtotal[4]},
                                                    {"NonTaxWasteSubtotal", wototals::Subtotal[5]},
                                                    {"CreditSubtotal", wototals::Subtotal[6]},
                                                    {"FuelSubtotal", wototals::Subtotal[7]},
                                                    {"PartsDiscount", wototals::Discount[0]},
                                                    {"LaborDiscount", wototals::Discount[1]},
                                                    {"SubletDiscount", wototals::Discount[2]},
                                                    {"WasteDiscount", wototals::Discount[3]},
                                                    {"DollarDiscount", wototals::DollarDiscount},
                                                    {"WorkorderTax", wototals::WorkorderTax},
                                                    {"WorkorderTotal", wototals::WorkorderTotal}};
  for (const auto& [key, field] : keys) {
    WoTotals expected;
    expected.Put(field, -12345678);
    EXPECT_EQ(ReadSection("[Totals]", {std::string(key) + "=-12345678"}).Totals, expected) << key;
  }
  const std::pair<const char*, LongField> dates[] = {
      {"DateOpen", wototals::DateOpen}, {"DateClosed", wototals::DateClosed}, {"DatePaid", wototals::DatePaid}};
  for (const auto& [key, field] : dates) {
    WoTotals expected;
    expected.Put(field, kToday);
    EXPECT_EQ(ReadSection("[Totals]", {std::string(key) + "=09/30/2003"}).Totals, expected) << key;
    EXPECT_EQ(ReadSection("[Totals]", {std::string(key) + "=          "}).Totals, WoTotals()) << key;
    EXPECT_EQ(ReadSection("[Totals]", {std::string(key) + "=13/45/2003"}).Totals, WoTotals()) << key;
  }
}

TEST_F(WorkorderReaderTest, ANumberNeverFails) {
  const std::pair<const char*, std::int32_t> numbers[] = {
      {"", 0}, {"   ", 0}, {"abc", 0}, {" 12 34x", 1234}, {"2.5", 2}, {"99999999999", 2147483647}, {"1e999", 0}};
  for (const auto& [text, value] : numbers) {
    EXPECT_EQ(ReadSection("[Totals]", {std::string("PartsCost=") + text}).Totals.Get(wototals::Cost[0]), value) << text;
  }
}

TEST_F(WorkorderReaderTest, APaymentMethodIsFoundByItsExactName) {
  const auto methodOf = [this](const std::string& value) {
    return int{ReadSection("[Totals]", {"PaymentMethod=Visa    ", "PaymentMethod=" + value})
                   .Totals.Get(wototals::PaymentMethod)};
  };
  EXPECT_EQ(methodOf("Check   "), 2);
  EXPECT_EQ(methodOf("Split   "), 12);
  EXPECT_EQ(methodOf("        "), 0);
  EXPECT_EQ(methodOf("check   "), 3) << "no match leaves it unchanged";
  EXPECT_EQ(methodOf("Barter  "), 3);
  EXPECT_EQ(methodOf("Check    "), 3) << "nine characters";
  Options().PaymentMethodNames[7] = "Check";
  EXPECT_EQ(methodOf("Check   "), 2) << "the first of a name";
}

TEST_F(WorkorderReaderTest, ASplitBringsTheAmountDueToTheTotalLessItsTenAmounts) {
  Text rows = {"WorkorderTotal=100000", "PaymentMethod=Split   "};
  Cents paid = 0;
  for (int i = 1; i <= 10; ++i) {
    rows.push_back("SplitType" + std::to_string(i) + "=Cash    ");
    rows.push_back("SplitAmount" + std::to_string(i) + "=" + std::to_string(i * 111));
    rows.push_back("SplitDate" + std::to_string(i) + (i < 6 ? "=09/30/2003" : "=          "));
    paid += i * 111;
  }
  const Workorder workorder = ReadSection("[Totals]", rows);
  EXPECT_EQ(workorder.AmountDue, 100000 - paid);
  EXPECT_EQ(workorder.Totals.Get(wototals::WorkorderTotal), 100000);
  for (std::size_t i = 0; i < 10; ++i) {
    EXPECT_EQ(workorder.Totals.Get(wototals::SplitType(i)), 1);
    EXPECT_EQ(workorder.Totals.Get(wototals::SplitAmount(i)), static_cast<Cents>(i + 1) * 111);
    EXPECT_EQ(workorder.Totals.Get(wototals::SplitDate(i)), i < 5 ? kToday : 0);
  }
  EXPECT_EQ(ReadSection("[Totals]", {"SplitAmount11=5", "SplitAmount0=5", "SplitAmount=5"}).AmountDue, 0);
}

TEST_F(WorkorderReaderTest, APaymentCommentIsCutToItsField) {
  const std::string text(40, 'x');
  EXPECT_EQ(ReadSection("[Totals]", {"PaymentComment=" + text}).PaymentComment, std::string(31, 'x'));
}

TEST_F(WorkorderReaderTest, CustomerTextsAreCutToTheirFields) {
  const Workorder workorder =
      ReadSection("[Customer]", {"CustomerNumber=1002", "Lastname=Adams=Smith", "State=OHIO",
                                 "Zip=" + std::string(40, '4'), "Salesperson=Bob", "Comment=no such key"});
  CustomerRecord expected;
  expected.Put(customer::Number, 1002);
  expected.Put(customer::Lastname, "Adams=Smith");
  expected.Put(customer::State, "OHI");
  expected.Put(customer::Zip, "44444444444");
  expected.Put(customer::salesperson, "Bob");
  EXPECT_EQ(workorder.Customer, expected);
}

TEST_F(WorkorderReaderTest, TheVehicleByItsKeys) {
  const Workorder workorder =
      ReadSection("[Vehicle]", {"Year=1998", "Make=Ford", "Model=Crown Victoria", "Engine=4.6L", "Transmission=AUTO",
                                "VIN=2FAFP7", "LicenseNumber=CAB 1", "State=OH", "Mileage=188000", "Date=09/30/2003",
                                "VComment1=one", "VComment2=two", "VComment3=three",
                                "VComment4=" + std::string(70, '4'), "OrigMileage=40000", "OrigDate="});
  VehicleRecord expected;
  const std::pair<TextField, std::string> texts[] = {
      {vehicle::Year, "1998"},           {vehicle::Make, "Ford"},         {vehicle::Model, "Crown Victoria"},
      {vehicle::EngineSize, "4.6L"},     {vehicle::Transmission, "AUTO"}, {vehicle::VIN, "2FAFP7"},
      {vehicle::LicenseNumber, "CAB 1"}, {vehicle::State, "OH"},          {vehicle::VComment[0], "one"},
      {vehicle::VComment[1], "two"},     {vehicle::VComment[2], "three"}, {vehicle::VComment[3], std::string(65, '4')}};
  for (const auto& [field, text] : texts) expected.Put(field, text);
  expected.Put(vehicle::Mileage, 188000);
  expected.Put(vehicle::Date, kToday);
  expected.Put(vehicle::FirstMileage, 40000);
  expected.Put(vehicle::VLink, -1);
  EXPECT_EQ(workorder.Vehicle, expected);
}

TEST_F(WorkorderReaderTest, AShortLineReadsBlankFields) {
  const Workorder workorder = ReadBack({"[Parts]", "PF47", "", "[Sublets]", "Riverside", ""});
  EXPECT_EQ(workorder.Parts[0].PartNumber, "PF47");
  EXPECT_EQ(workorder.Parts[0].Description, "");
  EXPECT_EQ(workorder.Parts[0].List, 0);
  EXPECT_EQ(workorder.Sublets[0].Vendor, "Riverside");
  EXPECT_EQ(workorder.Sublets[0].Taxable, ' ');
  EXPECT_EQ(workorder.Sublets[0].Description, "");
}

TEST_F(WorkorderReaderTest, ALineOfLabor) {
  const WoLaborLine line = ReadLabor(figures + "TIMING BELT\t\t CHECK PUMP \t\t\t\t\t\t  60000\t  180\t 731868");
  EXPECT_EQ(line.Date, "");
  EXPECT_EQ(line.Mechanic, 12);
  EXPECT_EQ(line.Hours, 250);
  EXPECT_EQ(line.Rate, 6500);
  EXPECT_EQ(line.Commission, 100000);
  EXPECT_EQ(line.Total, 16250);
  EXPECT_THAT(line.Desc, ElementsAre("TIMING BELT", "", "CHECK PUMP", "", "", "", "", ""));
  EXPECT_EQ(line.FollowupMiles, 60000);
  EXPECT_EQ(line.FollowupDays, 180);
  EXPECT_EQ(line.FollowupDate, kToday);
  EXPECT_EQ(line.RepairCode, "");
}

TEST_F(WorkorderReaderTest, ALineOfLaborWithDateAndRepairCode) {
  Options().LaborDateOption = true;
  Options().RepairCodeOption = true;
  const WoLaborLine line = ReadLabor("09/30/2003" + figures + "1\t2\t3\t4\t5\t6\t7\t8\t0      \t0    \t       \tTB1 x");
  EXPECT_EQ(line.Date, "09/30/2003");
  EXPECT_EQ(line.Mechanic, 12);
  EXPECT_EQ(line.Total, 16250);
  EXPECT_THAT(line.Desc, ElementsAre("1", "2", "3", "4", "5", "6", "7", "8"));
  EXPECT_EQ(line.FollowupDate, 0);
  EXPECT_EQ(line.RepairCode, "TB1 x");
}

TEST_F(WorkorderReaderTest, TheTabBehindTheFollowupDateDoesNoHarm) {
  const WoLaborLine line = ReadLabor(figures + "A\t\t\t\t\t\t\t\t      1\t    2\t      3\t4");
  EXPECT_EQ(line.FollowupMiles, 1);
  EXPECT_EQ(line.FollowupDays, 2);
  EXPECT_EQ(line.FollowupDate, 3);
  EXPECT_EQ(line.RepairCode, "") << "the shop has no repair codes";
}

TEST_F(WorkorderReaderTest, HoursOfZeroReadBackAsZero) {
  EXPECT_EQ(ReadLabor("000012                    6500      100000       16250A\t").Hours, 0);
}

TEST_F(WorkorderReaderTest, EightTabsWithoutFollowupDigitsGiveZeros) {
  for (const char* behind : {"", "   ", "       \t     \t       "}) {
    const WoLaborLine line = ReadLabor(figures + "A\t\t\t\t\t\t\t\t" + behind);
    EXPECT_EQ(line.FollowupMiles, 0);
    EXPECT_EQ(line.FollowupDays, 0);
    EXPECT_EQ(line.FollowupDate, 0);
  }
}

TEST_F(WorkorderReaderTest, ALineOfAnOlderProgramWithoutFollowupColumnsReadsCleanly) {
  Options().RepairCodeOption = true;
  const WoLaborLine line = ReadLabor(figures + "TIMING BELT\tCHECK PUMP");
  EXPECT_THAT(line.Desc, ElementsAre("TIMING BELT", "CHECK PUMP", "", "", "", "", "", ""));
  EXPECT_EQ(line.FollowupMiles, 0);
  EXPECT_EQ(line.RepairCode, "");
  // The eighth line without its tab, and what looks like follow-ups in it.
  const WoLaborLine seven = ReadLabor(figures + "1\t2\t3\t4\t5\t6\t7\t  60000  180 731868");
  EXPECT_EQ(seven.Desc[7], "60000  180 731868");
  EXPECT_EQ(seven.FollowupMiles, 0);
  EXPECT_EQ(seven.FollowupDays, 0);
}

TEST_F(WorkorderReaderTest, ADescriptionLineOf64OrMoreCharactersIsCutToItsField) {
  const WoLaborLine line =
      ReadLabor(figures + std::string(63, 'a') + "\t" + std::string(64, 'b') + "\t" + std::string(99, 'c') + "\t");
  EXPECT_EQ(line.Desc[0], std::string(63, 'a'));
  EXPECT_EQ(line.Desc[1], std::string(63, 'b'));
  EXPECT_EQ(line.Desc[2], std::string(63, 'c'));
}

TEST_F(WorkorderReaderTest, ExtraLines) {
  const std::string row = "Riverside Radiator             81120     Y       18900       24570 RECORE\tBY FRIDAY ";
  const Workorder workorder = ReadBack({"[Sublets]", row, "", "[Waste]", row, ""});
  for (const auto* lines : {&workorder.Sublets, &workorder.Waste}) {
    ASSERT_EQ(lines->Size(), 2u);
    const WoExtraLine& line = (*lines)[0];
    EXPECT_EQ(line.Vendor, "Riverside Radiator");
    EXPECT_EQ(line.Invoice, "81120");
    EXPECT_EQ(line.Taxable, 'Y');
    EXPECT_EQ(line.Cost, 18900);
    EXPECT_EQ(line.Price, 24570);
    EXPECT_EQ(line.Description, "RECORE\tBY FRIDAY");
  }
}

TEST_F(WorkorderReaderTest, Credits) {
  const Workorder workorder =
      ReadSection("[Credits]", {"1500        Coupon\t\tspring", "-5", "7           a\tb\tc\td\te"});
  ASSERT_EQ(workorder.Credits.Size(), 4u);
  EXPECT_EQ(workorder.Credits[0].Amount, 1500);
  EXPECT_THAT(workorder.Credits[0].Text, ElementsAre("Coupon", "", "spring", ""));
  EXPECT_EQ(workorder.Credits[1].Amount, -5);
  EXPECT_THAT(workorder.Credits[2].Text, ElementsAre("a", "b", "c", "d"));
}

TEST_F(WorkorderReaderTest, NotesAreNumberedFromTheFirst) {
  const Workorder workorder = ReadSection("[Notes]", {"first\t\tthird", "\t\t\t\t\t\t\teighth\tninth"});
  EXPECT_THAT(workorder.Notes[0], ElementsAre("first", "", "third", "", "", "", "", ""));
  EXPECT_THAT(workorder.Notes[1], ElementsAre("", "", "", "", "", "", "", "eighth"));
  EXPECT_THAT(workorder.Notes[2], Each(""));
}

TEST_F(WorkorderReaderTest, NotesEndAtTheFirstEmptyLine) {
  const Workorder workorder = ReadSection("[Notes]", {"one", "", "two"});
  EXPECT_EQ(workorder.Notes[0][0], "one");
  EXPECT_THAT(workorder.Notes[1], Each(""));
}

TEST_F(WorkorderReaderTest, NotesBeyondTheThirtiethArePassedOver) {
  Text rows;
  for (int i = 1; i <= 33; ++i) rows.push_back("note " + std::to_string(i));
  EXPECT_EQ(ReadSection("[Notes]", rows).Notes[29][0], "note 30");
}

TEST_F(WorkorderReaderTest, ASectionThatComesAgainIsReadFromItsFirstEntry) {
  const Workorder workorder =
      ReadBack({"[Parts]", "A", "B", "", "[Notes]", "one", "two", "", "[Parts]", "C", "", "[Notes]", "three", ""});
  ASSERT_EQ(workorder.Parts.Size(), 2u);
  EXPECT_EQ(workorder.Parts[0].PartNumber, "C");
  EXPECT_EQ(workorder.Notes[0][0], "three");
}

}  // namespace
}  // namespace lantos::test
