#include "support/CuttingProxy.h"

#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <filesystem>
#include <stdexcept>

namespace lantos::test {

namespace {

constexpr const char* kName = "/.s.PGSQL.5432";  // of a server's socket in its directory
constexpr int kLookEvery = 20;                   // milliseconds, whether it is to end

sockaddr_un AddressOf(const std::string& path) {
  sockaddr_un address{};
  address.sun_family = AF_UNIX;
  if (path.size() >= sizeof(address.sun_path)) throw std::runtime_error(path + ": too long for a socket");
  std::memcpy(address.sun_path, path.c_str(), path.size() + 1);
  return address;
}

template <class Call>
int OnSocket(const std::string& path, Call call) {
  const int descriptor = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
  const sockaddr_un address = AddressOf(path);
  if (call(descriptor, reinterpret_cast<const sockaddr*>(&address), sizeof(address)) == 0) return descriptor;
  ::close(descriptor);
  return -1;
}

bool CanBeRead(int descriptor) {
  pollfd each{descriptor, POLLIN, 0};
  return ::poll(&each, 1, kLookEvery) > 0;
}

}  // namespace

CuttingProxy::CuttingProxy(std::string directory, const std::string& serverDirectory)
    : directory_(std::move(directory)), server_(serverDirectory + kName) {
  std::filesystem::create_directories(directory_);
  listener_ = OnSocket(directory_ + kName, ::bind);
  if (listener_ < 0 || ::listen(listener_, 8) != 0) throw std::runtime_error(directory_ + ": no socket");
  thread_ = std::thread([this] { Serve(); });
}

CuttingProxy::~CuttingProxy() {
  isEnding_ = true;
  thread_.join();
  for (std::thread& line : lines_) line.join();
  ::close(listener_);
}

void CuttingProxy::Serve() {
  while (!isEnding_) {
    if (!CanBeRead(listener_)) continue;
    const int client = ::accept4(listener_, nullptr, nullptr, SOCK_CLOEXEC);
    if (client >= 0) lines_.emplace_back([this, client] { Forward(client); });
  }
}

void CuttingProxy::Forward(int client) {
  const int server = OnSocket(server_, ::connect);
  std::array<pollfd, 2> ends{pollfd{client, POLLIN, 0}, pollfd{server, POLLIN, 0}};
  bool isWhole = server >= 0;
  const int cuts = cuts_;
  while (isWhole && !isEnding_ && cuts_ == cuts) {
    const bool isSilent = isSilent_;
    for (pollfd& end : ends) end.events = isSilent ? 0 : POLLIN;
    if (::poll(ends.data(), ends.size(), kLookEvery) <= 0) continue;
    if (isSilent) break;  // somebody has hung up
    if (ends[0].revents != 0) isWhole = Pass(client, server);
    if (isWhole && ends[1].revents != 0) isWhole = Pass(server, client);
  }
  ::close(client);
  if (server >= 0) ::close(server);
}

bool CuttingProxy::Pass(int from, int to) {
  std::array<char, 16384> bytes{};
  const std::int64_t most = std::min<std::int64_t>(left_, bytes.size());
  const ssize_t length = most == 0 ? 0 : ::read(from, bytes.data(), static_cast<std::size_t>(most));
  if (length <= 0 || ::send(to, bytes.data(), static_cast<std::size_t>(length), MSG_NOSIGNAL) != length) {
    left_ = kWhole;
    return false;
  }
  left_ -= length;
  passed_ += length;
  if (left_ > 0) return true;
  left_ = kWhole;
  return false;
}

}  // namespace lantos::test
