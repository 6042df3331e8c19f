/// Observes names in a directory and prints a line for each delivery: the name, then the content of the state
/// file at that moment. Prints "ready" first. Ends when its standard input does.
///
///     notify-listener DIRECTORY STATE-FILE NAME...

#include "platform/linux/notifications/NotifyDirectory.h"
#include "platform/local/descriptors/PollDriver.h"
#include "tests/support/Directories.h"

#include <iostream>
#include <unistd.h>

int main(int argc, char** argv) {
    using namespace prismo;
    const std::vector<std::string> arguments(argv + 1, argv + argc);
    PollDriver driver;
    RunLoop loop(driver);
    NotifyDirectory notifications(arguments.at(0), opener(arguments.at(0)));
    for (std::size_t i = 2; i < arguments.size(); ++i)
        if (!notifications.observe(arguments[i])) return 1;

    bool finished = false;
    driver.watch(STDIN_FILENO, [&] { finished = true; });
    driver.watch(notifications.descriptor(), [&] {
        notifications.read([&](const std::string& name) {
            std::cout << name << ' ' << contents(arguments.at(1)) << std::endl;
        });
    });
    std::cout << "ready" << std::endl;
    loop.runUntil([&] { return finished; });
}
