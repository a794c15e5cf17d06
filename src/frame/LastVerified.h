#pragma once

namespace lantos {

// Where the date of the last backup that was restored and compared is kept, in the data directory.
inline constexpr char kLastVerified[] = "Lantos-backup.txt";

}  // namespace lantos
