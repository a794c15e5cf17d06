#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "ui/Look.h"

namespace lantos::ui {

class Button;
class Control;
class Form;
class MenuItem;
struct ControlPlace;
struct Report;

enum class Icon { None, Critical, Question, Exclamation, Information };
enum class Buttons { Ok, OkCancel, YesNo, YesNoCancel, RetryCancel };
enum class Answer { Ok, Cancel, Yes, No, Retry };

struct Box {
  std::string text;  // paragraphs joined by carriage returns, as the program has them
  std::string title;
  Buttons buttons = Buttons::Ok;
  Icon icon = Icon::None;
  std::size_t defaultButton = 0;  // place in the row of buttons
};
std::vector<Answer> ButtonsOf(const Box& box);
std::string_view NameOf(Answer answer);  // "OK", "Cancel", …
std::string_view NameOf(Icon icon);      // "none", "critical", …
// Carriage returns, with or without line feed, become line feeds.
std::string WithLineFeeds(std::string_view text);

enum class PrinterDialog { Skipped, Shown };
// What becomes of a window that was looked for and is there.
enum class FoundWindow { LeftAlone, BroughtUp };

// Everything a screen may ask of the window system. A screen asks nobody else.
class Desktop {
 public:
  virtual ~Desktop() = default;

  // Boxes and menus; they return when the person has answered.
  virtual Answer Show(const Box& box) = 0;
  // The entry that was chosen has run its click when this returns.
  virtual void PopupMenu(Form& form, MenuItem& menu) = 0;

  virtual void Beep() = 0;
  virtual void SetPointer(Pointer pointer) = 0;
  virtual void ShowStatus(std::string_view text) = 0;  // a status line
  // Opens a PDF document or an address with what the platform has for it; nothing else is opened, and nothing is ever
  // run. The result is 33 or more when it went well, else the platform's code: 2 file not found, 3 path not found, 5
  // access denied, 31 no association, which is also what anything else comes to.
  virtual int OpenDocument(const std::string& path) = 0;
  virtual void PrintScreen(Form& form) = 0;  // the form as a screen image
  // Shows a report until the person closes it, who may print it from there. The window appears at the place, which is
  // where it was in the end when this returns; a width of 0 leaves the place to the desktop.
  virtual void PreviewReport(const Report& report, ControlPlace& place) = 0;
  // Prints a report, at once or through the printer dialog, where the person may still leave it.
  virtual void PrintReport(const Report& report, PrinterDialog dialog) = 0;
  // A window of this or another running copy of this user, by a part of its caption, without regard to case. An empty
  // pattern finds nothing.
  virtual bool FindWindowByTitle(std::string_view pattern, FoundWindow found) = 0;
  // Of one line in the control's font, in pixels.
  virtual int TextWidth(const Control& control, std::string_view text) = 0;
  // An error that ended an event: shown and noted.
  virtual void ReportFailure(const std::string& text) = 0;
  // Ends the process at once, with nothing unloaded.
  [[noreturn]] virtual void EndProcess(int code) = 0;

  // Called by Form alone.
  virtual void FormLoaded(Form&) {}  // make its window, hidden
  virtual void FormShown(Form&) {}   // show it and paint it
  virtual void FormHidden(Form&) {}
  virtual void FormUnloaded(Form&) {}
  virtual void FormCaptionChanged(Form&) {}
  virtual void RunModal(Form& form) = 0;  // returns when the form is no longer visible

  // In the middle of a long work of the form: the window shows how far it is, and what the person has done meanwhile
  // happens. Nothing is waited for. The button ends the work, as Esc and closing the form do.
  virtual void ServeMeanwhile(Form& /*form*/, Button& /*stop*/) {}

  // Serves the person until the form is unloaded: the life of the main window.
  virtual void RunUntilUnloaded(Form& form) = 0;

  // The person is in the middle of something that is no event of a form: a menu or a list hangs open, a button of the
  // mouse is down.
  virtual bool IsPersonBusy() const { return false; }

  // What was copied last, where no window system keeps it. Line ends as "\n".
  std::string clipboard;

  // What is to be written down when an event fails.
  std::function<void(const std::string&)> logFailure;
  // What must be done before the process ends because the session does, wherever the program waits just then.
  std::function<void()> onSessionEnd;
  // Writes its text down, and reports what it says to a person.
  void EndEvent(const std::exception& error);

  // Loaded forms, the topmost last.
  const std::vector<Form*>& LoadedForms() const { return forms_; }
  Form* FindForm(std::string_view name) const;  // the topmost of that name, null when there is none

  // A box in one line.
  Answer Ask(std::string text, std::string title, Buttons buttons, Icon icon = Icon::None);
  void Tell(std::string text, std::string title, Icon icon = Icon::None) {
    Ask(std::move(text), std::move(title), Buttons::Ok, icon);
  }

  // A box is up, in the middle of whatever it belongs to.
  bool IsAsking() const { return asking_ > 0; }

 private:
  friend class Form;
  void Remember(Form& form);  // as the topmost
  void Forget(Form& form);
  std::vector<Form*> forms_;
  int asking_ = 0;  // boxes that are up
};

// The hourglass for as long as it lives.
class Hourglass {
 public:
  explicit Hourglass(Desktop& desktop) : desktop_(desktop) { desktop_.SetPointer(Pointer::Hourglass); }
  ~Hourglass() { desktop_.SetPointer(Pointer::Normal); }
  Hourglass(const Hourglass&) = delete;

 private:
  Desktop& desktop_;
};

}  // namespace lantos::ui
