// Alternate part numbers, kept symmetrical.
#include "InventoryFixture.h"
#include "records/inventory/InventoryLayout.h"

namespace lantos::test {
namespace {

class Alternates : public InventoryTest {
 protected:
  using Four = std::array<std::string, 4>;
  static PartImage WithAlternates(std::string number, Four alternates) {
    PartImage part = {std::move(number), "PART"};
    part.alternates = std::move(alternates);
    return part;
  }
  // As they stand in the file.
  Four Of(std::string_view number) {
    Read(number);
    Four four;
    for (std::size_t i = 0; i < 4; ++i) four[i] = inventory.CurrentInv.Get(inventory::AltNumber[i]);
    return four;
  }
};

TEST_F(Alternates, ANewAlternateGetsThePartIntoItsFirstBlankPlace) {
  PutParts({{"P", "PART"}, WithAlternates("Q", {"X", "", "Y", ""})});
  inventory.CrossReferenceAlternate(" P ", "", "  Q ");
  EXPECT_EQ(Of("Q"), (Four{"X", "P", "Y", ""}));
  EXPECT_EQ(Of("P"), Four{}) << "the part itself is its screen's to write";
}

TEST_F(Alternates, AnAlternateThatNamesThePartAlreadyIsLeftAlone) {
  PutParts({{"P", "PART"}, WithAlternates("Q", {"X", "P", "", ""})});
  const auto before = Everything();
  inventory.onBroadcast = [](const InventoryTag&) { ADD_FAILURE() << "nothing was written"; };
  inventory.CrossReferenceAlternate("P", "", "Q");
  EXPECT_EQ(Everything(), before);
}

TEST_F(Alternates, AnAlternateThatWentForgetsThePartInEveryPlace) {
  PutParts({{"P", "PART"}, WithAlternates("Q", {"P", "X", "P", "p"})});
  inventory.CrossReferenceAlternate("P", "Q", "");
  EXPECT_EQ(Of("Q"), (Four{"", "X", "", "p"}));
}

TEST_F(Alternates, AnAlternateThatWentWithoutNamingThePartIsNotWritten) {
  PutParts({{"P", "PART"}, WithAlternates("Q", {"X", "", "", ""})});
  const auto before = Everything();
  inventory.CrossReferenceAlternate("P", "Q", "");
  EXPECT_EQ(Everything(), before);
}

TEST_F(Alternates, TheOldOneIsMendedBeforeTheNewOne) {
  PutParts({{"P", "PART"}, WithAlternates("OLD", {"P", "", "", ""}), {"NEW", "PART"}});
  std::vector<std::string> told;
  inventory.onBroadcast = [&](const InventoryTag& tag) { told.push_back(tag.Get(inventorytag::StockNumber)); };
  inventory.CrossReferenceAlternate("P", "OLD", "NEW");
  EXPECT_EQ(told, (std::vector<std::string>{"OLD", "NEW"}));
  EXPECT_EQ(Of("OLD"), Four{});
  EXPECT_EQ(Of("NEW"), (Four{"P", "", "", ""}));
}

TEST_F(Alternates, UnknownAndBlankNumbersAreNobodysBusiness) {
  PutParts({{"P", "PART"}, {"", "GONE"}});
  const auto before = Everything();
  inventory.CrossReferenceAlternate("P", "NONE", "NOBODY");
  inventory.CrossReferenceAlternate("P", "  ", "");
  EXPECT_EQ(Everything(), before);
}

TEST_F(Alternates, TheFifthAlternateOnAPartBringsAMessageAndLeavesThePartUnchanged) {
  PutParts({{"P", "PART"}, WithAlternates("Q", {"A", "B", "C", "D"})});
  const auto before = Everything();
  desktop.WillAnswer(ui::Answer::Ok);
  inventory.CrossReferenceAlternate("P", "", " Q ");
  ASSERT_EQ(desktop.boxes.size(), 1U);
  ExpectBox(desktop.boxes[0], "Cross Reference Alternate Parts", "Too many alternate parts on record for Q",
            ui::Buttons::Ok, ui::Icon::None);
  EXPECT_EQ(Everything(), before);
}

TEST_F(Alternates, TheOtherPartsCoreIsNotTouchedAndTheWorkingRecordsComeBack) {
  PartImage other = WithAlternates("Q", {});
  other.hasCore = true;
  PutParts({{"P", "PART"}, other});
  Read("P");
  inventory.CurrentInv.Put(inventory::Comment, "not saved yet");
  const InventoryRecord working = inventory.CurrentInv;
  const InventoryRecord original = inventory.OriginalInv;
  inventory.CrossReferenceAlternate("P", "", "Q");
  EXPECT_EQ(inventory.Count(), 2);
  EXPECT_EQ(inventory.CurrentInv, working);
  EXPECT_EQ(inventory.OriginalInv, original);
  EXPECT_EQ(inventory.CurrentInvTag.Get(inventorytag::StockNumber), "P");
}

TEST_F(Alternates, APartThatCanNotBeReadIsLeftOut) {
  PutParts({{"P", "PART"}, WithAlternates("OLD", {"P", "", "", ""}), {"NEW", "PART"}});
  Read("OLD");
  Read("NEW");
  const std::string before = BytesOf(kInventoryFile);
  {
    const SharedFile held = HeldByAnother(kInventoryFile);
    desktop.WillAnswer({ui::Answer::Cancel, ui::Answer::Cancel});
    inventory.CrossReferenceAlternate("P", "OLD", "NEW");
  }
  EXPECT_EQ(BytesOf(kInventoryFile), before);
}

}  // namespace
}  // namespace lantos::test
