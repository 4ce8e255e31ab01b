#include "platform/linux/CupsPrinters.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <cups/cups.h>
#include <memory>
#include <utility>

namespace platform {

namespace {

struct CloseConnection {
    void operator()(http_t* http) const { httpClose(http); }
};
struct DeleteMessage {
    void operator()(ipp_t* message) const { ippDelete(message); }
};
using MessageHandle = std::unique_ptr<ipp_t, DeleteMessage>;

struct Queue {
    std::string id;
    std::string info;
    int state = 0;
};

MessageHandle queuesRequest() {
    constexpr std::array wanted = {"printer-name", "printer-info", "printer-state"};
    MessageHandle request(ippNewRequest(IPP_OP_CUPS_GET_PRINTERS));
    ippAddStrings(request.get(), IPP_TAG_OPERATION, IPP_TAG_KEYWORD, "requested-attributes",
                  static_cast<int>(wanted.size()), nullptr, wanted.data());
    return request;
}

void take(ipp_attribute_t* attribute, Queue& queue) {
    const std::string_view name = ippGetName(attribute);
    if (name == "printer-state") {
        queue.state = ippGetInteger(attribute, 0);
        return;
    }
    const char* const text = ippGetString(attribute, 0, nullptr);
    if (text == nullptr) return;
    if (name == "printer-name") queue.id = text;
    if (name == "printer-info") queue.info = text;
}

/// Each run of attributes about printers is one queue.
std::vector<Queue> queuesOf(ipp_t* response) {
    std::vector<Queue> queues;
    bool inside = false;
    for (auto* attribute = ippFirstAttribute(response); attribute != nullptr;
         attribute = ippNextAttribute(response)) {
        const bool describesQueue =
            ippGetGroupTag(attribute) == IPP_TAG_PRINTER && ippGetName(attribute) != nullptr;
        if (describesQueue && !inside) queues.emplace_back();
        inside = describesQueue;
        if (describesQueue) take(attribute, queues.back());
    }
    std::erase_if(queues, [](const Queue& queue) { return queue.id.empty(); });
    return queues;
}

PrinterState stateOf(int number) {
    for (const auto state :
         {PrinterState::Ready, PrinterState::Processing, PrinterState::Stopped}) {
        if (static_cast<int>(state) == number) return state;
    }
    return PrinterState::Unknown;
}

}  // namespace

/// One conversation with the server.
class CupsPrinters::Connection {
 public:
    explicit Connection(CupsPrinters& owner) {
        const std::string server = owner.server_.empty() ? cupsServer() : owner.server_;
        const auto limit = owner.limit_;
        http_.reset(httpConnect2(server.c_str(), ippPort(), nullptr, AF_UNSPEC, cupsEncryption(), 1,
                                 static_cast<int>(limit.count()), nullptr));
        if (!http_) {
            owner.reporter_.report("No printing system answers at " + server +
                                   ", so no printers are shown. Install and start the package "
                                   "cups.");
            return;
        }
        const auto giveUp = [](http_t*, void*) { return 0; };
        httpSetTimeout(http_.get(), std::chrono::duration<double>(limit).count(), giveUp, nullptr);
        askForQueues(owner, server);
    }

    [[nodiscard]] const std::vector<Queue>& queues() const { return queues_; }

    /// Empty for none.
    [[nodiscard]] std::string defaultId() const {
        const char* const id = queues_.empty() ? nullptr : cupsGetDefault2(http_.get());
        return id != nullptr ? id : "";
    }

 private:
    void askForQueues(CupsPrinters& owner, const std::string& server) {
        const MessageHandle response(cupsDoRequest(http_.get(), queuesRequest().release(), "/"));
        if (response && ippGetStatusCode(response.get()) < IPP_STATUS_REDIRECTION_OTHER_SITE) {
            queues_ = queuesOf(response.get());
        } else if (cupsLastError() != IPP_STATUS_ERROR_NOT_FOUND) {  // that is a server of none
            owner.reporter_.report("The printing system at " + server +
                                   " does not say which printers it has: " + cupsLastErrorString() +
                                   ". Restart the service cups.");
        }
    }

    std::unique_ptr<http_t, CloseConnection> http_;
    std::vector<Queue> queues_;
};

CupsPrinters::CupsPrinters(Reporter reporter, std::string server, std::chrono::milliseconds limit)
    : reporter_(std::move(reporter)), server_(std::move(server)), limit_(limit) {}

std::vector<Printer> CupsPrinters::list() {
    const Connection connection(*this);
    const std::string defaultId = connection.defaultId();
    std::vector<Printer> printers;
    for (const auto& [id, info, state] : connection.queues()) {
        printers.push_back({id, info.empty() ? id : info, id == defaultId});
    }
    return printers;
}

PrinterState CupsPrinters::state(const std::string& id) {
    const Connection connection(*this);
    const auto found = std::ranges::find(connection.queues(), id, &Queue::id);
    return found != connection.queues().end() ? stateOf(found->state) : PrinterState::Unknown;
}

}  // namespace platform
