// Saves lists of recent projects on a small disk that is full, while another thread takes every block that comes free
// for the file that the first argument names. Ends with 0 if no list was lost.
#include "core/recent/RecentProjectStore.h"

#include <cstdlib>
#include <fcntl.h>
#include <thread>
#include <unistd.h>

namespace {

using namespace ovrin;

bool Save(int count) {
    std::vector<RecentProject> projects;
    projects.reserve(static_cast<std::size_t>(count));
    for (int number = 0; number < count; ++number) {
        projects.push_back({.path = "/projects/" + std::to_string(number), .name = std::string(50, 'n')});
    }
    return RecentProjectStore::SaveRecentProjects(projects);
}

bool IsStored(std::size_t count) {
    return RecentProjectStore::LoadRecentProjects(0).size() == count;
}

bool SurvivesFullDisk(int filler) {
    const std::string block(4096, 'x');
    const auto takeRoom = [&] { return ::write(filler, block.data(), block.size()) > 0; };
    bool survives = Save(100);
    while (takeRoom()) {
    }
    const std::jthread taker([&takeRoom](const std::stop_token &stop) {
        while (!stop.stop_requested()) {
            takeRoom();
        }
    });
    for (int round = 0; round < 20; ++round) {
        survives = survives && !Save(1000) && IsStored(100);
    }
    // A shorter one needs no room; what it frees is gone for the next.
    return survives && Save(20) && IsStored(20) && !Save(1000) && IsStored(20);
}

} // namespace

int main(int /*count*/, char **arguments) {
    const int filler = ::open(arguments[1], O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0600);
    return SurvivesFullDisk(filler) ? EXIT_SUCCESS : EXIT_FAILURE;
}
