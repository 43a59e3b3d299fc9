// Saves lists of recent projects where the settings folder lies on a small disk that is full, while another thread
// takes every block that comes free. Ends with 0 if no list was lost.
#include "core/recent/RecentProjectStore.h"

#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <thread>
#include <unistd.h>

namespace {

using namespace ovrin;

std::vector<RecentProject> MakeList(int count) {
    std::vector<RecentProject> projects;
    projects.reserve(static_cast<std::size_t>(count));
    for (int number = 0; number < count; ++number) {
        projects.push_back({.path = "/projects/" + std::to_string(number), .name = std::string(50, 'n')});
    }
    return projects;
}

bool IsStored(std::size_t count) {
    return RecentProjectStore::LoadRecentProjects(0).size() == count;
}

// Gives whether there was room for a byte at least.
bool TakeRoom(int file) {
    const std::string block(4096, 'x');
    return ::write(file, block.data(), block.size()) > 0;
}

bool SurvivesFullDisk(int filler) {
    constexpr int few = 20;
    constexpr int some = 100;
    constexpr int many = 1000;
    if (!RecentProjectStore::SaveRecentProjects(MakeList(some))) {
        return false;
    }
    while (TakeRoom(filler)) {
    }
    std::atomic<bool> done = false;
    std::jthread taker([filler, &done] {
        while (!done) {
            TakeRoom(filler);
        }
    });
    bool survives = true;
    for (int round = 0; round < 20; ++round) {
        survives = survives && !RecentProjectStore::SaveRecentProjects(MakeList(many)) && IsStored(some);
    }
    // A shorter one needs no room; what it frees is gone for the next.
    survives = survives && RecentProjectStore::SaveRecentProjects(MakeList(few)) && IsStored(few) &&
               !RecentProjectStore::SaveRecentProjects(MakeList(many)) && IsStored(few);
    done = true;
    return survives;
}

} // namespace

int main(int count, char **arguments) {
    const int filler = count == 2 ? ::open(arguments[1], O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0600) : -1;
    return filler >= 0 && SurvivesFullDisk(filler) ? EXIT_SUCCESS : EXIT_FAILURE;
}
