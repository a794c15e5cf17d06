// Whole texts read back: as this program writes them, and as older ones did.
#include "WorkorderReaderBench.h"
#include "records/CheckList.h"

namespace lantos::test {
namespace {

class RoundTrip : public WorkorderBench, public testing::WithParamInterface<int> {
 protected:
  RoundTrip() {
    Options().LaborDateOption = (GetParam() & 1) != 0;
    Options().RepairCodeOption = (GetParam() & 2) != 0;
  }
};

TEST_P(RoundTrip, AWorkOrderReadBackIsTheSame) {
  LoadChecks();
  Workorder workorder = Sample();
  WoLaborLine labor;
  if (Options().LaborDateOption) labor.Date = "09/30/2003";
  if (Options().RepairCodeOption) labor.RepairCode = "TB1";
  for (std::string& text : labor.Desc) text = std::string(63, 'w');
  labor.Total = -2147483647;
  workorder.Labor.Add(labor);
  const Text lines = Written(workorder);
  const std::vector<ChecklistItem> checks = Checks().items;
  const Workorder readBack = ReadBack(lines);
  EXPECT_EQ(Told(readBack), Told(workorder));
  Workorder again = readBack;
  EXPECT_EQ(Written(again), lines);
  for (std::size_t i = 0; i < checks.size(); ++i) {
    EXPECT_EQ(Checks().items[i].Used, checks[i].Used);
    EXPECT_EQ(Checks().items[i].Service, checks[i].Service);
    EXPECT_EQ(Checks().items[i].DueBackMiles, checks[i].DueBackMiles);
  }
}

INSTANTIATE_TEST_SUITE_P(Options, RoundTrip, testing::Range(0, 4));

class OlderText : public WorkorderReaderTest {
 protected:
  OlderText() { LoadChecks(); }
  // The sections of the sample with their headings, without their empty lines.
  std::vector<Text> Sections() {
    Workorder workorder = Sample();
    std::vector<Text> sections;
    for (const std::string& line : Written(workorder)) {
      if (line.starts_with("[") && (sections.empty() || sections.back()[0] != "[Check List]")) sections.emplace_back();
      if (!line.empty()) sections.back().push_back(line);
    }
    return sections;
  }
  static Text Joined(const std::vector<Text>& sections) {
    Text lines;
    for (const Text& section : sections) {
      lines.insert(lines.end(), section.begin(), section.end());
      lines.emplace_back();
    }
    return lines;
  }
};

TEST_F(OlderText, SectionsInAnotherOrderReadTheSame) {
  std::vector<Text> sections = Sections();
  ASSERT_EQ(sections.size(), 11u);
  for (int i = 0; i < 10; ++i) {  // each goes first once; the check list stays behind, for it runs to the end
    std::rotate(sections.begin(), sections.begin() + 1, sections.begin() + 10);
    EXPECT_EQ(Told(ReadBack(Joined(sections))), Told(Sample())) << sections[0][0];
  }
  std::reverse(sections.begin(), sections.begin() + 10);
  EXPECT_EQ(Told(ReadBack(Joined(sections))), Told(Sample()));
}

TEST_F(OlderText, WithoutACheckList) {
  std::vector<Text> sections = Sections();
  sections.pop_back();
  EXPECT_EQ(Told(ReadBack(Joined(sections))), Told(Sample()));
  EXPECT_FALSE(Checks().ChecklistLoaded);
}

TEST_F(OlderText, WithTheFirstKeyBehindItsHeading) {
  std::vector<Text> sections = Sections();
  sections[0][0] += sections[0][1];
  sections[0].erase(sections[0].begin() + 1);
  EXPECT_EQ(Told(ReadBack(Joined(sections))), Told(Sample()));
}

TEST_F(OlderText, WithoutFollowupColumns) {
  std::vector<Text> sections = Sections();
  Text& labor = sections[5];
  ASSERT_EQ(labor[0], "[Labor]");
  for (std::size_t i = 1; i < labor.size(); ++i) {
    std::size_t end = 0;
    for (int tabs = 0; tabs < 7; ++tabs) end = labor[i].find('\t', end) + 1;
    labor[i].resize(end - 1);
  }
  const Workorder workorder = ReadBack(Joined(sections));
  EXPECT_EQ(workorder.Labor[0].Desc, Sample().Labor[0].Desc);
  EXPECT_EQ(workorder.Labor[0].FollowupMiles, 0);
  EXPECT_EQ(workorder.Labor[0].FollowupDate, 0);
  EXPECT_EQ(workorder.Labor.Size(), 3u);
}

}  // namespace
}  // namespace lantos::test
