#pragma once

#include <cstdint>
#include <memory>
#include <pugixml.hpp>
#include <string>
#include <string_view>
#include <vector>

namespace orv {

/// A reply of the service: the document "quelmApiResponse", whose children are its parameters.
class QuelmWebApiResponse {
 public:
    static constexpr std::int32_t noResponseCode = -1;

    /// Null, with a line in the log, for a reply that is no XML document or has no response code:
    /// "Invalid response from server." is then to be shown.
    [[nodiscard]] static std::unique_ptr<QuelmWebApiResponse> responseWithData(
        std::string_view data);

    /// 0 when the service did what was asked.
    [[nodiscard]] std::int32_t responseCode() const { return m_responseCode; }
    [[nodiscard]] const std::string& returnCode() const { return m_returnCode; }

    /// In the order of the reply; they live as long as this.
    [[nodiscard]] std::vector<pugi::xml_node> parameter(const std::string& name) const;
    /// The first; null for none.
    [[nodiscard]] pugi::xml_node parameterValue(const std::string& name) const;

    // The text of the first, read from its beginning; the default without one.
    [[nodiscard]] std::int32_t intParameterValue(const std::string& name,
                                                 std::int32_t fallback) const;
    [[nodiscard]] std::int64_t longLongParameterValue(const std::string& name,
                                                      std::int64_t fallback) const;
    [[nodiscard]] std::string stringParameterValue(const std::string& name,
                                                   const std::string& fallback) const;
    /// Whether the text is "Y" or "y".
    [[nodiscard]] bool boolParameterValue(const std::string& name, bool fallback) const;

    /// For the person: "" for 0, the default for a code that has no message.
    [[nodiscard]] static std::string errorMessageForCode(std::int32_t code,
                                                         const std::string& defaultMessage);

 private:
    explicit QuelmWebApiResponse(std::unique_ptr<pugi::xml_document> document);

    std::unique_ptr<pugi::xml_document> m_xml;
    std::string m_returnCode;
    std::int32_t m_responseCode;
};

}  // namespace orv
