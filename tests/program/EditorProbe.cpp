// Plays the editor in a test. Appends to the file "record" in its own folder what it was started with, and goes on
// until a file "release" lies there; then appends "released". Ends without that when its folder goes.
#include <chrono>
#include <filesystem>
#include <fstream>
#include <string>
#include <thread>

namespace {

// Open files beyond the standard three, which the launcher should have kept to itself.
int CountInheritedDescriptors() {
    int count = 0;
#ifndef _WIN32
    for (int descriptor = 3; descriptor < 256; ++descriptor) {
        const std::filesystem::path link = "/proc/self/fd/" + std::to_string(descriptor);
        count += std::filesystem::is_symlink(link) ? 1 : 0;
    }
#endif
    return count;
}

} // namespace

int main(int count, char **arguments) {
    const int descriptors = CountInheritedDescriptors();
    // Relative: to be started in its own folder is part of what is recorded.
    std::ofstream record("record", std::ios::binary | std::ios::app);
    record << "started with " << count - 1 << " arguments, the last " << arguments[count - 1] << ", " << descriptors
           << " descriptors\n"
           << std::flush;
    while (std::filesystem::exists("record") && !std::filesystem::exists("release")) {
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    record << "released\n";
    return 0;
}
