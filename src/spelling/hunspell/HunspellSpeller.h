#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "spelling/Speller.h"

namespace lantos {

// Where Debian's packages put dictionaries.
inline constexpr const char* kInstalledDictionaries = "/usr/share/hunspell";

// What the person's environment says, as "de_DE", and "en_US" behind it.
std::vector<std::string> LanguagesOfUser();

// The first of the languages that has a dictionary in the folder: "en_US.aff" and "en_US.dic", in whatever character
// set they are. Null when none has. It works in a
// process of its own. Throws WordedError or FileError on one that can't be read or that is none.
std::unique_ptr<Speller> OpenDictionary(const std::filesystem::path& folder, const std::vector<std::string>& languages);

}  // namespace lantos
