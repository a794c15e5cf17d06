#include <gtest/gtest.h>

#include "contents/labor/LaborAddCanned.h"
#include "contents/labor/frmCanLabor.h"
#include "contents/parts/PartsBench.h"
#include "records/CannedLabor.h"
#include "records/OpenedFile.h"

// The inventory kit that goes with a standard job.
namespace lantos {
namespace {

using test::PartsBench;
using ui::Answer;

struct CannedKit : PartsBench {
  CannedKit() { records.laborKits.Save("LOF", "KIT-A"); }
  static CannedLabor Entry() {
    CannedLabor entry;
    entry.Desc[0] = "LOF  OIL AND FILTER";
    return entry;
  }
  void SaveKit() {
    InventoryKitRecord kit;
    kit.Put(inventorykit::KitNumber, "KIT-A");
    records.kits.SaveKit(kit);
  }
};

TEST(CannedKit, AKitThatCantBeListedStaysWithItsCodeUntilAnotherIsChosen) {
  for (const bool isHeld : {true, false}) {
    CannedKit bench;
    if (isHeld) bench.SaveKit();
    std::optional<OpenedFile> held;
    if (isHeld) {
      held.emplace(bench.environment.openFiles, kKitFile, Access::ReadWrite, Deny::All);
      bench.desktop.WillAnswer(Answer::Ok);
    }
    frmCanLabor form(bench.bench, frmCanLabor::Mode::Edit, CannedKit::Entry());
    form.Show();
    EXPECT_EQ(form.Combo1.Text(), "KIT-A");
    test::Press(form, "F10");
    EXPECT_TRUE(form.Saved());
    EXPECT_EQ(bench.records.laborKits.KitOf("LOF"), "KIT-A");
  }
}

TEST(CannedKit, NoneIsStillThereToBeChosen) {
  CannedKit bench;
  frmCanLabor form(bench.bench, frmCanLabor::Mode::Edit, CannedKit::Entry());
  form.Show();
  form.Combo1.DoSelect(0);
  test::Press(form, "F10");
  EXPECT_EQ(bench.records.laborKits.KitOf("LOF"), "None");
}

TEST(CannedKit, AnAmountThatNoFieldHoldsLeavesTheKitAsItWas) {
  CannedKit bench;
  bench.desktop.failuresExpected = true;
  frmCanLabor form(bench.bench, frmCanLabor::Mode::Edit, CannedKit::Entry());
  form.Show();
  form.Combo1.DoSelect(0);
  test::Type(form.Hours, "3");
  test::Type(form.TotalLabor, "99999999");
  test::Press(form, "F10");
  EXPECT_EQ(bench.desktop.failures.size(), 1U);
  EXPECT_FALSE(form.Saved());
  EXPECT_EQ(bench.records.laborKits.KitOf("LOF"), "KIT-A");
  EXPECT_EQ(form.Entry.Hours, 0);
}

TEST(frmCanLabor, ATotalThatIsNoNumberIsToldOnceAndCountsByWhatItBeginsWith) {
  CannedKit bench;
  frmCanLabor form(bench.bench, frmCanLabor::Mode::Edit, CannedKit::Entry());
  form.Show();
  test::Type(form.TotalLabor, "12abc");
  bench.desktop.WillAnswer(Answer::Ok);
  test::Press(form, "F10");
  EXPECT_EQ(bench.desktop.boxes.at(0).text, "Total: \"12abc\" is not a number. 12.00 stands in its place.");
  test::Press(form, "F10");
  EXPECT_TRUE(form.Saved());
  EXPECT_EQ(form.Entry.Total, 1200);
}

TEST(CannedKit, AKitThatCantBeWrittenIsAsItWas) {
  CannedKit bench;
  const OpenedFile held(bench.environment.openFiles, kLaborKitFile, Access::ReadWrite, Deny::All);
  EXPECT_THROW(bench.records.laborKits.Save("LOF", "KIT-B"), FileError);
  EXPECT_THROW(bench.records.laborKits.Save("NEW", "KIT-B"), FileError);
  EXPECT_EQ(bench.records.laborKits.KitOf("LOF"), "KIT-A");
  EXPECT_EQ(bench.records.laborKits.KitOf("NEW"), "");
}

// Two workstations with the list open.
TEST(CannedKit, AKitThatAnotherWorkstationHasStoredSinceStays) {
  CannedKit bench;
  LaborKits others(bench.environment);
  others.Save("TUNE", "KIT-T");
  bench.records.laborKits.Save("LOF", "KIT-B");
  others.Save("AXLE", "KIT-X");
  LaborKits onFile(bench.environment);
  EXPECT_EQ(onFile.KitOf("LOF"), "KIT-B");
  EXPECT_EQ(onFile.KitOf("TUNE"), "KIT-T");
  EXPECT_EQ(onFile.KitOf("AXLE"), "KIT-X");
  EXPECT_EQ(bench.records.laborKits.KitOf("TUNE"), "KIT-T") << "what a save has read is known";
}

TEST(CannedKit, AnEntryThatIsEditedKeepsTheKitThatAnotherWorkstationHasChosen) {
  CannedKit bench;
  LaborKits(bench.environment).Save("LOF", "KIT-B");
  frmCanLabor form(bench.bench, frmCanLabor::Mode::Edit, CannedKit::Entry());
  form.Show();
  EXPECT_EQ(form.Combo1.Text(), "KIT-B");
  test::Type(form.Hours, "3");
  test::Press(form, "F10");
  EXPECT_EQ(LaborKits(bench.environment).KitOf("LOF"), "KIT-B");
}

TEST(CannedKit, AKitFileThatSomebodyHasLeavesTheKitThatWasReadLast) {
  CannedKit bench;
  const OpenedFile held(bench.environment.openFiles, kLaborKitFile, Access::ReadWrite, Deny::All);
  frmCanLabor form(bench.bench, frmCanLabor::Mode::Edit, CannedKit::Entry());
  form.Show();
  EXPECT_EQ(form.Combo1.Text(), "KIT-A");
  EXPECT_EQ(bench.desktop.failures.size(), 0U);
  test::Press(form, "Esc");
}

TEST(CannedKit, AKitThatIsOfferedWaitsForThePartsThatArentListedYet) {
  CannedKit bench;
  bench.SaveKit();
  int waits = 0;
  bench.inventory.onFinishLoading = [&] {
    if (waits++ == 0) bench.Stock("KIT-A", 0, "KIT:(12.50,14.00)");
  };
  bench.desktop.WillAnswer(Answer::Yes);
  bench.desktop.WillUse([](ui::Form& form) {
    EXPECT_EQ(form.Name(), "frmWOKit");
    test::Press(form, "F10");
  });
  OfferLaborKit(bench.bench, bench.contents.parts, "LOF");
  EXPECT_GE(waits, 1);
  EXPECT_EQ(bench.Ask("select count(*) from Parts where EstimateNumber = 1001"), "1");
  bench.inventory.onFinishLoading = nullptr;
}

}  // namespace
}  // namespace lantos
