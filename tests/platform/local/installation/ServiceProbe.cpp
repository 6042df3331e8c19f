/// Prints "found", or the problem with the desktop's service.

#include "platform/local/installation/ServiceLibrary.h"

#include "platform/local/desktop/DesktopServices.h"

#include <iostream>

int main() {
    prismo::ServiceLibrary<prismo::DesktopServices> library(
        [](const prismo::Problem& problem) { std::cout << problem.text(); });
    if (library.service()) std::cout << "found";
}
