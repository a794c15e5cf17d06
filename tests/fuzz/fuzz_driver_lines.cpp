#include <array>
#include <sstream>
#include <streambuf>
#include <utility>

#include "SmallForm.h"
#include "Target.h"
#include "ui/driver/DriverDesktop.h"
#include "ui/driver/Session.h"

namespace lantos::fuzz {

namespace {

using ui::Json;

// Whatever waits behind the last line of the input is put to an end by one of these, so that the input never ends the
// process.
constexpr std::array<std::string_view, 5> kEnding = {
    R"j({"do":"choose","item":null})j", R"j({"do":"answer","button":"Cancel"})j", R"j({"do":"answer","button":"OK"})j",
    R"j({"do":"key","key":"Esc"})j", R"j({"do":"close"})j"};

// Gives one line at a time, the endings again and again behind the last one.
class LineByLine : public std::streambuf {
 public:
  explicit LineByLine(std::string_view input) : rest_(input) {}
  long lines = 0;

 protected:
  int_type underflow() override {
    ++lines;
    line_ = Next();
    line_ += '\n';
    setg(line_.data(), line_.data(), line_.data() + line_.size());
    return traits_type::to_int_type(line_.front());
  }

 private:
  std::string Next() {
    if (rest_.empty()) return std::string(kEnding[ending_++ % kEnding.size()]);
    const std::size_t end = std::min(rest_.find('\n'), rest_.size());
    std::string line(rest_.substr(0, end));
    rest_.remove_prefix(std::min(end + 1, rest_.size()));
    return line;
  }

  std::string_view rest_;
  std::string line_;
  std::size_t ending_ = 0;
};

// A form of the program, and a person who does what the lines say. Every line has one answer; one that is refused has
// done nothing.
class Watched {
 public:
  explicit Watched(std::string_view input) : lines_(input), in_(&lines_) {
    session_.Attach(desktop_, desktop_.GetHand());
    desktop_.note = [this](Json event) { session_.Note(std::move(event)); };
    // Between a line and its answer. Watching from inside the streams instead would fill the memory: they are built
    // without frame pointers, so the sanitizer takes each allocation under them for one of a new place.
    desktop_.GetHand().onSettle = [this] { Settled(); };
  }

  void Run() {
    form_.ShowModal();
    if (!out_.view().empty()) CheckAnswer();
    session_.NoteEnd(0);
    Require(TakeAnswer().at("waiting") == "ended");
    Require(answers_ == lines_.lines + 1);
  }

 private:
  // A line has been done, and the state is what its answer will belong to; the answer to the line before is there.
  void Settled() {
    if (!out_.view().empty()) CheckAnswer();
    before_ = std::exchange(after_, State());
  }

  void CheckAnswer() {
    const Json answer = TakeAnswer();
    Require(answer.contains("waiting"));
    if (answer.contains("error")) Require(before_ == after_);
  }

  Json TakeAnswer() {
    const std::string text = out_.str();
    out_.str("");
    Require(text.ends_with('\n') && text.find('\n') == text.size() - 1);
    ++answers_;
    return Json::parse(text);
  }

  // All that a line could change, the number of events that have run included. Plain text: as JSON it would take most
  // of the time.
  std::string State() {
    std::string state = FormatDateTime(clock_.Now());
    for (const ui::Form* form : desktop_.LoadedForms()) {
      const ui::Control* focus = form->Focus();
      state += form->Name() + (form->Visible() ? " shown " : " hidden ") + (focus == nullptr ? "" : focus->FullName());
      state += " " + std::to_string(dynamic_cast<const SmallForm&>(*form).events);
      for (const ui::Control* control : form->Controls()) Append(state, ui::ReadControl(*control));
    }
    return state;
  }

  static void Append(std::string& state, const ui::ControlState& control) {
    state += control.visible ? "\nv" : "\n-";
    state += control.enabled ? 'e' : '-';
    if (control.text) state += *control.text;
    state += std::to_string(control.checked.value_or(false)) + std::to_string(control.date.value_or(0)) + "," +
             std::to_string(control.value.value_or(0)) + "," + std::to_string(control.selected.value_or(-1));
    if (control.rows) {
      for (const ui::ListRow& row : *control.rows) {
        state += row.text + (row.checked ? "c" : "-") + (row.selected ? "s" : "-");
      }
    }
    if (control.cells) state += std::to_string(control.cells->size());
  }

  StandingClock clock_{*ParseLocalTime("2003-09-30T08:15:00")};
  LineByLine lines_;
  std::istream in_;
  std::ostringstream out_;
  ui::Session session_{in_, out_, clock_};
  ui::DriverDesktop desktop_{session_};
  SmallForm form_{desktop_, 0};
  long answers_ = 0;
  std::string before_;
  std::string after_;
};

}  // namespace

void Try(std::string_view bytes) { Watched(bytes).Run(); }

}  // namespace lantos::fuzz
