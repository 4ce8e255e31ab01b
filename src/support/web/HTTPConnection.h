#pragma once

#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "platform/RunLoop.h"
#include "platform/Workspace.h"
#include "support/web/HttpTransfer.h"
#include "support/web/HttpTypes.h"

namespace orv {

/// Asks the service, one request at a time, each bounded as `HttpOptions` has it. Any HTTPS
/// certificate is accepted unless the deployment has rules for them. Addresses carry passwords:
/// they are neither logged nor part of an error.
///
/// Used and destroyed on the main thread, where its callbacks come, or synchronously on any one
/// thread. Its end cancels the request in flight and waits for nothing.
class HTTPConnection {
 public:
    /// The body of a reply, whatever its status.
    using Received = std::function<void(const std::string& data)>;
    /// None when no request could be started.
    using Failed = std::function<void(const std::optional<HttpError>& error)>;
    /// In the order in which they stand in the address; values as `EncodeHttpParameter` has them.
    using Parameters = std::vector<std::pair<std::string, std::string>>;

    /// Of the service's servers, as the active account's server settings have them. They read a
    /// file.
    [[nodiscard]] static std::string apiBaseUrl();
    [[nodiscard]] static std::string webBaseUrl();
    /// Opens a page of the service in the browser, with the account in the address; false when
    /// that was refused.
    static bool openUrl(const std::string& address, platform::Workspace& workspace);

    /// The run loop outlives this.
    HTTPConnection(platform::RunLoop& runLoop, std::string baseUrl, HttpOptions options = {});
    HTTPConnection(const HTTPConnection&) = delete;
    HTTPConnection& operator=(const HTTPConnection&) = delete;
    ~HTTPConnection() { cancel(); }

    void setBaseUrl(std::string baseUrl) { m_baseUrl = std::move(baseUrl); }
    /// The next request runs on the calling thread, with its callbacks, before `send...` returns.
    void setSynchronous(bool synchronous) { m_synchronous = synchronous; }

    // Each answers false, with a line in the log, while a request is in flight: then no callback
    // comes. Otherwise exactly one does, unless the request is cancelled; it may destroy this, or
    // send again, and must not throw.
    bool sendCommand(const Parameters& parameters, Received didReceived, Failed didFailed);
    /// Parameters as they stand in the address, beginning with "&".
    bool sendCommandString(const std::string& parameters, Received didReceived, Failed didFailed);
    bool sendRequest(const std::string& address, Received didReceived, Failed didFailed);

    /// Drops the request in flight; none of its callbacks begins any more. Any thread; a
    /// synchronous request on another thread then returns within milliseconds.
    void cancel();

    [[nodiscard]] const std::string& receivedData() const { return m_receivedData; }
    /// HTTP status code of the last reply; 0 before one.
    [[nodiscard]] int dataResponse() const { return m_dataResponse; }

 private:
    using Transfer = std::shared_ptr<HttpTransfer>;
    struct Actions {
        Received received;
        Failed failed;
    };

    [[nodiscard]] bool begin(const Transfer& transfer, Received didReceived, Failed didFailed);
    void start(const Transfer& transfer);
    /// Ends the request, unless it was cancelled; without a reply none could be started.
    void deliver(const Transfer& transfer, const std::optional<HttpReply>& reply);
    /// Gives out the actions of a request that ends here; none for any other.
    [[nodiscard]] std::optional<Actions> end(const HttpTransfer* transfer);

    platform::RunLoop* runLoop_;
    HttpOptions options_;
    std::string m_baseUrl;
    bool m_synchronous = false;
    std::string m_receivedData;
    int m_dataResponse = 0;

    std::mutex mutex_;  // for what follows
    Transfer m_connection;
    Received m_actionReceived;
    Failed m_actionFailed;
};

}  // namespace orv
