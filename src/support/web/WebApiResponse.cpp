#include "support/web/WebApiResponse.h"

#include <utility>

#include "foundation/system/Log.h"
#include "foundation/system/Saturating.h"
#include "foundation/xml/XmlDocument.h"
#include "foundation/xml/XmlElements.h"

namespace orv {

namespace {

constexpr const char* rootName = "quelmApiResponse";

void logInvalid(std::string_view data) {
    constexpr std::size_t shown = 1'000;
    quelm::LogError("Invalid response: " + std::string(data.substr(0, shown)));
}

}  // namespace

QuelmWebApiResponse::QuelmWebApiResponse(std::unique_ptr<pugi::xml_document> document)
    : m_xml(std::move(document)),
      m_returnCode(stringParameterValue("returnCode", "DEFAULT_UNKNOWN_VALUE")),
      m_responseCode(intParameterValue("responseCode", noResponseCode)) {}

std::unique_ptr<QuelmWebApiResponse> QuelmWebApiResponse::responseWithData(std::string_view data) {
    auto parsed = quelm::ParseXml(data);
    if (!parsed.document) {
        quelm::LogError("Error: " + parsed.error);
        logInvalid(data);
        return nullptr;
    }
    std::unique_ptr<QuelmWebApiResponse> response(
        new QuelmWebApiResponse(std::move(parsed.document)));
    if (response->responseCode() != noResponseCode) return response;
    logInvalid(data);
    return nullptr;
}

std::vector<pugi::xml_node> QuelmWebApiResponse::parameter(const std::string& name) const {
    const auto nodes = m_xml->child(rootName).children(name.c_str());
    return {nodes.begin(), nodes.end()};
}

pugi::xml_node QuelmWebApiResponse::parameterValue(const std::string& name) const {
    return m_xml->child(rootName).child(name.c_str());
}

std::int32_t QuelmWebApiResponse::intParameterValue(const std::string& name,
                                                    std::int32_t fallback) const {
    return quelm::Narrowed(longLongParameterValue(name, fallback));
}

std::int64_t QuelmWebApiResponse::longLongParameterValue(const std::string& name,
                                                         std::int64_t fallback) const {
    const pugi::xml_node node = parameterValue(name);
    return node ? quelm::IntegerOf(node) : fallback;
}

std::string QuelmWebApiResponse::stringParameterValue(const std::string& name,
                                                      const std::string& fallback) const {
    const pugi::xml_node node = parameterValue(name);
    return node ? quelm::TextOf(node) : fallback;
}

bool QuelmWebApiResponse::boolParameterValue(const std::string& name, bool fallback) const {
    const pugi::xml_node node = parameterValue(name);
    if (!node) return fallback;
    const std::string text = quelm::TextOf(node);
    return text == "Y" || text == "y";
}

}  // namespace orv
