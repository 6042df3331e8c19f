// file-writer ROOT atomically|inPlace FIRST COUNT: writes a dictionary about the numbers FIRST, FIRST + 1 …
// into the settings file of the device root, one after the other. Prints each number that is on the disk to
// standard output, and each problem to standard error. Exits with 1 if a write failed.

#include "platform/linux/files/PropertyListFiles.h"

#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

int main(int argc, char** argv) {
    using namespace prismo;
    if (argc != 5) return 2;
    const auto mode = std::string_view(argv[2]) == "atomically" ? WriteMode::atomically : WriteMode::inPlace;
    const auto root = DeviceRoot::at(argv[1]).value();
    const auto print = [](const Problem& problem) { std::fprintf(stderr, "%s\n", problem.text().c_str()); };
    PropertyListFiles files(root, print);
    const int first = std::atoi(argv[3]);
    for (int number = first; number < first + std::atoi(argv[4]); ++number) {
        const Dictionary dictionary{
            {"number", number}, {"padding", std::string(20'000, 'x')}, {"same", number}};
        const auto written = files.write("/User/Library/Preferences/test.plist", dictionary, mode);
        if (!written) print(written.problem());
        if (!written) return 1;
        std::printf("%d\n", number);
        std::fflush(stdout);
    }
    return 0;
}
