#pragma once

#include <QTranslator>

namespace orv {

/// Translates what interface files say: a text's comment is its key ("PrefPane.FoldersTab"), and it
/// is its own default. Texts of the toolkit, which have no key, are left to other translators.
class LocalizedTranslator final : public QTranslator {
    Q_OBJECT

 public:
    using QTranslator::QTranslator;

    [[nodiscard]] QString translate(const char* context, const char* source, const char* key,
                                    int count) const override;
    [[nodiscard]] bool isEmpty() const override { return false; }
};

}  // namespace orv
