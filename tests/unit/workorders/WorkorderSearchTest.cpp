// Past work orders that are looked for, hit by hit.
#include "workorders/WorkorderSearch.h"

#include <random>

#include "WorkordersBench.h"

namespace lantos::test {
namespace {

using Kind = SearchCriterion::Kind;
using Outcome = WorkorderSearch::Outcome;
using Numbers = std::vector<std::int32_t>;

struct TagTexts {
  std::string name = "Adams,Beth";
  std::string vin = "1FAFP34P0XW000001";
  std::string license = "OH 1234";
};

class WorkorderSearchTest : public WorkordersTest {
 protected:
  static Image Head(std::size_t length, std::int32_t number, const TagTexts& texts) {
    return Image(length).Long(0, number).Text(4, texts.name).Text(40, texts.vin).Text(61, texts.license);
  }
  void AddActive(std::int32_t number, const TagTexts& texts = {}) {
    active_ += Head(302, number, texts).Text(286, Workorders::FileNameOf(number)).Bytes();
    AddArchived(number, -1, texts);
  }
  void AddArchived(std::int32_t number, FileLink offset, const TagTexts& texts = {}) {
    archived_ += Head(290, number, texts).Long(286, offset).Bytes();
  }
  void Write() const {
    Put(kActiveTagFile, active_);
    Put(kArchivedTagFile, archived_);
  }
  // All hits to the end, none of the steps held up.
  Numbers Find(Kind kind, const std::string& text) {
    search.Begin({kind, text});
    while (search.SearchOn([] { return true; }) == Outcome::Found) {
    }
    EXPECT_TRUE(search.IsAtEnd());
    return Found();
  }
  Numbers Found() const {
    Numbers found;
    for (const WorkorderSearch::Hit& hit : search.Hits()) {
      found.push_back(hit.source == WorkorderSearch::kActive ? search.ActiveTag(hit).Get(wotag::WorkorderNumber)
                                                             : search.ArchivedTag(hit).Get(wotag::WorkorderNumber));
    }
    return found;
  }

  std::string active_, archived_;
  WorkorderSearch search{environment, workorders};
};

TEST_F(WorkorderSearchTest, TheFirstLettersOfALastNameFindItInEitherCase) {
  AddActive(1, {.name = "Anderson,Bob"});
  AddActive(2, {.name = "Baker,Andy"});
  AddActive(3, {.name = "BJ\xD8RNSON,Ann"});
  Write();
  EXPECT_EQ(Find(Kind::Name, "and"), Numbers({1}));
  EXPECT_EQ(Find(Kind::Name, "AND"), Numbers({1}));
  EXPECT_EQ(Find(Kind::Name, "bj\xF8"), Numbers({3})) << "letters of the whole page";
  EXPECT_EQ(Find(Kind::Name, "ers"), Numbers({1})) << "anywhere in it";
  EXPECT_EQ(Find(Kind::Name, "b"), Numbers({3, 2}));
}

TEST_F(WorkorderSearchTest, ATrailingCommaLeavesTheFirstNameOpen) {
  AddActive(1, {.name = "Anderson,Bob"});
  AddActive(2, {.name = "Baker,Ander"});
  AddActive(3, {.name = "Anders"});
  Write();
  EXPECT_EQ(Find(Kind::Name, "ander,"), Numbers({3, 1}));
  EXPECT_EQ(Find(Kind::Name, " ander , "), Numbers({3, 1})) << "both parts are trimmed";
}

TEST_F(WorkorderSearchTest, AFirstNameIsLookedForBehindTheComma) {
  AddActive(1, {.name = "Anderson,Bob"});
  AddActive(2, {.name = "Anderson,Bea"});
  AddActive(3, {.name = "Bobson,Anderson"});
  Write();
  EXPECT_EQ(Find(Kind::Name, "anderson,B"), Numbers({2, 1}));
  EXPECT_EQ(Find(Kind::Name, "Anderson, oB"), Numbers({1}));
  EXPECT_EQ(Find(Kind::Name, ",anderson"), Numbers({3})) << "of anybody's last name";
}

TEST_F(WorkorderSearchTest, VinAndLicenseOccurAnywhereInTheirFields) {
  AddActive(1, {.vin = "1FAFP34P0XW000001", .license = "CAB 1"});
  AddActive(2, {.vin = "2FAFP34P0XW000002", .license = "SCAB 2"});
  Write();
  EXPECT_EQ(Find(Kind::Vin, "xw000001"), Numbers({1}));
  EXPECT_EQ(Find(Kind::Vin, "FP34"), Numbers({2, 1}));
  EXPECT_EQ(Find(Kind::License, "cab"), Numbers({2, 1}));
  EXPECT_EQ(Find(Kind::License, "b 2"), Numbers({2}));
  EXPECT_EQ(Find(Kind::License, "FAFP"), Numbers());
  EXPECT_EQ(Find(Kind::Vin, "1FAFP34P0XW0000011"), Numbers());
}

TEST_F(WorkorderSearchTest, WhatStandsBehindTheFirstNulIsNoText) {
  AddActive(1, {.name = std::string("Adams\0Zimmer", 12)});
  Write();
  EXPECT_EQ(Find(Kind::Name, "zim"), Numbers());
}

TEST_F(WorkorderSearchTest, TheNewestComeFirstAndActiveOnesAheadOfArchived) {
  for (int i = 1; i <= 3; ++i) AddArchived(i, i * 100);
  for (int i = 4; i <= 6; ++i) AddActive(i);
  Write();
  EXPECT_EQ(Find(Kind::Name, "adams"), Numbers({6, 5, 4, 3, 2, 1}));
  EXPECT_EQ(search.Hits()[2].source, "act");
  EXPECT_EQ(search.Hits()[3].source, "arc");
}

TEST_F(WorkorderSearchTest, AWorkOrderInBothFilesShowsOnce) {
  AddActive(1);
  AddArchived(2, 0);
  Write();
  EXPECT_EQ(Find(Kind::Name, "adams"), Numbers({1, 2}));
}

TEST_F(WorkorderSearchTest, OneThatIsArchivedWhileItIsOnShowIsNotFoundAgain) {
  AddActive(1);
  AddArchived(1, 500, {.name = "Adams,Beth", .vin = "ANOTHER"});
  Write();
  search.Begin({Kind::Name, "adams"});
  ASSERT_EQ(search.SearchOn([] { return true; }), Outcome::Found);
  Put(kArchivedTagFile, Image(Head(290, 1, {})).Long(286, 0).Bytes() + archived_.substr(290));
  ASSERT_EQ(search.SearchOn([] { return true; }), Outcome::Found) << "one of the same number is another";
  EXPECT_EQ(search.SearchOn([] { return true; }), Outcome::NothingMore);
  EXPECT_EQ(Found(), Numbers({1, 1}));
}

TEST_F(WorkorderSearchTest, TagsWithoutANumberAreSkipped) {
  AddActive(0);
  AddArchived(0, 40);
  AddArchived(2, 0);
  Write();
  EXPECT_EQ(Find(Kind::Name, "adams"), Numbers({2}));
}

TEST_F(WorkorderSearchTest, EmptyFilesHaveNothing) {
  Write();
  EXPECT_EQ(Find(Kind::Name, "adams"), Numbers());
  EXPECT_TRUE(desktop.boxes.empty());
}

TEST_F(WorkorderSearchTest, AStopBetweenBlocksLosesNothingAndRepeatsNothing) {
  Numbers all;
  for (int i = 1; i <= 1000; ++i) {
    AddArchived(i, i, i % 100 == 1 ? TagTexts{} : TagTexts{.name = "Baker,Al"});
    if (i % 100 == 1) all.insert(all.begin(), i);
  }
  Write();
  search.Begin({Kind::Name, "adams"});
  int stops = 0;
  for (Outcome outcome = Outcome::Stopped; outcome != Outcome::NothingMore;) {
    outcome = search.SearchOn([] { return false; });
    stops += outcome == Outcome::Stopped ? 1 : 0;
    ASSERT_LE(stops, 1000);
    if (outcome == Outcome::Stopped) outcome = search.SearchOn([asked = 0]() mutable { return ++asked == 1; });
  }
  EXPECT_EQ(Found(), all);
  EXPECT_GT(stops, 0);
}

TEST_F(WorkorderSearchTest, NobodyIsAskedWhetherToGoOnAheadOfTheFirstBlock) {
  AddActive(1);
  AddArchived(2, 0);
  Write();
  search.Begin({Kind::Name, "nobody"});
  EXPECT_EQ(search.SearchOn([] { return false; }), Outcome::NothingMore);
}

TEST_F(WorkorderSearchTest, BothFilesStayOpenAndSharedToTheEndOfTheSearch) {
  AddActive(1);
  AddArchived(2, 0);
  Write();
  search.Begin({Kind::Name, "adams"});
  ASSERT_EQ(search.SearchOn([] { return true; }), Outcome::Found);
  EXPECT_THROW(HeldByAnother(kActiveTagFile), FileError);
  EXPECT_NO_THROW(HeldByAnother(kArchivedTagFile)) << "not yet";
  EXPECT_NO_THROW(HeldByAnother(kActiveTagFile, Access::Write, Deny::None));
  ASSERT_EQ(search.SearchOn([] { return true; }), Outcome::Found);
  EXPECT_THROW(HeldByAnother(kArchivedTagFile), FileError);
  EXPECT_THAT(Log(), testing::HasSubstr("requested by frmWOHist.SearchArchive"));
  search.End();
  EXPECT_NO_THROW(HeldByAnother(kActiveTagFile));
  EXPECT_NO_THROW(HeldByAnother(kArchivedTagFile));
  EXPECT_EQ(Found(), Numbers({1, 2})) << "the hits are still there";
}

TEST_F(WorkorderSearchTest, WhatIsAppendedMeanwhileIsNotMet) {
  AddActive(1);
  AddActive(2);
  Write();
  search.Begin({Kind::Name, "adams"});
  ASSERT_EQ(search.SearchOn([] { return true; }), Outcome::Found);
  AddActive(3);
  Write();
  while (search.SearchOn([] { return true; }) == Outcome::Found) {
  }
  EXPECT_EQ(Found(), Numbers({2, 1}));
  EXPECT_EQ(Find(Kind::Name, "adams"), Numbers({3, 2, 1})) << "a new search has it";
}

// Appends a part of a tag each time that somebody waits.
class AppendingClock : public StandingClock {
 public:
  explicit AppendingClock(std::function<void()> append) : StandingClock({}), append_(std::move(append)) {}
  void Wait(std::int64_t milliseconds) override {
    StandingClock::Wait(milliseconds);
    append_();
  }

 private:
  std::function<void()> append_;
};

TEST_F(WorkorderSearchTest, ALengthInTheMiddleOfAnAppendIsLookedAtAgain) {
  Put(kActiveTagFile, std::string(302 + 100, 'x'));
  SharedFile file(PathOf(kActiveTagFile), Access::Read, Deny::None);
  int waits = 0;
  AppendingClock clock([&] { Put(kActiveTagFile, std::string(++waits == 1 ? 302 + 200 : 604, 'x')); });
  EXPECT_EQ(SettledLength(file, 302, clock), 604u);
  EXPECT_EQ(waits, 2);
  EXPECT_EQ(SettledLength(file, 302, clock), 604u);
  EXPECT_EQ(waits, 2) << "a whole one is taken at once";
}

TEST_F(WorkorderSearchTest, ADamagedFileIsToldAndReadFromItsEnd) {
  AddArchived(1, 0);
  AddArchived(2, 0);
  Put(kActiveTagFile, "");
  Put(kArchivedTagFile, std::string(10, 'x') + archived_);
  desktop.WillAnswer(ui::Answer::Ok);
  EXPECT_EQ(Find(Kind::Name, "adams"), Numbers({2, 1}));
  ASSERT_EQ(desktop.boxes.size(), 1u);
  EXPECT_EQ(desktop.boxes[0].text, "Invalid offset supplied to ReadArchWO = 10");
}

TEST_F(WorkorderSearchTest, AHeldTagFileIsAskedAboutAndFoundOnRetry) {
  AddActive(1);
  Write();
  SharedFile held = HeldByAnother(kActiveTagFile);
  desktop.WillAnswer([&held](const ui::Box& box) {
    ExpectBox(box, "OpenActiveWOForReading(TQOPENWO.DAT)",
              "Tag file locked by another user.\rClick Retry to try again, or Cancel to exit.",
              ui::Buttons::RetryCancel, ui::Icon::None);
    held.Close();
    return ui::Answer::Retry;
  });
  EXPECT_EQ(Find(Kind::Name, "adams"), Numbers({1}));
}

TEST_F(WorkorderSearchTest, CancelAtAHeldTagFileStopsTheSearchWhichCanGoOnLater) {
  AddActive(1);
  AddArchived(2, 0);
  Write();
  search.Begin({Kind::Name, "adams"});
  {
    const SharedFile held = HeldByAnother(kArchivedTagFile);
    ASSERT_EQ(search.SearchOn([] { return true; }), Outcome::Found);
    desktop.WillAnswer(ui::Answer::Cancel);
    EXPECT_EQ(search.SearchOn([] { return true; }), Outcome::Stopped);
    EXPECT_EQ(desktop.boxes.back().title, "OpenArchWOForReading(TQINCTAG.DAT)");
  }
  EXPECT_EQ(search.SearchOn([] { return true; }), Outcome::Found);
  EXPECT_EQ(Found(), Numbers({1, 2}));
}

TEST_F(WorkorderSearchTest, TheScanOfAVehicleIsAskedInTheSameWay) {
  AddActive(1);
  Write();
  const SharedFile held = HeldByAnother(kActiveTagFile);
  desktop.WillAnswer(ui::Answer::Cancel);
  EXPECT_TRUE(TagScan(environment, workorders).Active({"1FAFP34P0XW000001", 1, 900000}).empty());
  EXPECT_EQ(desktop.boxes.size(), 1u);
}

// "Last,First": each of the two occurs in its own part of the name.
bool IsNaivelyName(const std::string& name, const std::string& sought) {
  const auto part = [](const std::string& text, bool isFirst) {
    const std::size_t comma = text.find(',');
    if (comma == std::string::npos) return isFirst ? std::string() : Trim(text);
    return Trim(isFirst ? text.substr(comma + 1) : text.substr(0, comma));
  };
  return ContainsIgnoringCase(part(name, false), part(sought, false)) &&
         ContainsIgnoringCase(part(name, true), part(sought, true));
}

// What the tags are passed over by never loses one.
TEST_F(WorkorderSearchTest, ATestAgreesWithTheTextsTrimmedAndFolded) {
  std::mt19937 random(7);
  const std::string letters = "aAbB ,\xE4\xC4\xFF\x9F";
  const auto text = [&](std::size_t longest) {
    std::string made;
    for (std::size_t i = random() % (longest + 1); i > 0; --i) made += letters[random() % letters.size()];
    return made;
  };
  const struct {
    Kind kind;
    TextField field;
  } kinds[] = {{Kind::Vin, wotag::VIN}, {Kind::License, wotag::LicenseNumber}, {Kind::Name, wotag::CustomerName}};
  int passed = 0;
  for (int i = 0; i < 30000; ++i) {
    const auto& [kind, field] = kinds[i % 3];
    const std::string sought = Trim(text(3));
    if (sought.empty()) continue;
    // The fields beside it hold the same letters.
    ActiveWoTag tag;
    for (const auto& each : kinds) tag.Put(each.field, text(each.field.width));
    const std::string stands = Trim(tag.Get(field));
    const bool isThere = kind == Kind::Name ? IsNaivelyName(stands, sought) : ContainsIgnoringCase(stands, sought);
    ASSERT_EQ(TagTest({kind, sought}).Passes(tag), isThere) << "'" << sought << "' in '" << stands << "'";
    passed += isThere ? 1 : 0;
  }
  EXPECT_GT(passed, 1000);
}

}  // namespace
}  // namespace lantos::test
