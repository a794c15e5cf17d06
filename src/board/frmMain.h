#pragma once

#include <functional>

#include "board/BoardClicks.h"
#include "board/BoardCommands.h"
#include "board/BoardMenus.h"
#include "board/Booking.h"
#include "board/CalendarKeys.h"
#include "board/DoubtfulFiles.h"
#include "board/Following.h"
#include "board/Papers.h"

namespace lantos {

// What the main window leaves to the start-up code, which knows all modules.
struct StartAndStop {
  std::function<void()> processCommandLine;
  std::function<bool()> initGlobals;  // false ends the process silently
  std::function<void()> sendWaitingChanges;
  std::function<void()> deleteUpdateFileAndCloseLog;
  // Whether what others change is followed: as the person has set it, or not before it is asked for.
  enum class Follow { WhenAsked, AsSet };
  Follow follow = Follow::WhenAsked;
};

// The schedule board: calendar, hours and commands beside three stacked views of the same estimates. Puts its parts
// together, brings them up and takes them down.
class frmMain : public ui::Form {
 public:
  frmMain(Shop& shop, EstimateDatabase& database, MasterScreens& masters, frmInvList& inventoryList,
          Workorders& workorders, StartAndStop startAndStop);

 private:
  Shop& shop_;
  EstimateDatabase& database_;
  StartAndStop startAndStop_;
  DayRollover rollover_{shop_};
  BoardState state_;

 public:
  // The order is the tab order.
  ui::MonthView MonthView1{*this, "MonthView1"};
  ui::Timer CalendarTimer{*this, "CalendarTimer"};
  ui::Timer DoubtTimer{*this, "DoubtTimer"};
  ui::Timer FollowTimer{*this, "FollowTimer"};
  HoursPane hours{*this};
  CommandPane commands{*this};
  ui::Label lblFollowed{*this, "lblFollowed"};
  WeekPane week{*this};
  DayPane day{*this};
  DetailPane detail;

  // As Board has it.
  void LoadWeek(DaySerial date) { board_.LoadWeek(date); }
  // Conversions that ended in the middle, by the names of their journals: the person finishes or undoes them.
  void SettleHalfDone(const std::vector<std::string>& journals);
  void Run(const std::function<void()>& event) override;

 private:
  void OnLoad() override;
  void OnKeyDown(ui::KeyPress& key) override;
  void OnResize() override;
  void OnMouseUp(ui::MouseButton button) override;
  void OnUnload(bool& refuse) override;
  bool StartSecondCopy();
  void NameWindow();
  void FollowSystem();
  bool IsFree() const;
  void FollowOthers();
  void SwitchFollowing();
  void RestoreSettings();
  void SaveSettings();
  void UnloadOtherForms();
  BoardParts Parts();

  int events_ = 0;  // that run just now, one within the other
  BoardMenus menus_;
  Board board_{Parts()};
  DoubtfulFiles doubtfulFiles_{shop_, DoubtTimer};
  Following following_{Parts(), board_, FollowTimer, lblFollowed, [this] { return IsFree(); }};
  CalendarKeys calendarKeys_{Parts(), board_, CalendarTimer};
  StatusByHand status_{Parts(), board_, menus_};
  Booking booking_;
  Papers papers_{Parts(), board_};
  BoardCommands boardCommands_{Parts(), board_, booking_, papers_, status_, rollover_};
  BoardClicks clicks_{Parts(), board_, menus_, status_, rollover_};
};

}  // namespace lantos
