#include "ui/driver/DriverDesktop.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstdlib>
#include <fstream>

#include "frame/Text.h"
#include "ui/Documents.h"
#include "ui/Form.h"

namespace lantos::ui {

namespace {

constexpr int kPixelsPerCharacter = 8;

}  // namespace

DriverDesktop::DriverDesktop(Person& person) : person_(person) {
  hand_.onSettle = [this] { NoteRaisedWindows(); };
}

void DriverDesktop::JoinRegistry(const std::string& computerName) {
  registry_ = std::make_unique<WindowRegistry>(computerName);
  PublishCaptions(nullptr);
}

Answer DriverDesktop::Show(const Box& box) {
  Answer answer = ButtonsOf(box).front();
  bool over = false;
  person_.AtBox(
      box,
      [&](Answer pressed) {
        answer = pressed;
        over = true;
      },
      [&] { return over; });
  return answer;
}

void DriverDesktop::PopupMenu(Form&, MenuItem& menu) {
  const auto& items = menu.Items();
  if (std::none_of(items.begin(), items.end(), [](const auto& item) { return item->Visible(); })) return;
  MenuItem* chosen = nullptr;
  bool over = false;
  person_.AtPopup(
      menu,
      [&](MenuItem* item) {
        chosen = item;
        over = true;
      },
      [&] { return over; });
  if (chosen != nullptr) chosen->DoClick();
}

int DriverDesktop::OpenDocument(const std::string& path) {
  const int look = LookAtDocument(path);
  if (look == kOpened) person_.NoteShell(path);
  return look;
}

void DriverDesktop::PrintScreen(Form& form) {
  if (printTo_.empty()) return;
  const auto file = printTo_ / fmt::format("screen-{}-{}.txt", ++screens_, form.Name());
  std::ofstream(file) << ToJson(form, hand_).dump(2) << "\n";
  Note({{"printed", ToUtf8(form.Name())}, {"text", file.string()}});
}

void DriverDesktop::PreviewReport(const Report& report, ControlPlace&) {
  bool closed = false;
  const auto print = [&] {
    try {
      Print(report);
    } catch (const std::exception& error) {
      EndEvent(error);
    }
  };
  const Person::PreviewHands hands{print, [&] { closed = true; }};
  person_.AtPreview(report, hands, [&closed] { return closed; });
}

void DriverDesktop::PrintReport(const Report& report, PrinterDialog dialog) {
  if (dialog == PrinterDialog::Skipped) return Print(report);
  std::optional<bool> accepted;
  person_.AtPrinter(
      report, [&accepted](bool answer) { accepted = answer; }, [&accepted] { return accepted.has_value(); });
  if (*accepted) Print(report);
}

void DriverDesktop::Print(const Report& report) {
  if (printTo_.empty()) return;
  const auto file = printTo_ / fmt::format("job-{:03}-{}.txt", ++jobs_, report.design.name);
  WriteReportText(report, file);
  person_.NotePrinted(report, file, {});
}

bool DriverDesktop::FindWindowByTitle(std::string_view pattern, FoundWindow found) {
  if (registry_ != nullptr)
    return found == FoundWindow::BroughtUp ? registry_->Activate(pattern) : registry_->Find(pattern);
  const std::vector<std::string> captions = Captions(nullptr);
  return !pattern.empty() && std::any_of(captions.begin(), captions.end(), [&](const std::string& caption) {
    return ContainsIgnoringCase(caption, pattern);
  });
}

int DriverDesktop::TextWidth(const Control&, std::string_view text) {
  return static_cast<int>(text.size()) * kPixelsPerCharacter;
}

void DriverDesktop::ReportFailure(const std::string& text) {
  person_.NoteFailure(text);
  Tell(text, "Lantos", Icon::Critical);
}

void DriverDesktop::EndProcess(int code) {
  person_.NoteEnd(code);
  std::_Exit(code);
}

void DriverDesktop::FormLoaded(Form& form) {
  form.SetPeer(&watch_);
  PublishCaptions(nullptr);
}

void DriverDesktop::FormUnloaded(Form& form) {
  form.SetPeer(nullptr);
  PublishCaptions(&form);
}

void DriverDesktop::RunModal(Form& form) {
  person_.AtForm(form, [&] { return !form.Visible(); });
}

void DriverDesktop::RunUntilUnloaded(Form& form) {
  person_.AtForm(form, [&] { return !form.IsLoaded(); });
}

void DriverDesktop::PublishCaptions(const Form* butNot) {
  if (registry_ != nullptr) registry_->SetCaptions(Captions(butNot));
}

std::vector<std::string> DriverDesktop::Captions(const Form* butNot) const {
  std::vector<std::string> captions;
  for (const Form* form : LoadedForms()) {
    if (form != butNot) captions.push_back(form->Caption());
  }
  return captions;
}

void DriverDesktop::NoteRaisedWindows() {
  if (registry_ == nullptr) return;
  for (const std::string& caption : registry_->TakeRaiseRequests()) Note({{"raised", JsonText(caption)}});
}

void DriverDesktop::Note(Json event) {
  if (note) note(std::move(event));
}

}  // namespace lantos::ui
