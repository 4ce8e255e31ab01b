#include <gtest/gtest.h>

#include "widgets/Outlets.h"

namespace {

TEST(PopUpButton, TellsThatTheFirstIsSelectedAgain) {
    orv::PopUpButton button;
    button.setTitles({"a", "b"});
    button.selectItemAtIndex(1);
    std::size_t shown = 1;
    button.observe([&] { shown = button.indexOfSelectedItem(); });
    button.setTitles({"a", "b"});
    EXPECT_EQ(shown, 0U);
}

}  // namespace
