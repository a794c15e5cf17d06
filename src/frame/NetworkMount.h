#pragma once

#include <filesystem>

namespace lantos {

// Whether a file lies on another machine, as far as the platform tells: NFS, SMB and their like. A mount served by a
// program (FUSE) counts, since what stands behind it can't be told. Locks of several workstations on such a mount are
// only as good as the server's: a database server is the safe choice there. A path that isn't there counts as local.
bool IsOnNetworkMount(const std::filesystem::path& path);

}  // namespace lantos
