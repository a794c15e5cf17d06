#include "records/Contention.h"

#include <string>

namespace lantos {

bool Contention::TryAgain(const FileError& error) {
  if (++failures_ <= rule_.silentRetries) {
    if (rule_.pause == ContentionRule::Pause::OneSecond) WaitOneSecond(clock_);
    return true;
  }
  if (rule_.afterBox == ContentionRule::AfterBox::AskAndRetrySilently) failures_ = 0;
  const std::string title = rule_.title.empty() ? error.Text() : std::string(rule_.title);
  const ui::Answer answer = desktop_.Ask(std::string(rule_.text), title, rule_.buttons, rule_.icon);
  return rule_.afterBox != ContentionRule::AfterBox::GiveUp && answer != ui::Answer::Cancel;
}

}  // namespace lantos
