// The journal of a conversion, line by line, and what becomes of damaged ones.
#include "workorders/ConversionJournal.h"

#include "WorkordersBench.h"

namespace lantos::test {
namespace {

class ConversionJournalTest : public WorkordersTest {
 protected:
  // As a conversion of one part leaves it, and whoever is killed.
  std::string Left() {
    environment.computerName = "FRONT DESK";
    ConversionJournal journal(environment, desktop, 1001, 5001);
    name = journal.Name();
    journal.TakesNumber();
    journal.WillMove({"PAD %\t9", 2, 6, 5, 76});
    journal.WillWrite("tags and text");
    return journal.Content();
  }
  std::string name;
};

TEST_F(ConversionJournalTest, IsATextWithALineAStep) {
  const std::string content = Left();
  EXPECT_EQ(BytesOf(name), content);
  std::vector<std::string> lines;
  for (std::size_t at = 0; at < content.size(); at = content.find("\r\n", at) + 2) {
    lines.push_back(content.substr(at, content.find("\r\n", at) - at - 9));
  }
  EXPECT_EQ(lines, (std::vector<std::string>{"Lantos conversion 1", "estimate 1001 5001 2003-09-30T08:15:00 FRONT DESK",
                                             "number", "part 2 6 5 76 PAD %25%099", "writes tags and text"}));
  // The check of a line, by hand: FNV-1a over its characters.
  EXPECT_EQ(content.substr(0, 30), "Lantos conversion 1 " + content.substr(20, 8) + "\r\n");
}

TEST_F(ConversionJournalTest, IsNamedAsTheLogAndHasThePlaceBehindOneThatWasLeft) {
  Left();
  EXPECT_EQ(name, "AJ" + environment.log.Name().substr(2, 6) + ".JNL");
  const ConversionJournal second(environment, desktop, 1002, 5002);
  EXPECT_EQ(second.Name(), name.substr(0, 9) + "J01");
}

TEST_F(ConversionJournalTest, ReadsWhatItWrote) {
  const auto begun = ReadJournal(Left());
  ASSERT_TRUE(begun);
  EXPECT_EQ(begun->estimate, 1001);
  EXPECT_EQ(begun->workorder, 5001);
  EXPECT_EQ(begun->when, "2003-09-30T08:15:00");
  EXPECT_EQ(begun->where, "FRONT DESK");
  EXPECT_TRUE(begun->hasNumber);
  EXPECT_FALSE(begun->isUndone);
  ASSERT_EQ(begun->parts.size(), 1u);
  EXPECT_EQ(begun->parts[0].number, "PAD %\t9");
  EXPECT_EQ(begun->parts[0].quantity, 2);
  EXPECT_EQ(begun->parts[0].stockInTag, 6);
  EXPECT_EQ(begun->parts[0].stockInMaster, 5);
  EXPECT_EQ(begun->parts[0].usageLink, 76);
}

TEST_F(ConversionJournalTest, IsOpenToNobodyWhileItsConversionRuns) {
  std::optional<ConversionJournal> running(std::in_place, environment, desktop, 1001, 5001);
  const std::string running1 = running->Name();
  EXPECT_THROW(ConversionJournal(environment, desktop, running1), FileError);
  running.reset();
  ConversionJournal left(environment, desktop, running1);
  left.IsUndone();
  EXPECT_TRUE(ReadJournal(left.Content())->isUndone);
  left.Remove();
  EXPECT_TRUE(environment.files.List(kJournalPattern).empty());
  EXPECT_THROW(ConversionJournal(environment, desktop, running1), FileError);
}

// A kill in the middle of a line, or a full disk.
TEST_F(ConversionJournalTest, GoesOnBehindItsLastWholeLine) {
  const std::string content = Left();
  for (std::size_t length = 0; length <= content.size(); ++length) {
    Put(name, content.substr(0, length));
    ConversionJournal journal(environment, desktop, name);
    const std::string whole = journal.Content();
    EXPECT_EQ(whole, content.substr(0, whole.size()));
    EXPECT_TRUE(ReadJournal(whole)) << length;
  }
}

TEST_F(ConversionJournalTest, WithAnyBitFlippedIsDamaged) {
  const std::string content = Left();
  for (std::size_t at = 0; at < content.size(); ++at) {
    for (int bit = 0; bit < 8; ++bit) {
      std::string damaged = content;
      damaged[at] = static_cast<char>(damaged[at] ^ (1 << bit));
      EXPECT_FALSE(ReadJournal(damaged)) << at << ' ' << bit;
    }
  }
  EXPECT_FALSE(ReadJournal("x\r\n"));
  EXPECT_FALSE(ReadJournal("\r\n"));
}

TEST_F(ConversionJournalTest, OfAMegabyteAndMoreIsReadNoFurther) {
  const std::string content = Left();
  Put(name, content + std::string(3 << 20, 'x'));
  EXPECT_EQ(ConversionJournal(environment, desktop, name).Content(), content);
}

}  // namespace
}  // namespace lantos::test
