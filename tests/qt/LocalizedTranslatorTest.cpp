#include <gtest/gtest.h>

#include "qt/LongerTexts.h"
#include "qt/texts/LocalizedTranslator.h"

namespace {

TEST(LocalizedTranslator, LooksUpTextsThatHaveAKeyAndLeavesTheToolkitsOwn) {
    const orv::LocalizedTranslator texts;
    const auto translate = [&](const char* source, const char* key) {
        return texts.translate("PrefPane", source, key, -1).toStdString();
    };
    const test_support::LongerTexts language;
    EXPECT_EQ(translate("Backup", "PrefPane.BackupTab"), test_support::Longer("Backup"));
    EXPECT_EQ(translate("Fallback", "PrefPane.NoSuchText"), "Fallback");
    EXPECT_TRUE(texts.translate("QLineEdit", "&Copy", nullptr, -1).isNull());
    EXPECT_TRUE(texts.translate("QLineEdit", "&Copy", "Of the menu. Keep it short.", -1).isNull());
}

}  // namespace
