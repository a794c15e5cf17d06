#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "frame/ProfileFile.h"
#include "ui/Desktop.h"

namespace lantos {

inline constexpr std::string_view kOptionsFile = "Lantos.ini";

// Saves what a person has chosen ("the options"), again for as long as the file can't be written and the person wants;
// save tells whether it could. False when the person gives up, and the file has what it had before.
bool SaveOptions(ui::Desktop& desktop, const ProfileFile& profile, const std::string& what,
                 const std::function<bool()>& save);

}  // namespace lantos
