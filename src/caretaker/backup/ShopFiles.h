#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace lantos {

// What lies in a data directory, from a backup's point of view.
struct ShopFiles {
  std::vector<std::string> taken;    // files of the shop, sorted
  std::vector<std::string> atWork;   // journals of what somebody is storing or converting at this moment
  std::vector<std::string> leftOut;  // what is no file, and names that no program of the shop can open
};

// Of the copy that runs, or of the moment: its log, its mailbox, an engine's journal, what is in the making.
bool IsOfTheMoment(std::string_view name);

// By name alone, but for links, pipes and their like. Throws BackupError when the directory can't be read.
ShopFiles LookAtShop(const std::filesystem::path& directory);

// The text that names the server, in a backup whose database lies there.
inline constexpr char kServerText[] = "Lantos-server.txt";

}  // namespace lantos
