#pragma once

#include <string>

namespace lantos::ui {

inline constexpr int kOpened = 33;
inline constexpr int kFileNotFound = 2;
inline constexpr int kPathNotFound = 3;
inline constexpr int kAccessDenied = 5;
inline constexpr int kNoAssociation = 31;

// What opening a document, program or address comes to, as far as looking at it tells: kOpened, or the platform's
// code.
int LookAtDocument(const std::string& path);
// Opens it with what the platform has for it, in its own directory.
int OpenInPlatform(const std::string& path, const std::string& arguments);

}  // namespace lantos::ui
