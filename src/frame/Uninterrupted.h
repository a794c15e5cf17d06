#pragma once

#include <cerrno>

namespace lantos {

// A system call, made again for as long as a signal breaks it off.
template <class Call>
auto Uninterrupted(Call call) {
  auto result = call();
  while (result < 0 && errno == EINTR) result = call();
  return result;
}

}  // namespace lantos
