#pragma once

#include <string>
#include <string_view>

#include "frame/SharedFile.h"
#include "records/OpenedFile.h"
#include "records/Record.h"
#include "shopmaker/ShopDirectory.h"

namespace lantos::sample {

// A file that is written from its beginning to its end.
class GrowingFile {
 public:
  GrowingFile(ShopDirectory& directory, std::string_view name)
      : name_(name), file_(directory.Claim(name), Access::Write, Deny::All) {}

  // Where what is added next will lie.
  FileLink Next() const { return LinkAtEnd(written_ + waiting_.size(), name_); }
  void Add(std::string_view bytes) {
    waiting_ += bytes;
    if (waiting_.size() >= kBlock) Flush();
  }
  template <std::size_t Length>
  void Add(const Record<Length>& record) {
    Add(std::string_view(reinterpret_cast<const char*>(record.Bytes().data()), Length));
  }
  void Close() {
    Flush();
    file_.Close();
  }

 private:
  static constexpr std::size_t kBlock = 1 << 20;

  void Flush() {
    if (!waiting_.empty()) file_.WriteAt(written_, std::as_bytes(std::span(waiting_)));
    written_ += waiting_.size();
    waiting_.clear();
  }

  std::string name_;
  SharedFile file_;
  std::string waiting_;
  std::uint64_t written_ = 0;
};

}  // namespace lantos::sample
