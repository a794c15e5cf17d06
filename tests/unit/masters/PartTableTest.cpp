#include "masters/inventory/PartTable.h"

#include <gtest/gtest.h>

#include <random>
#include <set>

#include "admin/TestShop.h"
#include "masters/inventory/PartOrder.h"
#include "records/inventory/Inventory.h"

namespace lantos {
namespace {

using Texts = std::vector<std::string>;

TEST(ComputeSortKey, PartNumbersInDashedFormsStandUnderTheirBase) {
  EXPECT_EQ(ComputeSortKey("1-234-567-89"), "1-567-234-89");
  EXPECT_EQ(ComputeSortKey("A-BCD-EFG-HI"), "A-EFG-BCD-HI");
  EXPECT_EQ(ComputeSortKey("123-456-789"), "456-123-789");
  EXPECT_EQ(ComputeSortKey("ABC-DEF-GHI"), "DEF-ABC-GHI");
}

TEST(ComputeSortKey, OthersKeepTheirForm) {
  for (const char* number : {"123456789", "AB-CD", "ABC-DEFG-HI", "A-BC-DEF-GH", ""}) {
    EXPECT_EQ(ComputeSortKey(number), number);
  }
}

TEST(ComputeSortKey, QuotesBecomeOtherCharacters) { EXPECT_EQ(ComputeSortKey("1\"X'2"), "1|X~2"); }

struct TableBench : test::TestShop {
  TableBench() { records.inventory.SizeArrays(); }
  void Add(std::string_view number, std::string_view description, std::uint8_t stocked = 1) {
    InventoryTag tag;
    tag.Put(inventorytag::StockNumber, number);
    tag.Put(inventorytag::Description, description);
    tag.Put(inventorytag::IsStocked, stocked);
    table.Add(records.inventory.AppendTag(tag));
  }
  bool Change(Inventory::PartIndex part, std::string_view number, std::string_view description,
              std::uint8_t stocked = 1) {
    const InventoryTag before = records.inventory.Tag(part);
    InventoryTag tag = before;
    tag.Put(inventorytag::StockNumber, number);
    tag.Put(inventorytag::Description, description);
    tag.Put(inventorytag::IsStocked, stocked);
    tag.Put(inventorytag::InStock, 77);
    records.inventory.ReplaceTag(part, tag);
    return table.Replace(part, before);
  }
  Texts Rows() const {
    Texts rows;
    for (std::size_t row = 0; row < table.MatchCount(); ++row) {
      rows.push_back(records.inventory.Tag(table.At(row)).Get(inventorytag::StockNumber));
    }
    return rows;
  }
  PartTable table{records.inventory};
};

TEST(PartTable, RowsComeInTheOrderOfTheirKeysAlsoThoseAddedLater) {
  TableBench bench;
  bench.Add("B-222-111-X", "HOSE");
  bench.Add("a1", "BELT");
  EXPECT_EQ(bench.Rows(), (Texts{"a1", "B-222-111-X"}));
  bench.Add("B-000-000-X", "CLAMP");
  EXPECT_EQ(bench.Rows(), (Texts{"a1", "B-000-000-X", "B-222-111-X"}));
}

TEST(PartTable, FewRowsAmongManyFindTheirPlacesInEveryOrder) {
  for (const PartSort sort : {PartSort::ByKey, PartSort::ByPart, PartSort::ByPartDown, PartSort::ByDescription,
                              PartSort::ByDescriptionDown}) {
    TableBench bench;
    bench.table.SetSort(sort);
    for (int i = 0; i < 50; ++i) bench.Add("N" + std::to_string(10 + i), "D" + std::to_string((i * 7) % 50));
    ASSERT_EQ(bench.Rows().size(), 50U);
    for (const char* number : {"N99", "A1", "N305", "N30"}) bench.Add(number, number);
    const Texts merged = bench.Rows();
    bench.table.SetSort(sort);
    EXPECT_EQ(merged, bench.Rows()) << "as a sort of all puts them";
  }
}

TEST(PartTable, APartThatIsAnotherNowGoesWhereItsKeyPutsIt) {
  TableBench bench;
  for (const char* number : {"B1", "C1", "D1", "E1"}) bench.Add(number, "BELT");
  ASSERT_EQ(bench.Rows().front(), "B1");
  EXPECT_TRUE(bench.Change(0, "F1", "BELT"));
  EXPECT_EQ(bench.Rows(), (Texts{"C1", "D1", "E1", "F1"}));
  EXPECT_TRUE(bench.Change(3, "A1", "BELT"));
  EXPECT_TRUE(bench.Change(1, "G1", "BELT"));
  EXPECT_EQ(bench.Rows(), (Texts{"A1", "D1", "F1", "G1"}));
}

TEST(PartTable, FiguresAloneMoveNoRow) {
  TableBench bench;
  bench.Add("B1", "BELT");
  EXPECT_FALSE(bench.Change(0, "B1", "BELT"));
  EXPECT_TRUE(bench.Change(0, "B1", "BELTS"));
  EXPECT_TRUE(bench.Change(0, "B1", "BELTS", 0));
}

TEST(PartTable, APartThatIsAnotherNowIsHeldToTheFilter) {
  TableBench bench;
  for (const char* number : {"B1", "C1"}) bench.Add(number, "BELT");
  bench.table.SetFilter({"", "BELT", {}});
  ASSERT_EQ(bench.Rows().size(), 2U);
  bench.Change(0, "B1", "CLAMP");
  EXPECT_EQ(bench.Rows(), (Texts{"C1"}));
}

TEST(PartTable, PartsWithoutANumberStandAtTheEnd) {
  TableBench bench;
  bench.Add("", "NAMELESS");
  bench.Add("~~~~", "LAST OF THE NUMBERS");
  bench.Add("A1", "BELT");
  EXPECT_EQ(bench.Rows(), (Texts{"A1", "~~~~", ""}));
  for (const PartSort sort : {PartSort::ByPart, PartSort::ByPartDown}) {
    bench.table.SetSort(sort);
    EXPECT_EQ(bench.Rows().back(), "");
  }
}

TEST(PartTable, AFilterLooksInsideTheTextsInEitherCase) {
  TableBench bench;
  bench.Add("ALT-1", "Alternator");
  bench.Add("BAT-1", "BATTERY", 0);
  bench.table.SetFilter({"", "TERNAT", {}});
  EXPECT_EQ(bench.Rows().size(), 1U);
  bench.table.SetFilter({"-1", "", {}});
  EXPECT_EQ(bench.Rows().size(), 2U);
  bench.table.SetFilter({"alt", "bat", {}});
  EXPECT_TRUE(bench.Rows().empty());
  bench.table.SetFilter({"", "", false});
  EXPECT_EQ(bench.Rows(), (Texts{"BAT-1"}));
  EXPECT_EQ(bench.table.TotalCount(), 2U);
}

TEST(PartTable, APartThatJoinsUnderAFilterIsShownWhenItMatches) {
  TableBench bench;
  bench.table.SetFilter({"new", "", {}});
  bench.Add("NEW-2", "");
  bench.Add("OLD", "");
  EXPECT_EQ(bench.Rows(), (Texts{"NEW-2"}));
  EXPECT_EQ(bench.table.RowOf(0), 0);
  EXPECT_EQ(bench.table.RowOf(1), -1);
}

TEST(PartTable, IsSortedByEitherColumnUpAndDown) {
  TableBench bench;
  bench.Add("B", "first");
  bench.Add("A", "Second");
  bench.table.SetSort(PartSort::ByPart);
  EXPECT_EQ(bench.Rows(), (Texts{"A", "B"}));
  bench.table.SetSort(PartSort::ByPartDown);
  EXPECT_EQ(bench.Rows(), (Texts{"B", "A"}));
  bench.table.SetSort(PartSort::ByDescription);
  EXPECT_EQ(bench.Rows(), (Texts{"B", "A"}));
  bench.table.SetSort(PartSort::ByDescriptionDown);
  EXPECT_EQ(bench.Rows(), (Texts{"A", "B"}));
}

TEST(PartTable, ARenamedPartMovesToItsNewPlace) {
  TableBench bench;
  bench.Add("A", "");
  bench.Add("B", "");
  EXPECT_EQ(bench.Rows(), (Texts{"A", "B"}));
  InventoryTag tag = bench.records.inventory.Tag(0);
  tag.Put(inventorytag::StockNumber, "C");
  bench.records.inventory.ReplaceTag(0, tag);
  bench.table.Refresh(0);
  EXPECT_EQ(bench.Rows(), (Texts{"B", "C"}));
}

TEST(PartTable, APartThatIsTakenOutStaysOut) {
  TableBench bench;
  for (const char* number : {"A", "B", "C"}) bench.Add(number, "");
  bench.table.Remove(1);
  EXPECT_EQ(bench.Rows(), (Texts{"A", "C"})) << "before anybody has looked";
  bench.table.Remove(0);
  EXPECT_EQ(bench.Rows(), (Texts{"C"}));
  bench.table.Refresh(0);
  bench.table.Remove(0);
  EXPECT_EQ(bench.Rows(), (Texts{"C"}));
  EXPECT_EQ(bench.table.TotalCount(), 1U);
  EXPECT_EQ(bench.table.RowOf(0), -1);
}

// Whatever happens to parts one at a time, the rows are those of a table that is made from the tags as they are.
TEST(PartTable, RowsChangedOneByOneAreThoseOfAFreshTable) {
  TableBench bench;
  Inventory& inventory = bench.records.inventory;
  std::mt19937 random(20030930);
  const auto draw = [&random](int below) { return static_cast<int>(random() % static_cast<unsigned>(below)); };
  const auto newTag = [&draw] {
    InventoryTag tag;
    tag.Put(inventorytag::StockNumber, draw(9) == 0 ? "" : "P-" + std::to_string(draw(30)));
    tag.Put(inventorytag::Description, draw(2) == 0 ? "BELT" : "hose " + std::to_string(draw(5)));
    return tag;
  };
  std::set<Inventory::PartIndex> listed;
  const std::vector<PartFilter> filters = {{}, {"1", "", {}}, {"", "HOSE", {}}};
  for (int step = 0; step < 600; ++step) {
    const int what = draw(10);
    const auto part = static_cast<Inventory::PartIndex>(draw(std::max(1, inventory.Count())));
    if (what < 3) {
      listed.insert(inventory.AppendTag(newTag()));
      bench.table.Insert(inventory.Count() - 1);
    } else if (what < 7 && inventory.Count() > 0) {
      const InventoryTag before = inventory.Tag(part);
      inventory.ReplaceTag(part, newTag());
      if (what < 5) {
        bench.table.Refresh(part);
      } else {
        bench.table.Replace(part, before);
      }
    } else if (what == 7 && inventory.Count() > 0) {
      listed.erase(part);
      bench.table.Remove(part);
    } else if (what == 8) {
      bench.table.SetFilter(filters[static_cast<std::size_t>(draw(3))]);
    } else {
      bench.table.SetSort(static_cast<PartSort>(draw(5)));
    }
    if (step % 7 != 0) continue;
    PartTable fresh(inventory);
    fresh.SetFilter(bench.table.Filter());
    fresh.SetSort(bench.table.Sort());
    for (const Inventory::PartIndex each : listed) fresh.Add(each);
    ASSERT_EQ(bench.table.MatchCount(), fresh.MatchCount()) << "step " << step;
    for (std::size_t row = 0; row < fresh.MatchCount(); ++row) {
      ASSERT_EQ(bench.table.At(row), fresh.At(row)) << "step " << step;
      ASSERT_EQ(bench.table.RowOf(fresh.At(row)), static_cast<int>(row)) << "step " << step;
    }
  }
}

}  // namespace
}  // namespace lantos
