#pragma once

#include <filesystem>
#include <functional>
#include <memory>

#include "ui/Drive.h"
#include "ui/Form.h"
#include "ui/HelpDesk.h"
#include "ui/WindowRegistry.h"
#include "ui/driver/ControlJson.h"
#include "ui/driver/ModelHand.h"

namespace lantos::ui {

// A desktop without pixels: every wait goes to the person, everything shown is a note.
class DriverDesktop : public Desktop, public HelpDesk {
 public:
  explicit DriverDesktop(Person& person);

  ModelHand& GetHand() { return hand_; }
  // Makes the windows known to this user's other copies, and theirs to this one. Without it only own windows are found.
  void JoinRegistry(const std::string& computerName);
  // Where printed jobs land. Without it nothing is written.
  void PrintTo(std::filesystem::path folder) { printTo_ = std::move(folder); }
  // Events that the person has no word of their own for.
  std::function<void(Json)> note;

  Answer Show(const Box& box) override;
  void PopupMenu(Form& form, MenuItem& menu) override;
  void Beep() override { person_.NoteBeep(); }
  void SetPointer(Pointer) override {}
  void ShowStatus(std::string_view text) override { person_.NoteStatus(text); }
  void Copy(const std::string& text) override { clipboard = text; }
  std::string Library() const override { return {}; }
  int OpenDocument(const std::string& path) override;
  void PrintScreen(Form& form) override;
  void PreviewReport(const Report& report, ControlPlace& place) override;
  void PrintReport(const Report& report, PrinterDialog dialog) override;
  bool FindWindowByTitle(std::string_view pattern, FoundWindow found) override;
  int TextWidth(const Control& control, std::string_view text) override;
  void ReportFailure(const std::string& text) override;
  [[noreturn]] void EndProcess(int code) override;

  void FormLoaded(Form& form) override;
  void FormUnloaded(Form& form) override;
  void RunModal(Form& form) override;
  void ServeMeanwhile(Form& form, Button& stop) override { person_.AtWork(form, stop); }
  void RunUntilUnloaded(Form& form) override;

 private:
  // All that this desktop shows of a form is its caption in the registry.
  class CaptionWatch : public FormPeer {
   public:
    explicit CaptionWatch(DriverDesktop& desktop) : desktop_(desktop) {}
    void CaptionChanged() override { desktop_.PublishCaptions(nullptr); }
    void FocusChanged() override {}
    void PlaceChanged() override {}
    void LookChanged() override {}

   private:
    DriverDesktop& desktop_;
  };

  void PublishCaptions(const Form* butNot);
  std::vector<std::string> Captions(const Form* butNot) const;
  void NoteRaisedWindows();
  void Note(Json event);
  void Print(const Report& report);

  Person& person_;
  ModelHand hand_;
  CaptionWatch watch_{*this};
  std::unique_ptr<WindowRegistry> registry_;
  std::filesystem::path printTo_;
  int screens_ = 0;
  int jobs_ = 0;
};

}  // namespace lantos::ui
