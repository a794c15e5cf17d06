#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "frame/Environment.h"
#include "frame/FileError.h"
#include "records/AskedTurn.h"
#include "records/ContentionRules.h"
#include "ui/Desktop.h"

namespace lantos {

// One routine's dealings with one rule. Its statements share the count of failures.
class Contention {
 public:
  // what stands for "{what}" in the texts of the rule.
  Contention(const ContentionRule& rule, ui::Desktop& desktop, Environment& environment, std::string_view what = {})
      : rule_(rule), desktop_(&desktop), environment_(environment), what_(what) {}
  // For a rule that speaks to nobody.
  Contention(const ContentionRule& rule, Environment& environment) : rule_(rule), environment_(environment) {}
  ~Contention() { EndWord(); }
  // No box of this contention is up while the turn is had: it is let go ahead of each, and taken again behind it.
  // Cancel while it is waited for again is Cancel in the box. What was looked at within the turn may be changed then:
  // AskedTurn::Retakes tells.
  void LetGoWhileAsked(AskedTurn& turn) { turn_ = &turn; }
  // Runs ahead of each box.
  void BeforeAsking(std::function<void()> procedure) { beforeAsking_ = std::move(procedure); }
  Contention(const Contention&) = delete;

  // Runs the statement, again after each FileError for as long as the rule and the person want. False when it was
  // given up. A rule that lets errors surface throws the last one.
  template <class Statement>
  bool Run(Statement statement) {
    for (;;) {
      try {
        statement();
        EndWord();
        return true;
      } catch (const FileError& error) {
        if (!TryAgain(error)) return false;
      }
    }
  }

 private:
  // Only from within the handler of the error.
  bool TryAgain(const FileError& error);
  void Note(const FileError& error);
  bool RetrySilently(const FileError& error);
  bool AskOrTell(const FileError& error);
  // What is no sharing conflict, by a rule that names its file or where the file is unfit.
  bool IsOther(const FileError& error) const;
  bool TryOtherAgain(const FileError& error);
  ui::Answer Ask(const std::string& text, const std::string& title, ui::Buttons buttons, ui::Icon icon);
  void Wait(ContentionRule::Pause pause);
  void ShowWordWhenDue(const FileError& error);
  void EndWord();
  std::string Fill(std::string_view text, std::string_view error) const;

  const ContentionRule& rule_;
  ui::Desktop* desktop_ = nullptr;
  Environment& environment_;
  std::string what_;
  AskedTurn* turn_ = nullptr;
  std::function<void()> beforeAsking_;
  int otherFailures_ = 0;  // since the last box about one
  int failures_ = 0;       // since the last box that began the silent retries anew
  bool noted_ = false;
  std::int64_t waited_ = 0;  // milliseconds, of the pauses that have a length
  bool wordShown_ = false;
};

}  // namespace lantos
