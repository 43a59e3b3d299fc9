// The process's entry: session variables, the toolkit, then the program's own. Arguments are ignored, by the toolkit
// too. Without a display the process ends with exit code 1 and says nothing.

#include "platform/winapi/posix/SessionVariables.h"
#include "platform/winapi/subset/Window.h"

#include <QApplication>

#include <csignal>
#include <cstdlib>

int WINAPI wWinMain(HINSTANCE instance, HINSTANCE previousInstance, LPWSTR commandLine, int showCommand);

namespace {

constexpr int startUpFailed = 1;

// The toolkit would abort the process where it finds no display; before that it says so here.
void LeaveSilentlyWhenFatal(QtMsgType type, const QMessageLogContext & /*context*/, const QString & /*text*/) {
    if (type == QtFatalMsg) {
        std::_Exit(startUpFailed);
    }
}

} // namespace

int main(int /*argc*/, char *argv[]) {
    ovrin::SupplySessionVariables();
    // A file-size limit, or a reader of the output that has gone, comes back as an error of the write, not as the end
    // of the process.
    std::signal(SIGXFSZ, SIG_IGN);
    std::signal(SIGPIPE, SIG_IGN);

    int programNameOnly = 1;
    char *arguments[] = {argv[0], nullptr};
    qInstallMessageHandler(LeaveSilentlyWhenFatal);
    const QApplication application(programNameOnly, arguments);
    qInstallMessageHandler(nullptr);
    QApplication::setQuitOnLastWindowClosed(false);

    char16_t noCommandLine[] = u"";
    const int exitCode = wWinMain(nullptr, nullptr, noCommandLine, SW_SHOWDEFAULT);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    return exitCode;
}
