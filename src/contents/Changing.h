#pragma once

#include <exception>
#include <functional>
#include <string>

#include "estimatedb/engine/DatabaseError.h"
#include "frame/PlainWords.h"

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

// Shows a line that is stored already, and with it what other workstations have stored, which reload reads. Where that
// can't be read the line is shown all the same, so that nobody adds it once more. What names it.
inline void ShowStored(const std::string& what, const std::function<void()>& reload,
                       const std::function<void()>& show) {
  try {
    reload();
  } catch (const std::exception& error) {
    show();
    throw WordedError(error.what(), what +
                                        " is stored, but the list could not be read again.\rLines that other "
                                        "workstations have added may be missing from it.");
  }
  show();
}

}  // namespace lantos
