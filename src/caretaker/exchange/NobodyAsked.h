#pragma once

#include <fmt/format.h>

#include <cstdlib>

#include "frame/Text.h"
#include "shopmaker/ShopDirectory.h"
#include "ui/Desktop.h"

namespace lantos {

// The desktop of a command line: whatever would have to be asked there ends the work instead.
class NobodyAsked : public ui::Desktop {
 public:
  ui::Answer Show(const ui::Box& box) override { throw ShopError(ToUtf8(ui::WithLineFeeds(box.text))); }
  void ReportFailure(const std::string& text) override { throw ShopError(ToUtf8(text)); }
  void RunModal(ui::Form&) override { Refuse("a window"); }
  void RunUntilUnloaded(ui::Form&) override { Refuse("a window"); }
  void PopupMenu(ui::Form&, ui::MenuItem&) override { Refuse("a menu"); }
  void PreviewReport(const ui::Report&, ui::ControlPlace&) override { Refuse("a paper"); }
  void PrintReport(const ui::Report&, ui::PrinterDialog) override { Refuse("a paper"); }
  void PrintScreen(ui::Form&) override { Refuse("a paper"); }
  [[noreturn]] void EndProcess(int code) override { std::exit(code); }

  void Beep() override {}
  void SetPointer(ui::Pointer) override {}
  void ShowStatus(std::string_view) override {}
  int OpenDocument(const std::string&) override { return kNothingOpensIt; }
  bool FindWindowByTitle(std::string_view, ui::FoundWindow) override { return false; }
  int TextWidth(const ui::Control&, std::string_view) override { return 0; }

 private:
  static constexpr int kNothingOpensIt = 31;

  [[noreturn]] static void Refuse(std::string_view what) {
    throw ShopError(fmt::format("There is nobody to be shown {}.", what));
  }
};

}  // namespace lantos
