#include "records/Contention.h"

#include "frame/FileCause.h"
#include "frame/UnfitFile.h"

namespace lantos {

namespace {

constexpr std::int64_t kWaitWithoutWord = 1000;  // milliseconds

void Replace(std::string& text, std::string_view mark, std::string_view value) {
  const std::size_t place = text.find(mark);
  if (place != std::string::npos) text.replace(place, mark.size(), value);
}

}  // namespace

bool Contention::TryAgain(const FileError& error) {
  Note(error);
  if (IsOther(error)) return TryOtherAgain(error);
  if (rule_.failures == ContentionRule::Failures::SharingOnly && error.Number() != FileErrorNumber::PermissionDenied) {
    throw;
  }
  return RetrySilently(error) || AskOrTell(error);
}

// What lies under the file's name may be unfit for any rule.
bool Contention::IsOther(const FileError& error) const {
  if (error.Number() == FileErrorNumber::PermissionDenied || rule_.cancelling.empty()) return false;
  return !rule_.file.empty() || dynamic_cast<const UnfitFile*>(&error) != nullptr;
}

// Nobody else's hold ends it, so the person learns what is in the way.
bool Contention::TryOtherAgain(const FileError& error) {
  if (otherFailures_ < rule_.otherRetries) {
    ++otherFailures_;
    Wait(rule_.pause);
    ShowWordWhenDue(error);
    return true;
  }
  otherFailures_ = 0;
  if (rule_.noted == ContentionRule::Noted::Nothing) environment_.log.Write(error.what());
  const std::string file = Fill(rule_.file, {});
  const std::string title = rule_.title.empty() ? file : Fill(rule_.title, error.Text());
  const std::string what = InWords(FileFailure(error), file + " can not be used");
  const ui::Answer answer =
      Ask(what + "\rClick Retry to try again, or Cancel to " + std::string(rule_.cancelling) + ".", title,
          ui::Buttons::RetryCancel, ui::Icon::Exclamation);
  if (answer == ui::Answer::Retry) return true;
  if (rule_.afterRetries == ContentionRule::AfterRetries::Surface) throw;
  return false;
}

void Contention::Note(const FileError& error) {
  const bool isDue = rule_.noted == ContentionRule::Noted::EachFailure ||
                     (rule_.noted == ContentionRule::Noted::FirstFailure && !noted_);
  if (isDue) environment_.log.Write(error.what());
  noted_ = true;
}

bool Contention::RetrySilently(const FileError& error) {
  if (failures_ >= rule_.silentRetries) return false;
  ++failures_;
  Wait(rule_.pause);
  ShowWordWhenDue(error);
  return true;
}

bool Contention::AskOrTell(const FileError& error) {
  if (rule_.afterRetries == ContentionRule::AfterRetries::Surface) throw;
  if (rule_.afterRetries == ContentionRule::AfterRetries::AskAndRetrySilently) failures_ = 0;
  const ui::Answer answer =
      Ask(Fill(rule_.text, error.Text()), Fill(rule_.title, error.Text()), rule_.buttons, rule_.icon);
  if (rule_.afterRetries == ContentionRule::AfterRetries::GiveUp || answer == ui::Answer::Cancel) return false;
  Wait(rule_.pauseAfterBox);
  return true;
}

ui::Answer Contention::Ask(const std::string& text, const std::string& title, ui::Buttons buttons, ui::Icon icon) {
  if (beforeAsking_) beforeAsking_();
  if (turn_ == nullptr) return desktop_->Ask(text, title, buttons, icon);
  turn_->LetGo();
  const ui::Answer answer = desktop_->Ask(text, title, buttons, icon);
  if (answer == ui::Answer::Cancel || turn_->TakeAgain()) return answer;
  return ui::Answer::Cancel;
}

void Contention::Wait(ContentionRule::Pause pause) {
  if (pause == ContentionRule::Pause::None) return;
  if (pause == ContentionRule::Pause::ToNextSecond) return WaitOneSecond(environment_.clock);
  const auto milliseconds = static_cast<std::int64_t>(pause);
  environment_.clock.Wait(milliseconds);
  waited_ += milliseconds;
}

void Contention::ShowWordWhenDue(const FileError& error) {
  if (rule_.word.empty() || wordShown_ || waited_ < kWaitWithoutWord) return;
  const std::string word = Fill(rule_.word, error.Text());
  environment_.log.Write(word);
  desktop_->ShowStatus(word);
  wordShown_ = true;
}

void Contention::EndWord() {
  if (wordShown_) desktop_->ShowStatus("");
  wordShown_ = false;
}

std::string Contention::Fill(std::string_view text, std::string_view error) const {
  std::string filled(text);
  Replace(filled, "{error}", error);  // first: what is waited for may be any text
  Replace(filled, "{what}", what_);
  return filled;
}

}  // namespace lantos
