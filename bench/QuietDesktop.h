#pragma once

#include <functional>
#include <stdexcept>

#include "ui/Desktop.h"
#include "ui/Form.h"

namespace lantos::bench {

// A desktop that shows nothing and asks nobody. A message box in a benchmark is an error, unless it
// is foreseen.
class QuietDesktop : public ui::Desktop {
 public:
  // What the person does at a box or in a modal window; without it either is an error.
  std::function<ui::Answer(const ui::Box&)> atBox;
  std::function<void(ui::Form&)> atForm;

  ui::Answer Show(const ui::Box& box) override {
    if (!atBox) throw std::runtime_error("a box: " + box.text);
    return atBox(box);
  }
  void PopupMenu(ui::Form&, ui::MenuItem&) override {}
  void Beep() override {}
  void SetPointer(ui::Pointer) override {}
  void ShowStatus(std::string_view) override {}
  int OpenDocument(const std::string&, const std::string&) override { return 33; }
  void PrintScreen(ui::Form&) override {}
  void PreviewReport(const ui::Report&, ui::ControlPlace&) override {}
  void PrintReport(const ui::Report&, bool) override {}
  bool FindWindowByTitle(std::string_view, bool) override { return false; }
  int TextWidth(const ui::Control&, std::string_view text) override { return static_cast<int>(text.size()) * 8; }
  void ReportFailure(const std::string& text) override { throw std::runtime_error(text); }
  [[noreturn]] void EndProcess(int) override { throw std::runtime_error("the program has ended itself"); }
  void RunModal(ui::Form& form) override {
    if (!atForm) throw std::runtime_error("a modal window: " + form.Name());
    atForm(form);
  }
  void RunUntilUnloaded(ui::Form&) override {}
};

}  // namespace lantos::bench
