#pragma once

#include <stdlib.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <stdexcept>
#include <string>

namespace lantos::test {

class TemporaryDirectory {
 public:
  TemporaryDirectory() {
    std::string name = (std::filesystem::temp_directory_path() / "lantos-shop-XXXXXX").string();
    if (mkdtemp(name.data()) == nullptr) throw std::runtime_error("no temporary directory: " + name);
    path_ = name;
  }
  ~TemporaryDirectory() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  TemporaryDirectory(const TemporaryDirectory&) = delete;
  TemporaryDirectory& operator=(const TemporaryDirectory&) = delete;

  const std::filesystem::path& Path() const { return path_; }

 private:
  std::filesystem::path path_;
};

inline std::string ReadBytes(const std::filesystem::path& path) {
  std::ifstream in(path, std::ios::binary);
  if (!in) throw std::runtime_error("can't read " + path.string());
  return {std::istreambuf_iterator<char>(in), {}};
}

inline void WriteBytes(const std::filesystem::path& path, const std::string& bytes) {
  std::ofstream(path, std::ios::binary) << bytes;
}

// Every file of a directory with its bytes.
inline std::map<std::string, std::string> Contents(const std::filesystem::path& directory) {
  std::map<std::string, std::string> contents;
  for (const auto& entry : std::filesystem::directory_iterator(directory)) {
    contents[entry.path().filename().string()] = ReadBytes(entry.path());
  }
  return contents;
}

}  // namespace lantos::test
