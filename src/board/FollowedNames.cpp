#include "board/FollowedNames.h"

#include "records/Customers.h"

namespace lantos {

// A file that can't be told from another one isn't followed. Whoever opens it says what is the matter.
void FollowedNames::Begin() {
  isStale_ = false;
  stamp_ = {};
  try {
    TakeStamp();
  } catch (const FileError&) {
    path_.clear();
  }
}

bool FollowedNames::AreStale() const { return isStale_ || !isReliedOn_ || FileStamp::Of(path_) != stamp_; }

// The stamp is taken before the names are read: a change in between shows at the next look.
void FollowedNames::ReadTags() {
  isStale_ = true;
  TakeStamp();
  Customers& customers = shop_.records.customers;
  const Customers::Quietly quietly(customers);
  customers.LoadCustomerTags(Customers::From::File);
}

// A stamp that another change may have left as well is relied on when the names are read a second time under it, since
// that is a second or more later.
void FollowedNames::TakeStamp() {
  path_ = shop_.environment.files.PathOf(kCustomerTagFile).string();
  const FileStamp now = FileStamp::Of(path_);
  isReliedOn_ = now == stamp_ || now.IsSettled();
  stamp_ = now;
}

}  // namespace lantos
