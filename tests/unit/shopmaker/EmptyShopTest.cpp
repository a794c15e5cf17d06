#include "shopmaker/EmptyShop.h"

#include <gmock/gmock.h>
#include <grp.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include "estimatedb/EngineChoice.h"
#include "records/modSystem.h"
#include "shopmaker/Contents.h"
#include "support/NoRoomBeyond.h"

namespace lantos {
namespace {

using test::Contents;
using test::ScratchDirectory;
using test::WriteBytes;

class EmptyShop : public testing::Test {
 protected:
  std::filesystem::path Shop() const { return directory_.Path() / "shop"; }
  void Make(const ShopIdentity& identity = {}) { MakeEmptyShop(Shop(), identity, clock_); }
  SystemRecord ReadSystemRecord() const {
    const std::string bytes = test::ReadBytes(Shop() / "TQSYSTEM.DAT");
    SystemRecord record;
    EXPECT_EQ(bytes.size(), record.Bytes().size());
    std::memcpy(record.Bytes().data(), bytes.data(), std::min(bytes.size(), record.Bytes().size()));
    return record;
  }

  ScratchDirectory directory_;
  StandingClock clock_{LocalTime{37894, 0}};
};

TEST_F(EmptyShop, LeavesNothingWhicheverStepItIsEndedAt) {
  int steps = 0;
  MakeEmptyShop(directory_.Path() / "whole", {}, clock_, "",
                [&](std::string_view, std::uint64_t, std::uint64_t) { ++steps; });
  EXPECT_EQ(steps, 3);
  for (int end = 0; end < steps; ++end) {
    int step = 0;
    const auto stop = [&](std::string_view, std::uint64_t done, std::uint64_t of) {
      EXPECT_LT(done, of);
      if (step++ == end) throw std::runtime_error("enough");
    };
    EXPECT_THROW(MakeEmptyShop(Shop(), {}, clock_, "", stop), std::runtime_error);
    EXPECT_FALSE(std::filesystem::exists(Shop())) << end;
  }
}

TEST_F(EmptyShop, HasEverySharedFileAndNothingElse) {
  Make();
  std::vector<std::string> names;
  for (const auto& [name, bytes] : Contents(Shop())) names.push_back(name);
  EXPECT_THAT(names, testing::UnorderedElementsAre(
                         "Lantos.mdb", "Korvel.mdb", "TQSYSTEM.DAT", "TQCSTTAG.DAT", "TQCSTDAT.DAT", "TQVEHICL.DAT",
                         "TQMAKMOD.DAT", "TQINVTAG.DAT", "TQINVENT.DAT", "TQINVKIT.DAT", "TQUSEHST.DAT", "TQVENDOR.DAT",
                         "TQEMPLOY.DAT", "TQDEPART.DAT", "TQMANUFA.DAT", "TQPASSWD.DAT", "TQOPENWO.DAT", "TQINCTAG.DAT",
                         "TQINVOIC.DAT", "TQFOLLOW.DAT", "TQCANLAB.DAT", "TQLABKIT.DAT", "TQCANNOT.DAT", "TQOPENPO.DAT",
                         "TQPAYROL.DAT", "CHECKLST.TXT", "DISCLAIM.TXT"));
}

TEST_F(EmptyShop, ItsSharedFilesAreEmptyButForTheSystemRecordAndThePasswords) {
  Make();
  for (const auto& [name, bytes] : Contents(Shop())) {
    if (name.ends_with(".mdb")) continue;
    const std::size_t expected = name == "TQSYSTEM.DAT" ? 1038 : name == "TQPASSWD.DAT" ? 252 : 0;
    EXPECT_EQ(bytes.size(), expected) << name;
  }
  EXPECT_EQ(test::ReadBytes(Shop() / "TQPASSWD.DAT"), std::string(252, '\0'));
}

TEST_F(EmptyShop, HandsOutOneAsTheFirstOfEveryNumber) {
  Make();
  const SystemRecord record = ReadSystemRecord();
  EXPECT_EQ(record.Get(sysrec::last_workorder_number), 1);
  EXPECT_EQ(record.Get(sysrec::last_estimate_number), 1);
  EXPECT_EQ(record.Get(sysrec::last_customer_number), 1);
  EXPECT_EQ(record.Get(sysrec::last_employee_number), 1);
}

TEST_F(EmptyShop, TaxesNothingAndChargesTheFirstShopRate) {
  Make();
  const SystemRecord record = ReadSystemRecord();
  EXPECT_EQ(record.Get(sysrec::tax_rate_parts), 0);
  EXPECT_EQ(record.Get(sysrec::tax_rate_labor), 0);
  EXPECT_EQ(record.Get(sysrec::tax_rate_sublet), 0);
  EXPECT_EQ(record.Get(sysrec::tax_rate_waste), 0);
  EXPECT_EQ(record.Get(sysrec::shop_rate), 7500);
  EXPECT_EQ(record.Get(sysrec::markups[0]), 0);
  EXPECT_EQ(record.Get(sysrec::markups[3]), 650000);
}

TEST_F(EmptyShop, BearsTheNameAndAddressItWasGiven) {
  Make({"Hill Garage", "12 Oak St", "Harlan", "OR", "97343", "541-555-0100"});
  const SystemRecord record = ReadSystemRecord();
  EXPECT_EQ(record.Get(sysrec::company_name), "Hill Garage");
  EXPECT_EQ(record.Get(sysrec::company_address), "12 Oak St");
  EXPECT_EQ(record.Get(sysrec::company_city), "Harlan");
  EXPECT_EQ(record.Get(sysrec::company_state), "OR");
  EXPECT_EQ(record.Get(sysrec::company_zip), "97343");
  EXPECT_EQ(record.Get(sysrec::company_phone1), "541-555-0100");
}

TEST_F(EmptyShop, HasOneRowOfStandardHoursWithAnOpenDay) {
  Make();
  const std::unique_ptr<Engine> engine = OpenDatabase(Shop() / "Lantos.mdb", clock_);
  Recordset rows = engine->Run("select * from StandardHours", {});
  ASSERT_EQ(rows.Count(), 1u);
  EXPECT_EQ(rows.Long("RecNum"), 1);
  EXPECT_EQ(rows.Long("SunHours"), 0);
  EXPECT_EQ(rows.Long("MonHours"), 16);
  EXPECT_EQ(rows.Long("FriHours"), 16);
  EXPECT_EQ(rows.Long("SatHours"), 0);
  EXPECT_EQ(rows.Long("FudgeFactor"), 10);
}

TEST_F(EmptyShop, HasNoEstimates) {
  Make();
  const std::unique_ptr<Engine> engine = OpenDatabase(Shop() / "Lantos.mdb", clock_);
  EXPECT_EQ(engine->Run("select count(*) as n from Estimates", {}).Long("n"), 0);
}

TEST_F(EmptyShop, MakesTheDirectoriesThatAreMissing) {
  MakeEmptyShop(directory_.Path() / "a" / "b" / "c", {}, clock_);
  EXPECT_TRUE(std::filesystem::exists(directory_.Path() / "a" / "b" / "c" / "Lantos.mdb"));
}

TEST_F(EmptyShop, TakesADirectoryThatIsThereAndKeepsWhatElseItHolds) {
  std::filesystem::create_directory(Shop());
  WriteBytes(Shop() / "readme.txt", "mine");
  Make();
  EXPECT_EQ(test::ReadBytes(Shop() / "readme.txt"), "mine");
  EXPECT_TRUE(std::filesystem::exists(Shop() / "TQSYSTEM.DAT"));
}

class RefusedShop : public EmptyShop, public testing::WithParamInterface<const char*> {};

TEST_P(RefusedShop, IsLeftUntouchedAndNamed) {
  std::filesystem::create_directory(Shop());
  WriteBytes(Shop() / GetParam(), "old");
  const auto before = Contents(Shop());
  try {
    Make();
    FAIL() << "made a shop over " << GetParam();
  } catch (const ShopError& error) {
    EXPECT_THAT(error.what(), testing::HasSubstr("already holds a shop"));
    EXPECT_THAT(error.what(), testing::HasSubstr(GetParam()));
  }
  EXPECT_EQ(Contents(Shop()), before);
}
INSTANTIATE_TEST_SUITE_P(InAnySpelling, RefusedShop,
                         testing::Values("Lantos.mdb", "LANTOS.MDB", "TQSYSTEM.DAT", "tqsystem.dat", "TqCstTag.dat"));

TEST_F(EmptyShop, RefusesAFileInPlaceOfADirectory) {
  WriteBytes(Shop(), "a file");
  EXPECT_THROW(Make(), ShopError);
  EXPECT_EQ(test::ReadBytes(Shop()), "a file");
}

TEST_F(EmptyShop, RefusesADirectoryBelowAFile) {
  WriteBytes(directory_.Path() / "file", "a file");
  EXPECT_THROW(MakeEmptyShop(directory_.Path() / "file" / "shop", {}, clock_), ShopError);
}

mode_t ModeOf(const std::filesystem::path& path) {
  struct stat status = {};
  EXPECT_EQ(::stat(path.c_str(), &status), 0) << path;
  return status.st_mode & 07777;
}

std::string OwnGroup() { return ::getgrgid(::getegid())->gr_name; }

TEST_F(EmptyShop, OfAGroupIsItsGroupsToReadAndWriteAndNobodyElses) {
  const mode_t before = ::umask(077);
  MakeEmptyShop(Shop(), {}, clock_, OwnGroup());
  ::umask(before);
  EXPECT_EQ(ModeOf(Shop()), 02770);
  for (const auto& entry : std::filesystem::directory_iterator(Shop())) {
    EXPECT_EQ(ModeOf(entry.path()), 0660) << entry.path() << ", the databases too";
  }
}

TEST_F(EmptyShop, WithoutAGroupIsAsTheUmaskSays) {
  const mode_t before = ::umask(027);
  Make();
  ::umask(before);
  EXPECT_EQ(ModeOf(Shop()), 0750);
  for (const auto& entry : std::filesystem::directory_iterator(Shop())) EXPECT_EQ(ModeOf(entry.path()), 0640);
}

TEST_F(EmptyShop, OfAGroupThatIsNoneIsNotMade) {
  try {
    MakeEmptyShop(Shop() / "deep", {}, clock_, "no such group");
    FAIL();
  } catch (const ShopError& error) {
    EXPECT_STREQ(error.what(), "There is no group no such group on this computer.");
  }
  EXPECT_FALSE(std::filesystem::exists(Shop()));
}

class FullDisk : public EmptyShop, public testing::WithParamInterface<int> {};

TEST_P(FullDisk, LeavesNothingOfTheShopBehind) {
  const std::filesystem::path deep = directory_.Path() / "a" / "b";
  bool failed = false;
  {
    test::NoRoomBeyond limit(static_cast<rlim_t>(GetParam()));
    try {
      MakeEmptyShop(deep, {}, clock_);
    } catch (const std::exception&) {
      failed = true;
    }
  }
  EXPECT_TRUE(failed);
  EXPECT_FALSE(std::filesystem::exists(directory_.Path() / "a"));
}
INSTANTIATE_TEST_SUITE_P(InTheFlatFilesAndInTheDatabase, FullDisk, testing::Values(100, 1037, 2000, 5000));

TEST_F(EmptyShop, AFailureInADirectoryThatWasThereRemovesOnlyWhatWasMade) {
  std::filesystem::create_directory(Shop());
  WriteBytes(Shop() / "readme.txt", "mine");
  {
    test::NoRoomBeyond limit(5000);
    EXPECT_ANY_THROW(Make());
  }
  EXPECT_THAT(Contents(Shop()), testing::ElementsAre(testing::Pair("readme.txt", "mine")));
}

}  // namespace
}  // namespace lantos
