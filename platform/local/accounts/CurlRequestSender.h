#pragma once

#include "platform/local/accounts/Transfer.h"

#include <chrono>
#include <functional>
#include <list>
#include <memory>
#include <mutex>
#include <thread>
#include <vector>

namespace prismo {

/// Sends all requests on one thread, concurrently, in the order in which they were given.
class CurlRequestSender : public RequestSender {
  public:
    /// How long the destructor waits for requests that are under way.
    static constexpr std::chrono::milliseconds farewell = std::chrono::seconds(3);

    /// Throws std::runtime_error if libcurl cannot be used, or std::system_error if no thread can be made.
    explicit CurlRequestSender(TransferOptions options = {});
    ~CurlRequestSender() override;
    CurlRequestSender(const CurlRequestSender&) = delete;
    CurlRequestSender& operator=(const CurlRequestSender&) = delete;

    void send(const AccountRequest& request, const AccountSecrets& secrets,
              std::function<void(int status)> completion) override;

  private:
    using Completion = std::function<void(int status)>;
    struct Order {
        AccountRequest request;
        AccountSecrets secrets;
        Completion completion;
    };
    struct Running {
        Transfer transfer;
        Completion completion;
    };
    struct CleanUp {
        void operator()(CURLM* multi) const { curl_multi_cleanup(multi); }
    };

    void run();
    std::vector<Order> takeOrders();
    bool isEnding();
    void start(Order order);
    void collect();
    void breakOff();

    TransferOptions options_;
    std::unique_ptr<CURLM, CleanUp> multi_;
    std::mutex mutex_;
    std::vector<Order> orders_;
    bool ending_ = false;
    /// Belongs to the thread.
    std::list<Running> running_;
    std::thread thread_;
};

} // namespace prismo
