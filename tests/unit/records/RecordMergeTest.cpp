#include "Fixture.h"
#include "frame/Dates.h"
#include "records/RecordMerge.h"

namespace lantos::test {
namespace {

using ui::Answer;
using Reads = MergedField::Reads;

constexpr TextField kName{0, 6};
constexpr LongField kPrice{6};
constexpr LongField kRate{10};
constexpr LongField kDate{14};
constexpr ByteField kFlag{18};
constexpr LongField kLink{19};  // no field of the table
constexpr MergedField kFields[] = {{"Name", kName},
                                   {"Price", kPrice, Reads::Money},
                                   {"Rate", kRate, Reads::PercentOrDollars},
                                   {"Date", kDate, Reads::Day},
                                   {"Flag", kFlag, Reads::YesNo}};
using Sample = Record<23>;

class RecordMergeTest : public testing::Test {
 protected:
  RecordMergeTest() {
    read.Put(kName, "Old");
    read.Put(kPrice, 100);
    read.Put(kLink, -1);
    ours = onFile = read;
  }
  // What the save comes to; the file's record is taken from the last of the answers' boxes on.
  bool Save() {
    RecordMerge merge(kFields, read, ours);
    return merge.Run(desktop, "Edit", [&] {
      ++saves;
      Sample record = onFile;
      merge.Into(record);
      stored = record;
    });
  }

  Sample read;
  Sample ours;
  Sample onFile;
  std::optional<Sample> stored;
  int saves = 0;
  TestDesktop desktop;
};

TEST_F(RecordMergeTest, WithNobodyElseAtItTheRecordIsStoredAsTheScreenHasIt) {
  ours.Put(kName, "New");
  ours.Put(kPrice, 200);
  EXPECT_TRUE(Save());
  EXPECT_EQ(stored, ours);
}

TEST_F(RecordMergeTest, EachKeepsWhatOnlyTheyHaveChanged) {
  ours.Put(kName, "New");
  onFile.Put(kPrice, 300);
  onFile.Put(kLink, 77);
  EXPECT_TRUE(Save());
  Sample wanted = onFile;
  wanted.Put(kName, "New");
  EXPECT_EQ(stored, wanted);
}

TEST_F(RecordMergeTest, ACodeReadsAsTheWordThatItStandsFor) {
  static constexpr std::string_view kWords[] = {"Single", "Married"};
  static constexpr MergedField kCodes[] = {{"Status", kFlag, kWords}, {"Level", IntegerField{0}, kWords}};
  const auto textOf = [&](std::uint8_t theirs, std::uint8_t mine) {
    Sample stored;
    Sample typed;
    Sample before;
    before.Put(kFlag, 9);
    stored.Put(kFlag, theirs);
    typed.Put(kFlag, mine);
    RecordMerge merge(kCodes, before, typed);
    desktop.WillAnswer(Answer::Cancel);
    EXPECT_FALSE(merge.Run(desktop, "Edit", [&] {
      Sample record = stored;
      merge.Into(record);
    }));
    return desktop.boxes.back().text;
  };
  EXPECT_THAT(textOf(0, 1), testing::HasSubstr("Status: \"Single\" is stored, \"Married\" is yours"));
  EXPECT_THAT(textOf(1, 7), testing::HasSubstr("Status: \"Married\" is stored, \"7\" is yours"));
}

TEST_F(RecordMergeTest, TheSameFieldChangedByBothAsksOnceForAllSuchFieldsWithBothValues) {
  ours.Put(kName, "Mine");
  ours.Put(kPrice, 250);
  ours.Put(kRate, -100000);
  ours.Put(kDate, ToFileDate(37894));
  ours.Put(kFlag, 1);
  onFile.Put(kName, "Theirs");
  onFile.Put(kPrice, 375);
  onFile.Put(kRate, 25000);
  onFile.Put(kDate, ToFileDate(37895));
  onFile.Put(kFlag, 2);
  desktop.WillAnswer(Answer::Yes);
  EXPECT_TRUE(Save());
  EXPECT_EQ(saves, 2);
  EXPECT_EQ(stored, ours);
  ASSERT_EQ(desktop.boxes.size(), 1U);
  EXPECT_EQ(desktop.boxes[0].text,
            "Somebody else has changed this meanwhile:\r\r"
            "Name: \"Theirs\" is stored, \"Mine\" is yours\r"
            "Price: \"3.75\" is stored, \"2.50\" is yours\r"
            "Rate: \"2.5000%\" is stored, \"$10.00\" is yours\r"
            "Date: \"10/01/2003\" is stored, \"09/30/2003\" is yours\r"
            "Flag: \"No\" is stored, \"Yes\" is yours\r\r"
            "Do you want to store yours?\rNo keeps what is stored, CANCEL goes back.");
  EXPECT_EQ(desktop.boxes[0].title, "Edit");
  EXPECT_EQ(desktop.boxes[0].buttons, ui::Buttons::YesNoCancel);
}

TEST_F(RecordMergeTest, NoKeepsTheirsAndStoresTheRest) {
  ours.Put(kName, "Mine");
  ours.Put(kPrice, 250);
  onFile.Put(kName, "Theirs");
  desktop.WillAnswer(Answer::No);
  EXPECT_TRUE(Save());
  EXPECT_EQ(stored->Get(kName), "Theirs");
  EXPECT_EQ(stored->Get(kPrice), 250);
}

TEST_F(RecordMergeTest, CancelStoresNothing) {
  ours.Put(kName, "Mine");
  onFile.Put(kName, "Theirs");
  desktop.WillAnswer(Answer::Cancel);
  EXPECT_FALSE(Save());
  EXPECT_FALSE(stored);
}

TEST_F(RecordMergeTest, TheSameValueFromBothIsNoQuestion) {
  ours.Put(kName, "Both");
  onFile.Put(kName, std::string_view("Both\0x", 6));
  EXPECT_TRUE(Save());
  EXPECT_EQ(stored->Get(kName), "Both");
}

TEST_F(RecordMergeTest, BytesBehindATextAreNoChangeOfIt) {
  ours.Put(kName, "Mine");
  onFile.Put(kName, std::string_view("Old\0ab", 6));
  EXPECT_TRUE(Save());
  EXPECT_EQ(stored->Get(kName), "Mine");
}

TEST_F(RecordMergeTest, WhatIsStoredWhileThePersonThinksIsAskedAboutOnceMore) {
  ours.Put(kName, "Mine");
  onFile.Put(kName, "First");
  desktop.WillAnswer([this](const ui::Box&) {
    onFile.Put(kName, "Second");
    return Answer::Yes;
  });
  desktop.WillAnswer(Answer::No);
  EXPECT_TRUE(Save());
  EXPECT_EQ(stored->Get(kName), "Second");
  EXPECT_EQ(desktop.boxes.at(1).text.substr(43, 18), "Name: \"Second\" is ");
}

TEST_F(RecordMergeTest, AnotherFieldThatIsStoredMeanwhileIsAskedAboutAlone) {
  ours.Put(kName, "Mine");
  ours.Put(kPrice, 250);
  onFile.Put(kName, "Theirs");
  desktop.WillAnswer([this](const ui::Box&) {
    onFile.Put(kPrice, 375);
    return Answer::Yes;
  });
  desktop.WillAnswer(Answer::No);
  EXPECT_TRUE(Save());
  EXPECT_EQ(stored->Get(kName), "Mine");
  EXPECT_EQ(stored->Get(kPrice), 375);
  EXPECT_EQ(desktop.boxes.at(1).text.find("Name"), std::string::npos);
}

}  // namespace
}  // namespace lantos::test
