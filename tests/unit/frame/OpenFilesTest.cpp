// Files by number whose close tells that what was written to them is lost.
#include <gmock/gmock.h>

#include "frame/Environment.h"
#include "frame/ProfileFile.h"
#include "frame/ScratchDirectory.h"
#include "support/FaultyCalls.h"

namespace lantos {
namespace {

using test::CallKind;
using test::Fault;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

struct Numbered {
  Numbered() {
    directory.Put("A.DAT", "as it was");
    environment.files.SetDataDir(directory.DataDir());
    environment.log.Open();
    environment.openFiles.whenDoubtful = [this](const std::string& name, const FileFailure& failure) {
      doubtful.push_back(name + ": " + CauseInWords(failure.number));
    };
  }
  std::string Log() const { return directory.Content(environment.log.Name()); }

  test::ScratchDirectory directory;
  StandingClock clock{*ParseLocalTime("2003-09-30T08:15:00")};
  UserSettings settings{directory / "settings"};
  Environment environment{clock, settings};
  std::vector<std::string> doubtful;
};

TEST(OpenFiles, ACloseThatFailsBehindAWriteIsToldAndLogged) {
  Numbered shop;
  test::FaultyCalls calls(shop.directory.Path());
  calls.FailOn("A.DAT", CallKind::Close, Fault::DiskFull);
  OpenFiles& files = shop.environment.openFiles;
  FileHandle handle = files.Open("A.DAT", Access::ReadWrite, Deny::All);
  files[handle].WriteAt(0, std::as_bytes(std::span("b", 1)));
  files.CloseFile(handle);
  EXPECT_EQ(handle, kNoHandle);
  EXPECT_THAT(shop.doubtful, ElementsAre("A.DAT: the disk is full"));
  EXPECT_THAT(shop.Log(), HasSubstr("Error 61: Disk full (closing "));
  EXPECT_THAT(shop.Log(), HasSubstr("No space left on device"));
  calls.Mend();
  handle = files.Open("A.DAT", Access::ReadWrite, Deny::All);
  files.CloseFile(handle);
  EXPECT_THAT(shop.doubtful, testing::SizeIs(1));
}

TEST(OpenFiles, WhatNothingWasWrittenToIsNotDoubted) {
  Numbered shop;
  test::FaultyCalls calls(shop.directory.Path());
  calls.FailOn("A.DAT", CallKind::Close, Fault::DeviceIo);
  OpenFiles& files = shop.environment.openFiles;
  FileHandle handle = files.Open("A.DAT", Access::ReadWrite, Deny::All);
  std::byte first{};
  files[handle].ReadAt(0, std::span(&first, 1));
  files.CloseFile(handle);
  EXPECT_THAT(shop.doubtful, IsEmpty());
  EXPECT_THAT(shop.Log(), HasSubstr("Error 57: Device I/O error (closing "));
}

// Its failure comes back to whoever has set the entry.
TEST(ProfileFiles, ACloseThatFailsIsAnEntryThatWasNotWritten) {
  Numbered shop;
  test::FaultyCalls calls(shop.directory.Path());
  calls.FailOn("Lantos.ini", CallKind::Close, Fault::DiskFull);
  ProfileFile profile = shop.environment.Profile();
  EXPECT_FALSE(profile.Put("Options", "Key", "Value"));
  EXPECT_EQ(profile.Failure().number, FileErrorNumber::DiskFull);
}

}  // namespace
}  // namespace lantos
