#pragma once

#include <atomic>
#include <cstdint>
#include <string>
#include <thread>
#include <vector>

namespace lantos::test {

// Stands between a program and its database server, and cuts the line where it is told to: behind so many bytes,
// counted in both directions together. Each connection has a line of its own; what is counted is that of all.
class CuttingProxy {
 public:
  // The directory, which is made, stands for the server's in an address.
  CuttingProxy(std::string directory, const std::string& serverDirectory);
  ~CuttingProxy();
  CuttingProxy(const CuttingProxy&) = delete;

  // From here on; the line is cut once.
  void CutBehind(std::int64_t bytes) { left_ = bytes; }
  void CutNoMore() { left_ = kWhole; }
  // All lines that stand.
  void CutNow() { ++cuts_; }
  // The line stands, and nothing comes through it.
  void FallSilent() { isSilent_ = true; }
  void SpeakAgain() { isSilent_ = false; }
  // Since the last time that somebody asked.
  std::int64_t TakePassed() { return passed_.exchange(0); }
  const std::string& Directory() const { return directory_; }

 private:
  static constexpr std::int64_t kWhole = INT64_MAX / 2;

  void Serve();
  void Forward(int client);
  bool Pass(int from, int to);

  std::string directory_;
  std::string server_;
  int listener_ = -1;
  std::atomic<std::int64_t> left_ = kWhole;
  std::atomic<std::int64_t> passed_ = 0;
  std::atomic<int> cuts_ = 0;
  std::atomic<bool> isSilent_ = false;
  std::atomic<bool> isEnding_ = false;
  std::thread thread_;
  std::vector<std::thread> lines_;
};

}  // namespace lantos::test
