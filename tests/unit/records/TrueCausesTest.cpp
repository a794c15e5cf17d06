// What a person is told of a file that can't be used: every rule, every cause.
#include <cerrno>

#include "Fixture.h"
#include "frame/FileCause.h"
#include "frame/ProfileFile.h"
#include "frame/UnfitFile.h"
#include "frame/UpdateTurns.h"
#include "records/AskedTurn.h"
#include "records/Contention.h"
#include "records/Customers.h"
#include "records/GivenUp.h"
#include "records/Vehicles.h"
#include "records/Vendors.h"
#include "records/inventory/Inventory.h"
#include "support/FaultyCalls.h"

namespace lantos::test {
namespace {

using testing::HasSubstr;
using testing::Not;

constexpr std::string_view kWhat = "TQSOME.DAT";

struct NamedRule {
  std::string_view name;
  const ContentionRule& rule;
};

#define RULE(name) \
  NamedRule { #name, contention::name }
const NamedRule kRules[] = {
    RULE(kLoadCustomerTags),   RULE(kReadCustomer),     RULE(kWriteCustomerTag),  RULE(kWriteCustomer),
    RULE(kOpenVehicleForRead), RULE(kReadVehicle),      RULE(kWriteVehicle),      RULE(kSystem),
    RULE(kOpenInventory),      RULE(kReadInventory),    RULE(kReadInventoryTag),  RULE(kLoadInventoryTags),
    RULE(kReadTagOfChange),    RULE(kBroadcastUpdate),  RULE(kReadUpdateFile),    RULE(kUpdateUsage),
    RULE(kOpenKitsExclusive),  RULE(kOpenKitsShared),   RULE(kOpenOrders),        RULE(kVendors),
    RULE(kSavePayroll),        RULE(kMomentsPatience),  RULE(kReadWorkorderTags), RULE(kConversionFile),
    RULE(kAppendTurn),         RULE(kWriteArchivedTag), RULE(kFindWorkorderFile), RULE(kOpenWorkorderFile),
    RULE(kOpenArchive),
};
#undef RULE

constexpr FileErrorNumber kCauses[] = {FileErrorNumber::FileNotFound,   FileErrorNumber::DeviceIo,
                                       FileErrorNumber::DiskFull,       FileErrorNumber::TooManyFiles,
                                       FileErrorNumber::PathFileAccess, FileErrorNumber::PathNotFound};

constexpr UnfitFile::Why kUnfits[] = {UnfitFile::Why::LeadsAway, UnfitFile::Why::NotRegular, UnfitFile::Why::TooLong,
                                      UnfitFile::Why::NoLocks};

std::string FileOf(const ContentionRule& rule) {
  return std::string(rule.file.empty() || rule.file == "{what}" ? kWhat : rule.file);
}

class TrueCauses : public ShopTest {
 protected:
  TrueCauses() { environment.log.Open(); }
  // The last box of a wait that fails so and is given up; an empty one when the error came through.
  template <class Error>
  ui::Box BoxOf(const ContentionRule& rule, const Error& error) {
    desktop.boxes.clear();
    desktop.otherwise = [](const ui::Box& box) { return ui::ButtonsOf(box).back(); };
    try {
      Contention contention(rule, desktop, environment, kWhat);
      EXPECT_FALSE(contention.Run([&] { throw error; }));
    } catch (const FileError& surfaced) {
      EXPECT_STREQ(surfaced.what(), error.what()) << "the log and the end of the event have it as it was";
    }
    return desktop.boxes.empty() ? ui::Box() : desktop.boxes.back();
  }
};

TEST_F(TrueCauses, NoWaitBlamesAnotherUserForWhatIsNoLock) {
  for (const auto& [name, rule] : kRules) {
    for (const FileErrorNumber cause : kCauses) {
      const ui::Box box = BoxOf(rule, FileError(cause, "opening something"));
      EXPECT_THAT(box.text, Not(HasSubstr("another user"))) << name;
      EXPECT_THAT(box.text, Not(HasSubstr("another copy"))) << name;
      if (rule.file.empty()) continue;
      EXPECT_THAT(box.text, testing::StartsWith(FileOf(rule) + " can not be used: " + CauseInWords(cause) +
                                                ".\rClick Retry to try again, or Cancel to "))
          << name;
      EXPECT_EQ(box.buttons, ui::Buttons::RetryCancel) << name;
    }
  }
}

TEST_F(TrueCauses, AFileThatIsUnfitSaysSoAtEveryWaitThatAsks) {
  for (const auto& [name, rule] : kRules) {
    const bool isAsked = rule.failures == ContentionRule::Failures::All && !rule.cancelling.empty();
    for (const UnfitFile::Why why : kUnfits) {
      const UnfitFile unfit("/shop/" + FileOf(rule), why);
      const ui::Box box = BoxOf(rule, unfit);
      EXPECT_THAT(box.text, Not(HasSubstr("another user"))) << name;
      EXPECT_THAT(box.text, Not(HasSubstr("another copy"))) << name;
      if (!isAsked) continue;
      EXPECT_THAT(box.text, testing::StartsWith(unfit.Words())) << name;
      EXPECT_THAT(box.text, HasSubstr(FileOf(rule))) << name;
      EXPECT_EQ(box.buttons, ui::Buttons::RetryCancel) << name;
    }
  }
}

TEST_F(TrueCauses, OnlyWhatWaitsForOtherCopiesAloneLetsOtherFailuresThrough) {
  std::vector<std::string_view> letThrough;
  for (const auto& [name, rule] : kRules) {
    if (BoxOf(rule, UnfitFile("/shop/TQSOME.DAT", UnfitFile::Why::LeadsAway)).text.empty()) letThrough.push_back(name);
  }
  EXPECT_THAT(letThrough,
              testing::ElementsAre("kReadUpdateFile", "kMomentsPatience", "kReadWorkorderTags", "kAppendTurn"));
}

TEST_F(TrueCauses, TheRoutinesSayWhatLiesUnderTheNameOfTheirFile) {
  const std::function<void()> routines[] = {
      [&] { records.customers.LoadCustomerTags(); },
      [&] { records.customers.WriteCustomer(); },
      [&] { records.vehicles.OpenVehicleForRead(); },
      [&] { records.vehicles.Write(0, {}); },
      [&] { records.vendors.LoadVendors(); },
      [&] {
        records.inventory.AppendTag({});
        FileLink offset = kNoLink;
        records.inventory.SetLocation(0, 0);
        records.inventory.ReadInventory(offset, 0);
      },
  };
  const std::filesystem::path outside = PathOf("..") / "outside.dat";
  std::ofstream(outside) << "x";
  for (const std::string_view file : {"TQCSTTAG.DAT", "TQVEHICL.DAT", "TQVENDOR.DAT", "TQINVTAG.DAT"}) {
    std::filesystem::create_symlink(outside, PathOf(file));
  }
  for (const auto& routine : routines) {
    desktop.boxes.clear();
    desktop.otherwise = [](const ui::Box& box) { return ui::ButtonsOf(box).back(); };
    try {
      routine();
    } catch (const GivenUp&) {
    }
    ASSERT_EQ(desktop.boxes.size(), 1U);
    EXPECT_THAT(desktop.boxes.back().text, HasSubstr(" is a link that leads out of its directory"));
  }
  std::filesystem::remove(outside);
}

// As the whole program meets it: each routine's own open is refused the lock.
TEST_F(TrueCauses, TheRoutinesSayThatTheirFileCanNotBeLocked) {
  for (const char* file : {"TQCSTTAG.DAT", "TQVEHICL.DAT", "TQVENDOR.DAT"}) Put(file, "");
  FaultyCalls calls(PathOf("."));
  calls.When([](const FileCall& call, std::size_t) { return call.kind == CallKind::Lock ? ENOLCK : 0; });
  const std::pair<std::string, std::function<void()>> routines[] = {
      {"TQCSTTAG.DAT", [&] { records.customers.LoadCustomerTags(); }},
      {"TQVEHICL.DAT", [&] { records.vehicles.OpenVehicleForRead(); }},
      {"TQVENDOR.DAT", [&] { records.vendors.LoadVendors(); }},
  };
  for (const auto& [file, routine] : routines) {
    SCOPED_TRACE(file);
    desktop.boxes.clear();
    desktop.otherwise = [](const ui::Box& box) { return ui::ButtonsOf(box).back(); };
    try {
      routine();
    } catch (const GivenUp&) {
    }
    ASSERT_EQ(desktop.boxes.size(), 1U);
    EXPECT_THAT(
        desktop.boxes[0].text,
        testing::StartsWith(file + " lies where files can't be locked, so it isn't opened: without locks nothing is "
                                   "shared safely.\rHave locking turned on for that drive, or put the data directory "
                                   "on another one.\rClick Retry to try again, or Cancel to "));
  }
}

TEST_F(TrueCauses, ATurnWithoutLocksBlamesNobodyAndCanBeTriedAgain) {
  Put("TQINVTAG.DAT", "tag");
  FaultyCalls calls(PathOf(""));
  calls.When([](const FileCall& call, std::size_t) { return call.kind == CallKind::Lock ? ENOLCK : 0; });
  UpdateTurns turns(PathOf("TQINVTAG.DAT"), clock);
  desktop.WillAnswer(ui::Answer::Cancel);
  try {
    AskedTurn turn(turns, desktop, "TQINVTAG.DAT");
    ADD_FAILURE() << "it was had";
  } catch (const GivenUp& given) {
    EXPECT_STREQ(given.what(), "TQINVTAG.DAT can not be locked. Nothing was changed.");
  }
  EXPECT_EQ(desktop.boxes.at(0).text,
            "TQINVTAG.DAT lies where files can't be locked, so it isn't opened: without locks nothing is shared "
            "safely.\rHave locking turned on for that drive, or put the data directory on another one.\rClick Retry to "
            "try again, or Cancel to change nothing.");
  desktop.WillAnswer([&](const ui::Box&) {
    calls.Mend();
    return ui::Answer::Retry;
  });
  EXPECT_TRUE(AskedTurn(turns, desktop, "TQINVTAG.DAT").IsHad());
}

TEST_F(TrueCauses, OptionsThatAreALinkAFolderOrEndlessSaySo) {
  const auto failureOf = [&] {
    ProfileFile profile = environment.Profile();
    EXPECT_FALSE(profile.Put("Options", "Key", "Value"));
    return InWords(profile.Failure(), "Lantos.ini can not be written");
  };
  std::filesystem::create_symlink("/nowhere/Lantos.ini", PathOf("Lantos.ini"));
  EXPECT_THAT(failureOf(), testing::StartsWith("Lantos.ini is a link that leads out of its directory or nowhere"));
  std::filesystem::remove(PathOf("Lantos.ini"));
  std::filesystem::create_directory(PathOf("Lantos.ini"));
  EXPECT_THAT(failureOf(), testing::StartsWith("Lantos.ini is no file but a folder"));
  std::filesystem::remove(PathOf("Lantos.ini"));
  Put("Lantos.ini", "");
  std::filesystem::resize_file(PathOf("Lantos.ini"), kLongestTextFile + 1);
  EXPECT_THAT(failureOf(), testing::StartsWith("Lantos.ini is longer than such a file can be"));
}

}  // namespace
}  // namespace lantos::test
