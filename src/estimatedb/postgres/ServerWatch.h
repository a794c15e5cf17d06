#pragma once

#include <chrono>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "estimatedb/engine/ChangeWatch.h"
#include "estimatedb/postgres/ConnectingThread.h"
#include "estimatedb/postgres/OwnChanges.h"
#include "estimatedb/postgres/PostgresConnection.h"
#include "estimatedb/postgres/ServerFile.h"

namespace lantos {

// Listens on a server, on a connection of its own without pipelines and never within a transaction. Each look goes on
// as far as it can without waiting: connect, find or make what the changes are fed from, listen, and only then read
// what has come; notices count from then on. A connection that has said nothing for a while is asked, which finds a
// dead one and is a look besides. Now and then the trail itself is looked at, for changes that nobody was told of. What
// goes wrong ends the connection, and after a pause a new one is made.
class ServerWatch : public ChangeWatch {
 public:
  ServerWatch(ServerPlace place, std::shared_ptr<const OwnChanges> own, const WatchTimes& times)
      : place_(std::move(place)), own_(std::move(own)), times_(times), pause_(times.firstPause) {}

  ForeignRows Ask() override;
  WatchContact Contact() const override;
  std::chrono::milliseconds Pace() const override { return times_.merge; }

 private:
  using Moment = std::chrono::steady_clock::time_point;
  // Each but Away, Connecting and Quiet waits for an answer.
  enum class Step { Away, Connecting, Finding, Making, Listening, Reading, Looking, Quiet };

  bool GoOn();
  bool GoOnConnecting();
  bool TakeAnswer();
  void Answered();
  bool LookForNotices();
  void Send(Step step, const std::string& text, const std::vector<std::string>& values = {});
  void TakeInput();
  void DrainNotices();
  void Read();
  void TakeNews();
  void Look();
  bool HasMissed();
  void Stand();
  void Lose(const std::string& reason, std::string_view state);
  [[noreturn]] void ThrowLost(const char* why) const;

  ServerPlace place_;
  std::shared_ptr<const OwnChanges> own_;
  WatchTimes times_;
  std::unique_ptr<ConnectingThread> connecting_;
  PostgresLink link_;
  Step step_ = Step::Away;
  Moment since_{};  // of the step
  Moment nextTry_{};
  std::chrono::milliseconds pause_;
  PostgresResult result_;  // of the step
  std::string channel_;
  std::optional<double> known_;  // the highest number that was read
  std::size_t doubtsAsked_ = 0;  // how often one's own changes had been in doubt when it was last read
  std::size_t doubtsTold_ = 0;
  std::optional<Moment> noticed_;
  Moment read_{};                    // what has come
  Moment looked_{};                  // at the trail
  std::optional<double> trailFrom_;  // what is behind it is looked at
  std::optional<double> untold_;     // rows there that the feed doesn't have
  Moment heard_ = std::chrono::steady_clock::now();
  Moment lostSince_ = heard_;
  bool stands_ = false;
  std::string trouble_;
  std::string reason_;
  ForeignRows news_;
};

}  // namespace lantos
