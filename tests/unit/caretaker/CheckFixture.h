#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

#include "caretaker/check/CheckShop.h"
#include "records/Record.h"
#include "shopmaker/Contents.h"
#include "shopmaker/SampleShop.h"
#include "support/ScratchDirectory.h"

namespace lantos::test {

inline constexpr DaySerial kCheckedDay = 37894;  // Tuesday, 30 September 2003

// A small shop full of work, in which a test spoils something.
class CheckedShop {
 public:
  CheckedShop() {
    std::filesystem::copy(Sample(), Path());
    files.SetDataDir((Path() / "").string());
  }

  std::filesystem::path Path() const { return scratch_ / "shop"; }
  std::string Read(std::string_view name) const { return ReadBytes(Path() / name); }
  void Write(std::string_view name, const std::string& bytes) const { WriteBytes(Path() / name, bytes); }

  template <class RecordType>
  RecordType Get(std::string_view name, std::size_t index) const {
    RecordType record;
    const std::string bytes = Read(name).substr(index * RecordType::kLength, RecordType::kLength);
    if (bytes.size() != RecordType::kLength) throw std::runtime_error("the sample shop has no such record");
    std::memcpy(record.Bytes().data(), bytes.data(), bytes.size());
    return record;
  }
  template <class RecordType>
  void Put(std::string_view name, std::size_t index, const RecordType& record) const {
    std::string bytes = Read(name);
    bytes.resize(std::max(bytes.size(), (index + 1) * RecordType::kLength));
    std::memcpy(bytes.data() + index * RecordType::kLength, record.Bytes().data(), RecordType::kLength);
    Write(name, bytes);
  }
  // One field of one record.
  template <class RecordType, class Field, class Value>
  void Set(std::string_view name, std::size_t index, Field field, const Value& value) const {
    RecordType record = Get<RecordType>(name, index);
    record.Put(field, value);
    Put(name, index, record);
  }
  template <class RecordType>
  std::size_t Count(std::string_view name) const {
    return Read(name).size() / RecordType::kLength;
  }

  std::vector<Finding> Check() {
    ShopView shop(files);
    return CheckShop(shop, Kinds());
  }
  std::vector<std::string> Lines() {
    std::vector<std::string> lines;
    for (const Finding& finding : Check()) lines.push_back(std::string(finding.kind) + ": " + LineOf(finding));
    return lines;
  }

  StandingClock clock{LocalTime{kCheckedDay, 10 * 3'600'000}};
  FileIO files{clock};

 private:
  // Made once, for all tests of a run.
  static std::filesystem::path Sample() {
    static const ScratchDirectory directory;
    static const bool isMade = [] {
      SampleOptions options;
      options.customers = 40;
      options.vehicles = 60;
      options.parts = 80;
      options.estimates = 30;
      options.date = kCheckedDay;
      StandingClock standing({kCheckedDay, 0});
      MakeSampleShop(directory / "shop", options, standing);
      return true;
    }();
    return isMade ? directory / "shop" : directory.Path();
  }

  ScratchDirectory scratch_;
};

}  // namespace lantos::test
