#include "backup/sharing/CategoryBoxes.h"

#include "accounts/filters/FilterCategories.h"

namespace orv {

std::array<CheckBox*, 7> CategoryBoxes(SharingOutlets& outlets) {
    return {&outlets._documentsButton, &outlets._financialButton, &outlets._imagesButton,
            &outlets._archivesButton,  &outlets._databasesButton, &outlets._musicButton,
            &outlets._videoButton};
}

std::string CategoryOfBox(std::size_t index) {
    return std::string(FilterCategories()[index].name);
}

}  // namespace orv
