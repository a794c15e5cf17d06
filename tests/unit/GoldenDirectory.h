#pragma once

#include <filesystem>

namespace lantos::test {

// Where tests/golden lies. The only thing that depends on the checkout's place, so it is compiled once.
std::filesystem::path GoldenDirectory();

}  // namespace lantos::test
