#pragma once

#include <string>
#include <string_view>

#include "frame/Environment.h"
#include "ui/Desktop.h"

namespace lantos {

// DataDir as the program has it: text with "\\" or "/" at its end, in the form of TextOfPath. Stored it is in the page,
// or in UTF-8 where the page hasn't got a character of it.

// "/D=" or "/d=" and a directory: stored as the main application's DataDir setting, with a final backslash, and read
// from there by what follows. There is no other switch.
void ProcessCommandLine(Environment& environment, ui::Desktop& desktop, const std::string& commandLine);

// Makes it the main application's DataDir setting. While it can't be stored the person is asked; otherwise says what
// happens when that is given up ("go on with the one of before").
void StoreDataDir(Environment& environment, ui::Desktop& desktop, const std::string& directory,
                  std::string_view otherwise);

// The main application's DataDir setting; a final "/" comes back as a backslash, while the stored one keeps it.
std::string StoredDataDir(const Environment& environment);

// Finds the data directory through the main application's setting, asking where there is none, and makes sure that
// it holds the scheduler's database. False when the person gave up.
bool ResolveDataDir(Environment& environment, ui::Desktop& desktop);

}  // namespace lantos
