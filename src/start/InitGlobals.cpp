#include "start/InitGlobals.h"

#include "frame/LogOwner.h"
#include "frame/NetworkMount.h"
#include "frame/Text.h"
#include "records/CheckList.h"
#include "records/MakesModels.h"
#include "records/Passwords.h"
#include "records/inventory/Inventory.h"
#include "records/inventory/NameList.h"
#include "records/modEmployees.h"
#include "records/modSystem.h"
#include "shop/HalfStored.h"
#include "start/DataDirectory.h"
#include "start/frmSplash.h"

namespace lantos {

namespace {

constexpr std::size_t kComputerNameBuffer = 50;
constexpr std::size_t kProfileSectionWidth = 20;
// In milliseconds.
constexpr std::int64_t kPatience = 2000;
constexpr std::int64_t kPause = 50;

void EndWithTooManyUsers(ui::Desktop& desktop) {
  desktop.Tell("More than 1000 network users - can not continue!", "KorvelMain", ui::Icon::Critical);
  desktop.EndProcess(kStartFailed);
}

std::string ProfileSectionOf(const std::string& computerName) {
  const std::string name = TrimNull(Left(Left(computerName, kComputerNameBuffer), kProfileSectionWidth));
  return name.empty() ? std::string(kDefaultsSection) : name;
}

LeftJournals MakeUpdateFile(Shop& shop) {
  Environment& environment = shop.environment;
  const DaySerial today = environment.Today();
  try {
    environment.updateFileName = TakeUpdateFile(environment.files, today);
    if (environment.updateFileName.empty()) EndWithTooManyUsers(shop.desktop);
  } catch (const FileError& error) {
    environment.log.Write(error.what());
    // A run without an update file goes on, under a name that no file has: it tells the others of its changes, and the
    // person that it hears of none.
    environment.updateFileName = UpdateFilePrefix(today) + "?.$$$";
  }
  return DeleteOldUpdateFiles(environment.files, today);
}

// The other screens take over the size of the main window. A factor of one leaves the platform's own font, since one is
// what a shop has that never asked for another.
void SetMainWindowFont(Shop& shop) {
  ui::Form* mainWindow = shop.desktop.FindForm("frmMain");
  if (mainWindow == nullptr || shop.environment.fontFactor <= 1) return;
  ui::ApplyFontFactor(*mainWindow, shop.environment.fontFactor);
}

// Most of these files are opened with no sharing: copies that start together are in each other's way for a moment.
template <class Load>
void LoadPatiently(frmSplash& splash, Clock& clock, Load load) {
  for (std::int64_t waited = 0;; waited += kPause) {
    try {
      return load();
    } catch (const FileError& error) {
      if (error.Number() != FileErrorNumber::PermissionDenied || waited >= kPatience) throw;
    }
    clock.Wait(kPause);
    splash.Meanwhile();
  }
}

void LoadSharedTables(Records& records, frmSplash& splash, Clock& clock) {
  const auto load = [&](std::string_view work, auto read) {
    splash.Next(work);
    LoadPatiently(splash, clock, read);
  };
  load("Reading the employees...", [&] { records.employees.LoadEmployees(); });
  load("Reading the passwords...", [&] { records.passwords.LoadPasswords(); });
  load("Reading the departments...", [&] { records.departments.Load(); });
  load("Reading the manufacturers...", [&] { records.manufacturers.Load(); });
  load("Reading makes and models...", [&] { records.makes.LoadMakes(); });
  load("Reading the checklist...", [&] { records.checkList.LoadChecklistFile(); });
}

void WarnOfNetworkMount(Shop& shop, de& database) {
  if (!IsOnNetworkMount(shop.environment.files.PathOf("Lantos.mdb")) || database.Connection().IsFar()) return;
  constexpr const char* advice =
      "The data directory is on a network mount: for several workstations a database server is the safe choice.";
  shop.environment.log.Write(advice);
  shop.desktop.ShowStatus(advice);
}

void OpenDatabases(Shop& shop, EstimateDatabase& database, frmSplash& splash) {
  Environment& environment = shop.environment;
  splash.Next("Opening the estimates...");
  Connect(database, environment);
  environment.hasKorvelDatabase = environment.files.FileExists("Korvel.mdb");
  splash.Next("Looking the estimates over...");
  UpgradeDatabase(database, environment, shop.records);
  database.lantosData.KeepTrail(environment.clock, {environment.computerName, environment.userName},
                                [&environment](const std::string& reason) { environment.log.Write(reason); });
  database.lantosData.KeptTrail()->Begin();
  WarnOfNetworkMount(shop, database.lantosData);
}

// The result names the journals that conversions have left.
std::vector<std::string> SettleWithOthers(Shop& shop, frmSplash& splash) {
  splash.Next("Looking for the other copies...");
  LeftJournals left = MakeUpdateFile(shop);
  SettleRecords(shop.environment, shop.desktop, left.ofRecords);  // ahead of all that is held in memory
  return std::move(left.ofConversions);
}

void ReadOptions(Shop& shop) {
  Environment& environment = shop.environment;
  ProfileFile profile = environment.Profile();
  environment.fontFactor = WorkstationProfile(profile, environment.profileSection).ReadFontFactor();
  SetMainWindowFont(shop);
  environment.statusOptions = LoadStatusOptions(profile);
  environment.shopOptions = LoadShopOptions(profile);
}

// All that takes its time.
void StartBehind(frmSplash& splash, Shop& shop, EstimateDatabase& database, frmInvList& inventoryList,
                 std::vector<std::string>& journals) {
  Environment& environment = shop.environment;
  OpenDatabases(shop, database, splash);
  journals = SettleWithOthers(shop, splash);
  splash.Next("Reading the shop's options...");
  ReadOptions(shop);
  splash.Next("Opening the inventory...");
  shop.records.inventory.SizeArrays();
  inventoryList.LoadForm();  // hidden; its timer fills the list between the person's actions
  environment.openFiles.ResetFileMarks();
  LoadSharedTables(shop.records, splash, environment.clock);
  environment.openFiles.ResetFileMarks();
}

}  // namespace

bool InitGlobals(Shop& shop, EstimateDatabase& database, frmInvList& inventoryList,
                 std::vector<std::string>& journals) {
  Environment& environment = shop.environment;
  environment.exitCodeOfGivingUp = kStartCancelled;
  if (!ResolveDataDir(environment, shop.desktop)) return false;
  shop.records.system.ReadSystem();
  if (!environment.log.Open()) EndWithTooManyUsers(shop.desktop);
  SignLog(environment.log.Path(), {environment.computerName, environment.userName});
  environment.log.Write("Korvel Appointment Scheduler Started.");
  frmSplash splash(shop.desktop, environment.clock);
  splash.Show();
  environment.profileSection = ProfileSectionOf(environment.computerName);
  try {
    StartBehind(splash, shop, database, inventoryList, journals);
  } catch (const StartStopped&) {
    environment.log.Write("Stopped before it was up.");
    return false;
  }
  environment.fleetVersion = environment.settings.GetBoolean(kMainApplication, kSettingsSection, "FleetVersion", false);
  splash.Unload();
  environment.exitCodeOfGivingUp = kEndedInOrder;
  return true;
}

}  // namespace lantos
