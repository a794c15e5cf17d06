#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace lantos {

// A dictionary that is asked about single words, in the program's page.
class Speller {
 public:
  virtual ~Speller() = default;
  virtual bool Knows(const std::string& word) = 0;
  // The likeliest first; none of them need be there.
  virtual std::vector<std::string> Suggestions(const std::string& word) = 0;
};

// Opens it for one check of a text. Null when this workstation has none; throws when it has one that can't be used.
using OpenSpeller = std::function<std::unique_ptr<Speller>()>;

}  // namespace lantos
