#include "start/Program.h"

#include <pwd.h>
#include <unistd.h>

#include <array>

#include "board/frmMain.h"
#include "frame/PathText.h"
#include "frame/PlainWords.h"
#include "frame/Text.h"
#include "help/frmGuide.h"
#include "masters/vendors/VendorScreens.h"
#include "printing/VehicleHistory.h"
#include "start/CommandLine.h"
#include "start/DataDirectory.h"
#include "start/EveryForm.h"
#include "start/InitGlobals.h"
#include "start/KeyPage.h"
#include "start/frmEnterDir.h"
#include "start/frmSplash.h"
#include "ui/HelpDesk.h"

namespace lantos {

struct Program::State {
  State(ui::Desktop& theDesktop, Clock& clock, UserSettings& settings, Invocation theInvocation)
      : desktop(theDesktop),
        invocation(std::move(theInvocation)),
        environment(clock, settings),
        records(environment, desktop),
        keys(desktop),
        shop{desktop, environment, records, keys, invocation.openSpeller},
        database(environment, records),
        masters(shop),
        inventoryList(shop),
        workorders(environment, desktop, records) {
    environment.computerName = invocation.computerName;
    environment.userName = invocation.userName;
    database.busyTimeout = invocation.busyTimeout;
    environment.files.storedDataDir = [this] { return StoredDataDir(environment); };
    keys.openVendorList = [this] { ViewVendors(shop); };
    if (help != nullptr) help->showHelp = [this](ui::Form& form) { ShowHelp(form); };
    masters.vehicleHistory = [this](const std::string& vin, const std::string& vehicle) {
      return VehicleHistoryReport(shop, vin, vehicle);
    };
    desktop.logFailure = [this](const std::string& text) { environment.log.Write(text); };
    desktop.onSessionEnd = [this] { EndWithSession(); };
  }
  ~State() {
    if (help != nullptr) help->showHelp = nullptr;
    desktop.logFailure = nullptr;
    desktop.onSessionEnd = nullptr;
  }

  StartAndStop Steps();
  void ShowHelp(ui::Form& form);
  void EndWithSession();
  void DeleteUpdateFileAndCloseLog();
  void DeleteUpdateFile();

  ui::Desktop& desktop;
  ui::HelpDesk* help = ui::HelpDeskOf(desktop);
  Invocation invocation;
  Environment environment;
  Records records;
  ui::GlobalKeys keys;
  Shop shop;
  EstimateDatabase database;
  MasterScreens masters;
  frmInvList inventoryList;
  Workorders workorders;
  std::vector<std::string> journals;  // that conversions had left when this copy came up
};

StartAndStop Program::State::Steps() {
  StartAndStop steps;
  steps.processCommandLine = [this] {
    ProcessCommandLine(environment, desktop, invocation.commandLine);
    TellWhatIsNotUnderstood(desktop, invocation.commandLine);
  };
  steps.initGlobals = [this] {
    const bool isUp = InitGlobals(shop, database, inventoryList, journals);
    NoteUnknownSwitch(shop, invocation.commandLine);
    if (!isUp) DeleteUpdateFileAndCloseLog();
    return isUp;
  };
  steps.sendWaitingChanges = [this] { inventoryList.FinishUpdates(); };
  steps.deleteUpdateFileAndCloseLog = [this] { DeleteUpdateFileAndCloseLog(); };
  steps.follow =
      invocation.follow == Invocation::Follow::AsSet ? StartAndStop::Follow::AsSet : StartAndStop::Follow::WhenAsked;
  return steps;
}

// Where the directory is still asked for there is nothing that the keys of all screens could open. In the middle of a
// start nobody is waited for.
void Program::State::ShowHelp(ui::Form& form) {
  if (dynamic_cast<frmSplash*>(&form) != nullptr) return;
  if (auto* guide = dynamic_cast<frmGuide*>(&form)) return guide->ShowPageOf(form.Name());
  ui::GlobalKeys bare(desktop);
  const bool asksForDirectory = dynamic_cast<frmEnterDir*>(&form) != nullptr;
  frmGuide guide(desktop, asksForDirectory ? bare : keys, environment.settings, form.Name());
  guide.ShowModal();
}

// What waits goes out first, as when the window is closed.
void Program::State::EndWithSession() {
  try {
    inventoryList.FinishUpdates();
  } catch (const std::exception& error) {
    environment.log.Write(error.what());
  }
  DeleteUpdateFileAndCloseLog();
}

// Another copy may be sending its last changes just then.
void Program::State::DeleteUpdateFile() {
  const std::string& name = environment.updateFileName;
  constexpr int kTries = 20;
  constexpr std::int64_t kPause = 50;  // milliseconds
  for (int i = 0; i < kTries && !name.empty(); ++i) {
    if (environment.files.Delete(name) || !environment.files.IsThere(name)) return;
    environment.clock.Wait(kPause);
  }
}

void Program::State::DeleteUpdateFileAndCloseLog() {
  DeleteUpdateFile();
  environment.log.Close();
}

Program::Program(ui::Desktop& desktop, Clock& clock, UserSettings& settings, Invocation invocation)
    : state_(std::make_unique<State>(desktop, clock, settings, std::move(invocation))) {}

Program::~Program() = default;

int Program::Run() {
  frmMain mainWindow(state_->shop, state_->database, state_->masters, state_->inventoryList, state_->workorders,
                     state_->Steps());
  try {
    mainWindow.LoadForm();
  } catch (const std::exception& error) {
    state_->environment.log.Write(error.what());
    state_->DeleteUpdateFile();  // nobody will take anything in
    state_->desktop.SetPointer(ui::Pointer::Normal);
    state_->desktop.Tell(WordsFor(error), "Lantos can not start", ui::Icon::Critical);
    return kStartFailed;
  }
  if (!mainWindow.IsLoaded()) return kEndedInOrder;
  mainWindow.Show();
  mainWindow.SettleHalfDone(state_->journals);
  state_->desktop.RunUntilUnloaded(mainWindow);
  return kEndedInOrder;
}

std::string Program::Keys() {
  State& state = *state_;
  frmMain main(state.shop, state.database, state.masters, state.inventoryList, state.workorders, state.Steps());
  FormGround ground{state.shop,          state.database,   state.masters,
                    state.inventoryList, state.workorders, main.detail.contents};
  std::vector<std::unique_ptr<ui::Form>> forms;
  for (const MakeForm& make : EveryForm()) forms.push_back(make(ground));
  return KeyPage(forms);
}

std::string Program::LogPath() const { return TextOfPath(state_->environment.log.Path()); }

std::string PlatformComputerName() {
  std::array<char, 256> name{};
  if (gethostname(name.data(), name.size() - 1) != 0) return {};
  return name.data();
}

std::string PlatformUserName() {
  std::array<char, 4096> texts{};
  passwd user{};
  passwd* found = nullptr;
  if (getpwuid_r(geteuid(), &user, texts.data(), texts.size(), &found) != 0 || found == nullptr) return {};
  return FromUtf8(found->pw_name);
}

}  // namespace lantos
