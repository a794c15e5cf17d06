#pragma once

#include <QObject>
#include <QPoint>
#include <QString>
#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "ui/Drive.h"
#include "ui/Form.h"
#include "ui/HelpDesk.h"
#include "ui/WindowRegistry.h"

class QEventLoop;
class QPrinter;
class QTimer;
class QWidget;

namespace lantos::ui {

class FormWindow;
class ReportWindow;

// Real windows. A QApplication must exist. Without a Person whoever sits in front of the screen is served; with one
// the same windows are shown, and each wait is handed to the Person, who acts on the widgets through a QtHand.
class QtDesktop : public Desktop, public HelpDesk {
 public:
  explicit QtDesktop(Person* person = nullptr);
  ~QtDesktop() override;

  // Makes the windows known to this user's other copies, and theirs to this one. Without it only own windows are found.
  void JoinRegistry(const std::string& computerName);
  // Where printed screens and reports land while a Person is served: a PDF each, a report's text too. Without it
  // nothing is written.
  void PrintTo(std::filesystem::path folder) { printTo_ = std::move(folder); }
  // Told of each screen: the form's name and the file.
  std::function<void(const std::string& form, const std::filesystem::path& pdf)> notePrinted;
  // A window was brought up because another copy asked for it.
  std::function<void(const std::string& caption)> noteRaised;

  Answer Show(const Box& box) override;
  void PopupMenu(Form& form, MenuItem& menu) override;
  void Beep() override;
  void SetPointer(Pointer pointer) override;
  void ShowStatus(std::string_view text) override;
  void Copy(const std::string& text) override;
  std::string Library() const override;
  int OpenDocument(const std::string& path) override;
  void PrintScreen(Form& form) override;
  void PreviewReport(const Report& report, ControlPlace& place) override;
  void PrintReport(const Report& report, PrinterDialog dialog) override;
  bool FindWindowByTitle(std::string_view pattern, FoundWindow found) override;
  int TextWidth(const Control& control, std::string_view text) override;
  void ReportFailure(const std::string& text) override;
  [[noreturn]] void EndProcess(int code) override;

  void FormLoaded(Form& form) override;
  void FormShown(Form& form) override;
  void FormHidden(Form& form) override;
  void FormUnloaded(Form& form) override;
  void RunModal(Form& form) override;
  void ServeMeanwhile(Form& form, Button& stop) override;
  bool IsPersonBusy() const override;
  void RunUntilUnloaded(Form& form) override;

  bool IsDriven() const { return person_ != nullptr; }
  FormWindow* WindowOf(const Form& form) const;  // null when the form isn't loaded
  FormWindow* TopFormWindow() const;             // of the forms on show; null when there is none
  QWidget* TopWindow() const;                    // a box, menu or preview before any form
  bool IsWorking() const { return pointer_ == Pointer::Hourglass; }
  // The menu that pops up next does so here, its first entry marked; none: at the mouse.
  void OpenNextMenuAt(std::optional<QPoint> place) { menuPlace_ = place; }
  // How often the program has waited for the person so far.
  int WaitCount() const { return waitCount_; }
  void PublishCaptions();
  // Brings all windows up to date and lets the window system catch up.
  void Settle();

 private:
  // A wait for the person.
  struct Wait {
    QEventLoop* loop;
    const std::function<bool()>* over;
  };
  struct Buried;

  // Waits until over() is true: the loop of the window system, or ask, which hands the wait to the Person.
  void WaitFor(const std::function<bool()>& over, const std::function<void()>& ask);
  void StartTimers();
  void WakeWaits();
  void FlushWindows();
  FormWindow* MakeWindow(Form& form);
  void Bury(std::unique_ptr<FormWindow> window);
  // Windows of unloaded forms whose last event has come to its end.
  void DeleteBuried(bool idle);
  void RaiseRequested();
  void PrintPicture(const Form& form, const QString& pdf);

  // In QtDesktopReports.cpp.
  void ClosePreviews(const std::string& name);
  void PrintFrom(ReportWindow& window);
  bool AskForPrinter(const Report& report, QPrinter& printer);
  void PrintOn(const Report& report, QPrinter& printer);
  void PrintJob(const Report& report);  // for the Person

  Person* person_;
  std::filesystem::path printTo_;
  std::unique_ptr<WindowRegistry> registry_;
  std::unique_ptr<QObject> context_;  // of what is put off: it doesn't outlive the desktop
  std::unique_ptr<QTimer> registryTimer_;
  std::vector<std::unique_ptr<FormWindow>> windows_;
  std::map<const Form*, std::vector<std::unique_ptr<ControlPeer>>> timers_;  // of loaded forms, for a real person
  bool timersRun_ = false;
  std::vector<Buried> buried_;
  std::vector<Wait> waits_;
  std::vector<QWidget*> overlays_;  // boxes, menus, previews on show, the topmost last
  std::vector<ReportWindow*> previews_;
  Pointer pointer_ = Pointer::Normal;
  std::optional<QPoint> menuPlace_;
  int waitDepth_ = 0;
  int waitCount_ = 0;
  int screens_ = 0;
  int jobs_ = 0;
};

}  // namespace lantos::ui
