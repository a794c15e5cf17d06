#pragma once

#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <stdexcept>
#include <string>

#include "support/ScratchDirectory.h"

namespace lantos::test {

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
