// The golden update file.
#include "BroadcastFixture.h"
#include "records/inventory/MailboxIntake.h"
#include "records/inventory/OutgoingChanges.h"

namespace lantos::test {
namespace {

// On the stock that was made without the program too.
class GoldenMailbox : public BroadcastTest {
 protected:
  GoldenMailbox() {
    PutGolden();
    LoadList();
  }
  static constexpr const char* kGolden = "AU9301.$$$";
};

TEST_F(GoldenMailbox, ReadsAsItWasMade) {
  Put(kMine, GoldenBytes(kGolden));
  Mailbox box(world);
  MailboxIntake intake(world, desktop, inventory, box);
  const Inventory::PartIndex count = inventory.Count();
  EXPECT_EQ(intake.ProcessInventoryUpdates(), Mailbox::Left::Nothing);
  EXPECT_EQ(inventory.PartPrices("PF47").byLevel, (std::array{320, 430, 510, 719}));
  EXPECT_EQ(inventory.PartInStock("PF47"), 10);
  EXPECT_EQ(inventory.FindPart("B\xC4LG 7"), count);
  EXPECT_EQ(inventory.PartInStock("B\xC4LG 7"), -32768);
  EXPECT_EQ(inventory.PartPrices("B\xC4LG 7").byLevel[3], -1);
  EXPECT_EQ(inventory.PartInStock("STARTER"), 2) << "what stands behind a text's end doesn't count";
  EXPECT_EQ(inventory.Count(), count + 1);
}

TEST_F(GoldenMailbox, IsWrittenByteForByteWhenItsChangesAreTold) {
  Put(kPeer, "");
  OutgoingChanges changes(world, desktop);
  const std::string golden = GoldenBytes(kGolden);
  for (std::size_t at = 0; at < golden.size(); at += 128) changes.AddAuditRecord(TagOf(golden.substr(at, 128)));
  PassSeconds(1);
  changes.SendDue();
  EXPECT_EQ(BytesOf(kPeer), golden);
}

}  // namespace
}  // namespace lantos::test
