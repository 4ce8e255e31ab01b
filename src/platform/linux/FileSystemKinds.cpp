#include "platform/linux/FileSystemKinds.h"

#include <algorithm>
#include <array>

namespace platform {

namespace {

constexpr auto networkTypes = std::to_array<std::string_view>({
    "9p",
    "afpfs",
    "afs",
    "beegfs",
    "ceph",
    "cifs",
    "coda",
    "davfs",
    "fuse.afpfs",
    "fuse.blobfuse",
    "fuse.blobfuse2",
    "fuse.ceph",
    "fuse.ceph-fuse",
    "fuse.curlftpfs",
    "fuse.davfs",
    "fuse.davfs2",
    "fuse.fuse_dfs",
    "fuse.gcsfuse",
    "fuse.glusterfs",
    "fuse.goofys",
    "fuse.google-drive-ocamlfuse",
    "fuse.gvfsd-fuse",
    "fuse.httpfs",
    "fuse.juicefs",
    "fuse.kio-fuse",
    "fuse.mfs",
    "fuse.moosefs",
    "fuse.nfs",
    "fuse.onedriver",
    "fuse.rclone",
    "fuse.s3fs",
    "fuse.seaweedfs",
    "fuse.smbnetfs",
    "fuse.sshfs",
    "glusterfs",
    "lustre",
    "ncp",
    "ncpfs",
    "nfs",
    "nfs4",
    "orangefs",
    "pvfs2",
    "smb2",
    "smb3",
    "smbfs",
});

constexpr auto pseudoTypes = std::to_array<std::string_view>({
    "autofs",      "binder",  "binfmt_misc", "bpf",        "cgroup",     "cgroup2",    "configfs",
    "cpuset",      "debugfs", "devpts",      "devtmpfs",   "efivarfs",   "functionfs", "fuse.lxcfs",
    "fuse.portal", "fusectl", "hugetlbfs",   "mqueue",     "nfsd",       "nsfs",       "openpromfs",
    "proc",        "pstore",  "resctrl",     "rpc_pipefs", "securityfs", "selinuxfs",  "smackfs",
    "spufs",       "sysfs",   "tracefs",     "usbfs",      "xenfs",
});

static_assert(std::ranges::is_sorted(networkTypes) && std::ranges::is_sorted(pseudoTypes));

}  // namespace

bool IsNetworkFileSystem(std::string_view type) {
    return std::ranges::binary_search(networkTypes, type);
}

bool IsPseudoFileSystem(std::string_view type) {
    return std::ranges::binary_search(pseudoTypes, type);
}

}  // namespace platform
