#pragma once

#include <sys/types.h>

#include <string>
#include <string_view>

#include "spelling/Speller.h"

namespace lantos {

// A speller that works in a process of its own, which has no file and no lock of this one: what a damaged dictionary
// does to the library that reads it ends that process alone. Its end, and ten seconds of silence, are a WordedError to
// who asks.
class SpellerProcess : public Speller {
 public:
  // open runs in the other process; what it throws is thrown here, in its words. name is the dictionary's, for people.
  SpellerProcess(const OpenSpeller& open, std::string name);
  ~SpellerProcess() override;
  SpellerProcess(const SpellerProcess&) = delete;

  bool Knows(const std::string& word) override;
  std::vector<std::string> Suggestions(const std::string& word) override;

  pid_t Process() const { return process_; }

 private:
  std::string Ask(char what, std::string_view word);
  std::string Answer();
  void End();
  [[noreturn]] void Fail();

  std::string name_;
  int socket_ = -1;
  pid_t process_ = -1;
};

}  // namespace lantos
