#include "platform/linux/CupsPrinters.h"

#include <algorithm>
#include <array>
#include <memory>
#include <utility>

#include "platform/linux/CupsLibrary.h"

namespace platform {

namespace {

struct Queue {
    std::string id;
    std::string info;
    int state = 0;
};

ipp_t* newQueuesRequest(const CupsLibrary& cups) {
    constexpr std::array wanted = {"printer-name", "printer-info", "printer-state"};
    ipp_t* const request = cups.ippNewRequest(IPP_OP_CUPS_GET_PRINTERS);
    cups.ippAddStrings(request, IPP_TAG_OPERATION, IPP_TAG_KEYWORD, "requested-attributes",
                       static_cast<int>(wanted.size()), nullptr, wanted.data());
    return request;
}

void take(const CupsLibrary& cups, ipp_attribute_t* attribute, Queue& queue) {
    const std::string_view name = cups.ippGetName(attribute);
    if (name == "printer-state") {
        queue.state = cups.ippGetInteger(attribute, 0);
        return;
    }
    const char* const text = cups.ippGetString(attribute, 0, nullptr);
    if (text == nullptr) return;
    if (name == "printer-name") queue.id = text;
    if (name == "printer-info") queue.info = text;
}

/// Each run of attributes about printers is one queue.
std::vector<Queue> queuesOf(const CupsLibrary& cups, ipp_t* response) {
    std::vector<Queue> queues;
    bool inside = false;
    for (auto* attribute = cups.ippFirstAttribute(response); attribute != nullptr;
         attribute = cups.ippNextAttribute(response)) {
        const bool describesQueue = cups.ippGetGroupTag(attribute) == IPP_TAG_PRINTER &&
                                    cups.ippGetName(attribute) != nullptr;
        if (describesQueue && !inside) queues.emplace_back();
        inside = describesQueue;
        if (describesQueue) take(cups, attribute, queues.back());
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

constexpr const char* remedy = "Install and start the package cups.";

}  // namespace

/// One conversation with the server.
class CupsPrinters::Connection {
 public:
    Connection(CupsPrinters& owner, const CupsLibrary& cups)
        : cups_(cups),
          server_(owner.server_.empty() ? cups.cupsServer() : owner.server_),
          http_(open(owner.limit_), cups.httpClose) {
        if (http_) {
            askForQueues(owner.reporter_);
        } else {
            owner.reporter_.report("No printing system answers at " + server_ +
                                   ", so there are no printers. " + remedy);
        }
    }

    /// None when the server did not say.
    [[nodiscard]] const std::optional<std::vector<Queue>>& queues() const { return queues_; }

    /// Empty for none.
    [[nodiscard]] std::string defaultId() const {
        const bool hasQueues = queues_ && !queues_->empty();
        const char* const id = hasQueues ? cups_.cupsGetDefault2(http_.get()) : nullptr;
        return id != nullptr ? id : "";
    }

 private:
    [[nodiscard]] http_t* open(std::chrono::milliseconds limit) const {
        http_t* const http =
            cups_.httpConnect2(server_.c_str(), cups_.ippPort(), nullptr, AF_UNSPEC,
                               cups_.cupsEncryption(), 1, static_cast<int>(limit.count()), nullptr);
        const auto giveUp = [](http_t*, void*) { return 0; };
        const double seconds = std::chrono::duration<double>(limit).count();
        if (http != nullptr) cups_.httpSetTimeout(http, seconds, giveUp, nullptr);
        return http;
    }

    void askForQueues(OnceReporter& reporter) {
        const std::unique_ptr<ipp_t, decltype(cups_.ippDelete)> response(
            cups_.cupsDoRequest(http_.get(), newQueuesRequest(cups_), "/"), cups_.ippDelete);
        if (response &&
            cups_.ippGetStatusCode(response.get()) < IPP_STATUS_REDIRECTION_OTHER_SITE) {
            queues_ = queuesOf(cups_, response.get());
        } else if (cups_.cupsLastError() == IPP_STATUS_ERROR_NOT_FOUND) {
            queues_.emplace();
        } else {
            reporter.report("The printing system at " + server_ +
                            " does not say which printers it has: " + cups_.cupsLastErrorString() +
                            ". Restart the service cups.");
        }
    }

    const CupsLibrary& cups_;
    std::string server_;
    std::unique_ptr<http_t, decltype(cups_.httpClose)> http_;
    std::optional<std::vector<Queue>> queues_;
};

CupsPrinters::CupsPrinters(Reporter reporter, std::string server, std::chrono::milliseconds limit)
    : reporter_(std::move(reporter)), server_(std::move(server)), limit_(limit) {}

const CupsLibrary* CupsPrinters::library() {
    const CupsLibrary* const cups = LoadCups();
    if (cups == nullptr) {
        reporter_.report(std::string("The printing library libcups is missing. ") + remedy);
    }
    return cups;
}

std::optional<std::vector<Printer>> CupsPrinters::list() {
    const CupsLibrary* const cups = library();
    if (cups == nullptr) return std::nullopt;
    const Connection connection(*this, *cups);
    if (!connection.queues()) return std::nullopt;
    const std::string defaultId = connection.defaultId();
    std::vector<Printer> printers;
    for (const auto& [id, info, state] : *connection.queues()) {
        printers.push_back({id, info.empty() ? id : info, id == defaultId});
    }
    return printers;
}

PrinterState CupsPrinters::state(const std::string& id) {
    const CupsLibrary* const cups = library();
    if (cups == nullptr) return PrinterState::Unknown;
    const Connection connection(*this, *cups);
    if (!connection.queues()) return PrinterState::Unknown;
    const auto found = std::ranges::find(*connection.queues(), id, &Queue::id);
    return found != connection.queues()->end() ? stateOf(found->state) : PrinterState::Unknown;
}

}  // namespace platform
