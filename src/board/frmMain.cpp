#include "board/frmMain.h"

#include <fmt/format.h>

#include "board/ListKeys.h"
#include "board/ShowTrail.h"
#include "frame/Dates.h"
#include "frame/Text.h"
#include "records/modSystem.h"
#include "ui/GlobalKeys.h"
#include "ui/WindowPlace.h"

namespace lantos {

namespace {

constexpr double kDefaultPlace = 1000;
constexpr double kDefaultSize = 10000;
constexpr std::string_view kRunningCaption = "Lantos: ";
constexpr std::string_view kFollow = "FollowChanges";

std::string Stored(ui::Twips value) { return fmt::format("{}", value); }

}  // namespace

frmMain::frmMain(Shop& shop, EstimateDatabase& database, MasterScreens& masters, frmInvList& inventoryList,
                 Workorders& workorders, StartAndStop startAndStop)
    : Form(shop.desktop, "frmMain", "Lantos"),
      shop_(shop),
      database_(database),
      startAndStop_(std::move(startAndStop)),
      detail(*this, shop, database, inventoryList, workorders, state_, commands),
      menus_(*this, shop, database, masters, inventoryList),
      booking_(Parts(), board_, masters) {
  SetSize(kDefaultSize, kDefaultSize);
  SetResizable(true);
  detail.OnHoursChanged = [this] { board_.ShowHoursOfCurrent(); };
  detail.IsListed = [this](std::size_t weekday, std::int32_t estimate) { return week.Lists(weekday, estimate); };
  WalkByEstimates(day.List2);
  for (ui::ListBox& list : week.List1) OpenByEnter(list);
  ServeByKeys(detail.listLabor, {detail.cmdLaborAdd, detail.cmdLaborChange, detail.cmdLaborRemove});
  ServeByKeys(detail.listParts, {detail.cmdPartAdd, detail.cmdPartChange, detail.cmdPartRemove});
  boardCommands_.beforeEach = [this] { calendarKeys_.Follow(); };
  menus_.Build(boardCommands_.All(), {.refreshTotals = [this] { detail.RefreshTotals(); },
                                      .customersEdited =
                                          [this] {
                                            const bool onShow = detail.DisplayedEstimate() != 0;
                                            board_.LoadWeek(state_.dayOnShow);
                                            if (onShow) detail.ShowEstimateDetail();
                                          },
                                      .systemChanged = [this] { FollowSystem(); },
                                      .follow = [this] { SwitchFollowing(); },
                                      .showTrail = [this] { ShowTrail(Parts(), board_); },
                                      .changeStatus = [this](std::int16_t status) { status_.ChangeTo(status); }});
}

BoardParts frmMain::Parts() {
  return {.shop = shop_,
          .database = database_,
          .state = state_,
          .calendar = MonthView1,
          .hours = hours,
          .commands = commands,
          .week = week,
          .day = day,
          .detail = detail,
          .isShown = [this](std::int16_t status) { return menus_.IsShown(status); }};
}

void frmMain::OnLoad() {
  state_.loading = true;
  rollover_.Start();
  startAndStop_.processCommandLine();
  if (!startAndStop_.initGlobals()) shop_.desktop.EndProcess(kStartCancelled);
  RestoreSettings();
  // This caption keeps the search for another copy from finding this one.
  SetCaption("Lantos Starting...");
  if (!StartSecondCopy()) {
    Unload();
    return;
  }
  NameWindow();
  FollowOthers();  // ahead of the first look at the week
  const DaySerial today = shop_.environment.Today();
  MonthView1.SetValue(today);
  board_.LoadWeek(today);
  commands.cmdWeekView.OnClick();
  menus_.ShowStatuses(shop_.environment.settings.Get("ShowStatus", "1111111111"));
  state_.loading = false;
  clicks_.PanelClick(static_cast<std::size_t>(WeekdayIndex(today)));
}

void frmMain::SettleHalfDone(const std::vector<std::string>& journals) { boardCommands_.SettleHalfDone(journals); }

void frmMain::NameWindow() {
  SetCaption(std::string(kRunningCaption) + shop_.records.system.SysRec.Get(sysrec::company_name) + " (" +
             shop_.environment.files.DataDir() + ")");
}

void frmMain::Run(const std::function<void()>& event) {
  struct Within {
    int& events;
    ~Within() { --events; }
  };
  ++events_;
  const Within within{events_};
  Form::Run(event);
}

// A timer's own event is one. Boxes, popup menus, previews and other screens are within the event that has brought them
// up; the menu bar's menus are the desktop's.
bool frmMain::IsFree() const {
  return events_ <= 1 && Visible() && !shop_.desktop.IsAsking() && !shop_.desktop.IsPersonBusy();
}

void frmMain::FollowOthers() {
  if (startAndStop_.follow == StartAndStop::Follow::WhenAsked) return;
  if (shop_.environment.settings.GetNumber(kFollow, 1) != 0) following_.Begin();
  menus_.ShowFollowing(following_.IsOn());
}

void frmMain::SwitchFollowing() {
  following_.IsOn() ? following_.End() : following_.Begin();
  menus_.ShowFollowing(following_.IsOn());
  shop_.environment.settings.Save(kFollow, following_.IsOn() ? "1" : "0");
  if (following_.IsOn()) following_.ShowAll();
}

// What stands on the board of the shop's name and rates.
void frmMain::FollowSystem() {
  NameWindow();
  if (detail.DisplayedEstimate() != 0) detail.RefreshTotals();
}

// False when this copy is to go.
bool frmMain::StartSecondCopy() {
  ui::Desktop& desktop = shop_.desktop;
  if (!desktop.FindWindowByTitle(kRunningCaption, ui::FoundWindow::LeftAlone)) return true;
  switch (
      desktop.Ask("The Korvel Apppointment Scheduler is already running.\r\r"
                  "Click Yes to switch to the running application.\r\r"
                  "Click No to allow another copy to run.\r\r"
                  "Click Cancel to exit this copy.",
                  "Multiple Lantos Instances", ui::Buttons::YesNoCancel, ui::Icon::Question)) {
    case ui::Answer::Yes:
      return !desktop.FindWindowByTitle(kRunningCaption, ui::FoundWindow::BroughtUp);
    case ui::Answer::No:
      return true;
    default:
      return false;
  }
}

void frmMain::RestoreSettings() {
  const UserSettings& settings = shop_.environment.settings;
  const auto place = [&](std::string_view key, double whenAbsent) {
    return static_cast<ui::Twips>(settings.GetNumber(key, whenAbsent));
  };
  SetPosition(place("MainLeft", kDefaultPlace), place("MainTop", kDefaultPlace));
  SetSize(place("MainWidth", kDefaultSize), place("MainHeight", kDefaultSize));
  const double state = settings.GetNumber("MainState", 0);
  SetState(state == 1 ? ui::WindowState::Minimized : state == 2 ? ui::WindowState::Maximized : ui::WindowState::Normal);
  day.cbShowLabor.SetValue(settings.GetNumber("LaborOnDayView", 1) != 0);
}

void frmMain::SaveSettings() {
  UserSettings& settings = shop_.environment.settings;
  settings.Save("MainState", std::to_string(static_cast<int>(State())));
  if (State() == ui::WindowState::Normal) {
    settings.Save("MainLeft", Stored(LeftEdge()));
    settings.Save("MainTop", Stored(TopEdge()));
    settings.Save("MainWidth", Stored(Width()));
    settings.Save("MainHeight", Stored(Height()));
  }
  settings.Save("LaborOnDayView", day.cbShowLabor.Value() ? "1" : "0");
}

// Runs in full for a copy that goes at its question about another one, too: that copy's filter is still the designed
// one, and is stored as such.
void frmMain::OnUnload(bool&) {
  shop_.desktop.SetPointer(ui::Pointer::Hourglass);
  following_.End();
  Run([this] { detail.KeepUnsavedComments(); });  // a database that is gone doesn't keep the window open
  database_.lantosData.CloseRecordsets();
  database_.korvelData.CloseRecordsets();
  Run([this] { startAndStop_.sendWaitingChanges(); });
  shop_.environment.settings.Save("ShowStatus", menus_.ShownStatuses());
  UnloadOtherForms();
  Run([this] { doubtfulFiles_.Tell(); });
  SaveSettings();
  ProfileFile profile = shop_.environment.Profile();
  WorkstationProfile(profile, shop_.environment.profileSection).WriteFontFactor(shop_.environment.fontFactor);
  startAndStop_.deleteUpdateFileAndCloseLog();
  shop_.desktop.SetPointer(ui::Pointer::Normal);
}

// From the last to the second, going on past any error.
void frmMain::UnloadOtherForms() {
  const std::vector<ui::Form*> forms = shop_.desktop.LoadedForms();
  for (auto form = forms.rbegin(); form != forms.rend(); ++form) {
    if (*form == this) continue;
    try {
      (*form)->Unload();
    } catch (const std::exception& error) {
      shop_.environment.log.Write(error.what());
    }
  }
}

void frmMain::OnKeyDown(ui::KeyPress& key) {
  if (shop_.keys.HandleGlobalKeys(key, *this)) return;
  if (calendarKeys_.Press(key)) key.Clear();
  if (!key.IsControl("T")) return;
  key.Clear();
  ShowTrail(Parts(), board_);
}

void frmMain::OnResize() { ui::FitMinimumSize(*this, 0, 0); }

void frmMain::OnMouseUp(ui::MouseButton button) {
  if (button == ui::MouseButton::Right) menus_.PopupRefresh();
}

}  // namespace lantos
