#include "support/FaultyCalls.h"

#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <stdexcept>

#include "support/SystemCalls.h"

namespace lantos::test {

namespace {

bool IsOpening(CallKind kind) { return kind == CallKind::Open || kind == CallKind::Create; }

int ErrnoOfReadOnly(const FileCall& call) {
  if (call.kind == CallKind::Open) return call.forWriting ? EACCES : 0;
  return call.kind == CallKind::Flush ? 0 : EROFS;
}

int ErrnoOfFullDisk(const FileCall& call) {
  const bool takesRoom = call.kind == CallKind::Create || call.kind == CallKind::Write || call.kind == CallKind::Flush;
  return takesRoom || (call.kind == CallKind::Close && call.forWriting) ? ENOSPC : 0;
}

}  // namespace

std::string NameOf(CallKind kind) {
  constexpr const char* kNames[] = {"open", "create", "read", "write", "cut", "flush", "lock", "close", "delete"};
  return kNames[static_cast<std::size_t>(kind)];
}

std::string NameOf(Fault fault) {
  constexpr const char* kNames[] = {"disk full", "I/O error", "read-only", "held"};
  return kNames[static_cast<std::size_t>(fault)];
}

bool Changes(const FileCall& call) {
  return call.kind == CallKind::Create || call.kind == CallKind::Write || call.kind == CallKind::Cut ||
         call.kind == CallKind::Delete;
}

int ErrnoOf(const FileCall& call, Fault fault) {
  switch (fault) {
    case Fault::DiskFull:
      return ErrnoOfFullDisk(call);
    case Fault::DeviceIo:
      return call.kind == CallKind::Lock || (call.kind == CallKind::Close && !call.forWriting) ? 0 : EIO;
    case Fault::ReadOnly:
      return Changes(call) || IsOpening(call.kind) ? ErrnoOfReadOnly(call) : 0;
    case Fault::Held:
      return call.kind == CallKind::Lock ? EAGAIN : 0;
  }
  return 0;
}

FaultyCalls::FaultyCalls(const std::filesystem::path& directory)
    : directory_(std::filesystem::absolute(directory).lexically_normal()) {
  // A directory's name may end in a separator, a parent's doesn't.
  if (!directory_.has_filename()) directory_ = directory_.parent_path();
  if (Watching() != nullptr) throw std::logic_error("calls are watched already");
  Watch(this);
}

FaultyCalls::~FaultyCalls() { Watch(nullptr); }

void FaultyCalls::FailAt(std::size_t index, Fault fault, int times) {
  FileCall first;
  When([index, fault, times, first](const FileCall& call, std::size_t at) mutable {
    if (at < index || times == 0) return 0;
    if (at == index) first = call;
    if (at > index && !(call == first)) return 0;
    --times;
    return ErrnoOf(call, fault);
  });
}

void FaultyCalls::FailOn(const std::string& name, Fault fault) {
  When([name, fault](const FileCall& call, std::size_t) { return call.name == name ? ErrnoOf(call, fault) : 0; });
}

void FaultyCalls::FailOn(const std::string& name, CallKind kind, Fault fault) {
  When([name, kind, fault](const FileCall& call, std::size_t) {
    return call.name == name && call.kind == kind ? ErrnoOf(call, fault) : 0;
  });
}

void FaultyCalls::KillAt(std::size_t index) {
  When([index](const FileCall&, std::size_t at) {
    if (at == index) ::kill(::getpid(), SIGKILL);
    return 0;
  });
}

int FaultyCalls::Take(const FileCall& call) {
  const std::size_t index = calls_.size();
  calls_.push_back(call);
  const int result = decide_ ? decide_(call, index) : 0;
  failed_ += result != 0 ? 1 : 0;
  return result;
}

}  // namespace lantos::test
