#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "estimatedb/engine/ChangeWatch.h"
#include "estimatedb/postgres/PostgresConnection.h"
#include "estimatedb/postgres/ServerFile.h"

namespace lantos {

// Listens on a server, on a connection of its own without pipelines and never within a transaction. Each look goes on
// as far as it can without waiting: connect, find or make what the changes are fed from, listen, and only then read
// what has come; notices count from then on. A connection that has said nothing for a while is asked, which finds a
// dead one and is a look besides. What goes wrong ends the connection, and after a pause a new one is made.
class ServerWatch : public ChangeWatch {
 public:
  // Copy is the name by which one's own changes are told.
  ServerWatch(ServerPlace place, std::string copy, const WatchTimes& times)
      : place_(std::move(place)), copy_(std::move(copy)), times_(times), pause_(times.firstPause) {}

  ForeignRows Ask() override;
  WatchContact Contact() const override;
  std::chrono::milliseconds Pace() const override { return times_.merge; }

 private:
  using Moment = std::chrono::steady_clock::time_point;
  // Each but Away, Connecting and Quiet waits for an answer.
  enum class Step { Away, Connecting, Finding, Making, Listening, Reading, Quiet };

  bool GoOn();
  bool GoOnConnecting();
  bool TakeAnswer();
  void Answered();
  bool LookForNotices();
  void Send(Step step, const std::string& text, const std::vector<std::string>& values = {});
  void TakeInput();
  void DrainNotices();
  void TakeNews();
  void Lose();
  [[noreturn]] void ThrowLost(const char* why) const;

  ServerPlace place_;
  std::string copy_;
  WatchTimes times_;
  PostgresLink link_;
  Step step_ = Step::Away;
  Moment since_{};  // of the step
  Moment nextTry_{};
  std::chrono::milliseconds pause_;
  PostgresResult result_;  // of the step
  std::string channel_;
  std::optional<double> known_;  // the highest number that was read
  std::optional<Moment> noticed_;
  Moment heard_ = std::chrono::steady_clock::now();
  Moment lostSince_ = heard_;
  bool stands_ = false;
  ForeignRows news_;
};

}  // namespace lantos
