// Kits and their components.
#include "Fixture.h"
#include "records/inventory/KitContents.h"

namespace lantos::test {
namespace {

Image KitImage(std::string_view number, const std::vector<std::string>& lines = {}) {
  Image image(1971);
  image.Text(0, number);
  for (std::size_t i = 0; i < lines.size(); ++i) image.Text(21 + 39 * i, lines[i]);
  return image;
}

InventoryKitRecord KitOf(const std::string& bytes) {
  InventoryKitRecord kit;
  std::transform(bytes.begin(), bytes.end(), kit.Bytes().begin(), [](char c) { return static_cast<std::byte>(c); });
  return kit;
}

class Kits : public ShopTest {
 protected:
  InventoryKits& kits = records.kits;
  InventoryKitRecord kit;
};

TEST(KitLines, ALineWithoutAParenthesisMeansOne) {
  EXPECT_EQ(ParseKitLine("ABC123").partNumber, "ABC123");
  EXPECT_EQ(ParseKitLine("ABC123").quantity, 1);
  EXPECT_EQ(ParseKitLine("ABC123(3)").partNumber, "ABC123");
  EXPECT_EQ(ParseKitLine("ABC123(3)").quantity, 3);
}

TEST(KitLines, AnEmptyParenthesisMeansOneAndBlanksAroundDoNotCount) {
  EXPECT_EQ(ParseKitLine("ABC()").quantity, 1);
  EXPECT_EQ(ParseKitLine("ABC(  )").quantity, 1);
  EXPECT_EQ(ParseKitLine("  ABC 1 ( 12 ) ").partNumber, "ABC 1");
  EXPECT_EQ(ParseKitLine("  ABC 1 ( 12 ) ").quantity, 12);
  EXPECT_EQ(ParseKitLine("ABC(5").quantity, 5);
}

TEST(KitLines, OnlyTheFirst21CharactersAreUsed) {
  EXPECT_EQ(ParseKitLine("123456789012345678(3)XYZ(9)").quantity, 3);
  EXPECT_EQ(ParseKitLine("1234567890123456789012345").partNumber, "123456789012345678901");
  EXPECT_EQ(ParseKitLine("1234567890123456789(123)").quantity, 1) << "of the quantity only the bracket is left";
}

TEST(KitLines, WhatIsNoQuantityIsNone) {
  EXPECT_EQ(ParseKitLine("ABC(X)").quantity, 0);
  EXPECT_EQ(ParseKitLine("ABC(1e999)").quantity, 0);
  EXPECT_EQ(ParseKitLine("ABC(99999999999)").quantity, 2147483647);
  EXPECT_EQ(ParseKitLine("(4)").partNumber, "");
  EXPECT_EQ(ParseKitLine("").partNumber, "");
}

TEST(KitLines, AQuantityOfOneIsStoredWithoutParenthesesAndReadsBackAsOne) {
  for (const std::int32_t quantity : {1, 2, 0, -3, 99999}) {
    const std::string line = KitLine({"BRAKEPAD", quantity});
    EXPECT_EQ(line, quantity == 1 ? "BRAKEPAD" : "BRAKEPAD(" + std::to_string(quantity) + ")");
    EXPECT_EQ(ParseKitLine(line).partNumber, "BRAKEPAD");
    EXPECT_EQ(ParseKitLine(line).quantity, quantity);
  }
}

TEST(KitLines, AQuantityStaysAsItIsWritten) {
  for (const char* quantity : {"01", "X", "-3", "0", "1.5"}) {
    const KitLineTexts texts = SplitKitLine("PAD(" + std::string(quantity) + ")");
    EXPECT_EQ(texts.quantity, quantity);
    EXPECT_EQ(JoinKitLine(texts), "PAD(" + std::string(quantity) + ")");
  }
  EXPECT_EQ(JoinKitLine(SplitKitLine("PAD(1)")), "PAD");
  EXPECT_EQ(JoinKitLine(SplitKitLine("PAD( )")), "PAD");
}

TEST(KitLines, WhatWouldNotBeReadBackAsItWasWrittenIsNoLine) {
  const auto why = [](const char* number, const char* quantity) { return WhyNoKitLine({number, quantity}); };
  EXPECT_EQ(why("123456789012345678901", "1"), "");
  EXPECT_EQ(why("12345678901234567", "99"), "");
  EXPECT_EQ(why("123456789012345678", "99"),
            "123456789012345678(99) is too long for a kit, which has room for 21 characters of part number and "
            "quantity.");
  EXPECT_EQ(why("123456789012345678901", "2"),
            "123456789012345678901(2) is too long for a kit, which has room for 21 characters of part number and "
            "quantity.");
  EXPECT_EQ(why("PAD(L", "1"), "Part PAD(L can not be in a kit: what follows \"(\" would be read as a quantity.");
  EXPECT_EQ(why("PAD)", "2"), "");
  EXPECT_EQ(ParseKitLine("PAD)(2)").partNumber, "PAD)");
}

TEST(KitLines, BlankLinesAreSkippedAndALineMayStandBehindOne) {
  const auto components =
      ComponentsOf(KitOf(KitImage("KIT", {"", "PAD(4)", "", std::string(21, ' ') + "beyond", "ROTOR"})));
  ASSERT_EQ(components.size(), 2U);
  EXPECT_EQ(components[0].partNumber, "PAD");
  EXPECT_EQ(components[0].quantity, 4);
  EXPECT_EQ(components[1].partNumber, "ROTOR");
  EXPECT_EQ(components[1].quantity, 1);
}

TEST(KitLines, AKitHoldsFiftyComponents) {
  std::vector<std::string> lines;
  for (int i = 1; i <= 50; ++i) lines.push_back("P" + std::to_string(i));
  const auto components = ComponentsOf(KitOf(KitImage("KIT", lines)));
  ASSERT_EQ(components.size(), 50U);
  EXPECT_EQ(components[49].partNumber, "P50");
}

std::string LinesOf(const InventoryKitRecord& kit) {
  std::string lines;
  for (std::size_t i = 0; i < 50; ++i) {
    lines += std::string(kit.View(TextField{21 + 39 * i, 39})) + (i < 49 ? "|" : "");
  }
  return lines.substr(0, lines.find_last_not_of('|') + 1);
}

TEST(KitContentsTest, ARecordIsRebuiltWithoutBlankLinesAndWithoutAQuantityOfOne) {
  const KitContents contents(KitOf(KitImage("OLD", {"", "PAD(1)", "", "ROTOR(2)", "BOLT()", "PIN( X )"})));
  ASSERT_EQ(contents.Count(), 4U);
  EXPECT_EQ(contents.RecordOf(" KIT "), KitOf(KitImage("KIT", {"PAD", "ROTOR(2)", "BOLT", "PIN(X)"})));
}

TEST(KitContentsTest, WhatStandsBehindATextIsGone) {
  const std::string old = std::string("PAD(2)") + '\0' + "remains of old";
  EXPECT_EQ(KitContents(KitOf(KitImage("KIT", {old}))).RecordOf("KIT"), KitOf(KitImage("KIT", {"PAD(2)"})));
}

TEST(KitContentsTest, ALineOfWhichOnlyTheBeginningIsReadStaysWholeUntilItIsChanged) {
  const std::string overlong = "12345678901234567890(12)";
  const std::string open = "1234567890123456789(5";
  KitContents contents(KitOf(KitImage("KIT", {overlong, "PAD", "  " + overlong, open})));
  EXPECT_EQ(contents[0].partNumber, "12345678901234567890");
  EXPECT_EQ(contents[0].quantity, "1");
  EXPECT_EQ(contents[3].quantity, "5");
  contents.Swap(0, 1);
  EXPECT_EQ(contents.RecordOf("KIT"), KitOf(KitImage("KIT", {"PAD", overlong, "  " + overlong, open})));
  contents.Change(1, {"PAD", "3"});
  contents.Remove(2);
  EXPECT_EQ(LinesOf(contents.RecordOf("KIT")), "PAD|PAD(3)|" + open);
}

TEST(KitContentsTest, ALineWithoutAPartNumberIsNoBlankOne) {
  const KitContents contents(KitOf(KitImage("KIT", {"()", "(1)", "(4)"})));
  EXPECT_EQ(contents.Count(), 3U);
  EXPECT_EQ(LinesOf(contents.RecordOf("KIT")), "()|(1)|(4)");
}

TEST(KitContentsTest, AKitOfFiftyComponentsFillsTheRecordToItsLastLine) {
  KitContents contents{InventoryKitRecord()};
  std::vector<std::string> lines;
  for (int i = 1; i <= 50; ++i) {
    EXPECT_FALSE(contents.IsFull());
    contents.Add({"P" + std::to_string(i), "2"});
    lines.push_back("P" + std::to_string(i) + "(2)");
  }
  EXPECT_TRUE(contents.IsFull());
  EXPECT_EQ(contents.RecordOf("KIT"), KitOf(KitImage("KIT", lines)));
}

TEST(KitPricesTest, StandInParenthesesBehindTheMark) {
  EXPECT_TRUE(IsKit("KIT:"));
  EXPECT_TRUE(IsKit("KIT: SHELF 4"));
  EXPECT_FALSE(IsKit("kit:"));
  EXPECT_FALSE(IsKit(" KIT:"));
  EXPECT_FALSE(IsKit("KIT"));
  const auto prices = [](std::string_view location) {
    const KitPrices parsed = ParseKitPrices(location);
    return std::pair(parsed.sale, parsed.list);
  };
  EXPECT_EQ(prices("KIT:(12.50,14.00)"), std::pair(1250, 1400));
  EXPECT_EQ(prices("KIT: ( 0.29 , 1 )"), std::pair(29, 100));
  EXPECT_EQ(prices("KIT:"), std::pair(0, 0));
  EXPECT_EQ(prices("KIT:12.50"), std::pair(0, 0));
  EXPECT_EQ(prices("KIT:(12.50)"), std::pair(1250, 0));
  EXPECT_EQ(prices("KIT:(12.50,14"), std::pair(1250, 1400));
  EXPECT_EQ(prices("KIT:(x,1e999)"), std::pair(0, 0));
}

TEST_F(Kits, AKitIsFoundByItsTrimmedNumberWithItsOffset) {
  Put(kKitFile, std::string(KitImage("TUNEUP", {"PLUG(4)"})) + std::string(KitImage(" BRAKES ", {"PAD"})));
  EXPECT_EQ(kits.FindKit("TUNEUP", kit), 0);
  EXPECT_EQ(kits.FindKit("  BRAKES", kit), 1971);
  EXPECT_EQ(kit, KitOf(KitImage(" BRAKES ", {"PAD"})));
}

TEST_F(Kits, AKitThatIsNotThereGivesABlankRecordOfItsNumber) {
  Put(kKitFile, KitImage("TUNEUP", {"PLUG(4)"}));
  for (const char* number : {"BRAKES", "tuneup"}) {
    kit = KitOf(std::string(1971, 'x'));
    EXPECT_EQ(kits.FindKit(number, kit), kNoLink);
    EXPECT_EQ(kit, KitOf(KitImage(number)));
  }
}

TEST_F(Kits, ASearchClosesAFileThatItOpenedItselfAndNoOther) {
  Put(kKitFile, KitImage("TUNEUP"));
  FileHandle handle = kits.OpenKitFile(InventoryKits::Sharing::Shared);
  EXPECT_EQ(kits.FindKit("TUNEUP", kit, handle), 0);
  EXPECT_THROW(HeldByAnother(kKitFile), FileError) << "the caller's file is still open";
  environment.openFiles.CloseFile(handle);
  EXPECT_EQ(kits.FindKit("TUNEUP", kit), 0);
  EXPECT_NO_THROW(HeldByAnother(kKitFile));
}

TEST_F(Kits, ASavedKitGoesOverItsOldRecordAndTheOthersStay) {
  const std::string first = KitImage("A", {"PART1"});
  const std::string third = KitImage("C", {"PART3"});
  Put(kKitFile, first + std::string(KitImage("B", {"OLD", "OLDER"})) + third);
  const std::string changed = KitImage("B", {"NEW(2)"});
  EXPECT_TRUE(kits.SaveKit(KitOf(changed)));
  EXPECT_EQ(BytesOf(kKitFile), first + changed + third);
}

TEST_F(Kits, ANewKitGoesToTheEndOfTheFile) {
  const std::string first = KitImage("A", {"PART1"});
  const std::string second = KitImage("B", {"PART2(3)"});
  EXPECT_TRUE(kits.SaveKit(KitOf(first)));
  EXPECT_TRUE(kits.SaveKit(KitOf(second)));
  EXPECT_EQ(BytesOf(kKitFile), first + second);
}

TEST_F(Kits, ANewKitStandsWhereItIsFoundAgainBehindARecordThatWasCutOff) {
  const std::string first = KitImage("A", {"PART1"});
  Put(kKitFile, first + std::string(KitImage("TORN", {"PART2"})).substr(0, 100));
  const std::string added = KitImage("B", {"PART3"});
  EXPECT_TRUE(kits.SaveKit(KitOf(added)));
  EXPECT_EQ(BytesOf(kKitFile), first + std::string(KitImage("TORN", {"PART2"})) + added);
  EXPECT_EQ(kits.FindKit("B", kit), 2 * 1971);
}

TEST_F(Kits, TheNumbersOfAllKitsComeInFileOrder) {
  Put(kKitFile, std::string(KitImage("ZULU")) + std::string(KitImage("")) + std::string(KitImage(" ALPHA ")));
  EXPECT_EQ(kits.KitNumbers(), (std::vector<std::string>{"ZULU", "ALPHA"}));
}

TEST_F(Kits, AFileThatIsHeldIsToldOnceForEachWayOfOpeningIt) {
  const SharedFile held = HeldByAnother(kKitFile);
  desktop.WillAnswer({ui::Answer::Ok, ui::Answer::Ok, ui::Answer::Ok, ui::Answer::Ok});
  EXPECT_EQ(kits.OpenKitFile(InventoryKits::Sharing::Exclusive), 65535);
  ExpectBox(desktop.boxes.back(), "Lantos", "Could not open TQINVKIT.DAT for exclusive access.", ui::Buttons::Ok,
            ui::Icon::None);
  EXPECT_EQ(kits.OpenKitFile(InventoryKits::Sharing::Shared), 65535);
  ExpectBox(desktop.boxes.back(), "Lantos", "Could not open TQINVKIT.DAT for shared access.", ui::Buttons::Ok,
            ui::Icon::None);
  EXPECT_EQ(kits.FindKit("A", kit), kNoLink);
  EXPECT_EQ(kit, KitOf(KitImage("A")));
  EXPECT_FALSE(kits.SaveKit(KitOf(KitImage("A"))));
  EXPECT_EQ(desktop.boxes.size(), 4U);
}

TEST_F(Kits, ReadersShareTheFileAndASaveNeedsItAlone) {
  Put(kKitFile, KitImage("A"));
  const SharedFile held = HeldByAnother(kKitFile, Access::Read, Deny::None);
  EXPECT_EQ(kits.FindKit("A", kit), 0);
  desktop.WillAnswer(ui::Answer::Ok);
  EXPECT_FALSE(kits.SaveKit(kit));
}

TEST_F(Kits, EveryCutOfTheFileIsRead) {
  const std::string whole = std::string(KitImage("A", {"PAD(4)"})) + std::string(KitImage("B"));
  for (std::size_t length = 0; length <= whole.size(); length += 97) {
    Put(kKitFile, whole.substr(0, length));
    kits.FindKit("B", kit);
    ComponentsOf(kit);
    EXPECT_LE(kits.KitNumbers().size(), 2U);
    EXPECT_EQ(BytesOf(kKitFile).size(), length);
  }
}

}  // namespace
}  // namespace lantos::test
