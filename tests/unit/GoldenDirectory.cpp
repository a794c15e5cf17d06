#include "GoldenDirectory.h"

namespace lantos::test {

std::filesystem::path GoldenDirectory() { return LANTOS_GOLDEN_DIR; }

}  // namespace lantos::test
