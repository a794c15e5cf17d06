#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace lantos::ui {

// What opening a document or address comes to: from 33 on it went well, the others are the platform's codes.
inline constexpr int kOpened = 33;
inline constexpr int kFileNotFound = 2;
inline constexpr int kPathNotFound = 3;
inline constexpr int kAccessDenied = 5;
inline constexpr int kNoAssociation = 31;

// Of web and mail: http, https and mailto, in the characters that an address may have. Nothing else is one.
bool IsAddress(std::string_view text);
std::filesystem::path FileOfDocument(std::string_view path);

// What looking at it tells already, the same on every desktop: kOpened for an address and for a PDF document alone, by
// its name and by its first bytes. A program, a script, a folder, a link out of its directory is none, whatever it is
// called and whoever may run it.
int LookAtDocument(std::string_view path);
// Why a document that is there isn't opened, in words that go on from its name; empty when it isn't there.
std::string WhyNotOpened(std::string_view path);

}  // namespace lantos::ui
