#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include "frame/FileCause.h"
#include "frame/GuardedOpen.h"

namespace lantos {

// The whole text of a small file that several copies read and edit. Whoever edits it holds it alone from reading to
// writing, so that nobody sees half of it and no other copy's entry is lost; whoever reads waits for that. The wait is
// short and its end is not looked at: a setting is never worth a program that stands still.
class LockedText {
 public:
  enum class Purpose { Reading, Editing };  // editing makes the file where it is missing

  LockedText(const std::filesystem::path& path, Purpose purpose, Links links = Links::KeptInside);
  ~LockedText();
  LockedText(const LockedText&) = delete;

  // Empty when there is no file, or none that can be read: a link out of its directory, or longer than any text. NULs
  // at its end, room that was taken for a text that never came, are none of it.
  std::optional<std::string> Read() const;
  // The last that is done with it: the text is closed then, since some systems tell at the close alone that nothing was
  // stored. False when it can't be written; it stays as it was then, as far as the disk lets it.
  bool Replace(std::string_view text);
  // Of what has failed last, from the opening on.
  const FileFailure& Failure() const { return failure_; }

 private:
  std::string Content() const;  // throws FileError

  std::filesystem::path path_;
  int descriptor_ = -1;
  mutable FileFailure failure_;
};

}  // namespace lantos
