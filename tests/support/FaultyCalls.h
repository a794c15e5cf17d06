#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

namespace lantos::test {

// What the program asks of the system about a file. Create is an open that makes the file; Lock is every try to take
// bytes of it, be it a sharing mode, a turn or a lock of the database.
enum class CallKind { Open, Create, Read, Write, Cut, Flush, Lock, Close, Delete };
std::string NameOf(CallKind kind);

// What can go wrong with a file.
enum class Fault { DiskFull, DeviceIo, ReadOnly, Held };
inline constexpr Fault kFaults[] = {Fault::DiskFull, Fault::DeviceIo, Fault::ReadOnly, Fault::Held};
std::string NameOf(Fault fault);

struct FileCall {
  CallKind kind = CallKind::Open;
  std::string name;  // of the file, without its directory
  bool forWriting = false;

  bool operator==(const FileCall&) const = default;
};

// Whether the call leaves something other than before on the disk.
bool Changes(const FileCall& call);
// The errno that a call ends with for this fault; 0 when the fault can't happen to it: a read finds no full disk.
int ErrnoOf(const FileCall& call, Fault fault);

// While one of these stands, the calls of this process on the files of one directory are counted and, if it is wanted,
// fail. The calls of the database engine are among them, under the names of its files; those on run logs aren't.
// One at a time. Programs get it by linking fault_calls, which stands in front of the system's own calls.
class FaultyCalls {
 public:
  // 0 lets the call through; another number is the errno that it fails with, undone.
  using Decide = std::function<int(const FileCall& call, std::size_t index)>;

  explicit FaultyCalls(const std::filesystem::path& directory);
  ~FaultyCalls();
  FaultyCalls(const FaultyCalls&) = delete;

  // The call of this index, counted from 0, fails, and the times - 1 calls behind it that are like it.
  void FailAt(std::size_t index, Fault fault, int times = 1);
  // Calls on the file fail, of one kind or all, each that the fault can happen to.
  void FailOn(const std::string& name, Fault fault);
  void FailOn(const std::string& name, CallKind kind, Fault fault);
  // The process ends in front of the call of this index, as by a power cut.
  void KillAt(std::size_t index);
  void When(Decide decide) { decide_ = std::move(decide); }
  // From here on all goes well.
  void Mend() { decide_ = nullptr; }

  // What was called, in order, and how many of these calls failed on purpose.
  const std::vector<FileCall>& Calls() const { return calls_; }
  std::size_t Failed() const { return failed_; }

  // For the calls themselves: the errno, or 0.
  int Take(const FileCall& call);
  const std::filesystem::path& Directory() const { return directory_; }

 private:
  std::filesystem::path directory_;
  std::vector<FileCall> calls_;
  std::size_t failed_ = 0;
  Decide decide_;
};

}  // namespace lantos::test
