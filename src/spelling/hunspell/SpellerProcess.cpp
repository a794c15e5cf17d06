#include "spelling/hunspell/SpellerProcess.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <exception>
#include <utility>

#include "frame/FileError.h"
#include "frame/PlainWords.h"
#include "frame/Uninterrupted.h"

namespace lantos {

namespace {

// What is said, a packet each: a letter and its text.
constexpr char kKnows = 'k';
constexpr char kSuggest = 's';
constexpr char kReady = 'r';
constexpr char kFailed = 'f';  // for the log, a line end, and for people
constexpr std::size_t kLongestPacket = 4096;
constexpr int kPatience = 10'000;  // milliseconds
constexpr int kSocket = 3;         // in the other process

using Packet = std::array<char, kLongestPacket>;

bool Send(int socket, char what, std::string_view text) {
  const std::string packet = what + std::string(text.substr(0, kLongestPacket - 1));
  return Uninterrupted([&] { return ::send(socket, packet.data(), packet.size(), MSG_NOSIGNAL); }) > 0;
}

std::string_view Receive(int socket, Packet& packet) {
  const ssize_t count = Uninterrupted([&] { return ::recv(socket, packet.data(), packet.size(), 0); });
  return {packet.data(), count > 0 ? static_cast<std::size_t>(count) : 0};
}

// Nothing that was open stays so: a lock would be held for as long as this process lives.
void ComeAway(int socket) {
  ::prctl(PR_SET_PDEATHSIG, SIGKILL);
  for (const int signal : {SIGINT, SIGTERM, SIGHUP, SIGPIPE}) std::signal(signal, SIG_DFL);
  const rlimit noCore = {};
  ::setrlimit(RLIMIT_CORE, &noCore);
  const int nowhere = ::open("/dev/null", O_RDWR | O_CLOEXEC);
  for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) ::dup2(nowhere, stream);
  ::dup2(socket, kSocket);
  ::close_range(kSocket + 1, ~0U, 0);
}

std::string Joined(const std::vector<std::string>& words) {
  std::string text;
  for (const std::string& word : words) {
    if (text.size() + word.size() + 1 < kLongestPacket) text += word + '\n';
  }
  return text;
}

// Until the other side is gone.
void Serve(const OpenSpeller& open) {
  try {
    const std::unique_ptr<Speller> speller = open();
    Packet packet;
    Send(kSocket, kReady, "");
    for (;;) {
      const std::string_view asked = Receive(kSocket, packet);
      if (asked.empty()) return;
      const std::string word(asked.substr(1));
      Send(kSocket, asked[0],
           asked[0] == kKnows ? (speller->Knows(word) ? "1" : "") : Joined(speller->Suggestions(word)));
    }
  } catch (const std::exception& error) {
    const std::string text = error.what();
    Send(kSocket, kFailed, text.substr(0, text.find('\n')) + '\n' + WordsFor(error));
  }
}

}  // namespace

SpellerProcess::SpellerProcess(const OpenSpeller& open, std::string name) : name_(std::move(name)) {
  std::array<int, 2> ends{};
  if (::socketpair(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC, 0, ends.data()) != 0)
    ThrowFileError(errno, "a pair of sockets");
  process_ = ::fork();
  if (process_ == 0) {
    ComeAway(ends[1]);
    Serve(open);
    ::_exit(0);
  }
  const int errorNumber = errno;
  ::close(ends[1]);
  socket_ = ends[0];
  if (process_ < 0) {
    End();
    ThrowFileError(errorNumber, "a process for the dictionary");
  }
  const std::string answer = Answer();
  if (answer[0] == kReady) return;
  End();
  const std::size_t line = answer.find('\n');
  throw WordedError(answer.substr(1, line - 1), answer.substr(line + 1));
}

SpellerProcess::~SpellerProcess() { End(); }

void SpellerProcess::End() {
  if (socket_ >= 0) ::close(std::exchange(socket_, -1));
  if (process_ <= 0) return;
  ::kill(process_, SIGKILL);
  Uninterrupted([this] { return ::waitpid(process_, nullptr, 0); });
  process_ = -1;
}

void SpellerProcess::Fail() {
  End();
  throw WordedError("the dictionary's process gave no answer: " + name_,
                    "The dictionary " + name_ + " can't be used: it is damaged. Install it anew.");
}

std::string SpellerProcess::Answer() {
  struct pollfd waited = {socket_, POLLIN, 0};
  if (Uninterrupted([&] { return ::poll(&waited, 1, kPatience); }) != 1) Fail();
  Packet packet;
  std::string answer(Receive(socket_, packet));
  if (answer.empty()) Fail();
  return answer;
}

std::string SpellerProcess::Ask(char what, std::string_view word) {
  if (socket_ < 0 || !Send(socket_, what, word)) Fail();
  const std::string answer = Answer();
  if (answer.front() != what) Fail();
  return answer.substr(1);
}

bool SpellerProcess::Knows(const std::string& word) { return !Ask(kKnows, word).empty(); }

std::vector<std::string> SpellerProcess::Suggestions(const std::string& word) {
  const std::string text = Ask(kSuggest, word);
  std::vector<std::string> words;
  for (std::size_t begin = 0, end = 0; (end = text.find('\n', begin)) != std::string::npos; begin = end + 1) {
    words.push_back(text.substr(begin, end - begin));
  }
  return words;
}

}  // namespace lantos
