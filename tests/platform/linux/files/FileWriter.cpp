// file-writer ROOT atomically|inPlace FIRST COUNT: writes a dictionary about the numbers FIRST, FIRST + 1 …
// into the settings file of the device root, one after the other. Tells on standard output each number that
// is on the disk, on standard error each problem. 1 where a write failed.

#include "platform/linux/files/PropertyListFiles.h"

#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

int main(int argc, char** argv) {
    using namespace prismo;
    if (argc != 5) return 2;
    const auto mode = std::string_view(argv[2]) == "atomically" ? WriteMode::atomically : WriteMode::inPlace;
    const DeviceRoot root(argv[1]);
    PropertyListFiles files(root, [](FileProblem::Kind, const std::string& path, const std::string& cause) {
        std::fprintf(stderr, "%s: %s\n", path.c_str(), cause.c_str());
    });
    const int first = std::atoi(argv[3]);
    for (int number = first; number < first + std::atoi(argv[4]); ++number) {
        const Dictionary dictionary{
            {"number", number}, {"padding", std::string(20'000, 'x')}, {"same", number}};
        if (!files.write("/User/Library/Preferences/test.plist", dictionary, mode)) return 1;
        std::printf("%d\n", number);
        std::fflush(stdout);
    }
    return 0;
}
