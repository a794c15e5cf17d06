#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace lantos {

// The shop can't be made there; what() says why, for the person at the command line.
class ShopError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// How far the making of a shop is: what is being made, and how many of how many there are. Told between two steps; what
// it throws ends the making, and nothing of the shop is left behind.
using TellMaking = std::function<void(std::string_view what, std::uint64_t done, std::uint64_t of)>;
inline void NobodyTold(std::string_view /*what*/, std::uint64_t /*done*/, std::uint64_t /*of*/) {}

// Every file of a shop's data directory that the installation lays down, the databases among them.
std::span<const std::string_view> ShopFileNames();

// A directory in the making. It takes only a directory without a shop's files, makes what is missing of its path, and
// removes all that it made unless Keep is called.
class ShopDirectory {
 public:
  // Throws ShopError, nothing touched, when one of the shop's files is there in any spelling.
  // With a group the directory becomes the group's (mode 2770): its members read and write all that is made in it, and
  // nobody else anything. ShopError when there is no such group, or it can't be given to it.
  explicit ShopDirectory(const std::filesystem::path& path, const std::string& group = "");
  ~ShopDirectory();
  ShopDirectory(const ShopDirectory&) = delete;
  ShopDirectory& operator=(const ShopDirectory&) = delete;

  const std::filesystem::path& Path() const { return path_; }
  // The path of a file that somebody else is about to make.
  std::filesystem::path Claim(std::string_view name);
  // A file with these bytes. Throws FileError.
  void AddFile(std::string_view name, std::span<const std::byte> bytes);
  void AddFile(std::string_view name, std::string_view text);

  void Keep() { kept_ = true; }

 private:
  void MakeDirectories();
  void ShareWith(const std::string& group);
  void RemoveAll();

  std::filesystem::path path_;
  std::vector<std::filesystem::path> madeDirectories_;  // outermost first
  std::vector<std::filesystem::path> madeFiles_;
  bool kept_ = false;
};

}  // namespace lantos
