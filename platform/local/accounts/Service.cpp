#include "platform/local/accounts/CurlRequestSender.h"

#include <exception>

extern "C" __attribute__((visibility("default"))) prismo::RequestSender* prismo2MakeRequestSender() {
    try {
        return new prismo::CurlRequestSender;
    } catch (const std::exception&) {
        return nullptr;
    }
}
