#pragma once

#include <algorithm>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "ui/Desktop.h"
#include "ui/Form.h"
#include "ui/Report.h"
#include "ui/WindowPlace.h"

namespace lantos::test {

// The program ended its process. Not a std::exception, so that no event guard holds it.
struct ProcessEnded {
  int code;
};

// A desktop without windows: what would be shown is noted, and what a person would do is told by the classes built on
// it.
class StandInDesktop : public ui::Desktop {
 public:
  // Forgets is for runs without end, whose notes would fill the machine.
  enum class Memory { Keeps, Forgets };
  explicit StandInDesktop(Memory memory = Memory::Keeps) : memory_(memory) {}

  // What was shown, in order.
  std::vector<ui::Box> boxes;
  std::vector<std::string> forms;     // modal ones, by name
  std::vector<std::string> statuses;  // texts of the status line
  std::vector<std::string> failures;  // errors that ended events
  std::vector<std::string> documents;
  std::vector<std::string> activated;  // captions brought up
  std::vector<std::string> screenPrints;
  std::vector<ui::Report> previews;  // reports shown; nobody prints from them
  std::vector<ui::Report> printed;   // reports printed, the dialog accepted
  int printerDialogs = 0;
  int beeps = 0;
  ui::Pointer pointer = ui::Pointer::Normal;

  // What the world is like.
  int documentResult = 33;
  std::function<void(ui::Form&, ui::Button&)> meanwhile;  // what the person does while a form is at work
  std::vector<std::string> windows;                       // captions of other windows
  bool personIsBusy = false;                              // with an open menu, or a button of the mouse
  std::optional<ui::ControlPlace> movePreviewTo;          // where the person leaves the next previews

  ui::Answer Show(const ui::Box& box) override {
    Note(boxes, box);
    return AnswerTo(box);
  }
  void RunModal(ui::Form& form) override {
    Note(forms, form.Name());
    Use(form);
  }
  void RunUntilUnloaded(ui::Form& form) override { RunModal(form); }
  void PopupMenu(ui::Form&, ui::MenuItem& menu) override { ChooseFrom(menu); }
  void ReportFailure(const std::string& text) override {
    Note(failures, text);
    Failed(text);
  }

  void ServeMeanwhile(ui::Form& form, ui::Button& stop) override {
    if (meanwhile) meanwhile(form, stop);
  }
  bool IsPersonBusy() const override { return personIsBusy; }
  void Beep() override { ++beeps; }
  void SetPointer(ui::Pointer value) override { pointer = value; }
  void ShowStatus(std::string_view text) override { Note(statuses, text); }
  int OpenDocument(const std::string& path) override {
    Note(documents, path);
    return documentResult;
  }
  void PrintScreen(ui::Form& form) override { Note(screenPrints, form.Name()); }
  void PreviewReport(const ui::Report& report, ui::ControlPlace& place) override {
    Note(previews, report);
    if (movePreviewTo) place = *movePreviewTo;
  }
  void PrintReport(const ui::Report& report, ui::PrinterDialog dialog) override {
    printerDialogs += dialog == ui::PrinterDialog::Shown ? 1 : 0;
    Note(printed, report);
  }
  bool FindWindowByTitle(std::string_view pattern, ui::FoundWindow found) override {
    if (pattern.empty()) return false;
    for (const std::string& caption : windows) {
      if (!ContainsIgnoringCase(caption, pattern)) continue;
      if (found == ui::FoundWindow::BroughtUp) Note(activated, caption);
      return true;
    }
    return false;
  }
  int TextWidth(const ui::Control&, std::string_view text) override { return static_cast<int>(text.size()) * 8; }
  [[noreturn]] void EndProcess(int code) override { throw ProcessEnded{code}; }

 protected:
  // What the person does.
  virtual ui::Answer AnswerTo(const ui::Box& box) = 0;
  virtual void Use(ui::Form& form) = 0;  // a modal one; it is gone when this returns
  virtual void ChooseFrom(ui::MenuItem& menu) = 0;
  virtual void Failed(const std::string& text) = 0;  // an event

 private:
  template <class Noted, class Shown>
  void Note(std::vector<Noted>& list, const Shown& shown) {
    if (memory_ == Memory::Keeps) list.emplace_back(shown);
  }
  static bool ContainsIgnoringCase(std::string_view text, std::string_view part) {
    const auto lower = [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; };
    return std::search(text.begin(), text.end(), part.begin(), part.end(),
                       [&](char a, char b) { return lower(a) == lower(b); }) != text.end();
  }

  Memory memory_;
};

}  // namespace lantos::test
