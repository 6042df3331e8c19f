/// bundle-probe NAME ROOT: loads the settings bundle NAME, opens its page on the device ROOT and prints the
/// name of its class, the width of its share image and the names of its rows, or the cause if it cannot be
/// loaded.

#include "platform/linux/LinuxDevice.h"
#include "platform/local/installation/PreferenceBundle.h"
#include "platform/preferences/PSListController.h"
#include "platform/uikit/controllers/UIBarButtonItem.h"
#include "platform/uikit/controllers/UINavigationController.h"

#include <iostream>
#include <stdexcept>
#include <string>

int main(int count, char** arguments) {
    if (count != 3) return 2;
    try {
        const auto& principal = *prismo::valueOrThrow(prismo::loadPreferenceBundle(arguments[1]));
        prismo::LinuxDevice device(arguments[2]);
        const prismo::Device::Current current(device);
        const auto page = std::dynamic_pointer_cast<prismo::PSListController>(principal.create());
        const auto navigation = std::make_shared<prismo::UINavigationController>();
        navigation->pushViewController(page, false);
        std::cout << page->isa().name() << '\n';
        const auto button = page->navigationItem().rightBarButtonItem();
        const auto image = button ? button->image() : nullptr;
        std::cout << (image ? std::to_string(static_cast<int>(image->size().width)) : "-") << '\n';
        for (const auto& row : *page->rows())
            std::cout << row->name() << '\n';
    } catch (const std::runtime_error& error) {
        std::cout << error.what() << '\n';
    }
}
