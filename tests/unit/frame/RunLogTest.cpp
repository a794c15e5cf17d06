#include "frame/RunLog.h"

#include <gtest/gtest.h>

#include <fmt/format.h>

#include <algorithm>
#include <barrier>
#include <functional>
#include <thread>

#include "frame/Dates.h"
#include "frame/Environment.h"
#include "frame/ScratchDirectory.h"
#include "support/FaultyCalls.h"

namespace lantos {

namespace {

class RunLogs : public ::testing::Test {
 protected:
  RunLogs() { files.SetDataDir(directory.DataDir()); }

  test::ScratchDirectory directory;
  StandingClock clock{*ParseLocalTime("2003-11-15T08:15:00")};
  FileIO files{clock};
  RunLog log{files};
};

}  // namespace

TEST_F(RunLogs, TheFirstLogOfTheDayIsNumberedZero) {
  ASSERT_TRUE(log.Open());
  EXPECT_EQ(log.Name(), "LNb15000.LOG");
}

TEST(DayMarks, MonthTwelveGivesTheLetterC) {
  EXPECT_EQ(DayMark(ParseLocalTime("2003-12-01T00:00:00")->day), "c01");
  EXPECT_EQ(DayMark(ParseLocalTime("2003-01-31T00:00:00")->day), "131");
  EXPECT_EQ(DayMark(ParseLocalTime("2003-10-09T00:00:00")->day), "a09");
}

TEST(DayMarks, OctoberGivesTheLetterAAndTheFirstTwoDigits) {
  EXPECT_EQ(UpdateFilePrefix(ToSerial({2003, 10, 1})), "AUa01");
  EXPECT_EQ(UpdateFilePrefix(ToSerial({2003, 10, 31})), "AUa31");
}

TEST_F(RunLogs, ALineIsDateAndTimeInTwentyCharactersAndTheMessage) {
  ASSERT_TRUE(log.Open());
  clock.MoveTo(*ParseLocalTime("2003-11-15T09:00:01"));
  log.Write("Korvel Appointment Scheduler Started.");
  log.Write("");
  log.Close();
  EXPECT_EQ(directory.Content(log.Name()),
            "11/15/2003 09:00:01 Korvel Appointment Scheduler Started.\r\n11/15/2003 09:00:01 \r\n");
}

TEST_F(RunLogs, AMessageOfAnyLengthIsWrittenWholeAndTheNextLineIsRightBehindIt) {
  ASSERT_TRUE(log.Open());
  const std::string longMessage(100000, 'x');
  const std::string stamp = FormatDateTime(clock.Now()) + " ";
  log.Write(longMessage);
  log.Write("next");
  log.Close();
  EXPECT_EQ(directory.Content(log.Name()), stamp + longMessage + "\r\n" + stamp + "next\r\n");
}

TEST_F(RunLogs, LogsOfOtherDaysAreDeletedAndThoseOfTodayStay) {
  directory.Put("LNb14000.LOG", "old");
  directory.Put("LNb15000.LOG", "today");
  directory.Put("LNOTE.TXT", "not a log");
  ASSERT_TRUE(log.Open());
  EXPECT_FALSE(std::filesystem::exists(directory / "LNb14000.LOG"));
  EXPECT_EQ(directory.Content("LNb15000.LOG"), "today");
  EXPECT_TRUE(std::filesystem::exists(directory / "LNOTE.TXT"));
  EXPECT_EQ(log.Name(), "LNb15001.LOG");
}

TEST_F(RunLogs, ALogOfAnotherDayThatIsHeldOpenStays) {
  SharedFile held(directory.Path() / "LNb14000.LOG", Access::ReadWrite, Deny::All);
  ASSERT_TRUE(log.Open());
  EXPECT_TRUE(std::filesystem::exists(directory / "LNb14000.LOG"));
}

TEST_F(RunLogs, WithAThousandLogsOfTodayThereIsNoName) {
  for (int n = 0; n < 1000; ++n) directory.Put(fmt::format("LNb15{:03}.LOG", n), "");
  EXPECT_FALSE(log.Open());
}

TEST_F(RunLogs, ALogThatCanNotBeOpenedIsntLeftBehindEmpty) {
  test::FaultyCalls calls(directory.Path(), test::FaultyCalls::Logs::Watched);
  calls.FailAt(2, test::Fault::DeviceIo);  // made, closed, opened
  EXPECT_THROW(log.Open(), FileError);
  EXPECT_EQ(calls.Failed(), 1U);
  EXPECT_TRUE(files.List("*").empty());
}

TEST_F(RunLogs, AMessageBeforeTheLogIsOpenIsLost) {
  log.Write("nobody hears");
  EXPECT_TRUE(files.List("*").empty());
}

TEST_F(RunLogs, TheUpdateFileTakesTheFirstFreeNumberOfTheDay) {
  const DaySerial today = clock.Today();
  EXPECT_EQ(TakeUpdateFile(files, today), "AUb150.$$$");
  EXPECT_EQ(directory.Content("AUb150.$$$"), "");
  directory.Put("AUb140.$$$", "");
  EXPECT_EQ(TakeUpdateFile(files, today), "AUb151.$$$");
  for (const char* name : {"AJb14003.JNL", "ajb15000.j01", "AJ.DAT", "ARb14002.JNL"}) directory.Put(name, "");
  const LeftJournals left = DeleteOldUpdateFiles(files, today);
  EXPECT_EQ(left.ofConversions, (std::vector<std::string>{"AJb14003.JNL", "ajb15000.j01"})) << "of any day; they stay";
  EXPECT_EQ(left.ofRecords, (std::vector<std::string>{"ARb14002.JNL"}));
  EXPECT_TRUE(std::filesystem::exists(directory / "AUb150.$$$"));
  EXPECT_FALSE(std::filesystem::exists(directory / "AUb140.$$$"));
}

// What each of the copies that start in one moment gets.
std::vector<std::string> TakenAtOnce(std::size_t copies, const std::function<std::string()>& take) {
  std::vector<std::string> names(copies);
  std::barrier start(static_cast<std::ptrdiff_t>(copies));
  std::vector<std::jthread> threads;
  for (std::string& name : names) {
    threads.emplace_back([&] {
      start.arrive_and_wait();
      try {
        name = take();
      } catch (const FileError& error) {
        name = error.what();
      }
    });
  }
  threads.clear();
  std::sort(names.begin(), names.end());
  return names;
}

TEST_F(RunLogs, CopiesThatStartInOneMomentGetALogAndAnUpdateFileEach) {
  constexpr std::size_t copies = 12;
  std::vector<std::string> logs;
  std::vector<std::string> updateFiles;
  for (std::size_t n = 0; n < copies; ++n) {
    logs.push_back(fmt::format("LNb15{:03}.LOG", n));
    updateFiles.push_back(fmt::format("AUb15{}.$$$", n));
  }
  std::sort(updateFiles.begin(), updateFiles.end());
  for (int round = 0; round < 20; ++round) {
    for (const std::string& name : files.List("*")) files.Delete(name);
    EXPECT_EQ(TakenAtOnce(copies,
                          [&] {
                            FileIO own(clock);
                            own.SetDataDir(directory.DataDir());
                            RunLog ownLog(own);
                            return ownLog.Open() ? ownLog.Name() : "none";
                          }),
              logs);
    EXPECT_EQ(TakenAtOnce(copies,
                          [&] {
                            FileIO own(clock);
                            own.SetDataDir(directory.DataDir());
                            return TakeUpdateFile(own, clock.Today());
                          }),
              updateFiles);
  }
}

TEST_F(RunLogs, ANameThatIsALinkToNowhereIsTaken) {
  std::filesystem::create_symlink("nowhere", directory / "LNb15000.LOG");
  ASSERT_TRUE(log.Open());
  EXPECT_EQ(log.Name(), "LNb15001.LOG");
}

TEST_F(RunLogs, ClosingAFileIsLoggedWithItsNumber) {
  ASSERT_TRUE(log.Open());
  OpenFiles open(files, log);
  FileHandle first = open.Open("A.DAT", Access::ReadWrite, Deny::None);
  FileHandle second = open.Open("B.DAT", Access::ReadWrite, Deny::None);
  EXPECT_NE(first, second);
  open.CloseFile(first);
  EXPECT_EQ(first, kNoHandle);
  open.CloseFile(first);
  open.SetReceivingFile(second);
  open.CloseFile(second);
  FileHandle archived = open.OpenArchivedTagFile("caller");
  archived = open.OpenArchivedTagFile("again");
  open.CloseFile(archived);
  log.Close();
  std::string messages;
  const std::string text = directory.Content(log.Name());
  for (std::size_t at = 0; at < text.size(); at = text.find("\r\n", at) + 2) {
    messages += text.substr(at + 20, text.find("\r\n", at) - at - 20) + "\n";
  }
  EXPECT_EQ(messages,
            "CloseFile: Closed file with pointer = 2\n"
            "Receiving File pointer = 3 Closed.\n"
            "Archived WO Tag File Pointer = 2 requested by caller\n"
            "again: TQINCTAG already open\n"
            "Archived Wo Tag File pointer = 2 Closed.\n"
            "Archived WO Tag File Pointer = 2 requested by again\n"
            "Archived Wo Tag File pointer = 2 Closed.\n");
}

}  // namespace lantos
