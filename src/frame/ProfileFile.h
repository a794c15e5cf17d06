#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "frame/FileCause.h"
#include "frame/GuardedOpen.h"

namespace lantos {

// What a profile file held at one moment.
class ProfileText {
 public:
  explicit ProfileText(const std::string& text);
  // As ProfileFile's.
  std::string Get(std::string_view section, std::string_view key, std::string_view defaultValue,
                  std::size_t limit = std::string_view::npos) const;

 private:
  std::vector<std::string> lines_;
};

// A profile file ("[section]", "key=value"). It is a foreign file: writing edits one line and keeps every other line,
// its order and its line end as found. Sections and keys are found without regard to case; of two equal ones the
// first counts. Reading never fails: what isn't there gives the default. Of copies that write at once none loses
// another's entry; of two that write the same entry the last wins.
class ProfileFile {
 public:
  using LogFailure = std::function<void(const std::string& text)>;

  // logFailure hears of an entry that could not be written, which the person is not told of.
  explicit ProfileFile(std::filesystem::path path, LogFailure logFailure = nullptr, Links links = Links::KeptInside)
      : path_(std::move(path)), logFailure_(std::move(logFailure)), links_(links) {}

  // The value, blanks around it and one pair of quotes removed, cut at limit characters.
  std::string Get(std::string_view section, std::string_view key, std::string_view defaultValue,
                  std::size_t limit = std::string_view::npos) const {
    return Read().Get(section, key, defaultValue, limit);
  }
  // The whole of it, for who wants many values: the file is opened once.
  ProfileText Read() const;
  struct Entry {
    std::string_view key;
    std::string value;
  };
  // False when the file can't be read and written; it stays as it is then.
  bool Put(std::string_view section, std::string_view key, std::string_view value) {
    return Put(section, {{key, std::string(value)}});
  }
  // All of a section's entries at once, or none.
  bool Put(std::string_view section, const std::vector<Entry>& entries);
  // Why the last Put that failed did.
  const FileFailure& Failure() const { return failure_; }

 private:
  bool Edit(std::string_view section, const std::vector<Entry>& entries);

  std::filesystem::path path_;
  LogFailure logFailure_;
  FileFailure failure_;
  Links links_;
};

}  // namespace lantos
