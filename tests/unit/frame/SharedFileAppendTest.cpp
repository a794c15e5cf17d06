// Several copies that append to one file at the same moment: nothing is lost, nothing is torn.
#include <gtest/gtest.h>
#include <sys/resource.h>

#include <csignal>
#include <map>
#include <set>
#include <thread>
#include <vector>

#include "frame/ScratchDirectory.h"
#include "frame/SharedFile.h"

namespace lantos {
namespace {

using test::BeginInChild;
using test::InChild;
using test::ResultOf;
using test::ScratchDirectory;

std::span<const std::byte> Bytes(const std::string& text) { return std::as_bytes(std::span(text)); }

constexpr std::size_t kRecord = 302;
constexpr int kWriters = 4;
constexpr int kEach = 200;

// A record that tells who wrote it, and which of theirs it is, from its first byte to its last.
std::string RecordOf(int writer, int number) {
  std::string record;
  while (record.size() < kRecord) record += static_cast<char>('a' + writer) + std::to_string(1000 + number);
  record.resize(kRecord);
  return record;
}

// Another one's turn is over soon; whoever comes meanwhile is told, and tries again.
std::uint64_t AppendInTurn(SharedFile& file, const std::string& record) {
  for (;;) {
    try {
      return file.Append(Bytes(record), kRecord);
    } catch (const FileError& error) {
      if (error.Number() != FileErrorNumber::PermissionDenied) throw;
      std::this_thread::yield();
    }
  }
}

// Opens anew for each record, as the program does, unless the file is kept open.
int AppendAll(const std::filesystem::path& path, int writer, bool keepOpen) {
  SharedFile kept;
  std::set<std::uint64_t> offsets;
  for (int i = 0; i < kEach; ++i) {
    if (!kept.IsOpen()) kept = SharedFile(path, i % 2 == 0 ? Access::Write : Access::ReadWrite, Deny::None);
    offsets.insert(AppendInTurn(kept, RecordOf(writer, i)));
    if (!keepOpen) kept.Close();
  }
  return offsets.size() == kEach ? 0 : 1;
}

// Every record of every writer once, in each writer's own order.
void ExpectAllThere(const std::string& content) {
  ASSERT_EQ(content.size(), kRecord * kWriters * kEach);
  std::map<char, int> next;
  for (std::size_t at = 0; at < content.size(); at += kRecord) {
    const char writer = content[at];
    ASSERT_EQ(content.substr(at, kRecord), RecordOf(writer - 'a', next[writer]++)) << "at " << at;
  }
  for (int writer = 0; writer < kWriters; ++writer) EXPECT_EQ(next[static_cast<char>('a' + writer)], kEach);
}

TEST(SharedFileAppend, ProcessesLoseNothing) {
  const ScratchDirectory shop;
  std::vector<pid_t> children;
  for (int writer = 0; writer < kWriters; ++writer) {
    children.push_back(BeginInChild([&] { return AppendAll(shop / "TQOPENWO.DAT", writer, false); }));
  }
  for (const pid_t child : children) EXPECT_EQ(ResultOf(child), 0);
  ExpectAllThere(shop.Content("TQOPENWO.DAT"));
}

TEST(SharedFileAppend, ThreadsLoseNothing) {
  const ScratchDirectory shop;
  std::vector<int> results(kWriters, -1);
  {
    std::vector<std::jthread> threads;
    for (int writer = 0; writer < kWriters; ++writer) {
      threads.emplace_back(
          [&, writer] { results[static_cast<std::size_t>(writer)] = AppendAll(shop / "TQOPENWO.DAT", writer, true); });
    }
  }
  EXPECT_EQ(results, std::vector<int>(kWriters, 0));
  ExpectAllThere(shop.Content("TQOPENWO.DAT"));
}

TEST(SharedFileAppend, GoesToTheEndOrBehindTheLastWholeUnit) {
  const ScratchDirectory shop;
  shop.Put("A.DAT", "0123456789");
  SharedFile file(shop / "A.DAT", Access::ReadWrite, Deny::None);
  EXPECT_EQ(file.Append(Bytes("ab")), 10u);
  EXPECT_EQ(file.Append(Bytes("cdefg"), 5), 10u);
  EXPECT_EQ(shop.Content("A.DAT"), "0123456789cdefg");
  EXPECT_EQ(file.Append(Bytes("hij"), 3), 15u);
  EXPECT_EQ(shop.Content("A.DAT"), "0123456789cdefghij");
}

TEST(SharedFileAppend, AnOpenForReadingDoesNotAppend) {
  const ScratchDirectory shop;
  shop.Put("A.DAT", "abc");
  SharedFile file(shop / "A.DAT", Access::Read, Deny::None);
  EXPECT_THROW(file.Append(Bytes("x")), FileError);
  EXPECT_EQ(shop.Content("A.DAT"), "abc");
}

TEST(SharedFileAppend, WorksUnderAnOpenThatDeniesAllOthers) {
  const ScratchDirectory shop;
  SharedFile file(shop / "A.DAT", Access::ReadWrite, Deny::All);
  EXPECT_EQ(file.Append(Bytes("x")), 0u);
  EXPECT_EQ(file.Append(Bytes("y")), 1u);
  EXPECT_EQ(shop.Content("A.DAT"), "xy");
}

TEST(SharedFileAppend, AFailedAppendLeavesTheTurnToOthersAndNoHalfRecord) {
  const ScratchDirectory shop;
  EXPECT_EQ(InChild([&] {
              ::signal(SIGXFSZ, SIG_IGN);
              const rlimit limit = {kRecord + 100, kRecord + 100};
              if (::setrlimit(RLIMIT_FSIZE, &limit) != 0) return 97;
              SharedFile file(shop / "A.DAT", Access::Write, Deny::None);
              file.Append(Bytes(RecordOf(0, 0)), kRecord);
              try {
                file.Append(Bytes(RecordOf(0, 1)), kRecord);
                return 1;
              } catch (const FileError& error) {
                if (error.Number() != FileErrorNumber::DiskFull) return 2;
              }
              // The file is still open; another open of it isn't kept waiting.
              SharedFile other(shop / "A.DAT", Access::ReadWrite, Deny::None);
              return other.Append(Bytes("short"), kRecord) == kRecord ? 0 : 3;
            }),
            0);
  EXPECT_EQ(shop.Content("A.DAT"), RecordOf(0, 0) + "short");
}

}  // namespace
}  // namespace lantos
