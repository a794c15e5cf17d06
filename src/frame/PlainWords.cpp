#include "frame/PlainWords.h"

namespace lantos {

std::string WordsFor(const std::exception& error) {
  const auto* plain = dynamic_cast<const PlainWords*>(&error);
  return plain != nullptr ? plain->Words() : error.what();
}

}  // namespace lantos
