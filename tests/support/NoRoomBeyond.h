#pragma once

#include <gtest/gtest.h>
#include <sys/resource.h>

#include <csignal>

namespace lantos::test {

// No file of this process grows beyond the length, as on a full disk.
class NoRoomBeyond {
 public:
  explicit NoRoomBeyond(rlim_t length) : handler_(std::signal(SIGXFSZ, SIG_IGN)) {
    ::getrlimit(RLIMIT_FSIZE, &before_);
    const rlimit limit = {length, before_.rlim_max};
    EXPECT_EQ(::setrlimit(RLIMIT_FSIZE, &limit), 0);
  }
  ~NoRoomBeyond() {
    ::setrlimit(RLIMIT_FSIZE, &before_);
    std::signal(SIGXFSZ, handler_);
  }
  NoRoomBeyond(const NoRoomBeyond&) = delete;

 private:
  void (*handler_)(int);
  rlimit before_{};
};

}  // namespace lantos::test
