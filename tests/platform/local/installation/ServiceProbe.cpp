/// Prints "found", or the path and the cause of what is missing for the desktop's service.

#include "platform/local/installation/ServiceLibrary.h"

#include "platform/local/desktop/DesktopServices.h"

#include <iostream>

int main() {
    prismo::ServiceLibrary<prismo::DesktopServices> library(
        [](const std::string& path, const std::string& cause) { std::cout << path << ": " << cause; });
    if (library.service()) std::cout << "found";
}
