#pragma once

#include <exception>
#include <functional>

#include "estimatedb/engine/DatabaseError.h"

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

// Writes what isn't seen yet. Where the database refuses it, what is seen is read again, since another workstation may
// have changed it; not from one that is locked, where nothing is to be had, and reading would wait as long once more.
inline void StoreOrReload(const std::function<void()>& store, const std::function<void()>& reload) {
  try {
    store();
  } catch (const DatabaseError& error) {
    if (error.Kind() == DatabaseErrorKind::Locked) throw;
    try {
      reload();
    } catch (const std::exception&) {
    }
    throw;
  }
}

}  // namespace lantos
