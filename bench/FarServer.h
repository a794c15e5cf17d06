#pragma once

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <condition_variable>
#include <cstring>
#include <deque>
#include <filesystem>
#include <mutex>
#include <stdexcept>
#include <string>
#include <thread>
#include <utility>

namespace lantos::bench {

// A database server that lies so far away: what is sent through its socket arrives that much later, and so does what
// comes back. One connection after another, as a program has them.
class FarServer {
 public:
  // The directory, which is made, stands for the server's in an address.
  FarServer(std::string directory, const std::string& serverDirectory, std::chrono::microseconds delay)
      : directory_(std::move(directory)), server_(serverDirectory + kName), delay_(delay) {
    std::filesystem::create_directories(directory_);
    listener_ = OnSocket(directory_ + kName, ::bind);
    if (listener_ < 0 || ::listen(listener_, 8) != 0) throw std::runtime_error(directory_ + ": no socket");
    thread_ = std::thread([this] { Serve(); });
  }
  // Those who are connected have gone by then.
  ~FarServer() {
    ::shutdown(listener_, SHUT_RDWR);
    thread_.join();
    ::close(listener_);
    std::filesystem::remove_all(directory_);
  }
  FarServer(const FarServer&) = delete;

 private:
  using Clock = std::chrono::steady_clock;
  static constexpr const char* kName = "/.s.PGSQL.5432";  // of a server's socket in its directory

  // What is under way in one direction.
  class Way {
   public:
    void Take(int from, int to, std::chrono::microseconds delay) {
      std::thread arriving([&] { Deliver(to); });
      std::array<char, 65536> bytes;
      for (ssize_t length; (length = ::read(from, bytes.data(), bytes.size())) > 0;) {
        Add({Clock::now() + delay, std::string(bytes.data(), static_cast<std::size_t>(length))});
      }
      Add({Clock::now(), {}});
      arriving.join();
      ::shutdown(to, SHUT_WR);
    }

   private:
    struct Piece {
      Clock::time_point due;
      std::string bytes;  // empty: the end
    };
    void Add(Piece piece) {
      const std::lock_guard lock(mutex_);
      pieces_.push_back(std::move(piece));
      added_.notify_one();
    }
    void Deliver(int to) {
      for (;;) {
        std::unique_lock lock(mutex_);
        added_.wait(lock, [this] { return !pieces_.empty(); });
        const Piece piece = std::move(pieces_.front());
        pieces_.pop_front();
        lock.unlock();
        if (piece.bytes.empty()) return;
        while (Clock::now() < piece.due) {  // a sleep would come back late
        }
        if (::send(to, piece.bytes.data(), piece.bytes.size(), MSG_NOSIGNAL) < 0) return;
      }
    }
    std::mutex mutex_;
    std::condition_variable added_;
    std::deque<Piece> pieces_;
  };

  template <class Call>
  static int OnSocket(const std::string& path, Call call) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    if (path.size() >= sizeof(address.sun_path)) throw std::runtime_error(path + ": too long for a socket");
    std::memcpy(address.sun_path, path.c_str(), path.size() + 1);
    const int descriptor = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    if (call(descriptor, reinterpret_cast<const sockaddr*>(&address), sizeof(address)) == 0) return descriptor;
    ::close(descriptor);
    return -1;
  }
  void Serve() {
    for (int client; (client = ::accept4(listener_, nullptr, nullptr, SOCK_CLOEXEC)) >= 0;) {
      const int server = OnSocket(server_, ::connect);
      Way there, back;
      std::thread forward([&] { there.Take(client, server, delay_); });
      back.Take(server, client, delay_);
      forward.join();
      ::close(client);
      ::close(server);
    }
  }

  std::string directory_;
  std::string server_;
  std::chrono::microseconds delay_;
  int listener_ = -1;
  std::thread thread_;
};

}  // namespace lantos::bench
