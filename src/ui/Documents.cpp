#include "ui/Documents.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>

#include "frame/FileIO.h"
#include "frame/GuardedOpen.h"
#include "frame/Text.h"

namespace lantos::ui {

namespace {

constexpr std::string_view kAddressKinds[] = {"http://", "https://", "mailto:"};
constexpr std::string_view kDocumentEnding = ".pdf";
constexpr std::string_view kDocumentStart = "%PDF-";

bool StartsAsDocument(int descriptor) {
  std::array<char, kDocumentStart.size()> start;
  const ssize_t count = ::read(descriptor, start.data(), start.size());
  return count == static_cast<ssize_t>(start.size()) && std::string_view(start.data(), start.size()) == kDocumentStart;
}

bool IsCalledDocument(const std::filesystem::path& file) {
  return EqualsIgnoringCase(file.extension().string(), kDocumentEnding);
}

int CodeOfMissing(const std::filesystem::path& file) {
  std::error_code ignored;
  const bool hasFolder = !file.has_parent_path() || std::filesystem::is_directory(file.parent_path(), ignored);
  return hasFolder ? kFileNotFound : kPathNotFound;
}

}  // namespace

bool IsAddress(std::string_view text) {
  const bool isPlain =
      std::all_of(text.begin(), text.end(), [](char c) { return c > ' ' && c < 0x7f && c != '"' && c != '\\'; });
  return isPlain && std::any_of(std::begin(kAddressKinds), std::end(kAddressKinds), [text](std::string_view kind) {
           return EqualsIgnoringCase(text.substr(0, kind.size()), kind) && text.size() > kind.size();
         });
}

std::filesystem::path FileOfDocument(std::string_view path) { return PlatformPath(path); }

int LookAtDocument(std::string_view path) {
  if (IsAddress(path)) return kOpened;
  const std::filesystem::path file = FileOfDocument(path);
  const int descriptor = OpenExistingFile(file, O_RDONLY);
  if (descriptor < 0 && (errno == ENOENT || errno == ENOTDIR)) return CodeOfMissing(file);
  if (descriptor < 0) return errno == EACCES ? kAccessDenied : kNoAssociation;
  const bool isDocument = IsCalledDocument(file) && StartsAsDocument(descriptor);
  ::close(descriptor);
  return isDocument ? kOpened : kNoAssociation;
}

std::string WhyNotOpened(std::string_view path) {
  const std::filesystem::path file = FileOfDocument(path);
  std::error_code ignored;
  if (!std::filesystem::exists(std::filesystem::symlink_status(file, ignored))) return {};
  if (LeadsOut(file)) return " is a link that leads out of its directory or nowhere";
  const int look = LookAtDocument(path);
  if (look == kAccessDenied) return " is there, but you may not read it";
  if (look == kOpened) return " is there, but no program of this computer opens PDF documents";
  return std::filesystem::is_regular_file(file, ignored) ? " is there, but it is no PDF document"
                                                         : " is there, but it is no file";
}

}  // namespace lantos::ui
