#pragma once

#include <string>

namespace lantos::ui {

// Opens a document, program or address with what the platform has for it, in its own directory. kOpened, or a code of
// ui/Documents.h.
int OpenInPlatform(const std::string& path, const std::string& arguments);

}  // namespace lantos::ui
