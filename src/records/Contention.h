#pragma once

#include <string_view>

#include "frame/Clock.h"
#include "frame/FileError.h"
#include "ui/Desktop.h"

namespace lantos {

// What a routine does about a file that somebody else has: silent retries, then a box.
struct ContentionRule {
  enum class Pause { None, OneSecond };                      // ahead of each silent retry
  enum class AfterBox { Ask, AskAndRetrySilently, GiveUp };  // Ask: one more try each time, unless Cancel

  int silentRetries;
  Pause pause;
  AfterBox afterBox;
  std::string_view text;
  std::string_view title;  // empty: the text of the error
  ui::Buttons buttons;
  ui::Icon icon;
};

namespace contention {
using Pause = ContentionRule::Pause;
using AfterBox = ContentionRule::AfterBox;
using ui::Buttons;
using ui::Icon;

inline constexpr std::string_view kTagsLocked =
    "Customer tags file locked by another user.\rClick OK to try again, or CANCEL to exit.";
inline constexpr std::string_view kCustomersLocked =
    "Customer data file locked by another user.\rClick OK to try again, or CANCEL to exit.";

inline constexpr ContentionRule kLoadCustomerTags = {3,
                                                     Pause::OneSecond,
                                                     AfterBox::Ask,
                                                     "Customer tags file locked by another user.",
                                                     "Open failure",
                                                     Buttons::OkCancel,
                                                     Icon::None};
inline constexpr ContentionRule kReadCustomer = {
    0, Pause::None, AfterBox::Ask, kCustomersLocked, "ReadCustomer()", Buttons::OkCancel, Icon::Exclamation};
inline constexpr ContentionRule kWriteCustomerTag = {
    0, Pause::None, AfterBox::Ask, kTagsLocked, "WriteCustomer()", Buttons::OkCancel, Icon::Exclamation};
inline constexpr ContentionRule kWriteCustomer = {
    0, Pause::None, AfterBox::Ask, kCustomersLocked, "WriteCustomer()", Buttons::OkCancel, Icon::Exclamation};
inline constexpr ContentionRule kOpenVehicleForRead = {0,
                                                       Pause::None,
                                                       AfterBox::Ask,
                                                       "Could not open Vehicle file, click Retry to try again.",
                                                       "OpenVehicleForRead",
                                                       Buttons::RetryCancel,
                                                       Icon::Critical};
inline constexpr ContentionRule kReadVehicle = {
    1000, Pause::None, AfterBox::GiveUp, "Could not open Vehicle file.", "ReadVehicle", Buttons::Ok, Icon::Critical};
inline constexpr ContentionRule kWriteVehicle = {
    1000, Pause::None, AfterBox::GiveUp, "Could not open Vehicle file.", "WriteVehicle", Buttons::Ok, Icon::Critical};
// The hundredth failure asks.
inline constexpr ContentionRule kSystem = {99,
                                           Pause::None,
                                           AfterBox::AskAndRetrySilently,
                                           "System file locked by another user.",
                                           "",
                                           Buttons::RetryCancel,
                                           Icon::Critical};
}  // namespace contention

// One routine's dealings with one rule. Its statements share the count of failures.
class Contention {
 public:
  Contention(const ContentionRule& rule, ui::Desktop& desktop, Clock& clock)
      : rule_(rule), desktop_(desktop), clock_(clock) {}

  // Runs the statement, again after each FileError for as long as the rule and the operator want. False when it was
  // given up.
  template <class Statement>
  bool Run(Statement statement) {
    for (;;) {
      try {
        statement();
        return true;
      } catch (const FileError& error) {
        if (!TryAgain(error)) return false;
      }
    }
  }

 private:
  bool TryAgain(const FileError& error);

  const ContentionRule& rule_;
  ui::Desktop& desktop_;
  Clock& clock_;
  int failures_ = 0;
};

}  // namespace lantos
