#pragma once

#include <array>
#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include "estimatedb/de.h"
#include "frame/Clock.h"
#include "records/modSystem.h"
#include "shopmaker/ShopDirectory.h"

namespace lantos {

// What is printed at the head of the shop's papers.
struct ShopIdentity {
  std::string name;
  std::string address;
  std::string city;
  std::string state;
  std::string zip;
  std::string phone;
};

// The system record of a shop on its first day: every counter hands out 1 next, nothing is taxed.
SystemRecord FirstSystemRecord(const ShopIdentity& identity);

// Two mechanics from Monday to Friday.
inline constexpr std::array<std::int32_t, 7> kFirstStandardHours = {0, 16, 16, 16, 16, 16, 0};
inline constexpr std::int32_t kFirstFudgeFactor = 10;  // per cent

// The installation's empty shop. Throws ShopError when the directory won't do, FileError or DatabaseError when a file
// can't be made; nothing is left behind then. With a group the directory is shared with it, as ShopDirectory tells.
void MakeEmptyShop(const std::filesystem::path& path, const ShopIdentity& identity, Clock& clock,
                   const std::string& group = "", const TellMaking& tell = NobodyTold);

// Its steps, for shops that begin with more in them. The files that are named as filled are left to the caller.
void AddEmptyFiles(ShopDirectory& directory, const std::vector<std::string_view>& filled);
void AddDatabases(ShopDirectory& directory, Clock& clock);
void ConnectTo(de& database, const ShopDirectory& directory, const Clock& clock);
// Row 1 of the standard hours, whether it is there already or not.
void SetStandardHours(de& database, const std::array<std::int32_t, 7>& sundayToSaturday, std::int32_t fudgeFactor);

}  // namespace lantos
