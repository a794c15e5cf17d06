#include "frame/SharedFile.h"

#include <fcntl.h>
#include <gmock/gmock.h>
#include <sched.h>
#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/stat.h>

#include <array>
#include <csignal>
#include <cstring>
#include <optional>

#include "frame/FileCause.h"
#include "frame/ScratchDirectory.h"
#include "support/FaultyCalls.h"

namespace lantos {
namespace {

using test::AsOrdinaryUser;
using test::InChild;
using test::ScratchDirectory;

std::span<const std::byte> Bytes(const std::string& text) { return std::as_bytes(std::span(text)); }

std::string Read(const SharedFile& file, std::uint64_t offset, std::size_t count) {
  std::string text(count, '?');
  file.ReadAt(offset, std::as_writable_bytes(std::span(text)));
  return text;
}

// The number of the error that an open gives, 0 when it goes well.
int OpenError(const std::filesystem::path& path, Access access, Deny deny, Absent absent = Absent::Create) {
  try {
    SharedFile(path, access, deny, absent);
    return 0;
  } catch (const FileError& error) {
    return static_cast<int>(error.Number());
  }
}

TEST(SharedFile, AFileThatIsNotThereIsMadeEmpty) {
  const ScratchDirectory shop;
  const mode_t umaskBefore = ::umask(022);
  SharedFile file(shop / "TQVENDOR.DAT", Access::Read, Deny::None);
  ::umask(umaskBefore);
  EXPECT_EQ(file.Length(), 0u);
  struct stat status = {};
  ASSERT_EQ(::stat((shop / "TQVENDOR.DAT").c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 0777, 0644u);
}

TEST(SharedFile, AFileThatMustBeThereIsNotMade) {
  const ScratchDirectory shop;
  EXPECT_EQ(OpenError(shop / "CHECKLST.TXT", Access::Read, Deny::All, Absent::Fail), 53);
  EXPECT_EQ(shop.Count(), 0u);
}

TEST(SharedFile, ADirectoryThatIsNotThereIsPathNotFound) {
  const ScratchDirectory shop;
  EXPECT_EQ(OpenError(shop / "gone/TQSYSTEM.DAT", Access::ReadWrite, Deny::All), 76);
  EXPECT_EQ(OpenError(shop / "gone/TQSYSTEM.DAT", Access::Read, Deny::None, Absent::Fail), 76);
}

TEST(SharedFile, ADirectoryIsNoFile) {
  const ScratchDirectory shop;
  EXPECT_EQ(OpenError(shop.Path(), Access::Read, Deny::None), 75);
  EXPECT_EQ(OpenError(shop.Path(), Access::ReadWrite, Deny::All), 75);
}

TEST(SharedFile, OpeningNeverCuts) {
  const ScratchDirectory shop;
  shop.Put("A.DAT", "0123456789");
  for (const Access access : {Access::Read, Access::Write, Access::ReadWrite}) {
    for (const Deny deny : {Deny::None, Deny::Write, Deny::All}) SharedFile(shop / "A.DAT", access, deny);
  }
  EXPECT_EQ(shop.Content("A.DAT"), "0123456789");
}

TEST(SharedFile, WhatLiesPastTheEndReadsAsZero) {
  const ScratchDirectory shop;
  shop.Put("A.DAT", "abcdef");
  SharedFile file(shop / "A.DAT", Access::Read, Deny::None);
  std::string text(4, '?');
  EXPECT_EQ(file.ReadAt(4, std::as_writable_bytes(std::span(text))), 2u);
  EXPECT_EQ(text, std::string("ef\0\0", 4));
}

TEST(SharedFile, AnImpossibleOffsetReadsAsZeroAndRefusesToBeWritten) {
  const ScratchDirectory shop;
  SharedFile file(shop / "A.DAT", Access::ReadWrite, Deny::All);
  // Among them a link of -1 that was taken for an offset.
  for (const std::uint64_t offset : {~std::uint64_t{0}, std::uint64_t{1} << 63, (std::uint64_t{1} << 63) - 2}) {
    EXPECT_EQ(Read(file, offset, 4), std::string(4, '\0'));
    EXPECT_THROW(file.WriteAt(offset, Bytes("abcd")), FileError);
  }
  EXPECT_EQ(file.Length(), 0u);
}

TEST(SharedFile, WritingBehindTheEndFillsTheGapWithZeros) {
  const ScratchDirectory shop;
  SharedFile file(shop / "A.DAT", Access::ReadWrite, Deny::All);
  file.WriteAt(3, Bytes("abc"));
  file.Truncate(5);
  file.Flush();
  file.Close();
  EXPECT_EQ(shop.Content("A.DAT"), std::string("\0\0\0ab", 5));
}

TEST(SharedFile, AnOpenForReadingDoesNotWrite) {
  const ScratchDirectory shop;
  shop.Put("A.DAT", "abc");
  for (const Deny deny : {Deny::None, Deny::Write, Deny::All}) {
    SharedFile file(shop / "A.DAT", Access::Read, deny);
    EXPECT_THROW(file.WriteAt(0, Bytes("x")), FileError);
    EXPECT_THROW(file.Truncate(0), FileError);
  }
  EXPECT_EQ(shop.Content("A.DAT"), "abc");
}

TEST(SharedFile, AnOpenForWritingDoesNotRead) {
  const ScratchDirectory shop;
  shop.Put("A.DAT", "abc");
  for (const Deny deny : {Deny::None, Deny::Write, Deny::All}) {
    const SharedFile file(shop / "A.DAT", Access::Write, deny);
    std::array<std::byte, 1> into = {};
    EXPECT_THROW(file.ReadAt(0, into), FileError);
  }
}

TEST(SharedFile, AConflictIsErrorSeventyAndSaysWhichFile) {
  const ScratchDirectory shop;
  const SharedFile holder(shop / "TQSYSTEM.DAT", Access::ReadWrite, Deny::All);
  try {
    SharedFile(shop / "TQSYSTEM.DAT", Access::Read, Deny::None);
    FAIL() << "not refused";
  } catch (const FileError& error) {
    EXPECT_EQ(error.Text(), "Error 70: Permission denied");
    EXPECT_NE(std::string(error.what()).find("TQSYSTEM.DAT: in use"), std::string::npos) << error.what();
  }
}

TEST(SharedFile, AThousandSharingWritersDoNotMeet) {
  const ScratchDirectory shop;
  std::vector<SharedFile> writers;
  for (int i = 0; i < 500; ++i) {
    writers.emplace_back(shop / "A.DAT", Access::Write, Deny::None);
    writers.emplace_back(shop / "A.DAT", Access::ReadWrite, Deny::None);
  }
  EXPECT_EQ(OpenError(shop / "A.DAT", Access::Read, Deny::None), 0);
  EXPECT_EQ(OpenError(shop / "A.DAT", Access::Read, Deny::Write), 70);
  EXPECT_EQ(OpenError(shop / "A.DAT", Access::Read, Deny::All), 70);
}

TEST(SharedFile, ClosingFreesTheClaimAlthoughAChildStillHoldsTheDescriptor) {
  const ScratchDirectory shop;
  SharedFile file(shop / "A.DAT", Access::ReadWrite, Deny::All);
  std::array<int, 2> pipe = {};
  ASSERT_EQ(::pipe(pipe.data()), 0);
  const pid_t child = ::fork();
  if (child == 0) {
    ::close(pipe[1]);
    char end = 0;
    [[maybe_unused]] const ssize_t count = ::read(pipe[0], &end, 1);  // until the parent is done
    ::_exit(0);
  }
  ::close(pipe[0]);
  EXPECT_EQ(OpenError(shop / "A.DAT", Access::Read, Deny::None), 70);
  file.Close();
  EXPECT_EQ(OpenError(shop / "A.DAT", Access::ReadWrite, Deny::All), 0);
  ::close(pipe[1]);
  ::waitpid(child, nullptr, 0);
}

TEST(SharedFile, AProgramThatIsStartedDoesNotInheritTheDescriptor) {
  const ScratchDirectory shop;
  const SharedFile file(shop / "A.DAT", Access::ReadWrite, Deny::All);
  for (const auto& entry : std::filesystem::directory_iterator("/proc/self/fd")) {
    std::error_code gone;
    if (std::filesystem::read_symlink(entry, gone) != shop / "A.DAT") continue;
    EXPECT_NE(::fcntl(std::stoi(entry.path().filename()), F_GETFD) & FD_CLOEXEC, 0);
    return;
  }
  FAIL() << "the descriptor isn't listed";
}

TEST(SharedFile, AMovedFileKeepsItsClaimAndAnOverwrittenOneLosesIt) {
  const ScratchDirectory shop;
  SharedFile one(shop / "A.DAT", Access::ReadWrite, Deny::All);
  SharedFile other(std::move(one));
  EXPECT_FALSE(one.IsOpen());  // NOLINT(bugprone-use-after-move)
  EXPECT_EQ(OpenError(shop / "A.DAT", Access::Read, Deny::None), 70);
  other = SharedFile();
  EXPECT_EQ(OpenError(shop / "A.DAT", Access::ReadWrite, Deny::All), 0);
}

TEST(SharedFile, AFileInAReadOnlyDirectoryIsRefusedAndLeavesNothingBehind) {
  const ScratchDirectory shop;
  shop.Put("A.DAT", "abc");
  std::filesystem::permissions(shop.Path(), std::filesystem::perms(0555));
  EXPECT_EQ(AsOrdinaryUser([&] { return OpenError(shop / "B.DAT", Access::ReadWrite, Deny::All); }), 75);
  EXPECT_EQ(AsOrdinaryUser([&] { return OpenError(shop / "B.DAT", Access::Read, Deny::None); }), 75);
  EXPECT_EQ(AsOrdinaryUser([&] { return OpenError(shop / "A.DAT", Access::Read, Deny::None); }), 0);
  EXPECT_EQ(shop.Count(), 1u);
  std::filesystem::permissions(shop.Path(), std::filesystem::perms(0755));
}

TEST(SharedFile, AReadOnlyFileIsReadSharedAndRefusedOtherwise) {
  const ScratchDirectory shop;
  shop.Put("A.DAT", "abc");
  std::filesystem::permissions(shop.Path(), std::filesystem::perms(0755));
  std::filesystem::permissions(shop / "A.DAT", std::filesystem::perms(0444));
  const auto error = [&](Access access, Deny deny) {
    return AsOrdinaryUser([&] { return OpenError(shop / "A.DAT", access, deny); });
  };
  EXPECT_EQ(error(Access::Read, Deny::None), 0);
  EXPECT_EQ(error(Access::Read, Deny::Write), 0);
  EXPECT_EQ(error(Access::Read, Deny::All), 75);
  EXPECT_EQ(error(Access::Write, Deny::None), 75);
  EXPECT_EQ(error(Access::ReadWrite, Deny::All), 75);
  EXPECT_EQ(shop.Content("A.DAT"), "abc");
  EXPECT_EQ(shop.Count(), 1u);
}

constexpr std::size_t kRecord = 96;

// Appends records until the disk is full; then whole records must stand in the file. The result is 0 when all is as
// it should be.
int FillDisk(const std::filesystem::path& path) {
  SharedFile file(path, Access::ReadWrite, Deny::All);
  const std::string record(kRecord, 'r');
  for (int i = 0; i < 100'000; ++i) {
    const std::uint64_t length = file.Length();
    try {
      file.WriteAt(length, Bytes(record));
    } catch (const FileError& error) {
      if (error.Number() != FileErrorNumber::DiskFull) return 1;
      if (file.Length() != length) return 2;
      // What stands already can still be written over.
      file.WriteAt(0, Bytes(std::string(kRecord, 's')));
      return file.Length() == length && Read(file, 0, kRecord) == std::string(kRecord, 's') ? 0 : 3;
    }
  }
  return 4;
}

TEST(SharedFile, AShortWriteAtAFullDiskLeavesWholeRecords) {
  const ScratchDirectory shop;
  EXPECT_EQ(InChild([&] {
              ::signal(SIGXFSZ, SIG_IGN);
              const rlimit limit = {kRecord * 10 + 17, kRecord * 10 + 17};
              if (::setrlimit(RLIMIT_FSIZE, &limit) != 0) return 97;
              return FillDisk(shop / "TQCSTTAG.DAT");
            }),
            0);
  EXPECT_EQ(shop.Content("TQCSTTAG.DAT").size(), kRecord * 10);
}

TEST(SharedFile, AShortWriteOnASmallFileSystemLeavesWholeRecords) {
  const ScratchDirectory shop;
  constexpr int kNotPermitted = 77;
  const int result = InChild([&] {
    const bool ownNamespace = ::unshare(::geteuid() == 0 ? CLONE_NEWNS : CLONE_NEWUSER | CLONE_NEWNS) == 0;
    if (!ownNamespace || ::mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) != 0) return kNotPermitted;
    if (::mount("small", shop.Path().c_str(), "tmpfs", 0, "size=64k") != 0) return kNotPermitted;
    return FillDisk(shop / "TQCSTTAG.DAT");
  });
  if (result == kNotPermitted) GTEST_SKIP() << "no right to mount a small file system";
  EXPECT_EQ(result, 0);
}

TEST(SharedFile, AWriteThatMendsADamagedEndIsCutBackToTheLengthFound) {
  const ScratchDirectory shop;
  shop.Put("A.DAT", std::string(100, 'a'));
  EXPECT_EQ(InChild([&] {
              ::signal(SIGXFSZ, SIG_IGN);
              const rlimit limit = {150, 150};
              if (::setrlimit(RLIMIT_FSIZE, &limit) != 0) return 97;
              SharedFile file(shop / "A.DAT", Access::Write, Deny::None);
              try {
                file.WriteAt(96, Bytes(std::string(96, 'b')));
              } catch (const FileError& error) {
                return static_cast<int>(error.Number());
              }
              return 0;
            }),
            61);
  EXPECT_EQ(shop.Content("A.DAT").size(), 100u);
}

// Its permissions are no cause.
TEST(SharedFile, WhereNoLocksAreGrantedItSaysSo) {
  const ScratchDirectory shop;
  shop.Put("A.DAT", "a");
  test::FaultyCalls calls(shop.Path());
  calls.When([](const test::FileCall& call, std::size_t) { return call.kind == test::CallKind::Lock ? ENOLCK : 0; });
  try {
    const SharedFile file(shop.Path() / "A.DAT", Access::ReadWrite, Deny::None);
    ADD_FAILURE() << "opened without a lock";
  } catch (const FileError& error) {
    EXPECT_EQ(error.Number(), FileErrorNumber::PathFileAccess);
    EXPECT_EQ(InWords(FileFailure(error), "A.DAT can not be used"),
              "A.DAT lies where files can't be locked, so it isn't opened: without locks nothing is shared safely.\r"
              "Have locking turned on for that drive, or put the data directory on another one.");
    EXPECT_NE(std::string(error.what()).find(std::strerror(ENOLCK)), std::string::npos) << "for the run log";
  }
}

TEST(SharedFile, AnAppendWhereNoLocksAreGrantedSaysSo) {
  const ScratchDirectory shop;
  shop.Put("A.DAT", "a");
  test::FaultyCalls calls(shop.Path());
  SharedFile file(shop.Path() / "A.DAT", Access::ReadWrite, Deny::None);
  calls.When([](const test::FileCall& call, std::size_t) { return call.kind == test::CallKind::Lock ? ENOLCK : 0; });
  try {
    file.Append(std::as_bytes(std::span("b", 1)));
    ADD_FAILURE() << "appended without a lock";
  } catch (const FileError& error) {
    EXPECT_THAT(error.what(), testing::HasSubstr("files can't be locked"));
  }
  EXPECT_EQ(shop.Content("A.DAT"), "a");
}

TEST(FileError, SystemErrorsBecomeTheNumbersTheOperatorsKnow) {
  const auto numberOf = [](int errorNumber) {
    try {
      ThrowFileError(errorNumber, "x");
    } catch (const FileError& error) {
      return static_cast<int>(error.Number());
    }
  };
  EXPECT_EQ(numberOf(ENOENT), 53);
  EXPECT_EQ(numberOf(EIO), 57);
  EXPECT_EQ(numberOf(ENOSPC), 61);
  EXPECT_EQ(numberOf(EMFILE), 67);
  EXPECT_EQ(numberOf(EBUSY), 70);
  EXPECT_EQ(numberOf(EACCES), 75);
  EXPECT_EQ(numberOf(ENOTDIR), 76);
}

}  // namespace
}  // namespace lantos
