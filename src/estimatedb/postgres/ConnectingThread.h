#pragma once

#include <chrono>
#include <memory>
#include <string>

#include "estimatedb/postgres/PostgresConnection.h"

namespace lantos {

// A connection in the making, on a thread of its own: there the client library waits for the server's name to be looked
// up, however long that takes, and whoever wants the connection waits no longer than it likes.
class ConnectingThread {
 public:
  // Server is a connection string; the program's own wishes give way to what stands in it. Patience is with the server,
  // once it is looked up. Throws PostgresFailure.
  ConnectingThread(std::string server, std::chrono::milliseconds patience);
  // Gives up what isn't made.
  ~ConnectingThread();
  ConnectingThread(const ConnectingThread&) = delete;
  ConnectingThread& operator=(const ConnectingThread&) = delete;

  // Once, when it is made; null if it isn't within the time. Throws PostgresFailure when it can't be made.
  PostgresLink TakeWithin(std::chrono::milliseconds time);

 private:
  class Work;
  std::shared_ptr<Work> work_;
};

}  // namespace lantos
