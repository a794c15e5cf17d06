#include "caretaker/check/RunLogs.h"

#include <gmock/gmock.h>

#include "frame/LogOwner.h"
#include "frame/RunLog.h"
#include "support/ScratchDirectory.h"

namespace lantos::test {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class RunLogsTest : public ::testing::Test {
 protected:
  RunLogsTest() { files.SetDataDir(place.DataDir()); }

  std::vector<std::string> Told() {
    std::vector<std::string> told;
    for (const ToldRun& run : RunsOf(files, clock.Today())) {
      told.push_back(run.log + " " + run.workstation + "/" + run.user + (run.isAtWork ? " works" : ""));
      for (const LogLine& line : run.lines) told.push_back(line.at + "|" + line.text);
    }
    return told;
  }

  ScratchDirectory place;
  StandingClock clock{*ParseLocalTime("2003-09-30T08:15:00")};
  FileIO files{clock};
};

TEST_F(RunLogsTest, ALogIsReadWhileItsCopyWrites) {
  RunLog log(files);
  ASSERT_TRUE(log.Open());
  log.Write("Started.");
  SignLog(log.Path(), {"FRONT DESK", "joe"});
  clock.MoveOn(61'000);
  log.Write("WriteInventory PAD-9 In stock=4");
  EXPECT_THAT(Told(), ElementsAre("LN930000.LOG FRONT DESK/joe works", "08:15:00|Started.",
                                  "08:16:01|WriteInventory PAD-9 In stock=4"));
  log.Write("goes on");
  log.Close();
  EXPECT_EQ(Told().front(), "LN930000.LOG FRONT DESK/joe");
  EXPECT_EQ(Told().back(), "08:16:01|goes on");
}

TEST_F(RunLogsTest, RunsComeInTheOrderInWhichTheyBegan) {
  place.Put("LN930001.LOG", "09/30/2003 07:00:00 early\r\n");
  place.Put("ln930000.log", "09/30/2003 09:00:00 late\r\n");
  EXPECT_THAT(Told(), ElementsAre("LN930001.LOG /", "07:00:00|early", "ln930000.log /", "09:00:00|late"));
}

TEST_F(RunLogsTest, OtherDaysAndLastYearsLogsAreNone) {
  place.Put("LN929000.LOG", "09/29/2003 07:00:00 yesterday\r\n");
  place.Put("LN930000.LOG", "09/30/2002 07:00:00 last year\r\n");
  place.Put("LN930001.LOG", "");
  EXPECT_THAT(Told(), IsEmpty());
}

TEST_F(RunLogsTest, WhatIsNoWholeLineIsLeftAndAMessageOfSeveralLinesIsOne) {
  place.Put("LN930000.LOG",
            "noise\r\n09/30/2003 07:00:00 first\nstill\r\nand more\r\n09/30/2003 07:00:01\r\n09/30/2003 07:00:02 ha");
  EXPECT_THAT(Told(), ElementsAre("LN930000.LOG /", "07:00:00|first\nstill\nand more", "07:00:01|"));
}

TEST_F(RunLogsTest, AnOlderProgramsLogIsNobodys) {
  place.Put("LN930000.LOG", "09/30/2003 07:00:00 early\r\n");
  EXPECT_EQ(Told().front(), "LN930000.LOG /");
  SignLog(place / "LN930000.LOG", {"FRONT\nDESK", ""});
  EXPECT_EQ(Told().front(), "LN930000.LOG FRONT/");
}

}  // namespace lantos::test
