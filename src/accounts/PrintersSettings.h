#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "accounts/SettingsError.h"
#include "platform/Printers.h"
#include "platform/Value.h"
#include "widgets/Alerts.h"

namespace orv {

/// The printers that the user marks for the agent: a live list of the system's printers, with what
/// "printer_info.plist" in the configuration folder says of them. Main thread only.
class orv_PrintersSettings {
 public:
    [[nodiscard]] static std::string defaultFilename();

    /// Both are borrowed. Without printers the list is empty; without alerts errors are logged.
    orv_PrintersSettings(platform::Printers* printers, Alerts* alerts)
        : printers_(printers), alerts_(alerts) {}

    /// Builds the live list where there is none; with `rebuild` in any case.
    void createListOfPrinters(bool rebuild);
    /// A list of the printers that are there now. A printer is checked as the file has it; while
    /// there is no file, the default printer is. Empty when the printing system does not answer.
    [[nodiscard]] quelm::Array getArrayOfPrinters();
    /// Writes the live list, which is built first where there is none, readable by the owner alone,
    /// and tells the agent of account "1". While the printing system does not answer, that is shown
    /// and the file stays.
    bool store();

    /// The live list as a property list.
    [[nodiscard]] std::optional<std::string> getData() const;
    /// An error is shown, and leaves the file as it was.
    bool storeData(std::string_view data, const std::string& path, unsigned accessRights) const;
    /// With `reportNotFound` an error is shown, but never that the file is missing.
    [[nodiscard]] std::optional<std::string> readDataFromFile(const std::string& path,
                                                              bool reportNotFound) const;
    /// Takes a property list over as the temporary list; false leaves that as it was.
    bool readFromData(std::string_view data);

    /// Whether the file has content.
    [[nodiscard]] bool isTherePrintersPropertyList() const;
    /// Reads the file into the temporary list and looks the printer up in it.
    [[nodiscard]] bool isThisPrinterCheckedInPropertyList(const std::string& id);

    /// Of the live list and of the temporary one.
    [[nodiscard]] std::size_t count() const { return list().size(); }
    [[nodiscard]] std::size_t count2() const { return tempPrinterInfoDictionaries.size(); }

    // Rows of the live list; one that is not there is not checked and has no texts.
    [[nodiscard]] bool userCheckAtIndex(std::size_t index) const;
    [[nodiscard]] std::string printersIdAtIndex(std::size_t index) const;
    [[nodiscard]] std::string printersNameAtIndex(std::size_t index) const;
    /// "ready", "processing", "stopped" or "unknown", asked of the printing system.
    [[nodiscard]] std::string printersStatusAtIndex(std::size_t index) const;
    /// Stores at once.
    void setUserCheck(bool check, std::size_t index);

    void printError(const SettingsError& error) const;

 private:
    [[nodiscard]] static std::string path();
    [[nodiscard]] std::optional<quelm::Array> liveRows();
    [[nodiscard]] quelm::Dictionary liveRow(const platform::Printer& printer, bool hasFile) const;
    [[nodiscard]] const quelm::Array& list() const;
    [[nodiscard]] std::string textAtIndex(std::size_t index, const char* key) const;
    void readTemporaryList();
    [[nodiscard]] const quelm::Dictionary* temporaryEntry(const std::string& id) const;
    void reportPosixError(int code, const std::string& path) const;

    platform::Printers* printers_;
    Alerts* alerts_;
    /// None until the printing system has answered.
    std::optional<quelm::Array> printerInfoDictionaries;
    quelm::Array tempPrinterInfoDictionaries;
};

}  // namespace orv
