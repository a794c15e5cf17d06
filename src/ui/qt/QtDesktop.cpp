#include "ui/qt/QtDesktop.h"

#include <QApplication>
#include <QClipboard>
#include <QEventLoop>
#include <QLayout>
#include <QStatusBar>
#include <QTimer>
#include <algorithm>
#include <cstdio>
#include <cstdlib>

#include "ui/Documents.h"
#include "ui/qt/Appearance.h"
#include "ui/qt/BoxWindow.h"
#include "ui/qt/Documents.h"
#include "ui/qt/FormTimers.h"
#include "ui/qt/FormWindow.h"
#include "ui/qt/Text.h"

namespace lantos::ui {

namespace {

constexpr int kRegistryLookMilliseconds = 250;

}  // namespace

// A window whose form is gone, while an event of it may still be on its way back.
struct QtDesktop::Buried {
  std::unique_ptr<FormWindow> window;
  int depth;  // of waits, when its form went
};

QtDesktop::QtDesktop(Person* person) : person_(person), context_(std::make_unique<QObject>()) {
  // The end of the program is the program's own decision.
  QApplication::setQuitOnLastWindowClosed(false);
  if (QApplication::windowIcon().isNull()) QApplication::setWindowIcon(ProgramIcon());
  // Some take the icon from the menu entry instead, which they find by its name.
  QApplication::setDesktopFileName(QStringLiteral("lantos"));
  MakeSelectionReadable();
}

QtDesktop::~QtDesktop() {
  for (const auto& window : windows_) window->Detach();
}

void QtDesktop::JoinRegistry(const std::string& computerName) {
  registry_ = std::make_unique<WindowRegistry>(computerName);
  registryTimer_ = std::make_unique<QTimer>();
  QObject::connect(registryTimer_.get(), &QTimer::timeout, registryTimer_.get(), [this] { RaiseRequested(); });
  registryTimer_->start(kRegistryLookMilliseconds);
  PublishCaptions();
}

void QtDesktop::PublishCaptions() {
  if (registry_ == nullptr) return;
  std::vector<std::string> captions;
  for (const auto& window : windows_) {
    if (window->IsAttached()) captions.push_back(window->GetForm().Caption());
  }
  registry_->SetCaptions(captions);
}

void QtDesktop::RaiseRequested() {
  for (const std::string& caption : registry_->TakeRaiseRequests()) {
    for (const auto& window : windows_) {
      if (!window->IsAttached() || window->GetForm().Caption() != caption || !window->isVisible()) continue;
      if (window->isMinimized()) window->setWindowState(window->windowState() & ~Qt::WindowMinimized);
      window->raise();
      window->activateWindow();
      break;
    }
    if (noteRaised) noteRaised(caption);
  }
}

bool QtDesktop::FindWindowByTitle(std::string_view pattern, FoundWindow found) {
  if (registry_ != nullptr)
    return found == FoundWindow::BroughtUp ? registry_->Activate(pattern) : registry_->Find(pattern);
  return !pattern.empty() && std::any_of(LoadedForms().begin(), LoadedForms().end(), [&](const Form* form) {
    return ContainsIgnoringCase(form->Caption(), pattern);
  });
}

FormWindow* QtDesktop::WindowOf(const Form& form) const {
  for (const auto& window : windows_) {
    if (window->IsAttached() && &window->GetForm() == &form) return window.get();
  }
  return nullptr;
}

FormWindow* QtDesktop::TopFormWindow() const {
  for (auto form = LoadedForms().rbegin(); form != LoadedForms().rend(); ++form) {
    FormWindow* window = WindowOf(**form);
    if (window != nullptr && window->isVisible()) return window;
  }
  return nullptr;
}

QWidget* QtDesktop::TopWindow() const { return overlays_.empty() ? TopFormWindow() : overlays_.back(); }

void QtDesktop::FormLoaded(Form& form) {
  if (timersRun_) timers_[&form] = MakeTimers(form);
  if (!form.IsResident()) MakeWindow(form);
}

FormWindow* QtDesktop::MakeWindow(Form& form) {
  windows_.push_back(std::make_unique<FormWindow>(*this, form));
  PublishCaptions();
  return windows_.back().get();
}

void QtDesktop::FormShown(Form& form) {
  FormWindow* window = WindowOf(form);
  if (window == nullptr) window = MakeWindow(form);
  window->ShowForm();
  // Painted before the program goes on: what follows may take its time.
  QApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
  if (!window->IsPainted()) window->repaint();
}

void QtDesktop::FormHidden(Form& form) {
  if (FormWindow* window = WindowOf(form)) window->hide();
  if (FormWindow* top = TopFormWindow()) top->activateWindow();
  WakeWaits();
}

void QtDesktop::FormUnloaded(Form& form) {
  timers_.erase(&form);
  const auto found = std::find_if(windows_.begin(), windows_.end(), [&](const auto& window) {
    return window->IsAttached() && &window->GetForm() == &form;
  });
  if (found == windows_.end()) return;
  std::unique_ptr<FormWindow> window = std::move(*found);
  windows_.erase(found);
  window->Detach();
  Bury(std::move(window));
  PublishCaptions();
  WakeWaits();
}

void QtDesktop::Bury(std::unique_ptr<FormWindow> window) {
  buried_.push_back({std::move(window), waitDepth_});
  if (!IsDriven()) QTimer::singleShot(0, context_.get(), [this] { DeleteBuried(true); });
}

void QtDesktop::DeleteBuried(bool idle) {
  std::vector<Buried> dead;
  for (std::size_t i = buried_.size(); i-- > 0;) {
    const bool safe = buried_[i].depth > waitDepth_ || (idle && buried_[i].depth == waitDepth_);
    if (!safe) continue;
    dead.push_back(std::move(buried_[i]));
    buried_.erase(buried_.begin() + static_cast<std::ptrdiff_t>(i));
  }
}

void QtDesktop::RunModal(Form& form) {
  const std::function<bool()> over = [&form] { return !form.Visible(); };
  WaitFor(over, [&] { person_->AtForm(form, over); });
}

void QtDesktop::ServeMeanwhile(Form& form, Button& stop) {
  FlushWindows();
  if (IsDriven()) {
    QApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    person_->AtWork(form, stop);
  } else {
    QApplication::processEvents();
  }
}

bool QtDesktop::IsPersonBusy() const {
  return QApplication::activePopupWidget() != nullptr || QApplication::mouseButtons() != Qt::NoButton;
}

void QtDesktop::RunUntilUnloaded(Form& form) {
  const std::function<bool()> over = [&form] { return !form.IsLoaded(); };
  WaitFor(over, [&] { person_->AtForm(form, over); });
}

void QtDesktop::WaitFor(const std::function<bool()>& over, const std::function<void()>& ask) {
  ++waitCount_;
  ++waitDepth_;
  StartTimers();
  FlushWindows();
  // The hourglass says that the program works, which it now doesn't.
  const Pointer pointer = pointer_;
  SetPointer(Pointer::Normal);
  if (IsDriven()) {
    ask();
  } else {
    QEventLoop loop;
    waits_.push_back({&loop, &over});
    // A loop that can't be entered any more: the session is being ended from outside.
    while (!over()) {
      if (loop.exec() >= 0) continue;
      if (onSessionEnd) onSessionEnd();
      EndProcess(0);
    }
    waits_.pop_back();
  }
  SetPointer(pointer);
  --waitDepth_;
  DeleteBuried(false);
}

// Not before the program first waits for the person: what they do comes after the first board is seen.
void QtDesktop::StartTimers() {
  if (IsDriven() || std::exchange(timersRun_, true)) return;
  for (const Form* form : LoadedForms()) timers_[form] = MakeTimers(*form);
}

void QtDesktop::WakeWaits() {
  for (const Wait& wait : waits_) {
    if ((*wait.over)()) wait.loop->quit();
  }
}

void QtDesktop::FlushWindows() {
  for (std::size_t i = 0; i < windows_.size(); ++i) windows_[i]->Flush();
}

void QtDesktop::Settle() {
  DeleteBuried(true);
  FlushWindows();
  QApplication::processEvents();
  FlushWindows();
  QApplication::processEvents();
}

void QtDesktop::Beep() {
  QApplication::beep();
  if (IsDriven()) person_->NoteBeep();
}

void QtDesktop::SetPointer(Pointer pointer) {
  if (pointer == pointer_) return;
  pointer_ = pointer;
  if (pointer == Pointer::Hourglass) {
    QApplication::setOverrideCursor(Qt::WaitCursor);
  } else {
    QApplication::restoreOverrideCursor();
  }
}

// On the status line of the main window, which gets one with the first text. Painted at once: what is told may be that
// the program waits.
void QtDesktop::ShowStatus(std::string_view text) {
  for (const auto& window : windows_) {
    if (!window->IsAttached() || window->GetForm().Menus().empty()) continue;
    window->statusBar()->showMessage(ToQt(text));
    window->layout()->activate();
    window->statusBar()->repaint();
    break;
  }
  if (IsDriven()) person_->NoteStatus(text);
}

void QtDesktop::Copy(const std::string& text) { QApplication::clipboard()->setText(ToQt(WithLineFeeds(text))); }

std::string QtDesktop::Library() const { return std::string("Qt ") + qVersion(); }

int QtDesktop::OpenDocument(const std::string& path) {
  if (!IsDriven()) return OpenInPlatform(path);
  const int look = LookAtDocument(path);
  if (look == kOpened) person_->NoteShell(path);
  return look;
}

int QtDesktop::TextWidth(const Control& control, std::string_view text) {
  const FormWindow* window = WindowOf(control.Owner());
  const WidgetPeer* peer = window == nullptr ? nullptr : window->PeerOf(control);
  const QFont font = peer == nullptr ? FontOf(control, QApplication::font()) : peer->FontToCome();
  return QFontMetrics(font).horizontalAdvance(ToQt(text));
}

void QtDesktop::ReportFailure(const std::string& text) {
  if (IsDriven()) person_->NoteFailure(text);
  Tell(text, "Lantos", Icon::Critical);
}

void QtDesktop::EndProcess(int code) {
  if (IsDriven()) person_->NoteEnd(code);
  std::fflush(nullptr);
  std::_Exit(code);
}

}  // namespace lantos::ui
