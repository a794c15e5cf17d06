#pragma once

#include <functional>
#include <string>
#include <utility>

#include "estimatedb/EstimateDatabase.h"
#include "shop/Shop.h"

namespace lantos {

// The copy of the current estimate on another day, for a move or a continuation. Row, lines, and what becomes of the
// estimate that it was made of are one transaction: a process that ends in the midst leaves nothing of them, and so
// does a disk that is full or broken. What the database refuses otherwise ends the transaction there, and nothing is
// undone: what was made by then stays, and the person is told which estimate that is.
class EstimateCopy {
 public:
  EstimateCopy(Shop& shop, EstimateDatabase& database, std::string title)
      : shop_(shop), database_(database), title_(std::move(title)) {}

  struct Steps {
    std::function<void()> before = [] {};  // within the transaction, ahead of all
    std::function<void()> rest;            // behind row and lines; each step that may be refused by itself is Apart
    std::function<void()> stored = [] {};  // when these, or those before a refused one, are in the database
  };
  // Takes a number; makes the row and the lines, and then the rest. What an earlier try made on that day isn't made
  // again. What another workstation has made of the estimate meanwhile is asked about before anything is made; GivenUp
  // when the person doesn't go on. What fails before a row stands is thrown as it is, what fails behind that as a
  // WordedError that names the copy first.
  void Make(DaySerial date, std::int16_t status, const Steps& steps);

  std::int32_t Number() const { return made_.number; }  // 0: no row has been made

 private:
  struct Made {
    std::int32_t number = 0;
    DaySerial date = 0;
    bool isWhole = false;
  };

  void MakeAllTogether(DaySerial date, std::int16_t status, const Steps& steps);
  void MakeRowAndLines(std::int32_t number, DaySerial date, std::int16_t status);
  bool IsMadeOn(DaySerial date) const { return made_.number != 0 && made_.date == date; }
  std::string WhatStays() const;

  Shop& shop_;
  EstimateDatabase& database_;
  std::string title_;
  Made made_;
};

}  // namespace lantos
