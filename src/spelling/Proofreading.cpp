#include "spelling/Proofreading.h"

#include <algorithm>
#include <utility>

namespace lantos {

Proofreading::Proofreading(std::string text, Speller& speller, Known known)
    : text_(std::move(text)), speller_(&speller), known_(std::move(known)) {
  GoOn(0);
}

void Proofreading::GoOn(std::size_t from) {
  while ((word_ = NextWord(text_, from))) {
    const std::string word = Word();
    from = word_->End();
    if (const auto change = changed_.find(word); change != changed_.end()) {
      from = Replace(change->second);
    } else if (!ignored_.Has(word) && !speller_->Knows(word) && !(known_ && known_(word))) {
      return;
    }
  }
}

std::size_t Proofreading::Replace(std::string_view replacement) {
  text_.replace(word_->begin, word_->length, replacement);
  return word_->begin + replacement.size();
}

std::vector<std::string> Proofreading::Suggestions() const {
  return word_ ? speller_->Suggestions(Word()) : std::vector<std::string>();
}

void Proofreading::Change(std::string_view replacement) {
  if (word_) GoOn(Replace(replacement));
}

void Proofreading::ChangeAll(std::string_view replacement) {
  if (!word_) return;
  changed_[Word()] = replacement;
  GoOn(word_->begin);
}

void Proofreading::Ignore() {
  if (word_) GoOn(word_->End());
}

void Proofreading::IgnoreAll() {
  if (!word_) return;
  ignored_.Add(Word());
  Ignore();
}

void Proofreading::Learn() {
  if (!word_) return;
  learnt_.push_back(Word());
  IgnoreAll();
}

}  // namespace lantos
