#include <gmock/gmock.h>

#include "board/FindBench.h"
#include "records/Customers.h"

// frmFind: the estimates of a customer.
namespace lantos {
namespace {

using test::FindBench;
using testing::ElementsAre;
using testing::IsEmpty;
using ui::Answer;

TEST(frmFind, TheCustomersStandInTheOrderOfTheirNames) {
  FindBench bench;
  const frmFind& form = bench.Open();
  std::vector<std::string> names;
  for (const ui::ListRow& row : form.Combo1.Rows()) names.push_back(row.text + std::to_string(row.data));
  EXPECT_THAT(names, ElementsAre("Adams,Beth7", "School,City8", "young,al9"));
  EXPECT_EQ(form.Combo1.ListIndex(), -1) << "no estimate is current";
  EXPECT_THAT(bench.Vehicles(), ElementsAre(" All Vehicles"));
  EXPECT_EQ(form.Combo2.ListIndex(), 0);
}

TEST(frmFind, TypingFindsTheName) {
  FindBench bench;
  frmFind& form = bench.Open();
  form.Combo1.SetFocus();
  for (const char* letter : {"S", "C"}) test::Press(form, letter);
  EXPECT_EQ(form.Combo1.Text(), "School,City");
}

TEST(frmFind, TheCurrentEstimatesCustomerIsPreselectedWithItsVehicles) {
  FindBench bench;
  bench.database.estimates.LoadEstimate(901);
  const frmFind& form = bench.Open();
  EXPECT_EQ(form.Combo1.Text(), "Adams,Beth");
  EXPECT_EQ(form.lblCustomer.Caption(), "000007  555-0142");
  EXPECT_THAT(bench.Vehicles(), ElementsAre(" All Vehicles", "1998 FORD TAURUS RED WAGON", "2001 BMW 325"));
  EXPECT_EQ(form.Combo2.Text(), " All Vehicles");
  EXPECT_THAT(bench.Lines(), IsEmpty());
}

TEST(frmFind, AnotherCustomerHasOtherVehicles) {
  FindBench bench;
  bench.OpenFor(7);
  bench.form->Combo1.DoSelect(1);
  EXPECT_THAT(bench.Vehicles(), ElementsAre(" All Vehicles"));
  EXPECT_EQ(bench.form->lblCustomer.Caption(), "000008  ");
}

TEST(frmFind, ListsAllEstimatesByDayWithStatusAndLabor) {
  FindBench bench;
  bench.OpenFor(7);
  test::Click(bench.form->cmdUpdate);
  EXPECT_THAT(bench.Lines(),
              ElementsAre("09/29/2003  1998 FORD TAURUS RED WAGON", "No-show     ",  // stored as Scheduled
                          "09/30/2003  2001 BMW 325 ", "Arrived     000012 CHECK BRAKES",
                          "            000012 ROAD TEST", "            ", "10/01/2003  ", "Estimate Onl"));
  EXPECT_THAT(test::DataOf(bench.form->List1), ElementsAre(900, 900, 901, 901, 901, 901, 902, 902));
  EXPECT_EQ(bench.form->lblResults.Caption(), "Total estimates = 3");
  EXPECT_EQ(bench.Stored("Status", 900), "0") << "a No-show by its date alone";
}

TEST(frmFind, OneVehicleHasItsEstimatesAlone) {
  FindBench bench;
  bench.OpenFor(7);
  bench.form->Combo2.DoSelect(1);
  test::Press(*bench.form, "F10");
  EXPECT_THAT(bench.Lines(), ElementsAre("09/29/2003  1998 FORD TAURUS RED WAGON", "No-show     "));
  EXPECT_EQ(bench.form->lblResults.Caption(), "Total estimates = 1");
}

TEST(frmFind, AnEstimateWithoutAVehicleLinkIsOfNoVehicle) {
  FindBench bench;
  bench.Do("update Estimates set VehicleLink = null where EstimateNumber = 902");
  bench.OpenFor(7);
  bench.form->Combo2.DoSelect(1);
  test::Press(*bench.form, "F10");
  EXPECT_THAT(test::DataOf(bench.form->List1), ElementsAre(900, 900));
}

TEST(frmFind, AVehicleThatCantBeReadIsTheOneThatWasAttached) {
  FindBench bench;
  bench.Do(
      "update Estimates set VehicleLink = 397000, VehYear = '1988', VehMake = 'FIAT', VehModel = 'UNO' "
      "where EstimateNumber = 900");
  bench.OpenFor(7);
  test::Click(bench.form->cmdUpdate);
  EXPECT_EQ(bench.Lines().at(0), "09/29/2003  1988 FIAT UNO");
}

TEST(frmFind, AHeldVehicleFileIsAskedAboutOnceAndNotForEachEstimate) {
  FindBench bench;
  bench.OpenFor(7);
  const SharedFile other(bench.directory / "TQVEHICL.DAT", Access::ReadWrite, Deny::All);
  bench.desktop.WillAnswer(Answer::Cancel);
  test::Click(bench.form->cmdUpdate);
  EXPECT_EQ(bench.Lines().size(), 8U);
}

TEST(frmFind, ALaborWithoutDescriptionIsNamedSo) {
  FindBench bench;
  bench.Do("update Labors set Description = null, Mechanic = null where LaborNumber = 1");
  bench.OpenFor(7);
  test::Click(bench.form->cmdUpdate);
  EXPECT_EQ(bench.Lines().at(3), "Arrived     000000 <No description>");
}

TEST(frmFind, NoEstimatesAreTold) {
  FindBench bench;
  bench.OpenFor(8);
  bench.desktop.WillAnswer(Answer::Ok);
  test::Press(*bench.form, "F10");
  EXPECT_EQ(bench.desktop.boxes.at(0).text, "No estimate records found.");
  EXPECT_EQ(bench.desktop.boxes.at(0).title, "Find");
  EXPECT_EQ(bench.form->lblResults.Caption(), "Total estimates = 0");
}

TEST(frmFind, WithoutCustomersThereIsNothingToFind) {
  FindBench bench;
  bench.directory.Put("TQCSTTAG.DAT", "");
  bench.desktop.WillAnswer({Answer::Ok, Answer::Ok});
  bench.Open();
  EXPECT_EQ(bench.desktop.boxes.at(0).text, "No customers on file.");
  EXPECT_EQ(bench.desktop.boxes.at(0).title, "Find");
  test::Click(bench.form->cmdUpdate);
  EXPECT_EQ(bench.desktop.boxes.at(1).text, "No estimate records found.");
}

TEST(frmFind, CustomersThatAreHeldAndGivenUpArentSaidToBeMissing) {
  FindBench bench;
  const SharedFile other(bench.directory / "TQCSTTAG.DAT", Access::ReadWrite, Deny::All);
  bench.desktop.WillAnswer(Answer::Cancel);
  bench.Open();
  EXPECT_EQ(bench.desktop.boxes.size(), 1U);
  EXPECT_EQ(bench.form->Combo1.ListCount(), 0);
}

TEST(frmFind, AnotherCustomerOrVehicleEmptiesTheList) {
  FindBench bench;
  bench.OpenFor(7);
  for (const bool customer : {true, false}) {
    bench.form->Combo1.DoSelect(0);
    test::Click(bench.form->cmdUpdate);
    bench.form->Combo1.DoSelect(0);
    EXPECT_EQ(bench.Lines().size(), 8U) << "the same one again changes nothing";
    if (customer) {
      bench.form->Combo1.DoSelect(1);
    } else {
      bench.form->Combo2.DoSelect(2);
    }
    EXPECT_THAT(bench.Lines(), IsEmpty());
    EXPECT_EQ(bench.form->lblResults.Caption(), "");
  }
}

TEST(frmFind, F10LooksWhileTheListIsEmptyAndThenSelects) {
  FindBench bench;
  bench.OpenFor(7);
  EXPECT_EQ(bench.form->cmdUpdate.ToolTip(), "List the estimates <F10>");
  test::Press(*bench.form, "F10");
  EXPECT_EQ(bench.form->Focus(), &bench.form->List1);
  EXPECT_EQ(bench.form->cmdSelect.ToolTip(), "Go to the estimate <F10>");
  bench.desktop.WillAnswer({Answer::Ok, Answer::Ok});
  test::Press(*bench.form, "F10");
  test::Press(*bench.form, "Enter");
  for (const ui::Box& box : bench.desktop.boxes) {
    EXPECT_EQ(box.text, "Must select a displayed estimate.");
    EXPECT_EQ(box.title, "Find - Select");
  }
  bench.form->List1.DoSelect(4);
  test::Press(*bench.form, "F10");
  EXPECT_EQ(bench.form->Chosen(), 901);
  EXPECT_FALSE(bench.form->Visible());
}

TEST(frmFind, SelectOnAnEmptyListIsTold) {
  FindBench bench;
  bench.OpenFor(7);
  bench.desktop.WillAnswer(Answer::Ok);
  test::Click(bench.form->cmdSelect);
  EXPECT_EQ(bench.desktop.boxes.at(0).title, "Find - Select");
  EXPECT_FALSE(bench.form->Chosen());
}

TEST(frmFind, EnterAndADoubleClickOnALineSelectIt) {
  for (const bool byEnter : {true, false}) {
    FindBench bench;
    bench.OpenFor(7);
    test::Click(bench.form->cmdUpdate);
    bench.form->List1.DoSelect(7);
    if (byEnter) {
      test::Press(*bench.form, "Enter");
    } else {
      bench.form->List1.DoDoubleClick();
    }
    EXPECT_EQ(bench.form->Chosen(), 902);
  }
}

TEST(frmFind, CancelLeavesWithoutAResult) {
  FindBench bench;
  bench.OpenFor(7);
  test::Click(bench.form->cmdUpdate);
  bench.form->List1.DoSelect(0);
  test::Press(*bench.form, "Esc");
  EXPECT_FALSE(bench.form->Visible());
  EXPECT_FALSE(bench.form->Chosen());
}

TEST(frmFind, TheSearchChoosesACustomerAndLeavesTheCurrentOne) {
  FindBench bench;
  bench.Open();
  ASSERT_TRUE(bench.records.customers.MakeCurrent(7));
  bench.WillPickCustomer(9);
  test::Click(bench.form->cmdSearch);
  EXPECT_EQ(bench.form->Combo1.Text(), "young,al");
  EXPECT_EQ(bench.records.customers.CurrentCustomer.Get(customer::Number), 7);
  EXPECT_EQ(bench.records.customers.CurrentTag.Get(customertag::Number), 7);
}

TEST(frmFind, ASearchThatIsLeftChangesNothing) {
  FindBench bench;
  bench.OpenFor(7);
  bench.WillLeave();
  test::Press(*bench.form, "F5");
  EXPECT_EQ(bench.form->Combo1.Text(), "Adams,Beth");
}

TEST(frmFind, ACustomerWhoCameMeanwhileIsAddedWhereTheNameBelongs) {
  FindBench bench;
  bench.Open();
  const std::string tags = bench.directory.Content("TQCSTTAG.DAT");
  const std::string masters = bench.directory.Content("TQCSTDAT.DAT");
  bench.directory.Put("TQCSTTAG.DAT", tags + test::CustomerTagImage(10, "Miller,Ann", 951).Bytes());
  bench.directory.Put("TQCSTDAT.DAT", masters + test::CustomerImage(10, "Miller").Text(25, "Ann").Bytes());
  ASSERT_TRUE(bench.records.customers.LoadCustomerTags());
  bench.WillPickCustomer(10);
  test::Click(bench.form->cmdSearch);
  EXPECT_EQ(bench.form->Combo1.ListIndex(), 1);
  EXPECT_EQ(bench.form->Combo1.Text(), "Miller,Ann");
  EXPECT_EQ(bench.form->Combo1.ItemData(1), 10);
}

TEST(frmFind, NoWorkingRecordIsTouchedByLooking) {
  FindBench bench;
  bench.database.estimates.LoadEstimate(901);
  ASSERT_TRUE(bench.records.customers.MakeCurrent(9));
  bench.records.vehicles.ReadVehicle(FindBench::kFiat);
  bench.OpenFor(7);
  test::Click(bench.form->cmdUpdate);
  EXPECT_EQ(bench.Current().EstimateNumber, 901);
  EXPECT_EQ(bench.Current().Status, kArrived);
  EXPECT_EQ(bench.records.customers.CurrentCustomer.Get(customer::Number), 9);
  EXPECT_EQ(bench.records.vehicles.CurrentVehicleOffset, FindBench::kFiat);
  EXPECT_EQ(bench.records.vehicles.CurrentVehicle.Get(vehicle::Make), "FIAT");
}

TEST(frmFind, KeepsItsSize) {
  FindBench bench;
  bench.Open().DoResize(12000, 9000, ui::WindowState::Normal);
  bench.form->Unload();
  EXPECT_EQ(bench.Setting("frmFindWidth"), "12000");
}

}  // namespace
}  // namespace lantos
