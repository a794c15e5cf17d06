#pragma once

#include <exception>
#include <stdexcept>
#include <string>

namespace lantos {

// What an error says to a person where its own text is for the run log: a statement and its values, say.
class PlainWords {
 public:
  virtual ~PlainWords() = default;
  virtual std::string Words() const = 0;
};

// Of any error, its own text where it has no plain words. What the platform says of its own calls is for the log.
std::string WordsFor(const std::exception& error);

class WordedError : public std::runtime_error, public PlainWords {
 public:
  WordedError(const std::string& text, std::string words) : std::runtime_error(text), words_(std::move(words)) {}
  std::string Words() const override { return words_; }

 private:
  std::string words_;
};

}  // namespace lantos
