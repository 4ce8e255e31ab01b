#include "accounts/StorageQuotaInfo.h"

#include "accounts/AccountXml.h"
#include "config/Locations.h"
#include "foundation/system/Log.h"
#include "foundation/xml/XmlDocument.h"
#include "foundation/xml/XmlElements.h"

namespace orv {

namespace {

/// Servers write the unlimited quota with a sign and without one.
std::int64_t quotaOf(const pugi::xml_node& element) {
    constexpr std::string_view allBits = "18446744073709551615";
    return element.text().get() == allBits ? -1 : quelm::IntegerOf(element);
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
