#include "support/web/HTTPConnection.h"

#include "config/UpdateSettings.h"
#include "foundation/system/Log.h"
#include "support/web/HttpParameter.h"
#include "support/web/HttpWorker.h"
#include "support/web/WebAddressHooks.h"

namespace orv {

namespace {

constexpr const char* commandPath = "/QuelmWebApi?clientId=7RQ2WN4TLC9XZ1MV6PB3JD8KFH5Y";

void logFailure(const HttpReply& reply) {
    quelm::LogError("Connection failed! Error - " + reply.error->description + " " +
                    SchemeAndHostOf(reply.address));
}

}  // namespace

std::string HTTPConnection::apiBaseUrl() {
    return BaseUrlOf(orvUpdateSettings::settings().apiServerName());
}

std::string HTTPConnection::webBaseUrl() {
    return BaseUrlOf(orvUpdateSettings::settings().webServerName());
}

bool HTTPConnection::openUrl(const std::string& address, platform::Workspace& workspace) {
    const auto& rcid = ProcessWebAddressHooks().rcid;
    return workspace.openAddress(WithSourceAccount(address, rcid ? rcid() : ""));
}

HTTPConnection::HTTPConnection(platform::RunLoop& runLoop, std::string baseUrl, HttpOptions options)
    : runLoop_(&runLoop), options_(std::move(options)), m_baseUrl(std::move(baseUrl)) {}

bool HTTPConnection::sendCommand(const Parameters& parameters, Received didReceived,
                                 Failed didFailed) {
    std::string text;
    for (const auto& [key, value] : parameters) {
        text.append("&").append(key).append("=").append(value);
    }
    return sendCommandString(text, std::move(didReceived), std::move(didFailed));
}

bool HTTPConnection::sendCommandString(const std::string& parameters, Received didReceived,
                                       Failed didFailed) {
    return sendRequest(m_baseUrl + commandPath + parameters, std::move(didReceived),
                       std::move(didFailed));
}

bool HTTPConnection::sendRequest(const std::string& address, Received didReceived,
                                 Failed didFailed) {
    const auto transfer = std::make_shared<HttpTransfer>(address, options_);
    if (!begin(transfer, std::move(didReceived), std::move(didFailed))) {
        quelm::LogError("AccountSetup/HTTPConnection: Overlapped commands");
        return false;
    }
    if (m_synchronous) {
        deliver(transfer, transfer->run());
    } else {
        start(transfer);
    }
    return true;
}

bool HTTPConnection::begin(const Transfer& transfer, Received didReceived, Failed didFailed) {
    const std::lock_guard lock(mutex_);
    if (m_connection) return false;
    m_connection = transfer;
    m_actionReceived = std::move(didReceived);
    m_actionFailed = std::move(didFailed);
    m_receivedData.clear();
    return true;
}

// The worker may outlive this: it comes here only through a task that looks for `cancel` first, on
// the thread that ends this.
void HTTPConnection::start(const Transfer& transfer) {
    auto task = [this, transfer](const std::optional<HttpReply>& reply) {
        if (!transfer->isCancelled()) deliver(transfer, reply);
    };
    auto work = [task, transfer, runLoop = runLoop_] {
        const HttpReply reply = transfer->run();
        transfer->unlessCancelled([&] { runLoop->post([task, reply] { task(reply); }); });
    };
    if (!StartHttpWorker(std::move(work))) runLoop_->post([task] { task(std::nullopt); });
}

void HTTPConnection::deliver(const Transfer& transfer, const std::optional<HttpReply>& reply) {
    const auto actions = end(transfer.get());
    if (!actions) return;
    if (reply && reply->error) logFailure(*reply);
    if (reply && reply->status != 0) m_dataResponse = reply->status;
    if (!reply || reply->error) {
        if (actions->failed) actions->failed(reply ? reply->error : std::nullopt);
        return;
    }
    m_receivedData = reply->body;
    // this may end within: what is called and given is no part of it
    if (actions->received) actions->received(reply->body);
}

std::optional<HTTPConnection::Actions> HTTPConnection::end(const HttpTransfer* transfer) {
    const std::lock_guard lock(mutex_);
    if (m_connection.get() != transfer) return std::nullopt;
    m_connection.reset();
    return Actions{std::exchange(m_actionReceived, nullptr),
                   std::exchange(m_actionFailed, nullptr)};
}

void HTTPConnection::cancel() {
    Transfer transfer;
    {
        const std::lock_guard lock(mutex_);
        transfer = std::move(m_connection);
    }
    if (!transfer) return;
    transfer->cancel();
    static_cast<void>(end(nullptr));  // the actions go too, without the lock
}

}  // namespace orv
