#include <signal.h>

#include <atomic>

#include "Checks.h"
#include "Processes.h"

namespace lantos::sharing {

namespace {

void Compare(const Mode& holder, const Mode& comer, Opened opened, std::string_view where, MatrixResult& result) {
  ++result.pairs;
  if (opened == (Conflict(holder, comer) ? Opened::Refused : Opened::Yes)) return;
  ++result.wrong;
  std::cout << "  wrong " << where << ": " << comer.name << " after " << holder.name << '\n';
}

void InOneProcess(const std::filesystem::path& path, MatrixResult& result) {
  for (const Mode& holder : kModes) {
    SharedFile held(path, holder.access, holder.deny);
    for (const Mode& comer : kModes) {
      SharedFile file;
      Compare(holder, comer, TryToOpen(path, comer, file), "in one process", result);
    }
  }
}

void AcrossTwoProcesses(const std::filesystem::path& path, MatrixResult& result) {
  for (const Mode& holder : kModes) {
    Common<std::atomic<int>> state;  // 1: held, 2: may end
    const pid_t child = Start([&] {
      SharedFile held(path, holder.access, holder.deny);
      *state = 1;
      while (*state != 2) ::usleep(50);
    });
    while (*state == 0 && ::waitpid(child, nullptr, WNOHANG) == 0) ::usleep(50);
    for (const Mode& comer : kModes) {
      SharedFile file;
      Compare(holder, comer, TryToOpen(path, comer, file), "in two processes", result);
    }
    *state = 2;
    ::waitpid(child, nullptr, 0);
  }
}

}  // namespace

Opened TryToOpen(const std::filesystem::path& path, const Mode& mode, SharedFile& file) {
  try {
    file = SharedFile(path, mode.access, mode.deny);
    return Opened::Yes;
  } catch (const FileError& error) {
    if (error.Number() == FileErrorNumber::PermissionDenied) return Opened::Refused;
    std::cerr << error.what() << '\n';
    return Opened::Failed;
  }
}

MatrixResult RunMatrix(const std::filesystem::path& directory) {
  MatrixResult result;
  InOneProcess(directory / "MATRIX1.DAT", result);
  AcrossTwoProcesses(directory / "MATRIX2.DAT", result);
  return result;
}

bool CheckMatrix(const std::filesystem::path& directory) {
  const MatrixResult result = RunMatrix(directory);
  std::cout << "matrix: " << result.pairs << " pairs of opens, " << result.wrong << " wrong\n";
  return result.pairs == 162 && result.wrong == 0;
}

}  // namespace lantos::sharing
