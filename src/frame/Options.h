#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "frame/ProfileFile.h"

namespace lantos {

// Section "Print Options" of Lantos.ini.
struct PrintOptions {
  bool PrintCustomerOnWorksheet = true;
  bool PrintCommentsOnWorksheet = true;
  bool PrintNotesOnWorksheet = false;
  bool PrintVehSummaryOnWorksheet = true;
  std::int16_t VehSummaryYears = 1;
  std::int16_t VehSummaryLaborLines = 1;
  std::int16_t BlankLinesPerLabor = 3;
  std::int16_t BlankPartLines = 3;
  bool PrintDisclosure = false;
  bool PreviewWorksheet = true;
  bool PreviewEstimate = true;
  bool ShowPrinterDialog = true;
  bool ShowPartNumbersOnEst = true;
};
// A text that is neither boolean nor number under such a key throws std::invalid_argument.
PrintOptions LoadPrintOptions(const ProfileFile& profile);
// What can't be written is lost, as ProfileFile tells.
// False when they could not be written; then none of them was.
bool SavePrintOptions(ProfileFile& profile, const PrintOptions& options);

// Section "Status Options" of Lantos.ini: one character each, "Y" yes, "N" no, "A" ask, "E" refuse.
enum class StatusOption {
  ScheduledToArrived,
  ScheduledToInProgress,
  ArrivedToInProgress,
  ScheduledToComplete,
  ArrivedToComplete,
  InProgressToComplete,
  ContinuedAutoSchedule,
  RescheduledAllow,
};
inline constexpr std::size_t kStatusOptionCount = 8;
struct StatusOptions {
  std::array<char, kStatusOptionCount> letters = {'A', 'A', 'A', 'A', 'A', 'A', 'A', 'A'};
  char operator[](StatusOption option) const { return letters[static_cast<std::size_t>(option)]; }
};
// Never fails: an empty entry is a blank.
StatusOptions LoadStatusOptions(const ProfileFile& profile);
bool SaveStatusOptions(ProfileFile& profile, const StatusOptions& options);

inline constexpr std::string_view kDefaultsSection = "Lantos Defaults";

// The settings of this workstation in Lantos.ini: section profileSection, with "Lantos Defaults" behind it.
class WorkstationProfile {
 public:
  WorkstationProfile(ProfileFile& profile, std::string profileSection)
      : profile_(profile), section_(std::move(profileSection)) {}

  // 1 to 9; 0 everywhere becomes 1, written to the defaults. A text that is no number throws std::invalid_argument.
  int ReadFontFactor();
  void WriteFontFactor(int& value);  // a value outside 1 to 9 becomes 1, in the caller's variable too
  std::string ReadBackupCmd();       // a command line; empty when there is none
  bool ReadBackupCmdWait();          // a text that is no boolean throws std::invalid_argument
  // What is there is written, both together. False when it could not be.
  bool WriteBackup(const std::optional<std::string>& command, std::optional<bool> wait);
  bool WriteBackupCmd(std::string_view text) { return WriteBackup(std::string(text), std::nullopt); }
  bool WriteBackupCmdWait(bool wait) { return WriteBackup(std::nullopt, wait); }

 private:
  std::string_view WriteSection() const;
  ProfileFile& profile_;
  std::string section_;
};

// As the main application numbers them; a work order's text has the name, padded to the width.
inline constexpr std::size_t kPaymentMethodCount = 13;
inline constexpr std::size_t kPaymentMethodWidth = 8;
inline constexpr std::string_view kSplitPayment = "Split";
using PaymentMethodTable = std::array<std::string, kPaymentMethodCount>;

// Keys of Lantos.ini that have no screen: sections "Options", "Inventory" and "Payment Methods" (0 to 12). A text that
// is neither boolean nor number throws std::invalid_argument.
struct ShopOptions {
  bool LaborDateOption = false;
  bool RepairCodeOption = false;
  int InventoryTagVersion = 0;
  PaymentMethodTable PaymentMethodNames = {"",      "Cash",    "Check",    "Visa",     "MasterCd", "Discover", "AmEx",
                                           "Debit", "Account", "Warranty", "GiftCard", "Other",    "Split"};
};
ShopOptions LoadShopOptions(const ProfileFile& profile);

}  // namespace lantos
