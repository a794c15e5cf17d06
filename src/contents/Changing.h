#pragma once

#include <exception>
#include <functional>

namespace lantos {

// Makes a change in the database and in what is seen of it. Where it fails on its way, what is seen goes back to what
// the database has, as far as that can be read, and the failure goes on.
inline void ChangeOrGoBack(const std::function<void()>& change, const std::function<void()>& goBack) {
  try {
    change();
  } catch (const std::exception&) {
    try {
      goBack();
    } catch (const std::exception&) {  // the first failure is the one to tell of
    }
    throw;
  }
}

}  // namespace lantos
