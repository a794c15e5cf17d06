// A changed part on its way into the files: what other copies stored meanwhile stays, and alternates stay symmetrical.
#include <fcntl.h>
#include <unistd.h>

#include "InventoryFixture.h"
#include "frame/SharingClaim.h"
#include "records/inventory/PartUpdate.h"

namespace lantos::test {
namespace {

using Four = std::array<std::string, 4>;

class PartUpdate : public InventoryTest {
 protected:
  static PartImage WithAlternates(std::string number, Four alternates) {
    PartImage part = {std::move(number), "PART"};
    part.alternates = std::move(alternates);
    return part;
  }
  Four Of(std::string_view number) {
    const auto part = inventory.Read(inventory.FindPart(number));
    Four four;
    for (std::size_t i = 0; part && i < 4; ++i) four[i] = part->master.Get(inventory::AltNumber[i]);
    return four;
  }
  PartUpdated Update(std::string_view number, const std::function<void(InventoryRecord&)>& change) {
    return UpdatePart(inventory, inventory.FindPart(number), change);
  }
  // What the screen hands over when the four boxes were changed.
  void SetAlternates(std::string_view number, const Four& alternates) {
    Update(number, [&](InventoryRecord& part) {
      for (std::size_t i = 0; i < 4; ++i) part.Put(inventory::AltNumber[i], alternates[i]);
    });
  }
};

TEST_F(PartUpdate, TheTagFollowsTheMasterAndNoOtherByteChanges) {
  PutParts({{"A", "AXLE", {1, 2, 3, 4}, 5}, {"B", "BELT"}});
  std::string tags = BytesOf(kInventoryTagFile);
  std::string masters = BytesOf(kInventoryFile);
  tags.replace(83, 3, "xyz");     // behind all fields
  tags.replace(21 + 5, 2, "zz");  // behind the end of the description
  masters.replace(105 + 5, 2, "zz");
  Put(kInventoryTagFile, tags);
  Put(kInventoryFile, masters);
  EXPECT_EQ(Update("A",
                   [](InventoryRecord& part) {
                     part.Put(inventory::Pricing[3], 999);
                     part.Put(inventory::QtyInStock, -7);
                   }),
            PartUpdated::Yes);
  EXPECT_EQ(BytesOf(kInventoryTagFile), tags.replace(72, 4, std::string("\xE7\3\0\0", 4)).replace(76, 2, "\xF9\xFF"));
  EXPECT_EQ(BytesOf(kInventoryFile), masters.replace(277, 4, std::string("\xE7\3\0\0", 4)).replace(331, 2, "\xF9\xFF"));
  EXPECT_EQ(inventory.CurrentInv.Get(inventory::QtyInStock), -7);
}

TEST_F(PartUpdate, TheDescriptionGoesIntoBothAndABlankOneIsTheNumber) {
  PutParts({{"A", "AXLE"}});
  Update("A", [](InventoryRecord& part) { part.Put(inventory::Description, "AXLE, LONG"); });
  EXPECT_EQ(TagBytes(0), std::string(TagImage({"A", "AXLE, LONG"}, 0)));
  EXPECT_EQ(MasterBytes(0), std::string(MasterImage({"A", "AXLE, LONG"})));
  Update("A", [](InventoryRecord& part) { part.Put(inventory::Description, ""); });
  EXPECT_EQ(TagBytes(0), std::string(TagImage({"A", "A"}, 0)));
  EXPECT_EQ(MasterBytes(0), std::string(MasterImage({"A", "A"})));
}

TEST_F(PartUpdate, StockThatAnotherCopySoldMeanwhileStaysSold) {
  PutParts({{"A", "AXLE", {1, 2, 3, 4}, 10}});
  Read("A");
  Put(kInventoryTagFile, TagImage({"A", "AXLE", {1, 2, 3, 4}, 7}, 0));
  Put(kInventoryFile, MasterImage({"A", "AXLE", {1, 2, 3, 4}, 7}).Long(336, 76));
  Update("A", [](InventoryRecord& part) { part.Put(inventory::Pricing[0], 100); });
  EXPECT_EQ(TagBytes(0), std::string(TagImage({"A", "AXLE", {100, 2, 3, 4}, 7}, 0)));
  EXPECT_EQ(MasterBytes(0), std::string(MasterImage({"A", "AXLE", {100, 2, 3, 4}, 7}).Long(336, 76)))
      << "the usage of that sale stays linked";
}

TEST_F(PartUpdate, AnAlternateThatCameFromAnotherPartMeanwhileStays) {
  PutParts({{"P", "PART"}, {"Q", "PART"}, {"R", "PART"}});
  Read("P");
  SetAlternates("R", {"P"});
  Update("P", [](InventoryRecord& part) { part.Put(inventory::AltNumber[1], "Q"); });
  EXPECT_EQ(Of("P"), (Four{"R", "Q", "", ""}));
  EXPECT_EQ(Of("Q"), Four{"P"});
  EXPECT_EQ(Of("R"), Four{"P"});
}

TEST_F(PartUpdate, AnAlternateThatIsOverwrittenForgetsThePartAlthoughTheScreenNeverSawIt) {
  PutParts({{"P", "PART"}, {"Q", "PART"}, {"R", "PART"}});
  Read("P");
  SetAlternates("R", {"P"});
  Update("P", [](InventoryRecord& part) { part.Put(inventory::AltNumber[0], "Q"); });
  EXPECT_EQ(Of("P"), Four{"Q"});
  EXPECT_EQ(Of("Q"), Four{"P"});
  EXPECT_EQ(Of("R"), Four{});
}

TEST_F(PartUpdate, FourAlternatesAreSetChangedAndCleared) {
  PutParts({{"P", "PART"}, {"A", "PART"}, {"B", "PART"}, {"C", "PART"}, {"D", "PART"}});
  SetAlternates("P", {"A", "B", "C", "D"});
  for (const char* each : {"A", "B", "C", "D"}) EXPECT_EQ(Of(each), Four{"P"});
  SetAlternates("P", {"", "B", "D", ""});
  EXPECT_EQ(Of("P"), (Four{"", "B", "D", ""}));
  for (const char* each : {"A", "C"}) EXPECT_EQ(Of(each), Four{});
  for (const char* each : {"B", "D"}) EXPECT_EQ(Of(each), Four{"P"});
  SetAlternates("P", {});
  for (const char* each : {"A", "B", "C", "D"}) EXPECT_EQ(Of(each), Four{});
}

TEST_F(PartUpdate, AlternatesThatChangePlacesStayAlternates) {
  PutParts({WithAlternates("P", {"A", "B"}), WithAlternates("A", {"P"}), WithAlternates("B", {"P"})});
  SetAlternates("P", {"B", "A"});
  EXPECT_EQ(Of("A"), Four{"P"});
  EXPECT_EQ(Of("B"), Four{"P"});
}

TEST_F(PartUpdate, OneAlternateInTwoFieldsIsForgottenWithTheLastOfThem) {
  PutParts({{"P", "PART"}, {"A", "PART"}});
  SetAlternates("P", {"A", "A"});
  EXPECT_EQ(Of("A"), Four{"P"});
  SetAlternates("P", {"", "A"});
  EXPECT_EQ(Of("A"), Four{"P"});
  SetAlternates("P", {});
  EXPECT_EQ(Of("A"), Four{});
}

TEST_F(PartUpdate, APartMayBeItsOwnAlternateAndCeaseToBe) {
  PutParts({{"P", "PART"}});
  SetAlternates("P", {"P", "P"});
  EXPECT_EQ(Of("P"), (Four{"P", "P"}));
  SetAlternates("P", {"", "P"});
  EXPECT_EQ(Of("P"), (Four{"", "P"}));
  SetAlternates("P", {});
  EXPECT_EQ(Of("P"), Four{});
}

TEST_F(PartUpdate, TheWorkingRecordsAreThePartWhileItsAlternatesAreWritten) {
  PutParts({{"P", "PART"}, {"A", "PART"}});
  SetAlternates("P", {"A"});
  EXPECT_EQ(inventory.CurrentInv.Get(inventory::StockNumber), "P");
  EXPECT_EQ(inventory.CurrentInvTag.Get(inventorytag::StockNumber), "P");
}

TEST_F(PartUpdate, TheOthersAreToldOfThePartAndOfEachAlternateThatWasWritten) {
  PutParts({{"P", "PART"}, WithAlternates("A", {"P"}), {"B", "PART"}});
  std::vector<std::string> told;
  inventory.onBroadcast = [&](const InventoryTag& tag) { told.push_back(tag.Get(inventorytag::StockNumber)); };
  SetAlternates("P", {"A", "B"});
  EXPECT_EQ(told, (std::vector<std::string>{"P", "B"})) << "A names the part already";
}

TEST_F(PartUpdate, ThePartThatHasACoreSinceThisChangeGetsItAndNoOther) {
  PartImage starter = {"STARTER", "STARTER MOTOR"};
  starter.hasCore = true;
  PutParts({starter, {"PUMP", "PUMP"}});
  Update("STARTER", [](InventoryRecord& part) { part.Put(inventory::CoreCost, 100); });
  EXPECT_EQ(inventory.Count(), 2) << "it had a core before";
  Update("PUMP", [](InventoryRecord& part) {
    part.Put(inventory::HasACore, 1);
    part.Put(inventory::CoreCost, 1500);
  });
  ASSERT_EQ(inventory.Count(), 3);
  EXPECT_EQ(inventory.PartPrices("PUMP/C").byLevel[0], 1500);
  Update("PUMP", [](InventoryRecord& part) { part.Put(inventory::CoreCost, 1600); });
  EXPECT_EQ(inventory.PartPrices("PUMP/C").byLevel[0], 1500);
  Update("PUMP", [](InventoryRecord& part) { part.Put(inventory::HasACore, 0); });
  EXPECT_EQ(inventory.Count(), 3) << "the core outlives the mark";
  Update("PUMP", [](InventoryRecord& part) { part.Put(inventory::HasACore, 1); });
  EXPECT_EQ(inventory.PartPrices("PUMP/C").byLevel[0], 1600);
}

TEST_F(PartUpdate, APartThatWentMeanwhileIsNotBroughtBack) {
  PutParts({{"A", "AXLE"}});
  Read("A");
  Put(kInventoryTagFile, TagImage({"", "AXLE"}, 0));
  Put(kInventoryFile, MasterImage({"A", "AXLE"}).Text(335, "\1"));
  const auto before = Everything();
  EXPECT_EQ(Update("A", [](InventoryRecord& part) { part.Put(inventory::CoreCost, 1); }), PartUpdated::WasDeleted);
  EXPECT_EQ(Everything(), before);
}

TEST_F(PartUpdate, APartThatCanNotBeReadIsNotWrittenAndTheWorkingRecordsStay) {
  PutParts({{"A", "AXLE"}});
  Read("A");
  const InventoryRecord working = inventory.CurrentInv;
  const auto before = Everything();
  {
    const SharedFile held = HeldByAnother(kInventoryFile);
    desktop.WillAnswer(ui::Answer::Cancel);
    EXPECT_EQ(Update("A", [](InventoryRecord& part) { part.Put(inventory::CoreCost, 1); }), PartUpdated::GivenUp);
  }
  EXPECT_EQ(desktop.boxes[0].title, "ReadInventory");
  EXPECT_EQ(BytesOf(kInventoryFile), before.at(std::string(kInventoryFile)));
  EXPECT_EQ(inventory.CurrentInv, working);
}

// The byte that says whose turn it is, held as another process would hold it.
class TurnOfAnother {
 public:
  explicit TurnOfAnother(const std::filesystem::path& path) : descriptor_(::open(path.c_str(), O_RDWR)) {
    EXPECT_TRUE(IsFree());
  }
  ~TurnOfAnother() { ::close(descriptor_); }
  TurnOfAnother(const TurnOfAnother&) = delete;
  bool IsFree() const {
    struct flock turn = {};
    turn.l_type = F_WRLCK;
    turn.l_whence = SEEK_SET;
    turn.l_start = static_cast<off_t>(kUpdateTurn);
    turn.l_len = 1;
    return ::fcntl(descriptor_, F_OFD_SETLK, &turn) == 0;
  }

 private:
  int descriptor_;
};

TEST_F(PartUpdate, WaitsForTheTurnOfAnotherCopyAndReadsBehindIt) {
  PutParts({{"A", "AXLE", {}, 10}});
  std::optional<TurnOfAnother> turn(PathOf(kInventoryTagFile));
  patience.onWait = [&] {
    if (!turn) return;
    Put(kInventoryTagFile, TagImage({"A", "AXLE", {}, 4}, 0));
    Put(kInventoryFile, MasterImage({"A", "AXLE", {}, 4}));
    turn.reset();
  };
  Update("A", [](InventoryRecord& part) { part.Put(inventory::CoreCost, 5); });
  EXPECT_FALSE(turn);
  EXPECT_EQ(MasterBytes(0), std::string(MasterImage({"A", "AXLE", {}, 4}).Long(320, 5)));
}

TEST_F(PartUpdate, ANewPartTakesItsPlaceInItsTurn) {
  PutParts({{"A", "AXLE"}});
  std::optional<TurnOfAnother> turn(PathOf(kInventoryTagFile));
  patience.onWait = [&] {
    if (!turn) return;
    Put(kInventoryTagFile, Image(TagImage({"A", "AXLE"}, 0)).Append(TagImage({"B", "B"}, 344)));
    Put(kInventoryFile, Image(MasterImage({"A", "AXLE"})).Append(MasterImage({"B", "B"})));
    turn.reset();
  };
  Inventory::PartIndex index = Inventory::kNoPart;
  inventory.NewInventoryPart("C", index);
  EXPECT_EQ(inventory.CurrentInvTag.Get(inventorytag::Tag), 688);
  EXPECT_EQ(TagBytes(2), std::string(TagImage({"C", "C"}, 688)));
}

}  // namespace
}  // namespace lantos::test
