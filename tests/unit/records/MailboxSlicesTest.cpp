// Much that comes at once is taken in by slices of time.
#include "BroadcastFixture.h"
#include "records/inventory/MailboxIntake.h"

namespace lantos::test {
namespace {

class MailboxSlices : public BroadcastTest {
 protected:
  MailboxSlices() { PutParts({{"A", "AXLE", {1, 2, 3, 4}, 10}}); }
  static std::string AxleWith(std::int16_t stock) { return TagImage({"A", "AXLE", {1, 2, 3, 4}, stock}, 0); }
  std::int16_t StockOf(std::string_view number) const { return inventory.PartInStock(number); }
};

// A clock that goes on with each look at it.
class GoingClock : public StandingClock {
 public:
  using StandingClock::StandingClock;
  LocalTime Now() const override {
    const_cast<GoingClock*>(this)->MoveOn(6);
    return StandingClock::Now();
  }
};

TEST_F(MailboxSlices, MuchIsTakenInBySlicesAndTheFileIsHeldMeanwhile) {
  std::string mail;
  for (int i = 0; i < 300; ++i) mail += AxleWith(static_cast<std::int16_t>(2000 - i));
  Put(kMine, mail);
  GoingClock going{patience.Now()};
  Environment environmentThatGoes{going, settings};
  environmentThatGoes.files.SetDataDir(world.files.DataDir());
  environmentThatGoes.updateFileName = kMine;
  Mailbox box(environmentThatGoes);
  MailboxIntake slices(environmentThatGoes, desktop, inventory, box);
  int calls = 1;
  for (; slices.ProcessInventoryUpdates() == Mailbox::Left::More; ++calls) {
    ASSERT_LT(calls, 100);
    EXPECT_EQ(BytesOf(kMine).size(), mail.size());
    EXPECT_THROW(HeldByAnother(kMine, Access::Write, Deny::None), FileError);
    EXPECT_NO_THROW(HeldByAnother(kInventoryTagFile)) << "writers of parts can go on between two slices";
  }
  EXPECT_GT(calls, 2);
  EXPECT_EQ(StockOf("A"), 1701);
  EXPECT_EQ(BytesOf(kMine), "");
}

}  // namespace
}  // namespace lantos::test
