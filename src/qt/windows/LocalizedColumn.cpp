#include "qt/windows/LocalizedColumn.h"

#include "qt/binding/QtText.h"

namespace orv {

TableColumn LocalizedColumn(const char* identifier, quelm::LocalizedText title, ColumnWidth width,
                            Qt::TextElideMode elide) {
    return {identifier, ToQt(quelm::GetLocalizedString(title.key, title.defaultText)), width,
            elide};
}

}  // namespace orv
