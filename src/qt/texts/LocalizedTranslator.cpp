#include "qt/texts/LocalizedTranslator.h"

#include <string_view>

#include "foundation/system/LocalizedString.h"
#include "qt/binding/QtText.h"

namespace orv {

QString LocalizedTranslator::translate(const char* /*context*/, const char* source, const char* key,
                                       int /*count*/) const {
    // the toolkit's own comments are sentences
    const bool isKey = key && source && std::string_view(key).find('.') != std::string_view::npos &&
                       std::string_view(key).find(' ') == std::string_view::npos;
    return isKey ? ToQt(quelm::GetLocalizedString(key, source)) : QString();
}

}  // namespace orv
