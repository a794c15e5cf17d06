#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "frame/FileCause.h"
#include "spelling/WordSet.h"

namespace lantos {

// The words that a person has added to the dictionary: a file of lines in UTF-8, a word a line, in the order in which
// they came. Anybody may edit it by hand; a line that is too long for a word is passed over and stays.
class OwnWords {
 public:
  static constexpr std::size_t kLongestWord = 64;

  // In the directory of the person's settings.
  explicit OwnWords(const std::filesystem::path& directory) : file_(directory / "words.txt") {}

  // None where there is no file, or none that can be read.
  WordSet Load() const;
  // Behind those that are there. False when they could not be stored; the file is as it was then.
  bool Add(const std::vector<std::string>& words);

  const std::filesystem::path& File() const { return file_; }
  const FileFailure& Failure() const { return failure_; }

 private:
  std::filesystem::path file_;
  FileFailure failure_;
};

}  // namespace lantos
