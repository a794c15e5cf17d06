// The list of parts in memory, and its look-ups.
#include <random>

#include "InventoryFixture.h"
#include "records/inventory/Inventory.h"

namespace lantos::test {
namespace {

class InventoryList : public InventoryTest {
 protected:
  // What the index must agree with.
  Inventory::PartIndex SeekOneByOne(std::string_view number) const {
    for (Inventory::PartIndex i = 0; i < inventory.Count(); ++i) {
      if (inventory.Tag(i).Get(inventorytag::StockNumber) == number) return i;
    }
    return Inventory::kNoPart;
  }
};

TEST_F(InventoryList, IsEmptyUntilTagsAreAppendedInFileOrder) {
  Put(kInventoryTagFile, std::string(3 * 128, 'x'));
  inventory.SizeArrays();
  EXPECT_EQ(inventory.Count(), 0);
  EXPECT_EQ(inventory.AppendTag(NamedTag("B")), 0);
  EXPECT_EQ(inventory.AppendTag(NamedTag("A")), 1);
  EXPECT_EQ(inventory.Count(), 2);
  EXPECT_EQ(inventory.Tag(0).Get(inventorytag::StockNumber), "B");
  EXPECT_EQ(inventory.Location(0), kNoLink);
  EXPECT_EQ(inventory.Location(1), kNoLink);
}

TEST_F(InventoryList, AnAppendedTagHasItsTextsTrimmedAndEverythingElseAsItWas) {
  InventoryTag tag = TagOf(std::string(128, '\x5A'));
  tag.Put(inventorytag::StockNumber, std::string("  PF 47  \0old bytes", 18));
  tag.Put(inventorytag::Description, "  OIL FILTER   ");
  inventory.AppendTag(tag);
  InventoryTag expected = tag;
  expected.Put(inventorytag::StockNumber, "PF 47");
  expected.Put(inventorytag::Description, "OIL FILTER");
  EXPECT_EQ(inventory.Tag(0), expected);
}

TEST_F(InventoryList, AnEmptyOrMissingTagFileGivesAnEmptyListThatStillGrows) {
  inventory.SizeArrays();
  EXPECT_EQ(inventory.FindPart("A"), Inventory::kNoPart);
  for (int i = 0; i < 3000; ++i) inventory.AppendTag(NamedTag("P" + std::to_string(i)));
  EXPECT_EQ(inventory.Count(), 3000);
  EXPECT_EQ(inventory.FindPart("P0"), 0);
  EXPECT_EQ(inventory.FindPart("P2999"), 2999);
}

TEST_F(InventoryList, ATagOfTheListItselfCanBeAppended) {
  inventory.SizeArrays();
  inventory.AppendTag(NamedTag("A", "FIRST"));
  for (int i = 0; i < 5000; ++i) inventory.AppendTag(inventory.Tag(0));
  EXPECT_EQ(inventory.Tag(5000), inventory.Tag(0));
}

TEST_F(InventoryList, FindPartComparesTheTrimmedNumberExactly) {
  PutParts({{"ABC"}, {"abc"}, {"ABC 1"}, {"123456789012345678901"}});
  EXPECT_EQ(inventory.FindPart("ABC"), 0);
  EXPECT_EQ(inventory.FindPart("  ABC  "), 0);
  EXPECT_EQ(inventory.FindPart("abc"), 1);
  EXPECT_EQ(inventory.FindPart("Abc"), Inventory::kNoPart);
  EXPECT_EQ(inventory.FindPart("AB"), Inventory::kNoPart);
  EXPECT_EQ(inventory.FindPart("ABC1"), Inventory::kNoPart);
  EXPECT_EQ(inventory.FindPart("ABC 1"), 2);
  EXPECT_EQ(inventory.FindPart("123456789012345678901"), 3) << "a number of the field's whole width";
  EXPECT_EQ(inventory.FindPart("1234567890123456789012"), Inventory::kNoPart);
  EXPECT_EQ(inventory.FindPart("\xC4"), Inventory::kNoPart);
}

TEST_F(InventoryList, NoPartIsFoundUnderABlankNumberThoughDeletedPartsHaveOne) {
  PutParts({{"", "GONE"}, {"A"}});
  EXPECT_EQ(inventory.Count(), 2);
  EXPECT_EQ(inventory.FindPart(""), Inventory::kNoPart);
  EXPECT_EQ(inventory.FindPart("   "), Inventory::kNoPart);
  EXPECT_EQ(inventory.FindPart(std::string(3, '\0')), Inventory::kNoPart);
}

TEST_F(InventoryList, OfTwoPartsOfOneNumberTheFirstInFileOrderIsFound) {
  PutParts({{"X"}, {"TWIN", "first"}, {"TWIN", "second"}, {"TWIN", "third"}});
  EXPECT_EQ(inventory.FindPart("TWIN"), 1);
  inventory.ReplaceTag(1, NamedTag("OTHER"));
  EXPECT_EQ(inventory.FindPart("TWIN"), 2);
  inventory.ReplaceTag(0, NamedTag("TWIN"));
  EXPECT_EQ(inventory.FindPart("TWIN"), 0);
}

TEST_F(InventoryList, AReplacedTagIsFoundByItsNewNumberAndNoLongerByItsOld) {
  PutParts({{"A"}, {"B", "BELT"}, {"C"}});
  inventory.ReplaceTag(1, NamedTag("  B2 ", " BELT, LONG "));
  EXPECT_EQ(inventory.FindPart("B"), Inventory::kNoPart);
  EXPECT_EQ(inventory.FindPart("B2"), 1);
  EXPECT_EQ(inventory.PartDescription("B2"), "BELT, LONG");
  EXPECT_EQ(inventory.FindPart("A"), 0);
  EXPECT_EQ(inventory.FindPart("C"), 2);
  inventory.ReplaceTag(1, NamedTag(""));
  EXPECT_EQ(inventory.FindPart("B2"), Inventory::kNoPart);
}

TEST_F(InventoryList, ManyChangesOfNumbersOneByOneLeaveEveryPartToBeFound) {
  for (int i = 0; i < 200; ++i) inventory.AppendTag(NamedTag("P" + std::to_string(i)));
  ASSERT_EQ(inventory.FindPart("P199"), 199);
  for (int i = 0; i < 2000; ++i) {
    const int part = (i * 37) % 200;
    const std::string before = inventory.Tag(part).Get(inventorytag::StockNumber);
    inventory.ReplaceTag(part, NamedTag("N" + std::to_string(i)));
    ASSERT_EQ(inventory.FindPart("N" + std::to_string(i)), part);
    ASSERT_EQ(inventory.FindPart(before), Inventory::kNoPart);
  }
  for (int part = 0; part < 200; ++part) {
    EXPECT_EQ(inventory.FindPart(inventory.Tag(part).View(inventorytag::StockNumber)), part);
  }
}

TEST_F(InventoryList, APartThatTakesTheNumberOfALaterOneIsFoundAheadOfIt) {
  for (const char* number : {"A", "B", "C"}) inventory.AppendTag(NamedTag(number));
  ASSERT_EQ(inventory.FindPart("C"), 2);
  inventory.ReplaceTag(0, NamedTag("C"));
  EXPECT_EQ(inventory.FindPart("C"), 0);
  inventory.ReplaceTag(0, NamedTag("A"));
  EXPECT_EQ(inventory.FindPart("C"), 2);
  EXPECT_EQ(inventory.FindPart("A"), 0);
}

TEST_F(InventoryList, AReplacedTagOfTheSameNumberIsFoundWithItsNewPrices) {
  PutParts({{"A", "AXLE", {1, 2, 3, 4}, 5}});
  InventoryTag tag = inventory.Tag(0);
  tag.Put(inventorytag::InStock, 77);
  inventory.ReplaceTag(0, tag);
  EXPECT_EQ(inventory.FindPart("A"), 0);
  EXPECT_EQ(inventory.PartInStock("A"), 77);
}

TEST_F(InventoryList, SizingAnewForgetsTheList) {
  PutParts({{"A"}, {"B"}});
  inventory.SizeArrays();
  EXPECT_EQ(inventory.Count(), 0);
  EXPECT_EQ(inventory.FindPart("A"), Inventory::kNoPart);
}

TEST_F(InventoryList, TheIndexAgreesWithASearchOneByOneWhateverHappensToTheList) {
  std::mt19937 random(20030930);
  inventory.SizeArrays();
  const auto number = [&] { return "N" + std::to_string(random() % 300); };
  for (int step = 0; step < 2000; ++step) {
    if (inventory.Count() < 10 || random() % 3 == 0) {
      inventory.AppendTag(NamedTag(random() % 20 == 0 ? "" : number()));
    } else if (random() % 4 == 0) {
      const auto index = static_cast<Inventory::PartIndex>(random() % static_cast<unsigned>(inventory.Count()));
      inventory.ReplaceTag(index, NamedTag(random() % 5 == 0 ? "" : number()));
    }
    const std::string sought = number();
    ASSERT_EQ(inventory.FindPart(sought), SeekOneByOne(sought)) << sought << " at step " << step;
  }
}

TEST_F(InventoryList, PartPricingGivesCostThePriceAtTheLevelInForceAndTheStock) {
  PutParts({{"X"}, {"PF47", "OIL FILTER", {310, 420, 500, 699}, -12}});
  EXPECT_EQ(inventory.pricingLevel, kRetail);
  const auto at = [&](int level) {
    inventory.pricingLevel = level;
    return inventory.PartPricing(" PF47 ");
  };
  for (int level = 0; level < 4; ++level) {
    const Inventory::Pricing pricing = at(level);
    EXPECT_EQ(pricing.index, 1);
    EXPECT_EQ(pricing.cost, 310);
    EXPECT_EQ(pricing.atLevel, (std::array{310, 420, 500, 699}[static_cast<std::size_t>(level)]));
    EXPECT_EQ(pricing.onHand, -12);
  }
  EXPECT_EQ(inventory.PartPricing("PF48").index, Inventory::kNoPart);
  EXPECT_EQ(inventory.PartPricing("PF48").atLevel, 0);
}

TEST_F(InventoryList, ALevelThatIsNoneOfTheFourIsRetail) {
  PutParts({{"A", "AXLE", {1, 2, 3, 4}}});
  for (const int level : {-1, 4, 32767, -32768}) {
    inventory.pricingLevel = level;
    EXPECT_EQ(inventory.pricingLevel, kRetail);
    EXPECT_EQ(inventory.PartPricing("A").atLevel, 4);
  }
}

TEST_F(InventoryList, TheOtherLookUpsKnowNothingOfAnUnknownPart) {
  PutParts({{"PF47", "  OIL FILTER ", {310, 420, 500, 699}, 12}});
  EXPECT_EQ(inventory.PartDescription("PF47"), "OIL FILTER");
  EXPECT_EQ(inventory.PartInStock("PF47"), 12);
  const Inventory::Prices prices = inventory.PartPrices("PF47");
  EXPECT_EQ(prices.index, 0);
  EXPECT_EQ(prices.byLevel, (std::array{310, 420, 500, 699}));
  EXPECT_EQ(inventory.PartDescription("PF48"), "");
  EXPECT_EQ(inventory.PartInStock("PF48"), 0);
  EXPECT_EQ(inventory.PartPrices("PF48").index, Inventory::kNoPart);
  EXPECT_EQ(inventory.PartPrices("PF48").byLevel, (std::array<Cents, 4>{}));
}

TEST(PriceLevels, HaveTheirFourNamesInOrder) {
  EXPECT_EQ(kPriceLevelNames, (std::array<std::string_view, 4>{"Cost", "Wholesale", "Resale", "Retail"}));
}

}  // namespace
}  // namespace lantos::test
