#pragma once

#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>

namespace lantos::test {

// A new directory of its own, gone at the end.
class ScratchDirectory {
 public:
  ScratchDirectory() {
    std::string name = (std::filesystem::temp_directory_path() / "lantos-XXXXXX").string();
    if (::mkdtemp(name.data()) == nullptr) throw std::runtime_error("no scratch directory: " + name);
    path_ = name;
  }
  ~ScratchDirectory() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  ScratchDirectory(const ScratchDirectory&) = delete;

  const std::filesystem::path& Path() const { return path_; }
  std::filesystem::path operator/(const std::string& name) const { return path_ / name; }
  // As the program keeps it.
  std::string DataDir() const { return path_.string() + "\\"; }
  void Put(const std::string& name, const std::string& content) const {
    std::ofstream(path_ / name, std::ios::binary) << content;
  }
  std::string Content(const std::string& name) const {
    std::ifstream in(path_ / name, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
  }
  std::size_t Count() const {
    return static_cast<std::size_t>(std::distance(std::filesystem::directory_iterator(path_), {}));
  }

 private:
  std::filesystem::path path_;
};

// Begins work in a child process and tells which. Only for a process without other threads: a child of one that has
// them may wait for ever for a lock that another thread held.
template <class Work>
pid_t BeginInChild(Work work) {
  const pid_t child = ::fork();
  if (child == 0) {
    int code = 99;
    try {
      code = work();
    } catch (...) {
    }
    ::_exit(code);
  }
  return child;
}

// What the child's work returned, 99 when it threw, or minus the signal that ended it.
inline int ResultOf(pid_t child) {
  int status = 0;
  ::waitpid(child, &status, 0);
  return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
}

// Runs what may do lasting things to a process (dropping rights, limits) in a child.
template <class Work>
int InChild(Work work) {
  return ResultOf(BeginInChild(work));
}

// The same without the rights of the superuser, which tests may run as.
template <class Work>
int AsOrdinaryUser(Work work) {
  constexpr uid_t kNobody = 65534;
  return InChild([&] {
    if (::geteuid() == 0 && (::setgid(kNobody) != 0 || ::setuid(kNobody) != 0)) return 98;
    return work();
  });
}

}  // namespace lantos::test
