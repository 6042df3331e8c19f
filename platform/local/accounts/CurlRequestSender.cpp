#include "platform/local/accounts/CurlRequestSender.h"

#include <algorithm>
#include <csignal>
#include <stdexcept>
#include <utility>

namespace prismo {

namespace {

bool initialized() {
    static const bool done = curl_global_init(CURL_GLOBAL_DEFAULT) == CURLE_OK;
    return done;
}

/// The host's own threads handle its signals, and a broken connection must not raise one.
void holdOffSignals() {
    sigset_t all;
    ::sigfillset(&all);
    ::pthread_sigmask(SIG_SETMASK, &all, nullptr);
}

} // namespace

CurlRequestSender::CurlRequestSender(TransferOptions options) : options_(std::move(options)) {
    if (initialized()) multi_.reset(curl_multi_init());
    if (!multi_) throw std::runtime_error("libcurl cannot be used");
    thread_ = std::thread([this] { run(); });
}

CurlRequestSender::~CurlRequestSender() {
    {
        const std::scoped_lock lock(mutex_);
        ending_ = true;
    }
    curl_multi_wakeup(multi_.get());
    thread_.join();
}

void CurlRequestSender::send(const AccountRequest& request, const AccountSecrets& secrets,
                             std::function<void(int)> completion) {
    {
        const std::scoped_lock lock(mutex_);
        orders_.push_back({request, secrets, std::move(completion)});
    }
    curl_multi_wakeup(multi_.get());
}

void CurlRequestSender::run() {
    holdOffSignals();
    using Clock = std::chrono::steady_clock;
    auto end = Clock::time_point::max();
    for (;;) {
        // The order matters: requests that were given before the end are sent.
        const bool ending = isEnding();
        for (auto& order : takeOrders())
            start(std::move(order));
        int transfers = 0;
        curl_multi_perform(multi_.get(), &transfers);
        collect();
        if (ending && end == Clock::time_point::max()) end = Clock::now() + farewell;
        if (ending && (running_.empty() || Clock::now() >= end)) return breakOff();
        // libcurl shortens this to its own next deadline, and a new order wakes it up.
        constexpr int longest = 3'600'000;
        constexpr int shortest = 50;
        curl_multi_poll(multi_.get(), nullptr, 0, ending ? shortest : longest, nullptr);
    }
}

std::vector<CurlRequestSender::Order> CurlRequestSender::takeOrders() {
    const std::scoped_lock lock(mutex_);
    return std::exchange(orders_, {});
}

bool CurlRequestSender::isEnding() {
    const std::scoped_lock lock(mutex_);
    return ending_;
}

void CurlRequestSender::start(Order order) {
    Transfer transfer(order.request, order.secrets, options_);
    if (!transfer.handle() || curl_multi_add_handle(multi_.get(), transfer.handle()) != CURLM_OK)
        return order.completion(0);
    running_.push_back({std::move(transfer), std::move(order.completion)});
}

void CurlRequestSender::collect() {
    int left = 0;
    while (const auto* message = curl_multi_info_read(multi_.get(), &left)) {
        if (message->msg != CURLMSG_DONE) continue;
        const auto found = std::ranges::find_if(running_, [&](const Running& running) {
            return running.transfer.handle() == message->easy_handle;
        });
        const int status = found->transfer.status(message->data.result);
        curl_multi_remove_handle(multi_.get(), found->transfer.handle());
        const auto completion = std::move(found->completion);
        running_.erase(found);
        completion(status);
    }
}

void CurlRequestSender::breakOff() {
    for (auto& running : running_) {
        curl_multi_remove_handle(multi_.get(), running.transfer.handle());
        running.completion(0);
    }
    running_.clear();
    // Completions may have given more, which is too late to send.
    for (auto late = takeOrders(); !late.empty(); late = takeOrders())
        for (auto& order : late)
            order.completion(0);
}

} // namespace prismo
