#pragma once

#include <string>

#include "frame/PlainWords.h"

namespace lantos {

// A backup can't be made, read or put back; what() says which file is against it and what can be done.
class BackupError : public WordedError {
 public:
  explicit BackupError(const std::string& words) : WordedError(words, words) {}
};

}  // namespace lantos
