// The checks, checked: with each claim table that is wrong in one place they must find fault. The program's own table
// is taken over under another name and spoiled; the linker takes ClaimOf from here.
#define ClaimOf RightClaimOf
#include "frame/SharingClaim.cpp"
#undef ClaimOf

#include "Checks.h"
#include "Processes.h"

namespace lantos {

namespace {

constexpr int kNothing = -1;
constexpr int kAll = static_cast<int>(sharing::kModes.size());
constexpr std::uint64_t kElsewhere = std::uint64_t{1} << 40;
int spoiled = kNothing;  // the mode that claims bytes where nobody meets it; kAll: each open takes one byte at random

std::string_view NameOfSpoiled() {
  return spoiled == kAll ? "all" : sharing::kModes[static_cast<std::size_t>(spoiled)].name;
}

}  // namespace

Claim ClaimOf(Access access, Deny deny) {
  Claim claim = RightClaimOf(access, deny);
  if (spoiled == kAll) claim.oneSlot = true;
  if (spoiled == kNothing || spoiled == kAll) return claim;
  const sharing::Mode& mode = sharing::kModes[static_cast<std::size_t>(spoiled)];
  if (mode.access == access && mode.deny == deny) claim.first += kElsewhere;
  return claim;
}

}  // namespace lantos

int main() {
  using namespace lantos;
  constexpr int kProcesses = 8;
  constexpr double kSeconds = 0.5;
  const sharing::WorkingDirectory directory(std::filesystem::temp_directory_path());
  const bool soundAtFirst = sharing::CheckMatrix(directory.Path());
  int foundByMatrix = 0;
  int foundByRace = 0;
  for (spoiled = 0; spoiled <= kAll; ++spoiled) {
    std::cout << "spoiled: " << NameOfSpoiled() << '\n';
    if (sharing::RunMatrix(directory.Path()).wrong > 0) ++foundByMatrix;
    if (sharing::RunRace(directory.Path(), kProcesses, kSeconds).violations > 0) ++foundByRace;
  }
  std::cout << "sabotage: " << kAll + 1 << " wrong claim tables, " << foundByMatrix << " found out by the matrix, "
            << foundByRace << " by the race\n";
  return soundAtFirst && foundByMatrix == kAll + 1 && foundByRace == kAll + 1 ? 0 : 1;
}
