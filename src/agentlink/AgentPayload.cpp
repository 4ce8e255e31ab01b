#include "agentlink/AgentPayload.h"

#include "config/PropertyAccess.h"
#include "foundation/texts/Numbers.h"

namespace orv {

std::string PayloadText(const quelm::Dictionary& payload, const char* key) {
    return GetStringProperty(payload, key).value_or("");
}

std::int64_t PayloadNumber(const quelm::Dictionary& payload, const char* key) {
    return quelm::LeadingInteger(PayloadText(payload, key));
}

}  // namespace orv
