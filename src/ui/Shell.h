#pragma once

#include <string>

#include "frame/FileIO.h"
#include "ui/Desktop.h"

namespace lantos::ui {

// Opens a document or an address with what the platform has for it. A refusal is shown in words.
void ShellOpen(Desktop& desktop, const std::string& path);
// Opens a help file in a directory, DataDir when that is empty; where none lies there, the one that is installed with
// the programs. One that isn't there is told, and one that is there and isn't opened, with the cause.
void ShowHelpFile(Desktop& desktop, const FileIO& files, std::string directory, const std::string& name);

}  // namespace lantos::ui
