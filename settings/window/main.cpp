#include "settings/options/Options.h"
#include "settings/window/RaiseRequests.h"
#include "settings/window/Session.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <QGuiApplication>
#include <QIcon>
#include <QQuickWindow>

namespace {

/// Without a display Qt would abort with a core dump.
bool hasDisplay() {
    constexpr std::array variables{"QT_QPA_PLATFORM", "WAYLAND_DISPLAY", "DISPLAY"};
    return std::ranges::any_of(variables,
                               [](const char* name) { return !qEnvironmentVariableIsEmpty(name); });
}

} // namespace

// The window's process. Users start the supervisor, which starts this.
int main(int argc, char** argv) {
    using namespace prismo::settings;
    Options options;
    try {
        options = parseOptions({argv + 1, argv + argc});
    } catch (const UsageError& error) {
        std::fprintf(stderr, "prismo2-settings: %s\n", error.what());
        return 2;
    }
    if (!hasDisplay()) {
        std::fputs("prismo2-settings: no display: neither $WAYLAND_DISPLAY nor $DISPLAY is set\n", stderr);
        return 1;
    }

    QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
    int noArguments = 1; // the others are not for Qt
    const QGuiApplication application(noArguments, argv);
    QGuiApplication::setApplicationName("prismo2-settings");
    QGuiApplication::setApplicationDisplayName("Settings");
    QGuiApplication::setDesktopFileName("com.corvane.prismo2.settings");
    QGuiApplication::setWindowIcon(QIcon::fromTheme("com.corvane.prismo2.settings"));
    const Session session(options);
    if (!session.window()) return 1;
    const RaiseRequests requests(options.requests, *session.window());
    return QGuiApplication::exec();
}
