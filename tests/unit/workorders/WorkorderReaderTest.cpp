// Texts as this program and others write them, read into a work order.
#include "WorkorderBench.h"
#include "records/CheckList.h"
#include "records/Customers.h"
#include "records/MakesModels.h"
#include "records/Vehicles.h"

namespace lantos::test {
namespace {

using testing::Each;
using testing::ElementsAre;
using Text = std::vector<std::string>;

class WorkorderReaderTest : public WorkorderBench {
 protected:
  Workorder ReadSection(const std::string& heading, Text rows) {
    rows.insert(rows.begin(), heading);
    rows.emplace_back();
    return ReadBack(std::move(rows));
  }
  WoLaborLine ReadLabor(const std::string& row) {
    const Workorder workorder = ReadSection("[Labor]", {row});
    EXPECT_EQ(workorder.Labor.Size(), 2u);
    return workorder.Labor[0];
  }
  const std::string figures = "000012         250        6500      100000       16250";
};

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

class CheckListReader : public WorkorderReaderTest {
 protected:
  CheckListReader() {
    Checks().items = {Item("[Engine]"), Item("Oil"), Item("Belts"), Item("[Brakes]"), Item("Pads, front")};
  }
  Text Marked() const {
    Text marked;
    for (const ChecklistItem& item : records.checkList.items) {
      if (item.Used) marked.push_back(item.Name + "=" + item.Service + "|" + item.DueBackMiles);
    }
    return marked;
  }
};

TEST_F(CheckListReader, MarksAndFillsItems) {
  ReadSection("[Check List]", {"[Engine],", "Oil,changed,3000", "Belts, , ", "[Brakes] x"});
  EXPECT_THAT(Marked(), ElementsAre("[Engine]=|", "Oil=changed|3000", "Belts=|", "[Brakes]=|"));
  EXPECT_TRUE(Checks().ChecklistLoaded);
}

TEST_F(CheckListReader, WithoutLinesNothingIsLoaded) {
  ReadSection("[Check List]", {});
  EXPECT_FALSE(Checks().ChecklistLoaded);
  ReadBack({"[Check List]", "", std::string(1, '\0')});
  EXPECT_FALSE(Checks().ChecklistLoaded) << "the NUL that ends a file is no line";
}

TEST_F(CheckListReader, ANameThatIsNotThereIsToldAndSkipped) {
  desktop.WillAnswer({ui::Answer::Ok, ui::Answer::Ok, ui::Answer::Ok});
  ReadSection("[Check List]", {"Tires,worn,", "oil,changed,", "[Trim],", "Oil,changed"});
  ASSERT_EQ(desktop.boxes.size(), 3u);
  ExpectBox(desktop.boxes[0], "LoadCheckListValues", "Couldn't locate Tires in checklist.  Item skipped.",
            ui::Buttons::Ok, ui::Icon::None);
  EXPECT_EQ(desktop.boxes[1].text, "Couldn't locate oil in checklist.  Item skipped.");
  EXPECT_EQ(desktop.boxes[2].text, "Couldn't locate [Trim] in checklist.  Item skipped.");
  EXPECT_THAT(Marked(), ElementsAre("Oil=changed|"));
  EXPECT_TRUE(Checks().ChecklistLoaded);
}

TEST_F(CheckListReader, RunsOverEmptyLinesToTheEndOrTheNextWorkOrder) {
  const Workorder workorder =
      ReadBack({"[Check List]", "Oil,a,", "", "Belts,b,", "[Workorder]", "WorkorderNumber=7", "", "[Parts]", "A", ""});
  EXPECT_THAT(Marked(), ElementsAre("Oil=a|", "Belts=b|"));
  EXPECT_EQ(workorder.WorkorderNumber, 7);
  EXPECT_EQ(workorder.Parts.Size(), 2u);
}

class LiveCustomer : public WorkorderReaderTest {
 protected:
  Workorder Read(Text rows) {
    Workorder workorder = Cleared();
    rows.insert(rows.begin(), "[Customer]");
    Lines source(std::move(rows));
    const TextSurroundings around = Around();
    WorkorderReader reader(workorder, around, desktop, source);
    reader.liveCustomer = [this](std::int32_t number, CustomerRecord& record) {
      asked.push_back(number);
      if (number != 1002) return false;
      record.Put(customer::Number, 1002);
      record.Put(customer::Lastname, "Live");
      record.Put(customer::City, "Dayton");
      record.Put(customer::salesperson, "Bob");
      return true;
    };
    std::string line;
    source.Next(line);
    reader.ParseWoSection(line);
    return workorder;
  }
  std::vector<std::int32_t> asked;
};

TEST_F(LiveCustomer, TheTextStoredWithTheWorkOrderWinsAndAFieldWithoutAKeyKeepsTheLiveOne) {
  const Workorder workorder = Read({"CustomerNumber=1002", "Lastname=Then", ""});
  EXPECT_EQ(workorder.Customer.Get(customer::Lastname), "Then");
  EXPECT_EQ(workorder.Customer.Get(customer::City), "Dayton");
  EXPECT_EQ(workorder.Customer.Get(customer::salesperson), "Bob");
  EXPECT_EQ(asked, std::vector<std::int32_t>{1002});
}

TEST_F(LiveCustomer, OneWhoIsGoneIsWhatTheTextHas) {
  const Workorder workorder = Read({"CustomerNumber=7", "Lastname=Then", ""});
  EXPECT_EQ(workorder.Customer.Get(customer::Number), 7);
  EXPECT_EQ(workorder.Customer.Get(customer::Lastname), "Then");
  EXPECT_EQ(workorder.Customer.Get(customer::salesperson), "None");
  EXPECT_EQ(asked, std::vector<std::int32_t>{7});
}

TEST_F(LiveCustomer, WithoutTheKeyNobodyIsAskedFor) {
  Read({"Lastname=Then", ""});
  EXPECT_TRUE(asked.empty());
}

class RoundTrip : public WorkorderBench, public testing::WithParamInterface<int> {
 protected:
  RoundTrip() {
    Options().LaborDateOption = (GetParam() & 1) != 0;
    Options().RepairCodeOption = (GetParam() & 2) != 0;
  }
};

TEST_P(RoundTrip, AWorkOrderReadBackIsTheSame) {
  LoadChecks();
  Workorder workorder = Sample();
  WoLaborLine labor;
  if (Options().LaborDateOption) labor.Date = "09/30/2003";
  if (Options().RepairCodeOption) labor.RepairCode = "TB1";
  for (std::string& text : labor.Desc) text = std::string(63, 'w');
  labor.Total = -2147483647;
  workorder.Labor.Add(labor);
  const Text lines = Written(workorder);
  const std::vector<ChecklistItem> checks = Checks().items;
  const Workorder readBack = ReadBack(lines);
  EXPECT_EQ(Told(readBack), Told(workorder));
  Workorder again = readBack;
  EXPECT_EQ(Written(again), lines);
  for (std::size_t i = 0; i < checks.size(); ++i) {
    EXPECT_EQ(Checks().items[i].Used, checks[i].Used);
    EXPECT_EQ(Checks().items[i].Service, checks[i].Service);
    EXPECT_EQ(Checks().items[i].DueBackMiles, checks[i].DueBackMiles);
  }
}

INSTANTIATE_TEST_SUITE_P(Options, RoundTrip, testing::Range(0, 4));

class OlderText : public WorkorderReaderTest {
 protected:
  OlderText() { LoadChecks(); }
  // The sections of the sample with their headings, without their empty lines.
  std::vector<Text> Sections() {
    Workorder workorder = Sample();
    std::vector<Text> sections;
    for (const std::string& line : Written(workorder)) {
      if (line.starts_with("[") && (sections.empty() || sections.back()[0] != "[Check List]")) sections.emplace_back();
      if (!line.empty()) sections.back().push_back(line);
    }
    return sections;
  }
  static Text Joined(const std::vector<Text>& sections) {
    Text lines;
    for (const Text& section : sections) {
      lines.insert(lines.end(), section.begin(), section.end());
      lines.emplace_back();
    }
    return lines;
  }
};

TEST_F(OlderText, SectionsInAnotherOrderReadTheSame) {
  std::vector<Text> sections = Sections();
  ASSERT_EQ(sections.size(), 11u);
  for (int i = 0; i < 10; ++i) {  // each goes first once; the check list stays behind, for it runs to the end
    std::rotate(sections.begin(), sections.begin() + 1, sections.begin() + 10);
    EXPECT_EQ(Told(ReadBack(Joined(sections))), Told(Sample())) << sections[0][0];
  }
  std::reverse(sections.begin(), sections.begin() + 10);
  EXPECT_EQ(Told(ReadBack(Joined(sections))), Told(Sample()));
}

TEST_F(OlderText, WithoutACheckList) {
  std::vector<Text> sections = Sections();
  sections.pop_back();
  EXPECT_EQ(Told(ReadBack(Joined(sections))), Told(Sample()));
  EXPECT_FALSE(Checks().ChecklistLoaded);
}

TEST_F(OlderText, WithTheFirstKeyBehindItsHeading) {
  std::vector<Text> sections = Sections();
  sections[0][0] += sections[0][1];
  sections[0].erase(sections[0].begin() + 1);
  EXPECT_EQ(Told(ReadBack(Joined(sections))), Told(Sample()));
}

TEST_F(OlderText, WithoutFollowupColumns) {
  std::vector<Text> sections = Sections();
  Text& labor = sections[5];
  ASSERT_EQ(labor[0], "[Labor]");
  for (std::size_t i = 1; i < labor.size(); ++i) {
    std::size_t end = 0;
    for (int tabs = 0; tabs < 7; ++tabs) end = labor[i].find('\t', end) + 1;
    labor[i].resize(end - 1);
  }
  const Workorder workorder = ReadBack(Joined(sections));
  EXPECT_EQ(workorder.Labor[0].Desc, Sample().Labor[0].Desc);
  EXPECT_EQ(workorder.Labor[0].FollowupMiles, 0);
  EXPECT_EQ(workorder.Labor[0].FollowupDate, 0);
  EXPECT_EQ(workorder.Labor.Size(), 3u);
}

}  // namespace
}  // namespace lantos::test
