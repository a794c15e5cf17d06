#pragma once

#include <functional>
#include <istream>
#include <optional>
#include <ostream>
#include <string>
#include <vector>

#include "frame/Clock.h"
#include "ui/Drive.h"
#include "ui/driver/Place.h"
#include "ui/driver/TimerQueue.h"

namespace lantos::ui {

// The person at the end of a pipe: reads one line a deed or question, and writes one answer a line, when the program
// next waits for the person or has ended. Waits nest as the program's calls do.
class Session : public Person {
 public:
  Session(std::istream& lines, std::ostream& answers, Clock& clock)
      : lines_(lines), answers_(answers), clock_(clock), standing_(dynamic_cast<StandingClock*>(&clock)) {}
  // Before the program starts.
  void Attach(Desktop& desktop, Hand& hand) {
    desktop_ = &desktop;
    hand_ = &hand;
  }
  std::function<std::string()> logPath;

  void AtForm(Form& form, const std::function<bool()>& over) override;
  void AtWork(Form& form, Button& stop) override;
  void AtBox(const Box& box, const std::function<void(Answer)>& press, const std::function<bool()>& over) override;
  void AtPopup(MenuItem& menu, const std::function<void(MenuItem*)>& choose,
               const std::function<bool()>& over) override;
  void AtPreview(const Report& report, const PreviewHands& hands, const std::function<bool()>& over) override;
  void AtPrinter(const Report& report, const std::function<void(bool)>& answer,
                 const std::function<bool()>& over) override;

  void NoteBeep() override { Note({{"beep", true}}); }
  void NoteStatus(std::string_view text) override { Note({{"status", JsonText(text)}}); }
  void NoteShell(std::string_view path) override { Note({{"shell", JsonText(path)}}); }
  void NoteFailure(std::string_view text) override { Note({{"failure", JsonText(text)}}); }
  void NotePrinted(const Report& report, const std::filesystem::path& text, const std::filesystem::path& pdf) override;
  void NoteEnd(int code) override;
  void Note(Json event) { events_.push_back(std::move(event)); }

 private:
  // Serves the person at a place until it is over.
  void AtPlace(Place& place, const std::function<bool()>& over);
  void Serve(const std::string& text, Place& place);
  void Take(const Line& line, Place& place);
  // The next line, once it is there. False when the pipe has been cut.
  bool NextLine(std::string& text);
  // Whether the person has said something already.
  bool HasLine();
  Json Look(const Line& line);
  Json LookAt(const std::string& subject);
  Json FormNames() const;
  Form& TopForm() const;
  void MoveClock(const std::string& to);
  void Pass(std::int64_t milliseconds);
  void PassUntil(LocalTime moment);
  void WriteAnswer(Json answer);

  std::istream& lines_;
  std::ostream& answers_;
  Clock& clock_;
  StandingClock* standing_;  // null when real time runs
  Desktop* desktop_ = nullptr;
  Hand* hand_ = nullptr;
  std::vector<Form*> waiting_;  // forms that wait, the innermost last
  TimerQueue timers_;
  std::optional<std::string> readAhead_;  // said, and not served yet
  bool answerDue_ = true;
  bool hasAnswered_ = false;
  std::string error_;
  Json events_ = Json::array();
  std::optional<Json> result_;
};

}  // namespace lantos::ui
