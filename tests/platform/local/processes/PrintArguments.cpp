/// Writes its arguments, "--" and its environment, each followed by a NUL, to the descriptor in the
/// environment variable OUTPUT.

#include <cstdlib>
#include <string>
#include <unistd.h>

int main(int argc, char** argv) {
    const std::string_view end("\0", 1);
    std::string text;
    for (int i = 0; i < argc; ++i)
        text.append(argv[i]).append(end);
    text.append("--").append(end);
    for (char** variable = environ; *variable; ++variable)
        text.append(*variable).append(end);
    const auto written = ::write(std::atoi(std::getenv("OUTPUT")), text.data(), text.size());
    return written == static_cast<ssize_t>(text.size()) ? EXIT_SUCCESS : EXIT_FAILURE;
}
