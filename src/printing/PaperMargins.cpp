#include "printing/PaperMargins.h"

#include "frame/DirectoryNames.h"
#include "frame/ProfileFile.h"
#include "frame/Text.h"

namespace lantos {

namespace {

constexpr const char* kHere = "./";
constexpr const char* kMainApplicationProfile = "Korvel.ini";
constexpr std::string_view kPrinterSetup = "Printer Setup";
constexpr std::size_t kLimit = 4;  // characters of a margin
constexpr double kTwipsPerPoint = 20;

double Points(const std::string& margin) { return ToLongOrZero(TrimNull(margin)) / kTwipsPerPoint; }

}  // namespace

ui::ReportMargins WorkorderMargins() {
  const ProfileText profile = ProfileFile(kHere + DirectoryNames(kHere).SpellingOf(kMainApplicationProfile)).Read();
  return {Points(profile.Get(kPrinterSetup, "WOTopMargin", "0", kLimit)),
          Points(profile.Get(kPrinterSetup, "WOLeftMargin", "0", kLimit))};
}

}  // namespace lantos
