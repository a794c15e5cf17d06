#pragma once

#include <chrono>
#include <filesystem>
#include <memory>
#include <utility>

#include "board/BookingBench.h"
#include "estimatedb/EngineChoice.h"
#include "estimatedb/WatchedEngine.h"

namespace lantos::test {

// Hears nothing while it is said to be deaf, and tells nothing of that time afterwards.
class DeafWatch : public ChangeWatch {
 public:
  DeafWatch(std::unique_ptr<ChangeWatch> watch, const bool& isDeaf) : watch_(std::move(watch)), isDeaf_(isDeaf) {}
  ForeignRows Ask() override {
    ForeignRows rows = watch_->Ask();
    if (isDeaf_) rows = {};
    return rows;
  }
  WatchContact Contact() const override {
    WatchContact contact = watch_->Contact();
    contact.stands = contact.stands && !isDeaf_;
    return contact;
  }
  std::chrono::milliseconds Pace() const override { return watch_->Pace(); }

 private:
  std::unique_ptr<ChangeWatch> watch_;
  const bool& isDeaf_;
};

// Counts the statements. While it is said to be far away each is an answer to wait for.
class FollowedEngine : public WatchedEngine {
 public:
  FollowedEngine(std::unique_ptr<Engine> engine, int& statements, const bool& isDeaf, const bool& isFar)
      : WatchedEngine(std::move(engine), [&statements](std::string_view) { ++statements; }),
        isDeaf_(isDeaf),
        isFar_(isFar) {}
  bool IsFar() const override { return isFar_; }
  std::unique_ptr<ChangeWatch> Watch(const WatchTimes& times) override {
    return std::make_unique<DeafWatch>(WatchedEngine::Watch(times), isDeaf_);
  }

 private:
  const bool& isDeaf_;
  const bool& isFar_;
};

// A board, and another workstation that it may follow.
struct Followable : BookingBench {
  Followable() {
    directory.Put("TQEMPLOY.DAT", "");
    // A file that was changed just now is looked at twice.
    std::filesystem::last_write_time(directory / "TQCSTTAG.DAT",
                                     std::filesystem::file_time_type::clock::now() - std::chrono::hours(1));
    AddEstimate(900, Today(), kArrived);
    AddEstimate(901, Today(), kArrived);
    Do("update Estimates set Comments = 'Old' where EstimateNumber = 900");
    database.lantosData.Disconnect();
    database.lantosData.SetOpener([this] {
      return std::make_unique<FollowedEngine>(OpenDatabase(directory / "Lantos.mdb", environment.clock), statements,
                                              isDeaf, isFar);
    });
    Connect(elsewhere, environment);
    them.KeepTrail(environment.clock, {"FRONTDESK", "beth"});
    them.SetStatus(kScheduled, 901);  // the trail's table is there
    Start();
  }
  void TurnOn() { board.FindMenu("mnuFollow")->DoClick(); }
  // How many statements a look at what others have changed takes here.
  int Look() {
    statements = 0;
    board.FollowTimer.DoTick();
    return statements;
  }
  // By a program that leaves no row on the trail.
  void BookElsewhere(std::int32_t number, std::int32_t customer) {
    them.Connection().Run(fmt::format("insert into Estimates (EstimateNumber, SchedDate, Status, CustomerNumber, "
                                      "CreateDate) values ({}, '{}', {}, {}, '2003-09-22')",
                                      number, FormatIsoDate(Today()), kArrived, customer),
                          {});
  }
  ui::ListBox& TuesdayList() { return board.week.List1[kTuesday]; }

  int statements = 0;
  bool isDeaf = false;
  bool isFar = false;
  EstimateDatabase elsewhere{environment, records};
  de& them = elsewhere.lantosData;
};

struct Followed : Followable {
  Followed() { TurnOn(); }
};

}  // namespace lantos::test
