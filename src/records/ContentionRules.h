#pragma once

#include <cstdint>
#include <limits>
#include <string_view>

#include "ui/Desktop.h"

namespace lantos {

// What a routine does about a file that somebody else has: silent retries, then a box. In its texts "{what}" is what
// the routine waits for (a file, a part number), and "{error}" the text of the error.
struct ContentionRule {
  // How long a retry is put off. The values but the first and the last are milliseconds.
  enum class Pause : std::int64_t {
    None = 0,
    HundredthOfASecond = 10,
    TenthOfASecond = 100,
    QuarterOfASecond = 250,
    ToNextSecond = -1
  };
  enum class Failures { All, SharingOnly };  // SharingOnly: any other error surfaces at once
  // Ask: one more try each time, unless Cancel. GiveUp: the box only tells. Surface: no box, the error is thrown on.
  enum class AfterRetries { Ask, AskAndRetrySilently, GiveUp, Surface };
  enum class Noted { Nothing, FirstFailure, EachFailure };  // in the log

  static constexpr int kWithoutEnd = std::numeric_limits<int>::max();

  int silentRetries = 0;
  Pause pause = Pause::None;  // ahead of each silent retry
  Failures failures = Failures::All;
  AfterRetries afterRetries = AfterRetries::Ask;
  Pause pauseAfterBox = Pause::None;
  Noted noted = Noted::Nothing;
  std::string_view text = {};
  std::string_view title = {};
  ui::Buttons buttons = ui::Buttons::Ok;
  ui::Icon icon = ui::Icon::None;
  // On the status line and in the log once a wait has taken a second; the line is cleared at the end of the wait.
  std::string_view word = {};
  // The file that is waited for, where the rule's own words blame another user: any other failure is then asked about
  // with its true cause, with Retry and Cancel. cancelling is what Cancel does, behind "Cancel to". A rule with that
  // alone has its own words for any failure, but lets a file that is unfit to be opened say so.
  std::string_view file = {};
  std::string_view cancelling = {};
  int otherRetries = 0;  // silent ones, ahead of that box
};

// The whole table, by families of files.
namespace contention {

using Pause = ContentionRule::Pause;
using Failures = ContentionRule::Failures;
using AfterRetries = ContentionRule::AfterRetries;
using Noted = ContentionRule::Noted;
using ui::Buttons;
using ui::Icon;

// What the program reads by itself, and can read later.
inline constexpr ContentionRule kAskNobody = {.afterRetries = AfterRetries::Surface};

// Customers.
inline constexpr std::string_view kTagsLocked =
    "Customer tags file locked by another user.\rClick OK to try again, or CANCEL to exit.";
inline constexpr std::string_view kCustomersLocked =
    "Customer data file locked by another user.\rClick OK to try again, or CANCEL to exit.";

inline constexpr ContentionRule kLoadCustomerTags = {
    .silentRetries = 3,
    .pause = Pause::ToNextSecond,
    .text = "Customer tags file locked by another user.",
    .title = "Open failure",
    .buttons = Buttons::OkCancel,
    .file = "TQCSTTAG.DAT",
    .cancelling = "go on without the list of customers",
    .otherRetries = 3,
};
inline constexpr ContentionRule kReadCustomer = {
    .text = kCustomersLocked,
    .title = "ReadCustomer()",
    .buttons = Buttons::OkCancel,
    .icon = Icon::Exclamation,
    .file = "TQCSTDAT.DAT",
    .cancelling = "leave the customer unread",
};
inline constexpr ContentionRule kWriteCustomerTag = {
    .text = kTagsLocked,
    .title = "WriteCustomer()",
    .buttons = Buttons::OkCancel,
    .icon = Icon::Exclamation,
    .file = "TQCSTTAG.DAT",
    .cancelling = "leave the customer unsaved",
};
inline constexpr ContentionRule kWriteCustomer = {
    .text = kCustomersLocked,
    .title = "WriteCustomer()",
    .buttons = Buttons::OkCancel,
    .icon = Icon::Exclamation,
    .file = "TQCSTDAT.DAT",
    .cancelling = "leave the customer unsaved",
};

// Vehicles.
inline constexpr ContentionRule kOpenVehicleForRead = {
    .text = "Could not open Vehicle file, click Retry to try again.",
    .title = "OpenVehicleForRead",
    .buttons = Buttons::RetryCancel,
    .icon = Icon::Critical,
    .file = "TQVEHICL.DAT",
    .cancelling = "go on without the vehicles",
};
inline constexpr ContentionRule kReadVehicle = {
    .silentRetries = 1000,
    .afterRetries = AfterRetries::GiveUp,
    .text = "Could not open Vehicle file.",
    .title = "ReadVehicle",
    .icon = Icon::Critical,
    .file = "TQVEHICL.DAT",
    .cancelling = "leave the vehicle unread",
};
inline constexpr ContentionRule kWriteVehicle = {
    .silentRetries = 1000,
    .afterRetries = AfterRetries::GiveUp,
    .text = "Could not open Vehicle file.",
    .title = "WriteVehicle",
    .icon = Icon::Critical,
    .file = "TQVEHICL.DAT",
    .cancelling = "leave the vehicle unsaved",
};

// The system record. The hundredth failure asks.
inline constexpr ContentionRule kSystem = {
    .silentRetries = 99,
    .afterRetries = AfterRetries::AskAndRetrySilently,
    .text = "System file locked by another user.",
    .title = "{error}",
    .buttons = Buttons::RetryCancel,
    .icon = Icon::Critical,
    .file = "TQSYSTEM.DAT",
    .cancelling = "end the program",
    .otherRetries = 99,
};

// The parts. Another copy's hold is waited out by an open for a write, and by the search for a tag: nobody is asked
// while a part is half written. What is no hold may never end, and is asked about after five seconds.
inline constexpr ContentionRule kOpenInventory = {
    .silentRetries = ContentionRule::kWithoutEnd,
    .pause = Pause::TenthOfASecond,
    .noted = Noted::FirstFailure,
    .word = "Waiting for {what}... ({error})",
    .file = "{what}",
    .cancelling = "leave the part as it is",
    .otherRetries = 50,
};
inline constexpr ContentionRule kReadInventory = {
    .pauseAfterBox = Pause::QuarterOfASecond,
    .text = "Can not read tags record for {what}\r{error}",
    .title = "ReadInventory",
    .buttons = Buttons::RetryCancel,
    .icon = Icon::Exclamation,
    .cancelling = "leave the part unread",
};
inline constexpr ContentionRule kReadInventoryTag = {
    .pauseAfterBox = Pause::QuarterOfASecond,
    .text = "Can not read tags record for {what}\r{error}",
    .title = "ReadInventoryTag",
    .buttons = Buttons::RetryCancel,
    .icon = Icon::Exclamation,
    .cancelling = "leave the part unread",
};
inline constexpr ContentionRule kLoadInventoryTags = {
    .noted = Noted::EachFailure,
    .text = "Error reading inventory tags - Click OK to retry.",
    .title = "Lantos",
    .file = "TQINVTAG.DAT",
    .cancelling = "leave these parts out of the list",
};
// The tag of a part that another copy has told of. Nobody has asked for it, so the moment that a write takes goes by
// without a box.
inline constexpr ContentionRule kReadTagOfChange = {
    .silentRetries = 10,
    .pause = Pause::HundredthOfASecond,
    .pauseAfterBox = Pause::QuarterOfASecond,
    .text = kReadInventoryTag.text,
    .title = kReadInventoryTag.title,
    .buttons = Buttons::RetryCancel,
    .icon = Icon::Exclamation,
    .cancelling = "leave the change for later",
};
// What the copies tell one another: the update files of the others, and the own one.
inline constexpr ContentionRule kBroadcastUpdate = {
    .silentRetries = 9,
    .pause = Pause::ToNextSecond,
    .afterRetries = AfterRetries::AskAndRetrySilently,
    .text =
        "Inventory Update file {what} could not be opened.\r{error}\r"
        "Click RETRY to try again, or CANCEL to skip this file.",
    .title = "BroadcastUpdate",
    .buttons = Buttons::RetryCancel,
    .icon = Icon::Exclamation,
    .cancelling = "skip this file",
};
inline constexpr ContentionRule kReadUpdateFile = {
    .silentRetries = 2,
    .pause = Pause::ToNextSecond,
    .afterRetries = AfterRetries::Surface,
    .noted = Noted::EachFailure,
};
inline constexpr ContentionRule kUpdateUsage = {
    .silentRetries = 2,
    .pause = Pause::ToNextSecond,
    .afterRetries = AfterRetries::AskAndRetrySilently,
    .text = "Inventory Usage file locked by another user.\rClick OK to try again.",
    .title = "UpdateUsage {error}",
    .icon = Icon::Exclamation,
    .file = "{what}",
    .cancelling = "go on without noting the use of the part",
    .otherRetries = 2,
};
inline constexpr ContentionRule kOpenKitsExclusive = {
    .afterRetries = AfterRetries::GiveUp,
    .noted = Noted::EachFailure,
    .text = "Could not open TQINVKIT.DAT for exclusive access.",
    .title = "Lantos",
    .file = "TQINVKIT.DAT",
    .cancelling = "leave the kit as it is",
};
inline constexpr ContentionRule kOpenKitsShared = {
    .afterRetries = AfterRetries::GiveUp,
    .noted = Noted::EachFailure,
    .text = "Could not open TQINVKIT.DAT for shared access.",
    .title = "Lantos",
    .file = "TQINVKIT.DAT",
    .cancelling = "go on without the kit",
};

// Purchase orders: the tags, and the text of each order.
inline constexpr ContentionRule kOpenOrders = {
    .text = "{what}\rlocked by another user.\rClick RETRY to try again, or CANCEL to skip.",
    .title = "zGetOpenPOSublets {error}",
    .buttons = Buttons::RetryCancel,
    .file = "{what}",
    .cancelling = "skip it",
};

// Vendors, for ever. What is waited for is the routine.
inline constexpr ContentionRule kVendors = {
    .text = "Vendor file locked by another user.\rClick OK to try again.",
    .title = "{what} {error}",
    .file = "TQVENDOR.DAT",
    .cancelling = "leave the vendors as they are",
};

// Pay records, for ever as well.
inline constexpr ContentionRule kSavePayroll = {
    .text = "{error}\rPayroll file locked by another user.\rClick OK to try again.",
    .title = "Employee Payroll History",
    .file = "TQPAYROL.DAT",
    .cancelling = "leave the pay records as they are",
};

// Files that another copy has alone for a moment: the lists that each copy reads at its start (employees, makes), and
// the tags of work orders, which are flushed behind each write. Two seconds.
inline constexpr ContentionRule kMomentsPatience = {
    .silentRetries = 19,
    .pause = Pause::TenthOfASecond,
    .failures = Failures::SharingOnly,
    .afterRetries = AfterRetries::Surface,
};

// Work orders. Who looks at tags waits as long, and is asked then.
inline constexpr ContentionRule kReadWorkorderTags = {
    .silentRetries = kMomentsPatience.silentRetries,
    .pause = kMomentsPatience.pause,
    .failures = Failures::SharingOnly,
    .afterRetries = AfterRetries::AskAndRetrySilently,
    .text = "Tag file locked by another user.\rClick Retry to try again, or Cancel to exit.",
    .title = "{what}",
    .buttons = Buttons::RetryCancel,
};
// What a new work order consists of and how far it came: its number among all tags, its first tag, its text, its
// journal, and the usage of its parts where it is finished or undone. Most of the work may be done by then, so whatever
// keeps one of these from being used is asked about.
inline constexpr ContentionRule kConversionFile = {
    .silentRetries = kMomentsPatience.silentRetries,
    .pause = kMomentsPatience.pause,
    .afterRetries = AfterRetries::AskAndRetrySilently,
    .text = "{what} is locked by another user.\rClick Retry to try again, or Cancel to stop here.",
    .title = "{what}",
    .buttons = Buttons::RetryCancel,
    .icon = Icon::Exclamation,
    .file = "{what}",
    .cancelling = "stop here",
};
// The turn at the end of the tags, which another copy of this program has for the moment of an append. Five seconds.
inline constexpr ContentionRule kAppendTurn = {
    .silentRetries = 500,
    .pause = Pause::HundredthOfASecond,
    .failures = Failures::SharingOnly,
    .afterRetries = AfterRetries::AskAndRetrySilently,
    .text =
        "Another copy of the program is writing to {what} and doesn't come to its end.\r"
        "Click Retry to try again, or Cancel to stop here.",
    .title = "{what}",
    .buttons = Buttons::RetryCancel,
};
inline constexpr ContentionRule kWriteArchivedTag = {
    .text = "Tag file locked by another user.\rClick Retry to try again, or Cancel to exit.",
    .title = "WriteArchivedWoTag({what})",
    .buttons = Buttons::RetryCancel,
    .file = "{what}",
    .cancelling = "go on without this tag",
};
inline constexpr ContentionRule kFindWorkorderFile = {
    .text = "File not found: \rClick Retry to try again, or Cancel to skip.",  // the name stands in the title alone
    .title = "GetCurrWoRec({what})",
    .buttons = Buttons::RetryCancel,
};
inline constexpr ContentionRule kOpenWorkorderFile = {
    .text = "File locked by another user.\rClick Retry to try again, or Cancel to skip.",
    .title = "GetCurrWoRec({what})",
    .buttons = Buttons::RetryCancel,
    .file = "{what}",
    .cancelling = "skip it",
};
inline constexpr ContentionRule kOpenArchive = {
    .text = "File locked by another user.\rClick Retry to try again, or Cancel to exit.",
    .title = "GetArchWo({what})",
    .buttons = Buttons::RetryCancel,
    .file = "{what}",
    .cancelling = "go on without it",
};

}  // namespace contention

}  // namespace lantos
