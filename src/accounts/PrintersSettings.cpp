#include "accounts/PrintersSettings.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <sys/stat.h>
#include <utility>

#include "agentlink/AgentNotifications.h"
#include "agentlink/AgentVocabulary.h"
#include "config/ConfigurationPath.h"
#include "config/DamagedFile.h"
#include "config/Locations.h"
#include "config/LockedFile.h"
#include "config/PropertyAccess.h"
#include "foundation/files/WholeFile.h"
#include "foundation/propertylist/PropertyList.h"
#include "foundation/system/LocalizedString.h"
#include "foundation/system/Log.h"
#include "foundation/texts/Utf8.h"
#include "support/ApplicationNames.h"

namespace orv {

namespace {

constexpr const char* idKey = "printer_id";
constexpr const char* nameKey = "printer_name";
constexpr const char* checkKey = "user_check";
constexpr unsigned ownerOnly = 0600;

constexpr std::array stateTexts = {std::pair{platform::PrinterState::Ready, "ready"},
                                   std::pair{platform::PrinterState::Processing, "processing"},
                                   std::pair{platform::PrinterState::Stopped, "stopped"}};

/// Whether the file's content may go: it is an array, nothing or kept in a copy.
bool mayReplace(const LockedFile& file, const std::string& path) {
    if (file.isEmpty() || IsKnownSound(file, quelm::Value::Type::Array)) return true;
    const auto content = file.read(quelm::PropertyListLimits{}.bytes);
    const auto present = content ? quelm::ReadPropertyList(content->view()).value : std::nullopt;
    return (present && present->asArray()) || KeepDamagedFile(file, path);
}

}  // namespace

std::string orv_PrintersSettings::defaultFilename() {
    return files::printerInfo;
}

std::string orv_PrintersSettings::path() {
    return GetConfigurationNsPath(defaultFilename());
}

void orv_PrintersSettings::createListOfPrinters(bool rebuild) {
    if (rebuild || !printerInfoDictionaries) printerInfoDictionaries = liveRows();
}

quelm::Array orv_PrintersSettings::getArrayOfPrinters() {
    return liveRows().value_or(quelm::Array());
}

std::optional<quelm::Array> orv_PrintersSettings::liveRows() {
    const auto printers = printers_ ? printers_->list() : std::nullopt;
    if (!printers) return std::nullopt;
    const bool hasFile = isTherePrintersPropertyList();
    if (hasFile) readTemporaryList();
    quelm::Array rows;
    for (const auto& printer : *printers) {
        // no file could name others
        if (quelm::IsXmlText(printer.id)) rows.emplace_back(liveRow(printer, hasFile));
    }
    return rows;
}

quelm::Dictionary orv_PrintersSettings::liveRow(const platform::Printer& printer,
                                                bool hasFile) const {
    const auto* const known = hasFile ? temporaryEntry(printer.id) : nullptr;
    // from the file's entry, for the keys that others have put there
    quelm::Dictionary row = known ? *known : quelm::Dictionary();
    const bool checked = hasFile ? GetBoolProperty(row, checkKey) : printer.isDefault;
    row.set(idKey, printer.id);
    row.set(nameKey, quelm::IsXmlText(printer.name) ? printer.name : printer.id);
    row.set(checkKey, checked);
    return row;
}

bool orv_PrintersSettings::store() {
    createListOfPrinters(false);
    if (!printerInfoDictionaries) {
        printError({.domain = SettingsError::settingsDomain,
                    .description = quelm::GetLocalizedString(
                        "Printers.NoList",
                        "The printing system does not answer, so the printers were left as they "
                        "are. Start it and try again."),
                    .info = {},
                    .filePath = path()});
        return false;
    }
    const auto data = getData();
    if (!data || !storeData(*data, path(), ownerOnly)) return false;
    NotifyAgentSettingsChanged("1", HintPrinters);
    return true;
}

std::optional<std::string> orv_PrintersSettings::getData() const {
    auto data = quelm::WritePropertyList(list());
    if (!data) {
        quelm::LogError("Printers Settings getData failed with a text that no property list holds");
    }
    return data;
}

bool orv_PrintersSettings::storeData(std::string_view data, const std::string& path,
                                     unsigned accessRights) const {
    errno = 0;
    LockedFile file(path);
    if (file && mayReplace(file, path) && ::fchmod(file.descriptor(), accessRights) == 0 &&
        file.replace(data)) {
        return true;
    }
    reportPosixError(errno != 0 ? errno : EIO, path);
    return false;
}

std::optional<std::string> orv_PrintersSettings::readDataFromFile(const std::string& path,
                                                                  bool reportNotFound) const {
    auto data = quelm::ReadWholeFile(path, quelm::PropertyListLimits{}.bytes);
    const int error = errno;
    if (!data && reportNotFound && error != ENOENT && error != ENOTDIR) {
        reportPosixError(error, path);
    }
    return data;
}

bool orv_PrintersSettings::readFromData(std::string_view data) {
    auto read = quelm::ReadPropertyList(data);
    auto* const rows = read.value ? read.value->asArray() : nullptr;
    if (!rows) {
        quelm::LogError("Shared Folders Settings load: failed with " +
                        (read.value ? "a property list that is no array" : read.error));
        return false;
    }
    tempPrinterInfoDictionaries = std::move(*rows);
    return true;
}

bool orv_PrintersSettings::isTherePrintersPropertyList() const {
    const auto data = readDataFromFile(path(), false);
    return data && !data->empty();
}

bool orv_PrintersSettings::isThisPrinterCheckedInPropertyList(const std::string& id) {
    readTemporaryList();
    const auto* const entry = temporaryEntry(id);
    return entry && GetBoolProperty(*entry, checkKey);
}

void orv_PrintersSettings::readTemporaryList() {
    if (const auto data = readDataFromFile(path(), true)) readFromData(*data);
}

const quelm::Dictionary* orv_PrintersSettings::temporaryEntry(const std::string& id) const {
    for (const auto& row : tempPrinterInfoDictionaries) {
        const auto* const entry = row.asDictionary();
        if (entry && GetStringProperty(*entry, idKey) == id) return entry;
    }
    return nullptr;
}

const quelm::Array& orv_PrintersSettings::list() const {
    static const quelm::Array none;
    return printerInfoDictionaries ? *printerInfoDictionaries : none;
}

bool orv_PrintersSettings::userCheckAtIndex(std::size_t index) const {
    return GetBoolPropertyWithDefaultForRowInArray(list(), index, checkKey, false);
}

std::string orv_PrintersSettings::textAtIndex(std::size_t index, const char* key) const {
    return GetStringPropertyForRowInArray(list(), index, key).value_or("");
}

std::string orv_PrintersSettings::printersIdAtIndex(std::size_t index) const {
    return textAtIndex(index, idKey);
}

std::string orv_PrintersSettings::printersNameAtIndex(std::size_t index) const {
    return textAtIndex(index, nameKey);
}

std::string orv_PrintersSettings::printersStatusAtIndex(std::size_t index) const {
    const std::string id = printersIdAtIndex(index);
    const auto state =
        printers_ && !id.empty() ? printers_->state(id) : platform::PrinterState::Unknown;
    const auto* const text =
        std::ranges::find(stateTexts, state, [](const auto& row) { return row.first; });
    return text != stateTexts.end() ? text->second : "unknown";
}

void orv_PrintersSettings::setUserCheck(bool check, std::size_t index) {
    if (index >= count()) return;
    (*printerInfoDictionaries)[index].asDictionary()->set(checkKey, check);
    store();
}

void orv_PrintersSettings::reportPosixError(int code, const std::string& path) const {
    printError({.domain = SettingsError::posixDomain,
                .code = code,
                .description = {},
                .info = {},
                .filePath = path});
}

void orv_PrintersSettings::printError(const SettingsError& error) const {
    const std::string text = TextOf(error, printersErrorTexts);
    if (!alerts_) {
        quelm::LogError(text);
        return;
    }
    alerts_->show({.title = quelm::FormatLocalizedString("Printers.Title", "%@ Settings",
                                                         {ApplicationLongName}),
                   .message = text,
                   .informativeText = std::nullopt,
                   .buttons = {quelm::GetLocalizedString("StatusItem.OK", "OK")}},
                  nullptr);
}

}  // namespace orv
