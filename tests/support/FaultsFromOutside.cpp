#include <sys/stat.h>

#include <cstdlib>
#include <fstream>
#include <iostream>
#include <memory>
#include <sstream>

#include "support/FaultyCalls.h"

// Lets a test tell a running program which of its calls on files fail. LANTOS_FAULTS_IN names the directory that is
// watched, LANTOS_FAULTS a file with a line for each wish, read again whenever it has changed:
//   <file's name>|<kind of call, or any>|<fault, or killed>|<how often, or always>
// Each call that failed is a line in the file of that name with ".hits" behind it.
namespace lantos::test {

namespace {

struct Wish {
  std::string name;
  std::string kind;
  std::string fault;
  long left = 0;
};

class WishesOnFile {
 public:
  explicit WishesOnFile(std::string path) : path_(std::move(path)) {}

  int Decide(const FileCall& call) {
    ReadAgainIfChanged();
    for (Wish& wish : wishes_) {
      if (wish.left == 0 || wish.name != call.name || (wish.kind != "any" && wish.kind != NameOf(call.kind))) continue;
      const int result = Fulfilled(wish, call);
      if (result == 0) continue;
      if (wish.left > 0) --wish.left;
      std::ofstream(path_ + ".hits", std::ios::app) << call.name << '|' << NameOf(call.kind) << '\n';
      return result;
    }
    return 0;
  }

 private:
  void ReadAgainIfChanged() {
    struct stat status = {};
    if (::stat(path_.c_str(), &status) != 0) status = {};
    if (status.st_ino == read_.st_ino && status.st_mtim.tv_nsec == read_.st_mtim.tv_nsec) return;
    read_ = status;
    wishes_.clear();
    std::ifstream file(path_);
    for (std::string line; std::getline(file, line);) {
      std::istringstream parts(line);
      Wish wish;
      std::string times;
      std::getline(parts, wish.name, '|');
      std::getline(parts, wish.kind, '|');
      std::getline(parts, wish.fault, '|');
      std::getline(parts, times, '|');
      wish.left = times == "always" ? -1 : std::stol(times);
      wishes_.push_back(wish);
    }
  }

  static int Fulfilled(const Wish& wish, const FileCall& call) {
    if (wish.fault == "killed") std::_Exit(137);
    for (const Fault fault : kFaults) {
      if (wish.fault == NameOf(fault)) return ErrnoOf(call, fault);
    }
    std::cerr << "no such fault: " << wish.fault << "\n";
    return 0;
  }

  std::string path_;
  struct stat read_ = {};
  std::vector<Wish> wishes_;
};

std::unique_ptr<FaultyCalls> Begin() {
  const char* directory = std::getenv("LANTOS_FAULTS_IN");
  const char* path = std::getenv("LANTOS_FAULTS");
  if (directory == nullptr || path == nullptr) return nullptr;
  auto calls = std::make_unique<FaultyCalls>(directory);
  calls->When([wishes = std::make_shared<WishesOnFile>(path)](const FileCall& call, std::size_t) {
    return wishes->Decide(call);
  });
  return calls;
}

const std::unique_ptr<FaultyCalls> kFromOutside = Begin();

}  // namespace

}  // namespace lantos::test
