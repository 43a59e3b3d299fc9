// Writes down how it was started, for the test that starts it.
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <string>
#include <unistd.h>

int main(int /*count*/, char **arguments) {
    std::string descriptors;
    for (int descriptor = 0; descriptor < 256; ++descriptor) {
        if (fcntl(descriptor, F_GETFD) != -1) {
            descriptors += ' ' + std::to_string(descriptor);
        }
    }
    sigset_t mask;
    sigprocmask(SIG_SETMASK, nullptr, &mask);
    struct sigaction broken {};
    sigaction(SIGPIPE, nullptr, &broken);
    std::ofstream output(std::getenv("OVRIN_PROBE_OUTPUT"), std::ios::binary);
    output << "folder " << std::filesystem::current_path().native() << "\ndescriptors" << descriptors
           << "\nleads its session " << (getsid(0) == getpid()) << "\nsignals "
           << (sigismember(&mask, SIGTERM) == 0 && broken.sa_handler == SIG_DFL) << '\n';
    for (; *arguments != nullptr; ++arguments) {
        output << '[' << *arguments << ']';
    }
    return 0;
}
