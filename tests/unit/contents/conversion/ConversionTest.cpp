// The road of an estimate to a work order: what it does in which order, and what it asks.
#include "ConversionBench.h"

namespace lantos {
namespace {

using test::ConversionBench;
using test::kWhole;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::StartsWith;
using ui::Answer;

TEST(Conversion, GoesThroughItsStepsInOrder) {
  ConversionBench bench;
  bench.AddPart("PAD-9", 6, 2);
  bench.AddLine("GONE-7", 1);
  bench.AddNotes(1);
  bench.WillConfirm();
  bench.WillEndQuietly();
  bench.Convert();
  EXPECT_THAT(bench.LoggedSteps(),
              ElementsAre(kWhole + ": the number was taken", kWhole + ": the usage of PAD-9 was noted",
                          kWhole + ": the stock of PAD-9 is now 4", kWhole + ": the tag in TQOPENWO.DAT was written",
                          kWhole + ": the tag in TQINCTAG.DAT was written",
                          kWhole + ": the work order was written to W0005001.tqa",
                          kWhole + ": the comments of the estimate name the work order"));
  EXPECT_EQ(bench.NextNumber(), 5002);
  EXPECT_EQ(bench.InStock("PAD-9"), 4);
  EXPECT_EQ(bench.board.comments, "Workorder # 005001 Call first");
}

TEST(Conversion, WritesWhatTheEstimateHolds) {
  ConversionBench bench;
  bench.AddPart("PAD-9", 6, 2);
  bench.database.lantosData.AddLabor(1001, 1, "TIMING BELT\t\t\t\t\t\t\t", 150, 8500, 12750, 0);
  bench.database.lantosData.AddLabor(1001, 2, "HOURS APPLIED", -50, 8500, -4250, 0);
  de::Extra extra;
  extra.VendorName = "Millbrook Machine";
  extra.Price = 500;
  extra.Taxable = "No";
  bench.database.lantosData.AddSublet(1001, 1, extra);
  extra.VendorName = "Oil disposal";
  bench.database.lantosData.AddWaste(1001, 1, extra);
  bench.AddNotes(2);
  bench.WillConfirm();
  bench.WillEndQuietly();
  bench.Convert();
  const std::string text = bench.directory.Content("W0005001.tqa");
  EXPECT_THAT(text, StartsWith("[Workorder]\r\nWorkorderNumber=005001\r\nStatus=OPEN\r\nType=Repair\r\n"
                               "Pricing=Retail\r\n"));
  for (const char* line :
       {"DateOpen=09/30/2003", "PartsTaxRate=82500", "PartsCost=800", "PartsSubtotal=2000", "LaborSubtotal=12750",
        "NonTaxSubletSubtotal=500", "NonTaxWasteSubtotal=500", "WorkorderTax=165", "WorkorderTotal=15915",
        "CustomerNumber=7\r\n", "Lastname=Adams", "Salesperson=None", "note 1", "note 2"}) {
    EXPECT_THAT(text, HasSubstr(std::string(line))) << line;
  }
  EXPECT_THAT(text, testing::Not(HasSubstr("HOURS APPLIED")));
  EXPECT_EQ(text.find('\0'), text.size() - 1);
  EXPECT_EQ(bench.directory.Content("TQOPENWO.DAT").size(), ActiveWoTag::kLength);
  EXPECT_EQ(bench.directory.Content("TQINCTAG.DAT").size(), ArchivedWoTag::kLength);
}

TEST(Conversion, AsksOnceAndTellsTheNumber) {
  ConversionBench bench;
  bench.WillConfirm();
  bench.WillEndQuietly();
  bench.Convert();
  ASSERT_EQ(bench.desktop.boxes.size(), 4u);
  const std::vector<ui::Box>& boxes = bench.desktop.boxes;
  EXPECT_EQ(boxes[0].text,
            "This function will convert an estimate\rto a workorder which can then be managed\r"
            "by the Korvel application.\r\rThe estimate to be converted is # 001001\rfor Beth Adams.\r\r"
            "Do you wish to continue?");
  EXPECT_EQ(boxes[0].buttons, ui::Buttons::YesNo);
  EXPECT_EQ(boxes[1].text, "Estimate # 001001 is now Workorder # 005001");
  EXPECT_EQ(boxes[2].text, "Change status to 'Completed'?");
  EXPECT_EQ(boxes[3].text, "Estimate status is still 'Scheduled'");
}

TEST(Conversion, EndsAtNoWithNothingDone) {
  ConversionBench bench;
  bench.desktop.WillAnswer(Answer::No);
  bench.Convert();
  bench.ExpectNothingDone();
}

// Refusals.

struct Refusal {
  std::int16_t status;
  StatusOption option;
  const char* text;
};
class RefusedConversion : public testing::TestWithParam<Refusal> {};

TEST_P(RefusedConversion, IsToldAndEndsThere) {
  ConversionBench bench;
  bench.SetStatus(GetParam().status);
  bench.SetOption(GetParam().option, 'E');
  bench.desktop.WillAnswer(Answer::Ok);
  bench.Convert();
  EXPECT_EQ(bench.desktop.boxes[0].text, GetParam().text);
  EXPECT_EQ(bench.desktop.boxes[0].title, "Convert to WO");
  EXPECT_EQ(bench.desktop.boxes[0].icon, ui::Icon::Exclamation);
  bench.ExpectNothingDone();
}

INSTANTIATE_TEST_SUITE_P(Statuses, RefusedConversion,
                         testing::Values(Refusal{kScheduled, StatusOption::ScheduledToComplete,
                                                 "Can not Convert to WO if estimate status is 'Scheduled'"},
                                         Refusal{kArrived, StatusOption::ArrivedToComplete,
                                                 "Can not Convert to WO if estimate status is 'Arrived'"},
                                         Refusal{kCompleted, StatusOption::InProgressToComplete,
                                                 "Estimate status of 'Completed' can not be converted to a workorder"},
                                         Refusal{
                                             kCancelled, StatusOption::InProgressToComplete,
                                             "Estimate status of 'Cancelled' can not be converted to a workorder"}));

TEST(Conversion, OfAnEstimateInProgressLooksAtNoOption) {
  ConversionBench bench;
  bench.SetStatus(kInProgress);
  bench.SetOption(StatusOption::InProgressToComplete, 'E');
  bench.WillConfirm();
  bench.desktop.WillAnswer({Answer::Ok, Answer::Ok});
  bench.Convert();
  EXPECT_EQ(bench.desktop.boxes.back().text, "Estimate status is still 'In Progress'");
  EXPECT_TRUE(bench.IsThere("W0005001.tqa"));
}

TEST(Conversion, WantsACustomerThatIsOnFile) {
  ConversionBench bench;
  bench.Do("update Estimates set CustomerNumber = 8 where EstimateNumber = 1001");
  bench.desktop.WillAnswer(Answer::Ok);
  bench.Convert();
  EXPECT_EQ(bench.desktop.boxes[0].text, "The customer of this estimate isn't on file. Choose a customer first.");
  bench.ExpectNothingDone();
}

TEST(Conversion, OfACustomerWhoseFileIsHeldDoesNotSayThatNobodyIsOnFile) {
  ConversionBench bench;
  const SharedFile other(bench.directory.Path() / "TQCSTDAT.DAT", Access::ReadWrite, Deny::All);
  bench.desktop.WillAnswer({Answer::Cancel, Answer::Ok});
  bench.Convert();
  EXPECT_EQ(bench.desktop.boxes.back().text, "The customer of this estimate could not be read. Nothing was changed.");
  bench.ExpectNothingDone();
}

// The vehicle.

TEST(Conversion, AVehicleThatIsCancelledAsksAndNoEndsItWithNothingDone) {
  ConversionBench bench;
  bench.GiveVehicle();
  bench.WillConfirm();
  bench.desktop.WillUse([](ui::Form& form) {
    EXPECT_EQ(form.Caption(), "Convert to WO - Vehicle Information");
    test::Press(form, "Escape");
  });
  bench.desktop.WillAnswer(Answer::No);
  bench.Convert();
  EXPECT_EQ(bench.desktop.boxes[1].text, "Vehicle update cancelled.\r\rDo you wish to continue with the conversion?");
  bench.ExpectNothingDone();
}

TEST(Conversion, AVehicleThatIsCancelledAsksAndYesGoesOnWithIt) {
  ConversionBench bench;
  bench.GiveVehicle();
  bench.WillConfirm();
  bench.desktop.WillUse([](ui::Form& form) { test::Press(form, "Escape"); });
  bench.desktop.WillAnswer(Answer::Yes);
  bench.WillEndQuietly();
  bench.Convert();
  EXPECT_THAT(bench.directory.Content("W0005001.tqa"), HasSubstr("Make=Ford\r\nModel=Focus\r\n"));
}

TEST(Conversion, AVehicleThatWasEditedIsWrittenAndTheEstimateHasItAheadOfTheNumber) {
  ConversionBench bench;
  bench.GiveVehicle();
  bench.WillConfirm();
  bench.desktop.WillUse([](ui::Form& form) {
    dynamic_cast<frmVehEdit&>(form).Mileage.DoType("12345");
    test::Press(form, "F10");
  });
  bench.WillEndQuietly();
  bench.Convert();
  const auto steps = bench.LoggedSteps();
  ASSERT_GE(steps.size(), 3u);
  EXPECT_EQ(steps[0], "a work order: the vehicle was written");
  EXPECT_EQ(steps[1], "a work order: the estimate has its vehicle as it is now");
  EXPECT_EQ(steps[2], kWhole + ": the number was taken");
  EXPECT_EQ(bench.Ask("select VehMileage from Estimates where EstimateNumber = 1001"), "12345");
  EXPECT_THAT(bench.directory.Content("W0005001.tqa"), HasSubstr("Mileage=12345\r\n"));
}

// Stock and status.

TEST(Conversion, TellsOfPartsThatRunOut) {
  ConversionBench bench;
  bench.AddPart("P-1", 3, 2);
  bench.AddPart("P-2", 3, 3);
  bench.AddPart("P-3", 3, 4);
  bench.AddLine("GONE-7", 9);
  bench.WillConfirm();
  bench.desktop.WillAnswer(Answer::Ok);
  bench.WillEndQuietly();
  bench.Convert();
  EXPECT_EQ(bench.desktop.boxes[1].title, "Convert - Inventory Status");
  EXPECT_EQ(bench.desktop.boxes[1].text,
            "Parts which might need to be ordered.\r\rP-2 quantity in stock is now 0\rP-3 quantity in stock is now -1");
}

TEST(Conversion, WithOptionYCompletesTheEstimateUnasked) {
  ConversionBench bench;
  bench.SetOption(StatusOption::ScheduledToComplete, 'Y');
  bench.WillConfirm();
  bench.desktop.WillAnswer(Answer::Ok);
  bench.Convert();
  EXPECT_EQ(bench.StoredStatus(1001), "3");
}

TEST(Conversion, WithOptionACompletesTheEstimateAtYes) {
  ConversionBench bench;
  bench.WillConfirm();
  bench.desktop.WillAnswer({Answer::Ok, Answer::Yes});
  bench.Convert();
  EXPECT_EQ(bench.StoredStatus(1001), "3");
}

TEST(Conversion, WithOptionNLeavesTheStatusAndSaysSo) {
  ConversionBench bench;
  bench.SetStatus(kArrived);
  bench.SetOption(StatusOption::ArrivedToComplete, 'N');
  bench.WillConfirm();
  bench.desktop.WillAnswer({Answer::Ok, Answer::Ok});
  bench.Convert();
  EXPECT_EQ(bench.desktop.boxes.back().text, "Estimate status is still 'Arrived'");
  EXPECT_EQ(bench.StoredStatus(1001), "1");
}

TEST(Conversion, MayBeDoneAgainAndTakesTheStockAgain) {
  ConversionBench bench;
  bench.AddPart("PAD-9", 6, 2);
  for (int i = 0; i < 2; ++i) {
    bench.WillConfirm();
    bench.WillEndQuietly();
    bench.Convert();
  }
  EXPECT_EQ(bench.InStock("PAD-9"), 2);
  EXPECT_EQ(bench.board.comments, "Workorder # 005002 Workorder # 005001 Call first");
}

}  // namespace
}  // namespace lantos
