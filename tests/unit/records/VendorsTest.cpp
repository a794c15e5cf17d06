#include "records/Vendors.h"

#include <optional>
#include <set>
#include <thread>

#include "VendorImage.h"
#include "records/GivenUp.h"
#include "records/modSystem.h"
#include "support/FaultyCalls.h"
#include "support/NoRoomBeyond.h"

namespace lantos::test {
namespace {

constexpr std::string_view kLocked = "Vendor file locked by another user.\rClick OK to try again.";

class VendorsTest : public ShopTest {
 protected:
  VendorsTest() {
    Put(kSystemFile, Image(1038).Text(109, "Springfield").Text(130, "OH"));
    records.system.ReadSystem();
  }
  std::string File() const { return BytesOf(kVendorFile); }
  void PutVendors(const std::vector<std::string>& names) const {
    Image file;
    for (const std::string& name : names) file.Append(VendorImage(name));
    Put(kVendorFile, file);
  }
  std::string Names() const {
    std::string all;
    for (std::size_t i = 0; i < vendors.Count(); ++i) all += vendors[i].Get(vendor::VendorName) + ";";
    return all;
  }
  // Another workstation has the file until so many boxes have been answered.
  void HoldUntilBox(std::size_t last) {
    held_.emplace(HeldByAnother(kVendorFile));
    for (std::size_t box = 1; box <= last; ++box) {
      desktop.WillAnswer([this, box, last](const ui::Box&) {
        if (box == last) held_.reset();
        return ui::Answer::Ok;
      });
    }
  }
  void ExpectLockedBoxes(std::string_view routine, std::size_t count) const {
    ASSERT_EQ(desktop.boxes.size(), count);
    for (const ui::Box& box : desktop.boxes) {
      ExpectBox(box, std::string(routine) + " Error 70: Permission denied", kLocked, ui::Buttons::Ok, ui::Icon::None);
    }
  }

  Vendors& vendors = records.vendors;
  std::optional<SharedFile> held_;
};

TEST_F(VendorsTest, NothingIsLoadedBeforeTheFirstLoad) {
  EXPECT_FALSE(vendors.Loaded());
  EXPECT_EQ(vendors.Count(), 0U);
}

TEST_F(VendorsTest, AnEmptyFileAndAMissingOneHoldNoVendors) {
  vendors.LoadVendors();
  EXPECT_TRUE(vendors.Loaded());
  EXPECT_EQ(vendors.Count(), 0U);
  Put(kVendorFile, "");
  vendors.LoadVendors();
  EXPECT_EQ(vendors.Count(), 0U);
}

TEST_F(VendorsTest, ALastRecordThatIsCutCountsFromItsHalfOn) {
  const std::string two = Image(VendorImage("Alpha")).Append(VendorImage("Beta")).Bytes();
  struct Cut {
    std::size_t length;
    std::size_t count;
  };
  for (const Cut& cut : {Cut{101, 0}, Cut{102, 1}, Cut{204, 1}, Cut{305, 1}, Cut{306, 2}, Cut{407, 2}}) {
    Put(kVendorFile, two.substr(0, cut.length));
    vendors.LoadVendors();
    EXPECT_EQ(vendors.Count(), cut.count) << cut.length;
  }
  EXPECT_EQ(vendors[1].Get(vendor::VendorName), "Beta");
}

TEST_F(VendorsTest, ANewVendorTakesTheCompanysCityAndState) {
  PutVendors({"Alpha"});
  const Vendors::Addition added = vendors.AddVendor("Beta Glass");
  EXPECT_EQ(added.outcome, Vendors::Outcome::Added);
  EXPECT_EQ(added.index, 1U);
  EXPECT_EQ(File(), Image(VendorImage("Alpha")).Append(VendorImage("Beta Glass", "Springfield", "OH")).Bytes());
  EXPECT_EQ(vendors.CurrentVendor.Get(vendor::City), "Springfield");
  EXPECT_EQ(Names(), "Alpha;Beta Glass;");
}

TEST_F(VendorsTest, ANameOfTheWholeWidthHasNoTerminatorAndIsReadBackWhole) {
  const std::string name(32, 'W');
  vendors.AddVendor(name);
  EXPECT_EQ(File(), VendorImage(name, "Springfield", "OH").Bytes());
  vendors.LoadVendors();
  EXPECT_EQ(Names(), name + ";");
}

TEST_F(VendorsTest, ANewVendorLandsBehindThoseThatOthersHaveAdded) {
  PutVendors({"Alpha"});
  vendors.LoadVendors();
  PutVendors({"Alpha", "", "Gamma"});
  EXPECT_EQ(vendors.AddVendor("Beta").index, 3U);
  EXPECT_EQ(Names(), "Alpha;;Gamma;Beta;");
  EXPECT_EQ(File().size(), 4U * 204U);
}

TEST_F(VendorsTest, AVendorThatAnotherAddsWhileThisOneWaitsIsPickedUp) {
  PutVendors({"Alpha"});
  std::optional<NoRoomBeyond> full(204);
  desktop.WillAnswer([&](const ui::Box&) {
    full.reset();
    PutVendors({"Alpha", "Gamma"});
    return ui::Answer::Retry;
  });
  EXPECT_EQ(vendors.AddVendor("Beta").index, 2U);
  EXPECT_EQ(Names(), "Alpha;Gamma;Beta;");
  ASSERT_EQ(desktop.boxes.size(), 1U);
  ExpectBox(desktop.boxes[0], "AddVendor Error 61: Disk full",
            "TQVENDOR.DAT can not be used: the disk is full.\r"
            "Click Retry to try again, or Cancel to leave the vendors as they are.",
            ui::Buttons::RetryCancel, ui::Icon::Exclamation);
}

TEST_F(VendorsTest, AVendorThatIsGivenUpIsNotStoredAndNotShownAsStored) {
  PutVendors({"Alpha"});
  vendors.LoadVendors();
  FaultyCalls calls(PathOf(kVendorFile).parent_path());
  calls.When([](const FileCall& call, std::size_t) { return call.kind == CallKind::Write ? EIO : 0; });
  desktop.WillAnswer({ui::Answer::Cancel, ui::Answer::Cancel});
  EXPECT_THROW(vendors.AddVendor("Beta"), GivenUp);
  vendors.MakeCurrent(0);
  vendors.CurrentVendor.Put(vendor::VendorName, "Omega");
  EXPECT_THROW(vendors.SaveVendor(0), GivenUp);
  calls.Mend();
  EXPECT_EQ(vendors[0].Get(vendor::VendorName), "Alpha");
  EXPECT_EQ(Names(), "Alpha;");
}

TEST_F(VendorsTest, CopiesThatAddAtOnceLoseNoVendorAndAddNoneTwice) {
  constexpr int kEach = 60;
  std::vector<std::jthread> threads;
  for (const char letter : {'A', 'B', 'C'}) {
    threads.emplace_back([this, letter] {
      TestDesktop person;
      person.otherwise = [](const ui::Box&) { return ui::Answer::Ok; };
      StandingClock ownClock{*ParseLocalTime("2003-09-30T08:15:00")};
      UserSettings ownSettings{PathOf(std::string("settings") + letter)};
      Environment own{ownClock, ownSettings};
      own.files.SetDataDir(environment.files.DataDir());
      Records copy{own, person};
      for (int i = 0; i < kEach; ++i) {
        copy.vendors.AddVendor(letter + std::to_string(i));
        copy.vendors.AddVendor("Common " + std::to_string(i));
      }
    });
  }
  threads.clear();
  vendors.LoadVendors();
  std::set<std::string> names;
  for (std::size_t i = 0; i < vendors.Count(); ++i) names.insert(vendors[i].Get(vendor::VendorName));
  EXPECT_EQ(names.size(), 4U * kEach);
  EXPECT_EQ(vendors.Count(), 4U * kEach) << "a name that several added is there once";
}

TEST_F(VendorsTest, ANameThatAnotherHasAddedMeanwhileIsntAddedAgain) {
  PutVendors({"Alpha"});
  vendors.LoadVendors();
  PutVendors({"Alpha", "beta  "});
  const std::string before = File();
  const Vendors::Addition found = vendors.AddVendor("Beta");
  EXPECT_EQ(found.outcome, Vendors::Outcome::WasThere);
  EXPECT_EQ(found.index, 1U);
  EXPECT_EQ(vendors.CurrentVendor.Get(vendor::VendorName), "beta");
  EXPECT_EQ(File(), before);
}

TEST_F(VendorsTest, ANewVendorTakesThePlaceOfABrokenEndThatDoesntCount) {
  Put(kVendorFile, VendorImage("Alpha").Bytes() + std::string(101, 'x'));
  vendors.AddVendor("Beta");
  EXPECT_EQ(File(), Image(VendorImage("Alpha")).Append(VendorImage("Beta", "Springfield", "OH")).Bytes());
}

TEST_F(VendorsTest, ANewVendorLeavesABrokenEndThatCountsAndGoesBehindIt) {
  Put(kVendorFile, VendorImage("Alpha").Bytes() + "Broken" + std::string(100, '\0'));
  EXPECT_EQ(vendors.AddVendor("Beta").index, 2U);
  EXPECT_EQ(File(), Image(VendorImage("Alpha"))
                        .Append(VendorImage("Broken"))
                        .Append(VendorImage("Beta", "Springfield", "OH"))
                        .Bytes());
}

TEST_F(VendorsTest, AFullFileTakesNoMore) {
  constexpr std::uintmax_t length = (kVendorLimit + 7) * 204;
  Put(kVendorFile, "");
  std::filesystem::resize_file(PathOf(kVendorFile), length);
  vendors.LoadVendors();
  EXPECT_EQ(vendors.Count(), kVendorLimit);
  EXPECT_THROW(vendors.AddVendor("Beta"), std::overflow_error);
  EXPECT_EQ(std::filesystem::file_size(PathOf(kVendorFile)), length);
}

TEST_F(VendorsTest, ADeletedVendorLeavesABlankRecordAndTheOthersKeepTheirNumbers) {
  Put(kVendorFile, Image(VendorImage("Alpha"))
                       .Append(VendorImage("Beta", "Xenia", "OH").Text(183, "T-1").Text(7, "stale"))
                       .Append(VendorImage("Gamma")));
  vendors.LoadVendors();
  vendors.DeleteVendor(1);
  EXPECT_EQ(File(), Image(VendorImage("Alpha")).Append(Image(204)).Append(VendorImage("Gamma")).Bytes());
  EXPECT_EQ(vendors.CurrentVendor, VendorRecord());
  EXPECT_EQ(Names(), "Alpha;;Gamma;");
  vendors.LoadVendors();
  EXPECT_EQ(vendors.Count(), 3U);
  EXPECT_EQ(vendors[2].Get(vendor::VendorName), "Gamma");
}

TEST_F(VendorsTest, SavingWritesTheRecordInItsPlaceAndNoOther) {
  PutVendors({"Alpha", "Beta", "Gamma"});
  vendors.LoadVendors();
  vendors.MakeCurrent(1);
  vendors.CurrentVendor.Put(vendor::Phone1Ext, "12");
  vendors.SaveVendor(1);
  EXPECT_EQ(
      File(),
      Image(VendorImage("Alpha")).Append(VendorImage("Beta").Text(147, "12")).Append(VendorImage("Gamma")).Bytes());
  EXPECT_EQ(vendors[1].Get(vendor::Phone1Ext), "12");
}

TEST_F(VendorsTest, ANameIsFoundInAnyCaseAndABlankOneIsNobodys) {
  PutVendors({"", "Alpha", "B\xD6SCH"});
  vendors.LoadVendors();
  EXPECT_EQ(vendors.Find(" ALPHA "), 1U);
  EXPECT_EQ(vendors.Find("B\xF6sch"), 2U);
  EXPECT_EQ(vendors.Find("Alph"), vendors.Count());
  EXPECT_EQ(vendors.Find("  "), vendors.Count());
}

TEST_F(VendorsTest, ALoadWaitsForTheFileForEver) {
  PutVendors({"Alpha"});
  HoldUntilBox(5);
  vendors.LoadVendors();
  ExpectLockedBoxes("LoadVendors", 5);
  EXPECT_EQ(Names(), "Alpha;");
}

TEST_F(VendorsTest, ASaveWaitsForTheFileForEver) {
  PutVendors({"Alpha"});
  vendors.LoadVendors();
  vendors.CurrentVendor.Put(vendor::VendorName, "Alpha Two");
  HoldUntilBox(3);
  vendors.SaveVendor(0);
  ExpectLockedBoxes("SaveVendor", 3);
  EXPECT_EQ(File(), VendorImage("Alpha Two").Bytes());
}

TEST_F(VendorsTest, ADeletionWaitsForTheFileForEver) {
  PutVendors({"Alpha"});
  vendors.LoadVendors();
  HoldUntilBox(3);
  vendors.DeleteVendor(0);
  ExpectLockedBoxes("DeleteVendor", 3);
  EXPECT_EQ(File(), Image(204).Bytes());
}

TEST_F(VendorsTest, AnAdditionThatCanNotLoadSaysSoAsTheLoad) {
  PutVendors({"Alpha"});
  HoldUntilBox(2);
  vendors.AddVendor("Beta");
  ExpectLockedBoxes("LoadVendors", 2);
  EXPECT_EQ(Names(), "Alpha;Beta;");
}

TEST_F(VendorsTest, ALookAtTheFileAsksNobodyAndKeepsWhatIsThere) {
  PutVendors({"Alpha"});
  vendors.LoadVendors();
  PutVendors({"Beta", "Gamma"});
  {
    const SharedFile other = HeldByAnother(kVendorFile);
    EXPECT_FALSE(vendors.LookAgain());
    vendors.MakeCurrent(0);
    EXPECT_EQ(vendors.CurrentVendor.Get(vendor::VendorName), "Alpha");
  }
  EXPECT_EQ(Names(), "Alpha;");
  vendors.MakeCurrent(0);
  EXPECT_EQ(vendors.CurrentVendor.Get(vendor::VendorName), "Beta");
  EXPECT_TRUE(vendors.LookAgain());
  EXPECT_EQ(Names(), "Beta;Gamma;");
}

}  // namespace
}  // namespace lantos::test
