#include <QApplication>
#include <gtest/gtest.h>

#include "qt/looks/Theme.h"
#include "qt/texts/LocalizedTranslator.h"

// The tests of windows share one application, which listing them does without.
int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    if (testing::GTEST_FLAG(list_tests)) return RUN_ALL_TESTS();
    QApplication application(argc, argv);
    orv::ApplyTheme(application, orv::Appearance::Light);
    orv::LocalizedTranslator texts;
    QCoreApplication::installTranslator(&texts);
    return RUN_ALL_TESTS();
}
