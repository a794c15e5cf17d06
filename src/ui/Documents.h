#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace lantos::ui {

// What opening a document, program or address comes to: from 33 on it went well, the others are the platform's codes.
inline constexpr int kOpened = 33;
inline constexpr int kFileNotFound = 2;
inline constexpr int kPathNotFound = 3;
inline constexpr int kAccessDenied = 5;
inline constexpr int kNoAssociation = 31;

// Without the quotes that a command line needs, trimmed.
std::string PlainDocument(std::string_view path);
bool IsAddress(std::string_view plain);  // rather than a file
std::filesystem::path FileOfDocument(std::string_view plain);
bool IsProgram(const std::filesystem::path& file);

// What looking at it tells already, the same on every desktop. Folders and addresses can always be opened.
int LookAtDocument(std::string_view path);

}  // namespace lantos::ui
