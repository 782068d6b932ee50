#include "core/files/mounts.h"

#include "support/core_test.h"

namespace {

using Mounts = CoreTest;

TEST_F(Mounts, WhatMountsItselfIsRefusedUntilItIsMounted) {
    const std::string mounts =
        "22 1 8:1 / / rw,relatime shared:1 - ext4 /dev/sda1 rw\n"
        "23 22 0:21 / /proc rw - proc proc rw\n"
        "24 22 0:30 / /net rw shared:2 - autofs /etc/auto.net rw,indirect\n"
        "25 24 0:44 / /net/near rw master:3 propagate_from:1 - nfs4 near:/ rw\n"
        "26 22 0:31 / /media/old\\040disk rw - autofs systemd-1 rw,direct\n"
        "27 22 0:32 / /media/disk rw - autofs systemd-1 rw,direct\n"
        "28 27 8:17 / /media/disk rw - ext4 /dev/sdb1 rw\n"
        "cut short /net/\n";
    for (const char* path : {"/net", "/net/far", "/net/far/a.png", "/proc/self", "/media/old disk"})
        EXPECT_TRUE(MMounts::IsRefused(path, mounts)) << path;
    for (const char* path : {"/", "/network/a.png", "/net/near", "/net/near/a.png", "/media/disk/a.png", "/home/a.png"})
        EXPECT_FALSE(MMounts::IsRefused(path, mounts)) << path;
}

TEST_F(Mounts, LinksAreFollowedStepByStep) {
    namespace fs = std::filesystem;
    const std::string here = fs::canonical(folder_.Path());
    fs::create_directory(here + "/real");
    fs::create_symlink("real", here + "/link");
    fs::create_symlink(here + "/link/../loop", here + "/loop");
    fs::create_symlink("/proc/self/root" + here, here + "/round");
    const std::pair<std::string, std::string> cases[] = {{"/link/../link//./a.png", here + "/real/a.png"},
                                                         {"/../../../../../../../tmp/gone", "/tmp/gone"},
                                                         {"/loop", ""},
                                                         {"/round", ""}};
    for (const auto& [path, resolved] : cases)
        EXPECT_EQ(MMounts::Resolve(here + path), resolved) << path;
}

}  // namespace
