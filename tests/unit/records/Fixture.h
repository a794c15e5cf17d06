#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <string>

#include "GoldenDirectory.h"
#include "TestDesktop.h"
#include "shop/Records.h"
#include "support/ScratchDirectory.h"

namespace lantos::test {

// The bytes of a record or file, put together by hand at stated offsets.
class Image {
 public:
  explicit Image(std::size_t length = 0) : bytes_(length, '\0') {}
  explicit Image(std::string bytes) : bytes_(std::move(bytes)) {}
  Image& Long(std::size_t offset, std::int32_t value) { return Number(offset, static_cast<std::uint32_t>(value), 4); }
  Image& Integer(std::size_t offset, std::int16_t value) {
    return Number(offset, static_cast<std::uint16_t>(value), 2);
  }
  Image& Text(std::size_t offset, std::string_view text) {
    bytes_.replace(offset, text.size(), text);
    return *this;
  }
  Image& Append(const Image& other) {
    bytes_ += other.bytes_;
    return *this;
  }
  operator const std::string&() const { return bytes_; }
  const std::string& Bytes() const { return bytes_; }

 private:
  Image& Number(std::size_t offset, std::uint32_t value, std::size_t width) {
    for (std::size_t i = 0; i < width; ++i) bytes_.at(offset + i) = static_cast<char>(value >> (8 * i));
    return *this;
  }
  std::string bytes_;
};

inline std::int32_t LongAt(const std::string& bytes, std::size_t offset) {
  std::uint32_t value = 0;
  for (std::size_t i = 0; i < 4; ++i) {
    value |= static_cast<std::uint32_t>(static_cast<unsigned char>(bytes.at(offset + i))) << (8 * i);
  }
  return static_cast<std::int32_t>(value);
}

inline Image CustomerTagImage(std::int32_t number, std::string_view nameKey, std::int32_t offset) {
  return Image(96).Long(0, number).Text(4, nameKey).Text(36, ",").Long(68, offset);
}
inline Image CustomerImage(std::int32_t number, std::string_view lastname, std::int32_t vehicleLink = -1) {
  return Image(317).Long(0, number).Text(4, lastname).Long(313, vehicleLink);
}
inline Image VehicleImage(std::int32_t customer, std::string_view make, std::int32_t next, std::int32_t date = 0) {
  return Image(397).Long(0, customer).Long(4, -1).Text(8, make).Long(381, date).Long(393, next);
}
inline Image MakeModelImage(std::string_view name, std::int32_t prev, std::int32_t next) {
  return Image(29).Text(0, name).Long(21, prev).Long(25, next);
}
inline Image EmployeeImage(std::int32_t number, std::string_view name) {
  return Image(199).Long(0, number).Text(4, name).Long(134, -1).Long(138, -1);
}

// A shop's directory of its own, with one running copy of the program on it, without a person.
class ShopTest : public testing::Test {
 protected:
  ShopTest() { environment.files.SetDataDir(directory_.DataDir()); }

  std::filesystem::path PathOf(std::string_view name) const { return directory_.Path() / name; }
  void Put(std::string_view name, const std::string& bytes) const {
    std::ofstream(PathOf(name), std::ios::binary) << bytes;
  }
  std::string BytesOf(std::string_view name) const { return ReadAll(PathOf(name)); }
  void PutGolden() const {
    for (const auto& entry : std::filesystem::directory_iterator(test::GoldenDirectory())) {
      if (entry.path().extension() == ".DAT")
        std::filesystem::copy(entry.path(), PathOf(entry.path().filename().string()));
    }
  }
  static std::string GoldenBytes(std::string_view name) { return ReadAll(test::GoldenDirectory() / name); }
  // Every file of the directory.
  std::map<std::string, std::string> Everything() const {
    std::map<std::string, std::string> all;
    for (const auto& entry : std::filesystem::directory_iterator(directory_.Path())) {
      all[entry.path().filename().string()] = ReadAll(entry.path());
    }
    return all;
  }
  // Another workstation has the file, as long as the result lives.
  SharedFile HeldByAnother(std::string_view name, Access access = Access::ReadWrite, Deny deny = Deny::All) const {
    return SharedFile(PathOf(name), access, deny);
  }
  // The messages of the run log, without their times.
  std::string Log() {
    std::string messages;
    const std::string all = ReadAll(environment.log.Path());
    for (std::size_t at = 0; at + 20 < all.size();) {
      const std::size_t end = all.find("\r\n", at);
      messages += all.substr(at + 20, end - at - 20) + "\n";
      at = end + 2;
    }
    return messages;
  }
  static void ExpectBox(const ui::Box& box, std::string_view title, std::string_view text, ui::Buttons buttons,
                        ui::Icon icon) {
    EXPECT_EQ(box.title, title);
    EXPECT_EQ(box.text, text);
    EXPECT_EQ(box.buttons, buttons);
    EXPECT_EQ(box.icon, icon);
  }

 private:
  static std::string ReadAll(const std::filesystem::path& path) {
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
  }
  ScratchDirectory directory_;

 protected:
  TestDesktop desktop;
  StandingClock clock{*ParseLocalTime("2003-09-30T08:15:00")};
  UserSettings settings{directory_ / "settings"};
  Environment environment{clock, settings};
  Records records{environment, desktop};
};

}  // namespace lantos::test
