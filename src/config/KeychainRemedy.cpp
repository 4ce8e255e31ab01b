#include "config/KeychainRemedy.h"

#include "foundation/system/LocalizedString.h"

namespace orv {

std::string KeychainRemedy(platform::Keychain::Status state) {
    using quelm::GetLocalizedString;
    using Status = platform::Keychain::Status;
    switch (state) {
        case Status::Unavailable:
            return GetLocalizedString("Keychain.NoService",
                                      "No Secret Service answers in this session. Install one and "
                                      "start it, for example the package gnome-keyring.");
        case Status::Locked:
            return GetLocalizedString("Keychain.Locked",
                                      "The keyring is locked. Unlock it, for example with the "
                                      "program seahorse or by signing in with your password.");
        case Status::NotFound:
            return GetLocalizedString("Keychain.NoCollection",
                                      "There is no default keyring yet. Make one, for example with "
                                      "the program seahorse.");
        default:
            return GetLocalizedString("Keychain.NotWritable",
                                      "The keyring did not keep a test item. See whether the disk "
                                      "is full, and restart the keyring.");
    }
}

}  // namespace orv
