#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace lantos {

// What comes to a directory and goes from it, as the kernel tells (inotify(7)), so that a directory of very many names
// need not be read again for each change. Of disks of this machine only: what is changed from elsewhere on a network
// mount nobody tells. To begin takes some microseconds, to be destroyed some milliseconds.
class DirectoryWatch {
 public:
  DirectoryWatch() = default;
  ~DirectoryWatch();
  DirectoryWatch(DirectoryWatch&& other) noexcept;
  DirectoryWatch& operator=(DirectoryWatch&& other) noexcept;

  // Whether all that comes and goes from now on will be told. False on what is no disk of this machine, where the
  // directory isn't there, and where the kernel gives this user no more watches.
  bool Begin(const std::string& directory);
  bool Stands() const { return watch_ >= 0; }
  void End();

  enum class Told { Nothing, Something, Lost };
  // Hands over each name that came or went since the last time, in the order of the changes: isThere says which. Lost:
  // something was missed, or the directory itself went; the watch has ended, and the names must be read anew.
  Told Take(const std::function<void(std::string_view name, bool isThere)>& tell);

 private:
  Told Lost();
  void Drain();

  int queue_ = -1;
  int watch_ = -1;
};

}  // namespace lantos
