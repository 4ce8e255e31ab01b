#include "accounts/StorageQuotaInfo.h"

#include <algorithm>
#include <charconv>
#include <limits>

#include "accounts/AccountXml.h"
#include "config/Locations.h"
#include "foundation/system/Log.h"
#include "foundation/texts/Numbers.h"
#include "foundation/xml/XmlDocument.h"
#include "foundation/xml/XmlElements.h"

namespace orv {

namespace {

/// Servers write the unlimited quota with a sign and without one.
std::int64_t quotaOf(const pugi::xml_node& element) {
    constexpr std::uint64_t allBits = std::numeric_limits<std::uint64_t>::max();
    const std::string text = quelm::TextOf(element);
    std::string_view digits = text;
    digits.remove_prefix(std::min(digits.find_first_not_of(" \t\r\n"), digits.size()));
    if (digits.starts_with('+')) digits.remove_prefix(1);
    std::uint64_t number = 0;
    std::from_chars(digits.data(), digits.data() + digits.size(), number);
    return number == allBits ? -1 : quelm::LeadingInteger(text);
}

}  // namespace

orv_StorageQuotaInfo::orv_StorageQuotaInfo(const std::string& folder)
    : _settingsPath(folder + "/" + files::storageQuota) {}

bool orv_StorageQuotaInfo::load() {
    return loadAtPath(_settingsPath);
}

bool orv_StorageQuotaInfo::loadAtPath(const std::string& path) {
    const auto data = ReadAccountXml(path);
    return data && loadData(*data);
}

bool orv_StorageQuotaInfo::loadData(std::string_view data) {
    const auto parsed = quelm::ParseXml(data);
    if (!parsed.document) {
        quelm::LogError("Cannot load storage_quota info: " + parsed.error);
        return false;
    }
    const auto parameters = quelm::FindElement(*parsed.document, "request").child("parameters");
    if (!parameters) {
        quelm::LogError("Cannot load storage_quota info: parameters not recognized");
        return false;
    }
    _totalOtherComputers = quelm::IntegerOf(parameters.child("total-other-computers"));
    _storedOtherComputers = quelm::IntegerOf(parameters.child("stored-other-computers"));
    _totalThisComputer = quelm::IntegerOf(parameters.child("total-this-computer"));
    _storedThisComputer = quelm::IntegerOf(parameters.child("stored-this-computer"));
    _quota = quotaOf(parameters.child("total-quota"));
    return true;
}

}  // namespace orv
