#include "Target.h"
#include "frame/Options.h"

namespace lantos::fuzz {

namespace {

template <class Load>
void MayBeNoNumber(Load load) {
  try {
    load();
  } catch (const std::invalid_argument&) {
  }
}

}  // namespace

void Try(std::string_view bytes) {
  QuietShop& shop = TheShop();
  shop.Put("Lantos.ini", bytes);
  ProfileFile profile = shop.environment.Profile();
  MayBeNoNumber([&] { LoadPrintOptions(profile); });
  MayBeNoNumber([&] { LoadShopOptions(profile); });
  LoadStatusOptions(profile);
  WorkstationProfile workstation(profile, "COUNTER");
  MayBeNoNumber([&] { workstation.ReadFontFactor(); });
  See(workstation.ReadBackupCmd());
  MayBeNoNumber([&] { workstation.ReadBackupCmdWait(); });
  // A value that was put is the one that is got, whatever stood there before.
  Require(profile.Put("COUNTER", "BackupCmd", "copy *.* x:"));
  Require(profile.Get("COUNTER", "BackupCmd", "") == "copy *.* x:");
}

}  // namespace lantos::fuzz
