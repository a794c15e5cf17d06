#pragma once

#include <string>

namespace lantos::ui {

// Opens a PDF document or an address with what the platform has for it, and nothing else. kOpened, or a code of
// ui/Documents.h.
int OpenInPlatform(const std::string& path);

}  // namespace lantos::ui
