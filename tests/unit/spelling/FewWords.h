#pragma once

#include <map>
#include <string>
#include <vector>

#include "frame/Text.h"
#include "spelling/Speller.h"

namespace lantos::test {

// A dictionary of a few words, in any case, with what it suggests instead of others.
class FewWords : public Speller {
 public:
  explicit FewWords(std::vector<std::string> words, std::map<std::string, std::vector<std::string>> suggestions = {})
      : words_(std::move(words)), suggestions_(std::move(suggestions)) {}

  bool Knows(const std::string& word) override {
    asked.push_back(word);
    for (const std::string& known : words_) {
      if (EqualsIgnoringCase(known, word)) return true;
    }
    return false;
  }
  std::vector<std::string> Suggestions(const std::string& word) override { return suggestions_[word]; }

  std::vector<std::string> asked;

 private:
  std::vector<std::string> words_;
  std::map<std::string, std::vector<std::string>> suggestions_;
};

}  // namespace lantos::test
