#pragma once

#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "spelling/Speller.h"
#include "spelling/TextWords.h"
#include "spelling/WordSet.h"

namespace lantos {

// One walk through a text from unknown word to unknown word, and what the person decides about each. What was decided
// stands in Text; the text that it began with is the opener's.
class Proofreading {
 public:
  // A word that the speller doesn't know but this does is none to ask about.
  using Known = std::function<bool(const std::string& word)>;

  // The speller outlives this.
  Proofreading(std::string text, Speller& speller, Known known);

  // Whether no unknown word is left; there is no current one then.
  bool Done() const { return !word_; }
  std::string Word() const { return word_ ? word_->In(text_) : std::string(); }
  std::string Sentence() const { return word_ ? SentenceAround(text_, *word_) : std::string(); }
  std::vector<std::string> Suggestions() const;

  // Each goes on to the next unknown word.
  void Change(std::string_view replacement);
  void ChangeAll(std::string_view replacement);  // from here on, words of the same letters in the same case
  void Ignore();
  void IgnoreAll();
  void Learn();  // ignored from here on, and one of Learnt

  const std::string& Text() const { return text_; }
  const std::vector<std::string>& Learnt() const { return learnt_; }

 private:
  void GoOn(std::size_t from);
  std::size_t Replace(std::string_view replacement);

  std::string text_;
  Speller* speller_;
  Known known_;
  std::optional<WordPlace> word_;
  WordSet ignored_;
  std::map<std::string, std::string> changed_;
  std::vector<std::string> learnt_;
};

}  // namespace lantos
