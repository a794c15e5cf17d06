#include "caretaker/exchange/CommandOutput.h"

#include <fcntl.h>
#include <fmt/format.h>
#include <poll.h>
#include <signal.h>
#include <spawn.h>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstring>

namespace lantos {

namespace {

constexpr std::size_t kComplaintAtMost = 1000;
constexpr int kLook = 200;  // milliseconds

class Descriptor {
 public:
  explicit Descriptor(int number = -1) : number_(number) {}
  ~Descriptor() { Close(); }
  Descriptor(const Descriptor&) = delete;
  int Number() const { return number_; }
  void Set(int number) { number_ = number; }
  void Close() {
    if (number_ >= 0) ::close(number_);
    number_ = -1;
  }

 private:
  int number_;
};

// What the program is given: no input, the pipe to print to, a file in memory to complain to.
class Streams {
 public:
  Streams(int print, int complain) {
    ::posix_spawn_file_actions_init(&actions_);
    ::posix_spawn_file_actions_addopen(&actions_, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
    ::posix_spawn_file_actions_adddup2(&actions_, print, STDOUT_FILENO);
    ::posix_spawn_file_actions_adddup2(&actions_, complain, STDERR_FILENO);
  }
  ~Streams() { ::posix_spawn_file_actions_destroy(&actions_); }
  Streams(const Streams&) = delete;
  const posix_spawn_file_actions_t* Actions() const { return &actions_; }

 private:
  posix_spawn_file_actions_t actions_{};
};

// It may be ended by any signal, whatever waits here.
class FreeOfOurMask {
 public:
  FreeOfOurMask() {
    sigset_t none;
    ::sigemptyset(&none);
    ::posix_spawnattr_init(&attributes_);
    ::posix_spawnattr_setsigmask(&attributes_, &none);
    ::posix_spawnattr_setflags(&attributes_, POSIX_SPAWN_SETSIGMASK);
  }
  ~FreeOfOurMask() { ::posix_spawnattr_destroy(&attributes_); }
  FreeOfOurMask(const FreeOfOurMask&) = delete;
  const posix_spawnattr_t* Attributes() const { return &attributes_; }

 private:
  posix_spawnattr_t attributes_{};
};

// Ended and taken leave of, also where nobody wants to hear the rest of it.
class Child {
 public:
  explicit Child(pid_t process) : process_(process) {}
  ~Child() {
    if (process_ <= 0) return;
    ::kill(process_, SIGKILL);
    Wait();
  }
  Child(const Child&) = delete;

  int Wait() {
    int status = 0;
    while (::waitpid(process_, &status, 0) < 0 && errno == EINTR) {
    }
    process_ = -1;
    return status;
  }

 private:
  pid_t process_;
};

std::vector<std::string> EnvironmentWith(const std::vector<Variable>& variables) {
  std::vector<std::string> environment;
  for (char** each = environ; *each != nullptr; ++each) environment.emplace_back(*each);
  for (const Variable& variable : variables) {
    std::erase_if(environment, [&](const std::string& each) { return each.starts_with(variable.name + "="); });
    environment.push_back(variable.name + "=" + variable.value);
  }
  return environment;
}

std::vector<char*> Pointers(std::vector<std::string>& texts) {
  std::vector<char*> pointers;
  for (std::string& text : texts) pointers.push_back(text.data());
  pointers.push_back(nullptr);
  return pointers;
}

[[noreturn]] void RefuseStart(const std::string& name, int reason) {
  if (reason == ENOENT) throw CommandMissing(fmt::format("There is no {}.", name));
  throw CommandError(fmt::format("{} can't be run: {}.", name, std::strerror(reason)));
}

std::string TextOf(const Descriptor& file) {
  std::string text(kComplaintAtMost, '\0');
  const ssize_t length = ::pread(file.Number(), text.data(), text.size(), 0);
  text.resize(length < 0 ? 0 : static_cast<std::size_t>(length));
  while (!text.empty() && (text.back() == '\n' || text.back() == ' ')) text.pop_back();
  return text;
}

void ReadAll(const Descriptor& pipe, const std::string& name, const std::function<void(std::string_view)>& take,
             const std::function<void()>& look) {
  std::array<char, 65536> bytes{};
  for (;;) {
    struct pollfd waited = {pipe.Number(), POLLIN, 0};
    if (::poll(&waited, 1, kLook) == 0) {
      look();
      continue;
    }
    const ssize_t length = ::read(pipe.Number(), bytes.data(), bytes.size());
    if (length == 0) return;
    if (length > 0) {
      take({bytes.data(), static_cast<std::size_t>(length)});
    } else if (errno != EINTR) {
      throw CommandError(fmt::format("What {} prints can't be read: {}.", name, std::strerror(errno)));
    }
  }
}

}  // namespace

std::string RunCommand(const std::vector<std::string>& words, const std::vector<Variable>& variables,
                       const std::function<void(std::string_view)>& take, const std::function<void()>& look) {
  const std::string& name = words.front();
  Descriptor complaints(::memfd_create("complaints", MFD_CLOEXEC));
  std::array<int, 2> ends{};
  if (complaints.Number() < 0 || ::pipe2(ends.data(), O_CLOEXEC) != 0) RefuseStart(name, errno);
  const Descriptor reading(ends[0]);
  Descriptor writing(ends[1]);
  std::vector<std::string> arguments = words;
  std::vector<std::string> environment = EnvironmentWith(variables);
  const Streams streams(writing.Number(), complaints.Number());
  const FreeOfOurMask free;
  pid_t process = -1;
  const int reason = ::posix_spawnp(&process, name.c_str(), streams.Actions(), free.Attributes(),
                                    Pointers(arguments).data(), Pointers(environment).data());
  if (reason != 0) RefuseStart(name, reason);
  Child child(process);
  writing.Close();
  ReadAll(reading, name, take, look);
  const int status = child.Wait();
  const std::string complaint = TextOf(complaints);
  if (WIFEXITED(status) && WEXITSTATUS(status) == 0) return complaint;
  const std::string end = WIFEXITED(status) ? fmt::format("ended with {}", WEXITSTATUS(status))
                                            : fmt::format("was ended by the signal {}", WTERMSIG(status));
  throw CommandError(fmt::format("{} {}{}.", name, end, complaint.empty() ? "" : ": " + complaint));
}

}  // namespace lantos
