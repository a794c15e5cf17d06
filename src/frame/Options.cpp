#include "frame/Options.h"

#include "frame/Numbers.h"
#include "frame/Text.h"

namespace lantos {

namespace {

constexpr std::string_view kPrintSection = "Print Options";
constexpr std::string_view kStatusSection = "Status Options";
// Values are read through buffers of 6 and 2 characters, the last one for the terminator.
constexpr std::size_t kPrintValueLimit = 5;
constexpr std::size_t kStatusValueLimit = 1;
constexpr std::size_t kFontFactorLimit = 1;

struct BooleanKey {
  std::string_view name;
  bool PrintOptions::*field;
};
struct NumberKey {
  std::string_view name;
  std::int16_t PrintOptions::*field;
};

constexpr BooleanKey kBooleanKeys[] = {
    {"PrintCustomerOnWorksheet", &PrintOptions::PrintCustomerOnWorksheet},
    {"PrintCommentsOnWorksheet", &PrintOptions::PrintCommentsOnWorksheet},
    {"PrintNotesOnWorksheet", &PrintOptions::PrintNotesOnWorksheet},
    {"PrintVehSummaryOnWorksheet", &PrintOptions::PrintVehSummaryOnWorksheet},
    {"PrintDisclosure", &PrintOptions::PrintDisclosure},
    {"PreviewWorksheet", &PrintOptions::PreviewWorksheet},
    {"PreviewEstimate", &PrintOptions::PreviewEstimate},
    {"ShowPrinterDialog", &PrintOptions::ShowPrinterDialog},
    {"ShowPartNumbersOnEst", &PrintOptions::ShowPartNumbersOnEst},
};

constexpr NumberKey kNumberKeys[] = {
    {"VehSummaryYears", &PrintOptions::VehSummaryYears},
    {"VehSummaryLaborLines", &PrintOptions::VehSummaryLaborLines},
    {"BlankLinesPerLabor", &PrintOptions::BlankLinesPerLabor},
    {"BlankPartLines", &PrintOptions::BlankPartLines},
};

constexpr std::array<std::string_view, kStatusOptionCount> kStatusKeys = {
    "ScheduledToArrived", "ScheduledToInProgress", "ArrivedToInProgress",   "ScheduledToComplete",
    "ArrivedToComplete",  "InProgressToComplete",  "ContinuedAutoSchedule", "RescheduledAllow",
};

std::string_view WordFor(bool value) { return value ? "True" : "False"; }

std::int16_t ToInteger(std::string_view text) {
  const std::int32_t value = RoundHalfEven(ToNumber(text));
  if (value < INT16_MIN || value > INT16_MAX) throw std::invalid_argument("Overflow");
  return static_cast<std::int16_t>(value);
}

// An entry without a value is one that isn't there.
int ToFontFactor(std::string_view digit) { return TrimView(digit).empty() ? 0 : ToInteger(digit); }

// The platform's word for what went wrong, with the key it went wrong at.
template <class Convert>
auto ReadAs(const ProfileText& profile, std::string_view section, std::string_view key, std::string_view defaultValue,
            Convert convert, std::size_t limit = kPrintValueLimit) {
  const std::string text = profile.Get(section, key, defaultValue, limit);
  try {
    return convert(text);
  } catch (const std::invalid_argument& error) {
    throw std::invalid_argument("Lantos.ini, [" + std::string(section) + "] " + std::string(key) + ": " + error.what());
  }
}

}  // namespace

PrintOptions LoadPrintOptions(const ProfileFile& file) {
  const ProfileText profile = file.Read();
  PrintOptions options;
  for (const BooleanKey& key : kBooleanKeys) {
    options.*key.field = ReadAs(profile, kPrintSection, key.name, WordFor(options.*key.field), ToBoolean);
  }
  for (const NumberKey& key : kNumberKeys) {
    options.*key.field = ReadAs(profile, kPrintSection, key.name, std::to_string(options.*key.field), ToInteger);
  }
  return options;
}

bool SavePrintOptions(ProfileFile& profile, const PrintOptions& options) {
  std::vector<ProfileFile::Entry> entries;
  for (const BooleanKey& key : kBooleanKeys) entries.push_back({key.name, std::string(WordFor(options.*key.field))});
  for (const NumberKey& key : kNumberKeys) entries.push_back({key.name, std::to_string(options.*key.field)});
  return profile.Put(kPrintSection, entries);
}

StatusOptions LoadStatusOptions(const ProfileFile& file) {
  const ProfileText profile = file.Read();
  StatusOptions options;
  for (std::size_t i = 0; i < kStatusOptionCount; ++i) {
    const std::string letter = profile.Get(kStatusSection, kStatusKeys[i], "A", kStatusValueLimit);
    options.letters[i] = letter.empty() ? ' ' : letter[0];
  }
  return options;
}

bool SaveStatusOptions(ProfileFile& profile, const StatusOptions& options) {
  std::vector<ProfileFile::Entry> entries;
  for (std::size_t i = 0; i < kStatusOptionCount; ++i) {
    entries.push_back({kStatusKeys[i], std::string(1, options.letters[i])});
  }
  return profile.Put(kStatusSection, entries);
}

std::string_view WorkstationProfile::WriteSection() const {
  return section_.empty() ? kDefaultsSection : std::string_view(section_);
}

int WorkstationProfile::ReadFontFactor() {
  const auto read = [profile = profile_.Read()](std::string_view section) {
    return ReadAs(profile, section, "FontFactor", "0", ToFontFactor, kFontFactorLimit);
  };
  int factor = read(WriteSection());
  if (factor == 0) factor = read(kDefaultsSection);
  if (factor == 0) {
    factor = 1;
    profile_.Put(kDefaultsSection, "FontFactor", "1");
  }
  return factor;
}

void WorkstationProfile::WriteFontFactor(int& value) {
  if (value < 1 || value > 9) value = 1;
  profile_.Put(WriteSection(), "FontFactor", std::to_string(value));
}

std::string WorkstationProfile::ReadBackupCmd() {
  const std::string own = profile_.Get(WriteSection(), "BackupCmd", "");
  return own.empty() ? profile_.Get(kDefaultsSection, "BackupCmd", "") : own;
}

bool WorkstationProfile::ReadBackupCmdWait() {
  std::string text = profile_.Get(WriteSection(), "BackupCmdWait", "");
  if (text.empty()) text = profile_.Get(kDefaultsSection, "BackupCmdWait", "");
  if (text.empty()) {
    text = "True";
    profile_.Put(kDefaultsSection, "BackupCmdWait", text);
  }
  return ToBoolean(text);
}

// A pair of quotes around a value is taken off when it is read, and here it belongs to the command.
bool WorkstationProfile::WriteBackup(const std::optional<std::string>& command, std::optional<bool> wait) {
  std::vector<ProfileFile::Entry> entries;
  if (command) {
    const bool isQuoted = command->size() > 1 && command->starts_with('"') && command->ends_with('"');
    entries.push_back({"BackupCmd", isQuoted ? "\"" + *command + "\"" : *command});
  }
  if (wait) entries.push_back({"BackupCmdWait", std::string(WordFor(*wait))});
  return profile_.Put(WriteSection(), entries);
}

ShopOptions LoadShopOptions(const ProfileFile& file) {
  const ProfileText profile = file.Read();
  ShopOptions options;
  options.LaborDateOption = ReadAs(profile, "Options", "LaborDateOption", "False", ToBoolean);
  options.RepairCodeOption = ReadAs(profile, "Options", "RepairCodeOption", "False", ToBoolean);
  options.InventoryTagVersion = ReadAs(profile, "Inventory", "InventoryTagVersion", "0", ToInteger);
  for (std::size_t i = 0; i < kPaymentMethodCount; ++i) {
    std::string& name = options.PaymentMethodNames[i];
    name = Left(Trim(profile.Get("Payment Methods", std::to_string(i), name)), kPaymentMethodWidth);
  }
  return options;
}

}  // namespace lantos
