#include "records/Passwords.h"

#include <algorithm>

#include "records/OpenedFile.h"

namespace lantos {

namespace {

struct SectionLabel {
  Section section;
  std::string_view label;
};
constexpr std::array<SectionLabel, 7> kLabels = {{
    {Section::Workorders, "Workorders"},
    {Section::Inventory, "Inventory Maintenance"},
    {Section::Customer, "Customer"},
    {Section::Employee, "Employee"},
    {Section::Vendor, "Vendor"},
    {Section::System, "System"},
    {Section::EditMenu, "Edit Menu"},
}};

}  // namespace

std::string_view LabelOf(Section section) {
  const auto* found =
      std::find_if(kLabels.begin(), kLabels.end(), [&](const SectionLabel& each) { return each.section == section; });
  return found == kLabels.end() ? std::string_view() : found->label;
}

void Passwords::LoadPasswords() {
  OpenedFile file(environment_.openFiles, kPasswordFile, Access::Read, Deny::None);
  ReadRecord(*file, 0, record_);
}

std::string Passwords::Password(Section section) const {
  return record_.Get(TextField{static_cast<std::size_t>(section) * kPasswordWidth, kPasswordWidth});
}

}  // namespace lantos
