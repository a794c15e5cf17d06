#pragma once

#include <stdexcept>

#include "ui/Desktop.h"
#include "ui/Form.h"

namespace lantos::bench {

// A desktop that shows nothing and asks nobody. A message box in a benchmark is an error.
class QuietDesktop : public ui::Desktop {
 public:
  ui::Answer Show(const ui::Box& box) override { throw std::runtime_error("a box: " + box.text); }
  void PopupMenu(ui::Form&, ui::MenuItem&) override {}
  void Beep() override {}
  void SetPointer(ui::Pointer) override {}
  void ShowStatus(std::string_view) override {}
  int OpenDocument(const std::string&, const std::string&) override { return 33; }
  void PrintScreen(ui::Form&) override {}
  bool FindWindowByTitle(std::string_view, bool) override { return false; }
  int TextWidth(const ui::Control&, std::string_view text) override { return static_cast<int>(text.size()) * 8; }
  void ReportFailure(const std::string& text) override { throw std::runtime_error(text); }
  [[noreturn]] void EndProcess(int) override { throw std::runtime_error("the program has ended itself"); }
  void RunModal(ui::Form& form) override { throw std::runtime_error("a modal window: " + form.Name()); }
  void RunUntilUnloaded(ui::Form&) override {}
};

}  // namespace lantos::bench
