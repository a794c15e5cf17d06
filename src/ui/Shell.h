#pragma once

#include <string>

#include "frame/FileIO.h"
#include "ui/Desktop.h"

namespace lantos::ui {

// Opens a document or an address with what the platform has for it. A refusal is shown in words.
void ShellOpen(Desktop& desktop, const std::string& path);
// Splits off the program part of a command line, quoted or up to the first blank, and starts it. The platform's
// result: 32 or more when it went well.
int RunShell(Desktop& desktop, const std::string& commandLine, const std::string& arguments);
// A help file in a directory, DataDir when that is empty.
void ShowHelpFile(Desktop& desktop, const FileIO& files, std::string directory, const std::string& name);

}  // namespace lantos::ui
