#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace lantos {

// A file of the shop as it was taken.
struct BackedFile {
  std::string name;  // its bytes as the directory has them, without any path
  std::uint64_t length = 0;
  std::string checksum;        // SHA-256 in 64 small hexadecimal digits
  std::int64_t changedAt = 0;  // seconds since 1970
  bool operator==(const BackedFile&) const = default;
};

// What can be counted or summed up in a shop: "rows of Parts", and the figure.
struct ShopFigure {
  std::string name;
  std::string value;
  bool operator==(const ShopFigure&) const = default;
};

// What a backup says of itself. The first entry of the archive.
struct Manifest {
  std::string madeAt;     // "2003-09-30T08:15:00"
  std::string directory;  // the shop's, as bytes of a path
  std::string program;    // version of the program that made it
  std::vector<BackedFile> files;
  std::vector<ShopFigure> figures;
  bool operator==(const Manifest&) const = default;

  std::uint64_t TotalLength() const;
  const BackedFile* Find(std::string_view name) const;  // without regard to case; null when it isn't in it
};

inline constexpr char kManifestName[] = "LANTOS-BACKUP";
// Longer than that of any shop; looked at before memory is taken.
inline constexpr std::uint64_t kLongestManifest = std::uint64_t{64} << 20;

std::string TextOf(const Manifest& manifest);
// Throws BackupError, which names the line, for what TextOf doesn't write: names that are paths, a name twice, lengths
// that no disk has, a text that ends early.
Manifest ReadManifest(std::string_view text);

}  // namespace lantos
