#include "frame/UpdateTurns.h"

#include <gtest/gtest.h>

#include "frame/ScratchDirectory.h"
#include "frame/SharedFile.h"

namespace lantos {
namespace {

using test::ScratchDirectory;

// How long it waits for its turn, in milliseconds.
std::int64_t WaitOf(UpdateTurns& turns, StandingClock& clock) {
  const LocalTime before = clock.Now();
  const UpdateTurns::Turn turn(turns);
  return clock.Now().MillisecondsSince(before);
}

struct TwoCopies {
  TwoCopies() { directory.Put("TQINVTAG.DAT", "tag"); }
  ScratchDirectory directory;
  StandingClock clock{*ParseLocalTime("2003-09-30T08:15:00")};
};

TEST(UpdateTurns, OneAfterTheOtherAndNoLongerThanSomeSeconds) {
  TwoCopies shop;
  UpdateTurns one(shop.directory / "TQINVTAG.DAT", shop.clock);
  UpdateTurns other(shop.directory / "TQINVTAG.DAT", shop.clock);
  EXPECT_EQ(WaitOf(other, shop.clock), 0);
  {
    const UpdateTurns::Turn turn(one);
    EXPECT_EQ(WaitOf(other, shop.clock), 5000);
    EXPECT_FALSE(UpdateTurns::Turn(other).IsHad()) << "who has waited in vain has no turn";
  }
  EXPECT_EQ(WaitOf(other, shop.clock), 0) << "the first one's ended with its scope";
}

TEST(UpdateTurns, KeepNobodyFromOpeningTheFile) {
  TwoCopies shop;
  UpdateTurns turns(shop.directory / "TQINVTAG.DAT", shop.clock);
  const UpdateTurns::Turn turn(turns);
  EXPECT_NO_THROW(SharedFile(shop.directory / "TQINVTAG.DAT", Access::ReadWrite, Deny::All, Absent::Fail));
  EXPECT_NO_THROW(SharedFile(shop.directory / "TQINVTAG.DAT", Access::Read, Deny::None, Absent::Fail));
}

TEST(UpdateTurns, AreNoneWithoutTheFile) {
  TwoCopies shop;
  UpdateTurns one(shop.directory / "NONE.DAT", shop.clock);
  UpdateTurns other(shop.directory / "NONE.DAT", shop.clock);
  const UpdateTurns::Turn turn(one);
  EXPECT_EQ(WaitOf(other, shop.clock), 0);
  EXPECT_FALSE(std::filesystem::exists(shop.directory / "NONE.DAT"));
}

}  // namespace
}  // namespace lantos
