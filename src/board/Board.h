#pragma once

#include <chrono>
#include <functional>
#include <set>
#include <string>
#include <vector>

#include "board/BoardState.h"
#include "board/DayPane.h"
#include "board/DetailPane.h"
#include "board/HoursPane.h"
#include "board/WeekData.h"
#include "board/WeekPane.h"

namespace lantos {

// What frmMain puts together, for those who work on several parts of it.
struct BoardParts {
  Shop& shop;
  EstimateDatabase& database;
  BoardState& state;
  ui::MonthView& calendar;
  HoursPane& hours;
  CommandPane& commands;
  WeekPane& week;
  DayPane& day;
  DetailPane& detail;
  std::function<bool(std::int16_t status)> isShown;  // by the status filter
};

// What was changed since the board was filled, where it is known which estimates.
struct Stale {
  bool isAll = false;
  std::set<std::int32_t> estimates;
};

// The three views of the same estimates. LoadWeek fills them from the database; what it has read is kept for
// ShowWeekAnew alone.
class Board {
 public:
  explicit Board(const BoardParts& parts) : parts_(parts) {}

  // Rebuilds week lists, day list, hours and colours around a day, which calendar and mark stand on then. When the
  // database can't be read the board stays as it is, and DatabaseError is thrown. CurrentEstimate isn't touched.
  void LoadWeek(DaySerial date);
  // The week as others have made it since, and nothing else moved: calendar, days that are meant, what is selected and
  // the detail view stay. No box comes up: what is the matter with a file or the database is thrown, and the lists
  // stay. From far away only what is stale is read, but now and then all of it.
  void ShowWeekAnew(const Stale& stale);
  // The lines of the current estimate, which is new, in the panel of its day, and in the day list when that is of its
  // day; its hours count. The board then stands on that day.
  void AddCurrent();
  // Name, phones, vehicle and hours of the current estimate, where it is listed.
  void RefreshLines();
  // The hours and the colour of a weekday as they are now.
  void ShowDayHeader(std::size_t weekday);
  // The same for the day of the current estimate. Nothing when that is of another week.
  void ShowHoursOfCurrent();

  enum class DayData { Load, AsLoaded };
  void ShowWeekView();
  void ShowDayView(DayData data);
  void ShowDetailView();

  // The focus to the list that the current estimate stands in, or from the detail view to the way back to the day.
  void GoOnWithTheDay();

  // Makes a panel's day the one of calendar and day view, with nothing loaded anew.
  void SelectDay(std::size_t weekday);
  // Loads an estimate into CurrentEstimate. What is typed into the comments of another one is kept first.
  void Choose(std::int32_t estimate);

  // The status of the current estimate, as the lists and the detail view tell it. A past Scheduled one becomes a
  // No-show in memory.
  void RefreshStatusText();
  // The week of the current estimate, when a change from the old status moved it into or out of the day's hours.
  enum class WeekLoad { NotNeeded, Done };
  WeekLoad LoadWeekIfCountChanged(std::int16_t oldStatus);
  // Both, and the load in any case where a copy of the estimate was made, which stands in no list yet. The detail view,
  // which a load empties, shows the estimate again.
  enum class Copy { None, Made };
  void FollowStatus(std::int16_t oldStatus, Copy copy = Copy::None);

  // A customer of the files; null when there is none of that number. Good until the next look-up.
  const CustomerRecord* FindCustomerOf(const Estimate& estimate);

 private:
  void ReadAnew(const Stale& stale);
  void KeepRead(WeekData week);
  void ReadCustomersOf(const WeekData& data);
  // What is of that day stands in the day list, too.
  void FillPanels(DaySerial listed);
  void FillPanel(std::size_t weekday, const std::vector<BoardRow>& rows, bool isListed);
  void ColorPanel(std::size_t weekday);
  void StandOn(DaySerial date);
  void AddWeekLines(std::size_t weekday, Estimate& estimate);
  void AddDayLines(Estimate& estimate, const std::vector<std::string>& laborLines);
  void ShowView(View view);
  // The word of an estimate's status. A past Scheduled estimate becomes a No-show by it, in memory alone.
  std::string SettleStatus(Estimate& estimate);
  Estimate& Current() { return parts_.database.estimates.CurrentEstimate; }

  BoardParts parts_;
  WeekData read_;
  std::chrono::steady_clock::time_point readAt_{};  // all of it
};

}  // namespace lantos
