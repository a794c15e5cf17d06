#include <gtest/gtest.h>

#include "frame/Options.h"
#include "frame/ScratchDirectory.h"

namespace lantos {
namespace {

TEST(WorkstationProfile, AComputerWithAnEmptyNameReadsNothingButTheDefaults) {
  const test::ScratchDirectory directory;
  directory.Put("Lantos.ini",
                "[]\nFontFactor=2\nBackupCmd=nobody's\nBackupCmdWait=False\n"
                "[Lantos Defaults]\nFontFactor=7\nBackupCmd=copy all\nBackupCmdWait=True\n");
  ProfileFile profile(directory.Path() / "Lantos.ini");
  WorkstationProfile workstation(profile, "");
  EXPECT_EQ(workstation.ReadFontFactor(), 7);
  EXPECT_EQ(workstation.ReadBackupCmd(), "copy all");
  EXPECT_TRUE(workstation.ReadBackupCmdWait());
}

}  // namespace
}  // namespace lantos
