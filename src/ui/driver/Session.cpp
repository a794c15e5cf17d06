#include "ui/driver/Session.h"

#include <algorithm>
#include <cstdlib>
#include <utility>

#include "frame/Text.h"
#include "ui/driver/FormPlace.h"

namespace lantos::ui {

namespace {

// How long the window system goes without being served while real time passes.
constexpr std::int64_t kLongestSlice = 10;

bool IsDeed(const Line& line, std::string_view deed) { return !line.IsQuestion() && line.Subject() == deed; }

enum class Meaning { Anything, ButtonAlone };

bool EndsWork(const std::string& text, const Button& stop, Meaning meaning) {
  try {
    const Line line(text);
    if (IsDeed(line, "click")) return line.Text("control") == stop.FullName();
    if (meaning == Meaning::ButtonAlone) return false;
    return IsDeed(line, "close") || (IsDeed(line, "key") && ParseKey(line.Text("key")).Is("Esc"));
  } catch (const Refusal&) {
    return false;  // it is told of at its turn
  }
}

// A form is among those that wait for as long as this lives.
class Among {
 public:
  Among(std::vector<Form*>& forms, Form& form) : forms_(forms) { forms_.push_back(&form); }
  ~Among() { forms_.pop_back(); }
  Among(const Among&) = delete;

 private:
  std::vector<Form*>& forms_;
};

}  // namespace

void Session::AtForm(Form& form, const std::function<bool()>& over) {
  const Among waiting(waiting_, form);
  FormPlace place(form, *hand_);
  AtPlace(place, over);
}

// The deed that set the form to work is answered first, with the form as it is then. Who has been answered nothing yet
// can't know that a form is at work: what they say is meant for what comes behind it, unless it names the button.
void Session::AtWork(Form& form, Button& stop) {
  const Meaning meaning = hasAnswered_ ? Meaning::Anything : Meaning::ButtonAlone;
  if (!HasLine() || !EndsWork(*readAhead_, stop, meaning)) return;
  const Among waiting(waiting_, form);
  FormPlace place(form, *hand_);
  hand_->Settle();
  if (answerDue_) WriteAnswer(place.Describe());
  std::string text;
  NextLine(text);
  Serve(text, place);
}

void Session::AtBox(const Box& box, const std::function<void(Answer)>& press, const std::function<bool()>& over) {
  BoxPlace place(box, press);
  AtPlace(place, over);
}

void Session::AtPopup(MenuItem& menu, const std::function<void(MenuItem*)>& choose, const std::function<bool()>& over) {
  PopupPlace place(menu, choose);
  AtPlace(place, over);
}

void Session::AtPreview(const Report& report, const PreviewHands& hands, const std::function<bool()>& over) {
  PreviewPlace place(report, hands);
  AtPlace(place, over);
}

void Session::AtPrinter(const Report& report, const std::function<void(bool)>& answer,
                        const std::function<bool()>& over) {
  PrinterPlace place(report, answer);
  AtPlace(place, over);
}

void Session::NotePrinted(const Report& report, const std::filesystem::path& text, const std::filesystem::path& pdf) {
  Json event = {{"printed", ToUtf8(report.design.name)}, {"text", text.string()}};
  if (!pdf.empty()) event["pdf"] = pdf.string();
  Note(std::move(event));
}

void Session::AtPlace(Place& place, const std::function<bool()>& over) {
  std::string text;
  while (!over()) {
    timers_.Look(desktop_->LoadedForms(), clock_.Now());
    hand_->Settle();
    if (over()) return;
    if (answerDue_) WriteAnswer(place.Describe());
    // The pipe has been cut: as a power cut would, it ends the process with nothing unloaded.
    if (!NextLine(text)) std::_Exit(0);
    Serve(text, place);
  }
}

void Session::Serve(const std::string& text, Place& place) {
  answerDue_ = true;
  try {
    Take(Line(text), place);
  } catch (const Refusal& refusal) {
    error_ = refusal.what();
  }
}

bool Session::NextLine(std::string& text) {
  if (!readAhead_) return static_cast<bool>(std::getline(lines_, text));
  text = *std::exchange(readAhead_, std::nullopt);
  return true;
}

bool Session::HasLine() {
  if (!readAhead_ && lines_.rdbuf()->in_avail() > 0) {
    std::string text;
    if (std::getline(lines_, text)) readAhead_ = text;
  }
  return readAhead_.has_value();
}

void Session::Take(const Line& line, Place& place) {
  if (line.IsQuestion()) {
    result_ = Look(line);
  } else if (IsDeed(line, "wait")) {
    if (line.Number("ms") < 0) throw Refusal("time doesn't run backwards");
    Pass(line.Number("ms"));
  } else if (IsDeed(line, "now")) {
    MoveClock(line.Text("at"));
  } else {
    place.Perform(line);
  }
}

Json Session::Look(const Line& line) {
  const std::string& subject = line.Subject();
  if (subject == "form") return ToJson(TopForm(), *hand_);
  if (subject == "forms") return FormNames();
  if (subject == "log") return logPath ? Json(logPath()) : Json(nullptr);
  if (subject == "screenshot") {
    const std::string to = ToUtf8(line.Text("to"));
    const std::string failed = hand_->Screenshot(nullptr, to);
    if (!failed.empty()) throw Refusal(failed);
    return to;
  }
  return LookAt(subject);
}

Json Session::LookAt(const std::string& subject) {
  const std::size_t dot = subject.find('.');
  const Form* form = desktop_->FindForm(subject.substr(0, dot));
  if (form == nullptr) throw Refusal("no form '" + subject.substr(0, dot) + "' is loaded");
  if (dot == std::string::npos) return ToJson(*form, *hand_);
  const std::string name = subject.substr(dot + 1);
  if (const Control* control = form->Find(name)) return ToJson(*control, hand_->Read(*control));
  if (const MenuItem* item = form->FindMenu(name)) return ToJson(*item);
  throw Refusal("there is no control '" + name + "' on " + form->Name());
}

// Those on the screen first: what is hidden lies behind them.
Json Session::FormNames() const {
  Json names = Json::array();
  const auto& forms = desktop_->LoadedForms();
  for (const bool visible : {true, false}) {
    for (auto form = forms.rbegin(); form != forms.rend(); ++form) {
      if ((*form)->Visible() == visible) names.push_back(ToUtf8((*form)->Name()));
    }
  }
  return names;
}

Form& Session::TopForm() const {
  if (!waiting_.empty() && waiting_.back()->IsLoaded()) return *waiting_.back();
  const auto& forms = desktop_->LoadedForms();
  const auto shown = std::find_if(forms.rbegin(), forms.rend(), [](const Form* form) { return form->Visible(); });
  if (shown != forms.rend()) return **shown;
  if (forms.empty()) throw Refusal("no form is loaded");
  return *forms.back();
}

void Session::MoveClock(const std::string& to) {
  if (standing_ == nullptr) throw Refusal("the real clock can't be set");
  const auto moment = ParseLocalTime(to);
  if (!moment) throw Refusal("'" + to + "' is no time");
  standing_->MoveTo(*moment);
}

void Session::Pass(std::int64_t milliseconds) {
  const LocalTime end = clock_.Now().PlusMilliseconds(milliseconds);
  for (;;) {
    timers_.Look(desktop_->LoadedForms(), clock_.Now());
    Timer* next = timers_.First();
    if (next == nullptr || timers_.DueOf(*next) > end) return PassUntil(end);
    PassUntil(timers_.DueOf(*next));
    next->DoTick();
    timers_.Restart(*next, clock_.Now());
  }
}

void Session::PassUntil(LocalTime moment) {
  if (standing_ != nullptr) {
    if (standing_->Now() < moment) standing_->MoveTo(moment);
    return;
  }
  for (LocalTime now = clock_.Now(); now < moment; now = clock_.Now()) {
    clock_.Wait(std::min(moment.MillisecondsSince(now), kLongestSlice));
    hand_->Settle();
  }
}

void Session::NoteEnd(int code) { WriteAnswer({{"waiting", "ended"}, {"code", code}}); }

void Session::WriteAnswer(Json answer) {
  if (!error_.empty()) answer["error"] = ToUtf8(error_);
  if (!events_.empty()) answer["events"] = std::move(events_);
  if (result_) answer["result"] = std::move(*result_);
  // A path may hold any bytes; an answer is to be written all the same.
  answers_ << answer.dump(-1, ' ', false, Json::error_handler_t::replace) << std::endl;
  answerDue_ = false;
  hasAnswered_ = true;
  error_.clear();
  events_ = Json::array();
  result_.reset();
}

}  // namespace lantos::ui
