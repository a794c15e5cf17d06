#pragma once

#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include <exception>
#include <filesystem>
#include <iostream>
#include <new>
#include <stdexcept>
#include <string>
#include <vector>

namespace lantos::sharing {

// A value that all forked processes see.
template <class Value>
class Common {
 public:
  Common() {
    void* memory = ::mmap(nullptr, sizeof(Value), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    if (memory == MAP_FAILED) throw std::runtime_error("no common memory");
    value_ = new (memory) Value();
  }
  ~Common() { ::munmap(value_, sizeof(Value)); }
  Common(const Common&) = delete;

  Value& operator*() { return *value_; }
  Value* operator->() { return value_; }

 private:
  Value* value_;
};

template <class Work>
pid_t Start(Work work) {
  std::cout.flush();
  const pid_t child = ::fork();
  if (child < 0) throw std::runtime_error("no further process");
  if (child != 0) return child;
  int code = 0;
  try {
    work();
  } catch (const std::exception& error) {
    std::cerr << error.what() << '\n';
    code = 1;
  }
  ::_exit(code);
}

// False when one of them came to a bad end.
template <class Work>
bool RunProcesses(int count, Work work) {
  std::vector<pid_t> children;
  for (int i = 0; i < count; ++i) children.push_back(Start([&] { work(i); }));
  bool good = true;
  for (const pid_t child : children) {
    int status = 0;
    ::waitpid(child, &status, 0);
    good = good && WIFEXITED(status) && WEXITSTATUS(status) == 0;
  }
  return good;
}

// A new directory, gone at the end.
class WorkingDirectory {
 public:
  explicit WorkingDirectory(const std::filesystem::path& parent) {
    std::string name = (parent / "lantos-sharing-XXXXXX").string();
    if (::mkdtemp(name.data()) == nullptr) throw std::runtime_error("no directory " + name);
    path_ = name;
  }
  ~WorkingDirectory() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  WorkingDirectory(const WorkingDirectory&) = delete;
  const std::filesystem::path& Path() const { return path_; }

 private:
  std::filesystem::path path_;
};

}  // namespace lantos::sharing
