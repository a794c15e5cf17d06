#pragma once

#include "WorkorderBench.h"

namespace lantos::test {

using Text = std::vector<std::string>;

// Sections as texts, read into a work order.
class WorkorderReaderTest : public WorkorderBench {
 protected:
  Workorder ReadSection(const std::string& heading, Text rows) {
    rows.insert(rows.begin(), heading);
    rows.emplace_back();
    return ReadBack(std::move(rows));
  }
  WoLaborLine ReadLabor(const std::string& row) {
    const Workorder workorder = ReadSection("[Labor]", {row});
    EXPECT_EQ(workorder.Labor.Size(), 2u);
    return workorder.Labor[0];
  }
  const std::string figures = "000012         250        6500      100000       16250";
};

}  // namespace lantos::test
