#include "frame/NetworkMount.h"

#ifdef __linux__
#include <sys/vfs.h>

#include <algorithm>
#include <cstdint>
#include <iterator>
#endif

namespace lantos {

#ifdef __linux__

namespace {

// The kernel's marks of file systems that live elsewhere: <linux/magic.h>, and those that aren't in it.
constexpr std::uint32_t kNetworkFileSystems[] = {
    0x6969,      // NFS
    0x517B,      // SMB
    0xFE534D42,  // SMB 2 and later
    0xFF534D42,  // CIFS
    0x65735546,  // FUSE
    0x01021997,  // 9P
    0x5346414F,  // AFS
    0x6B414653,  // AFS of the kernel
    0x73757245,  // Coda
    0x564C,      // NetWare
    0x00C36400,  // Ceph
};

}  // namespace

bool IsOnNetworkMount(const std::filesystem::path& path) {
  struct statfs status {};
  if (::statfs(path.c_str(), &status) != 0) return false;
  const auto mark = static_cast<std::uint32_t>(status.f_type);
  return std::find(std::begin(kNetworkFileSystems), std::end(kNetworkFileSystems), mark) !=
         std::end(kNetworkFileSystems);
}

#else

bool IsOnNetworkMount(const std::filesystem::path&) { return false; }

#endif

}  // namespace lantos
