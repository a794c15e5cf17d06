#include "support/FaultyCalls.h"

#include <gtest/gtest.h>

#include "frame/ScratchDirectory.h"
#include "frame/SharedFile.h"

// What is made to fail fails as the system would have it, and leaves the file as it was.
namespace lantos {
namespace {

using test::CallKind;
using test::Fault;
using test::FaultyCalls;
using test::ScratchDirectory;

FileErrorNumber NumberOfWrite(const std::filesystem::path& path) {
  try {
    SharedFile file(path, Access::ReadWrite, Deny::All);
    file.WriteAt(0, std::as_bytes(std::span("new", 3)));
    file.Flush();
    file.Close();
  } catch (const FileError& error) {
    return error.Number();
  }
  return {};
}

TEST(FaultyCalls, AreListedWithTheirFiles) {
  const ScratchDirectory directory;
  FaultyCalls calls(directory.Path());
  NumberOfWrite(directory / "A.DAT");
  std::vector<CallKind> kinds;
  for (const test::FileCall& call : calls.Calls()) {
    EXPECT_EQ(call.name, "A.DAT");
    kinds.push_back(call.kind);
  }
  EXPECT_EQ(kinds, (std::vector{CallKind::Open, CallKind::Create, CallKind::Lock, CallKind::Write, CallKind::Flush,
                                CallKind::Close}));
}

TEST(FaultyCalls, EachFaultHasItsNumber) {
  const ScratchDirectory directory;
  directory.Put("A.DAT", "old");
  FaultyCalls calls(directory.Path());
  const std::pair<Fault, FileErrorNumber> numbers[] = {{Fault::DiskFull, FileErrorNumber::DiskFull},
                                                       {Fault::DeviceIo, FileErrorNumber::DeviceIo},
                                                       {Fault::ReadOnly, FileErrorNumber::PathFileAccess},
                                                       {Fault::Held, FileErrorNumber::PermissionDenied}};
  for (const auto& [fault, number] : numbers) {
    calls.FailOn("A.DAT", fault);
    EXPECT_EQ(NumberOfWrite(directory / "A.DAT"), number) << test::NameOf(fault);
    EXPECT_EQ(directory.Content("A.DAT"), "old");
  }
  calls.Mend();
  EXPECT_EQ(NumberOfWrite(directory / "A.DAT"), FileErrorNumber{});
  EXPECT_EQ(directory.Content("A.DAT"), "new");
}

TEST(FaultyCalls, TheCallOfAnIndexFailsOnce) {
  const ScratchDirectory directory;
  directory.Put("A.DAT", "old");
  FaultyCalls calls(directory.Path());
  calls.FailAt(2, Fault::DiskFull);  // open, lock, write
  EXPECT_EQ(NumberOfWrite(directory / "A.DAT"), FileErrorNumber::DiskFull);
  EXPECT_EQ(calls.Failed(), 1U);
  EXPECT_EQ(NumberOfWrite(directory / "A.DAT"), FileErrorNumber{});
}

TEST(FaultyCalls, OtherDirectoriesAndRunLogsAreLeftAlone) {
  const ScratchDirectory directory;
  const ScratchDirectory other;
  FaultyCalls calls(directory.Path());
  calls.When([](const test::FileCall&, std::size_t) { return EIO; });
  EXPECT_EQ(NumberOfWrite(other / "A.DAT"), FileErrorNumber{});
  EXPECT_EQ(NumberOfWrite(directory / "LN930000.LOG"), FileErrorNumber{});
  EXPECT_TRUE(calls.Calls().empty());
}

TEST(FaultyCalls, AKilledProcessIsGoneBeforeTheCall) {
  const ScratchDirectory directory;
  directory.Put("A.DAT", "old");
  EXPECT_EXIT(
      {
        FaultyCalls calls(directory.Path());
        calls.KillAt(2);
        NumberOfWrite(directory / "A.DAT");
      },
      testing::KilledBySignal(SIGKILL), "");
  EXPECT_EQ(directory.Content("A.DAT"), "old");
}

}  // namespace
}  // namespace lantos
