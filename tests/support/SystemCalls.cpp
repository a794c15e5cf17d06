#include "support/SystemCalls.h"

#include <fcntl.h>
#include <fnmatch.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cerrno>
#include <cstdarg>
#include <filesystem>
#include <map>
#include <mutex>

#include "support/FaultyCalls.h"

// The calls on files that the program and the database engine make, by their names in the C library. A program that has
// them of its own is asked first, whichever library calls. They go on to the system, by way of the address sanitizer
// where it looks at the memory that they are handed.
extern "C" {
__attribute__((weak)) ssize_t __interceptor_pread64(int descriptor, void* into, size_t count, off_t offset);
__attribute__((weak)) ssize_t __interceptor_pwrite64(int descriptor, const void* bytes, size_t count, off_t offset);
}

namespace lantos::test {

namespace {

struct OpenedFile {
  std::string name;
  bool forWriting = false;
};

struct State {
  std::recursive_mutex mutex;
  FaultyCalls* watching = nullptr;
  std::map<int, OpenedFile> opened;  // of the watched directory, by descriptor
};

// Calls come before any object of a source has been made, and after it is gone.
State& TheState() {
  static State* const state = new State;
  return *state;
}

bool IsRunLog(const std::string& name) { return ::fnmatch("LN*.LOG", name.c_str(), 0) == 0; }

// The file's name where it lies in the watched directory, otherwise empty.
std::string WatchedName(const State& state, const char* path) {
  if (state.watching == nullptr || path == nullptr) return {};
  const std::filesystem::path whole = std::filesystem::absolute(path).lexically_normal();
  if (whole.parent_path() != state.watching->Directory() || IsRunLog(whole.filename())) return {};
  return whole.filename();
}

bool Refuses(State& state, const FileCall& call) {
  const int result = state.watching->Take(call);
  if (result != 0) errno = result;
  return result != 0;
}

// For a call on a descriptor: true when it is to fail, errno being set.
bool Fails(CallKind kind, int descriptor) {
  State& state = TheState();
  const std::lock_guard lock(state.mutex);
  const auto found = state.opened.find(descriptor);
  if (state.watching == nullptr || found == state.opened.end()) return false;
  return Refuses(state, {kind, found->second.name, found->second.forWriting});
}

}  // namespace

void Watch(FaultyCalls* calls) {
  State& state = TheState();
  const std::lock_guard lock(state.mutex);
  state.watching = calls;
  if (calls == nullptr) state.opened.clear();
}

FaultyCalls* Watching() { return TheState().watching; }

int Open(const char* path, int flags, mode_t mode) {
  const auto open = [&] { return static_cast<int>(::syscall(SYS_openat, AT_FDCWD, path, flags, mode)); };
  State& state = TheState();
  const std::lock_guard lock(state.mutex);
  const std::string name = WatchedName(state, path);
  if (name.empty()) return open();
  const bool forWriting = (flags & O_ACCMODE) != O_RDONLY;
  const bool creates = (flags & O_CREAT) != 0 && ::access(path, F_OK) != 0;
  if (Refuses(state, {creates ? CallKind::Create : CallKind::Open, name, forWriting})) return -1;
  const int descriptor = open();
  if (descriptor >= 0) state.opened[descriptor] = {name, forWriting};
  return descriptor;
}

bool ReadFails(int descriptor) { return Fails(CallKind::Read, descriptor); }
bool WriteFails(int descriptor) { return Fails(CallKind::Write, descriptor); }
bool CutFails(int descriptor) { return Fails(CallKind::Cut, descriptor); }
bool FlushFails(int descriptor) { return Fails(CallKind::Flush, descriptor); }
bool LockFails(int descriptor) { return Fails(CallKind::Lock, descriptor); }

bool DeleteFails(const char* path) {
  State& state = TheState();
  const std::lock_guard lock(state.mutex);
  const std::string name = WatchedName(state, path);
  return !name.empty() && Refuses(state, {CallKind::Delete, name, true});
}

// The descriptor is free afterwards in any case, as the system has it.
int Close(int descriptor) {
  const bool fails = Fails(CallKind::Close, descriptor);
  const int failure = errno;
  {
    State& state = TheState();
    const std::lock_guard lock(state.mutex);
    state.opened.erase(descriptor);
  }
  const auto result = static_cast<int>(::syscall(SYS_close, descriptor));
  if (!fails) return result;
  errno = failure;
  return -1;
}

}  // namespace lantos::test

namespace {

bool TakesALock(int command, const void* argument) {
  const bool sets = command == F_SETLK || command == F_SETLKW || command == F_OFD_SETLK || command == F_OFD_SETLKW;
  return sets && static_cast<const struct flock*>(argument)->l_type != F_UNLCK;
}

}  // namespace

// Under the names that calls bear where offsets have 64 bits.
extern "C" {

int FaultyOpen(const char* path, int flags, ...) __asm__("open64");
int FaultyOpen(const char* path, int flags, ...) {
  va_list rest;
  va_start(rest, flags);
  const mode_t mode = (flags & O_CREAT) != 0 ? va_arg(rest, mode_t) : 0;
  va_end(rest);
  return lantos::test::Open(path, flags, mode);
}

ssize_t FaultyRead(int descriptor, void* into, size_t count, off_t offset) __asm__("pread64");
ssize_t FaultyRead(int descriptor, void* into, size_t count, off_t offset) {
  if (lantos::test::ReadFails(descriptor)) return -1;
  if (__interceptor_pread64 != nullptr) return __interceptor_pread64(descriptor, into, count, offset);
  return ::syscall(SYS_pread64, descriptor, into, count, offset);
}

ssize_t FaultyWrite(int descriptor, const void* bytes, size_t count, off_t offset) __asm__("pwrite64");
ssize_t FaultyWrite(int descriptor, const void* bytes, size_t count, off_t offset) {
  if (lantos::test::WriteFails(descriptor)) return -1;
  if (__interceptor_pwrite64 != nullptr) return __interceptor_pwrite64(descriptor, bytes, count, offset);
  return ::syscall(SYS_pwrite64, descriptor, bytes, count, offset);
}

int FaultyCut(int descriptor, off_t length) __asm__("ftruncate64");
int FaultyCut(int descriptor, off_t length) {
  if (lantos::test::CutFails(descriptor)) return -1;
  return static_cast<int>(::syscall(SYS_ftruncate, descriptor, length));
}

int FaultyTake(int descriptor, off_t offset, off_t length) __asm__("posix_fallocate64");
int FaultyTake(int descriptor, off_t offset, off_t length) {
  if (lantos::test::WriteFails(descriptor)) return errno;
  return ::syscall(SYS_fallocate, descriptor, 0, offset, length) == 0 ? 0 : errno;
}

int FaultyFlush(int descriptor) __asm__("fsync");
int FaultyFlush(int descriptor) {
  if (lantos::test::FlushFails(descriptor)) return -1;
  return static_cast<int>(::syscall(SYS_fsync, descriptor));
}

int FaultyDataFlush(int descriptor) __asm__("fdatasync");
int FaultyDataFlush(int descriptor) {
  if (lantos::test::FlushFails(descriptor)) return -1;
  return static_cast<int>(::syscall(SYS_fdatasync, descriptor));
}

int FaultyControl(int descriptor, int command, ...) __asm__("fcntl64");
int FaultyControl(int descriptor, int command, ...) {
  va_list rest;
  va_start(rest, command);
  void* const argument = va_arg(rest, void*);
  va_end(rest);
  if (TakesALock(command, argument) && lantos::test::LockFails(descriptor)) return -1;
  return static_cast<int>(::syscall(SYS_fcntl, descriptor, command, argument));
}

int FaultyClose(int descriptor) __asm__("close");
int FaultyClose(int descriptor) { return lantos::test::Close(descriptor); }

int FaultyDelete(const char* path) __asm__("unlink");
int FaultyDelete(const char* path) {
  if (lantos::test::DeleteFails(path)) return -1;
  return static_cast<int>(::syscall(SYS_unlink, path));
}

}  // extern "C"
