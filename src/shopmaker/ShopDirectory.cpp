#include "shopmaker/ShopDirectory.h"

#include <fmt/format.h>
#include <grp.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstddef>
#include <cstring>
#include <system_error>

#include "estimatedb/EstimateDatabase.h"
#include "frame/SharedFile.h"
#include "frame/Text.h"

namespace lantos {

namespace fs = std::filesystem;

namespace {

constexpr std::array<std::string_view, 27> kShopFiles = {
    kLantosDatabase, kKorvelDatabase, "TQSYSTEM.DAT", "TQCSTTAG.DAT", "TQCSTDAT.DAT", "TQVEHICL.DAT", "TQMAKMOD.DAT",
    "TQINVTAG.DAT",  "TQINVENT.DAT",  "TQINVKIT.DAT", "TQUSEHST.DAT", "TQVENDOR.DAT", "TQEMPLOY.DAT", "TQDEPART.DAT",
    "TQMANUFA.DAT",  "TQPASSWD.DAT",  "TQOPENWO.DAT", "TQINCTAG.DAT", "TQINVOIC.DAT", "TQFOLLOW.DAT", "TQCANLAB.DAT",
    "TQLABKIT.DAT",  "TQCANNOT.DAT",  "TQOPENPO.DAT", "TQPAYROL.DAT", "CHECKLST.TXT", "DISCLAIM.TXT",
};

constexpr mode_t kSharedMode = 02770;  // set-group-id: what is made in it is the group's

void RefuseShop(const fs::path& path) {
  std::error_code error;
  const fs::file_status status = fs::status(path, error);
  if (!fs::exists(status)) return;
  if (!fs::is_directory(status)) throw ShopError(fmt::format("{} is not a directory.", path.string()));
  std::vector<std::string> names;
  for (const fs::directory_entry& entry : fs::directory_iterator(path)) {
    names.push_back(entry.path().filename().string());
  }
  for (const std::string_view file : kShopFiles) {
    const auto found =
        std::find_if(names.begin(), names.end(), [&](const auto& name) { return EqualsIgnoringCase(name, file); });
    if (found == names.end()) continue;
    throw ShopError(fmt::format("{} already holds a shop: {} is there.", path.string(), *found));
  }
}

}  // namespace

std::span<const std::string_view> ShopFileNames() { return kShopFiles; }

ShopDirectory::ShopDirectory(const fs::path& path, const std::string& group)
    : path_(fs::absolute(path).lexically_normal()) {
  if (path_.filename().empty()) path_ = path_.parent_path();  // written with a separator at its end
  try {
    RefuseShop(path_);
    MakeDirectories();
  } catch (const fs::filesystem_error& error) {
    throw ShopError(fmt::format("{}: {}.", path_.string(), error.code().message()));
  }
  if (group.empty()) return;
  try {
    ShareWith(group);
  } catch (const ShopError&) {
    RemoveAll();
    throw;
  }
}

void ShopDirectory::ShareWith(const std::string& group) {
  const struct group* entry = ::getgrnam(group.c_str());
  if (entry == nullptr) throw ShopError(fmt::format("There is no group {} on this computer.", group));
  constexpr auto kUnchanged = static_cast<uid_t>(-1);
  if (::chown(path_.c_str(), kUnchanged, entry->gr_gid) == 0 && ::chmod(path_.c_str(), kSharedMode) == 0) return;
  throw ShopError(fmt::format("{} can't be given to the group {}: {}.", path_.string(), group, std::strerror(errno)));
}

void ShopDirectory::MakeDirectories() {
  std::vector<fs::path> missing;
  for (fs::path step = path_; !fs::exists(step); step = step.parent_path()) missing.push_back(step);
  madeDirectories_.reserve(missing.size());
  try {
    for (auto step = missing.rbegin(); step != missing.rend(); ++step) {
      if (fs::create_directory(*step)) madeDirectories_.push_back(*step);
    }
  } catch (const fs::filesystem_error&) {
    RemoveAll();
    throw;
  }
}

ShopDirectory::~ShopDirectory() {
  if (!kept_) RemoveAll();
}

void ShopDirectory::RemoveAll() {
  std::error_code ignored;
  for (const fs::path& file : madeFiles_) {
    fs::remove(file, ignored);
    fs::remove(fs::path(file) += "-journal", ignored);
  }
  for (auto step = madeDirectories_.rbegin(); step != madeDirectories_.rend(); ++step) fs::remove(*step, ignored);
}

fs::path ShopDirectory::Claim(std::string_view name) {
  madeFiles_.push_back(path_ / fs::path(std::string(name)));
  return madeFiles_.back();
}

void ShopDirectory::AddFile(std::string_view name, std::span<const std::byte> bytes) {
  SharedFile file(Claim(name), Access::Write, Deny::All);
  if (!bytes.empty()) file.WriteAt(0, bytes);
}

void ShopDirectory::AddFile(std::string_view name, std::string_view text) {
  AddFile(name, std::as_bytes(std::span(text.data(), text.size())));
}

}  // namespace lantos
