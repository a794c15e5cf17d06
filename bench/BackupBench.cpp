#include <archive.h>
#include <archive_entry.h>
#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <vector>

#include "bench/BenchShop.h"
#include "caretaker/backup/Backup.h"
#include "support/ScratchDirectory.h"

// A backup of the shop that CheckShop checks, whole and on the disk. It can't be faster than the same bytes through the
// same library's zstd.
namespace lantos::bench {

namespace {

void TakeBackup(benchmark::State& state) {
  const test::ScratchDirectory place;
  SystemClock clock;
  for (auto _ : state) {
    const BackupDone done = MakeBackup(CheckedShop(), place / "shop.tar.zst", clock, [](const BackupProgress&) {});
    if (!done.leftOut.empty()) state.SkipWithError("something was left out");
  }
}

std::vector<char> BytesOf(const std::filesystem::path& path) {
  std::vector<char> bytes(std::filesystem::file_size(path));
  std::ifstream(path, std::ios::binary).read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  return bytes;
}

void Compress(const std::filesystem::path& directory, const std::filesystem::path& result) {
  struct archive* out = ::archive_write_new();
  ::archive_write_set_format_gnutar(out);
  ::archive_write_add_filter_zstd(out);
  ::archive_write_set_filter_option(out, "zstd", "threads", "2");  // as a backup asks for
  ::archive_write_open_filename(out, result.c_str());
  for (const auto& file : std::filesystem::directory_iterator(directory)) {
    const std::vector<char> bytes = BytesOf(file.path());
    struct archive_entry* entry = ::archive_entry_new();
    ::archive_entry_set_pathname(entry, file.path().filename().c_str());
    ::archive_entry_set_size(entry, static_cast<la_int64_t>(bytes.size()));
    ::archive_entry_set_filetype(entry, AE_IFREG);
    ::archive_write_header(out, entry);
    ::archive_write_data(out, bytes.data(), bytes.size());
    ::archive_entry_free(entry);
  }
  ::archive_write_free(out);
}

void CompressAll(benchmark::State& state) {
  const test::ScratchDirectory place;
  const std::filesystem::path directory = CheckedShop();
  for (auto _ : state) {
    Compress(directory, place / "plain.tar.zst");
    if (std::filesystem::file_size(place / "plain.tar.zst") == 0) state.SkipWithError("nothing was compressed");
  }
}

BENCHMARK(TakeBackup)->Name("BackupShop")->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(CompressAll)->Name("BackupShop/plain")->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace

}  // namespace lantos::bench
