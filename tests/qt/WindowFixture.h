#pragma once

#include <QString>
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "config/ConfigurationPath.h"
#include "foundation/system/ApplicationBundle.h"
#include "qt/binding/FrameUpdates.h"
#include "qt/binding/WindowContext.h"
#include "qt/looks/Icons.h"
#include "support/TemporaryFolder.h"
#include "support/VarBranding.h"

namespace test_support {

/// What windows share, with a brand of its own; the links that are followed are kept.
class WindowTest : public testing::Test {
 protected:
    WindowTest() {
        orv::SetConfigBasePath(configuration.path());
        orv::orv_VarBranding::storeParams({});
    }
    ~WindowTest() override { orv::ClearConfigBasePath(); }

    const TemporaryFolder configuration;
    orv::FrameUpdates updates;
    const orv::Icons icons{QString::fromStdString(quelm::FindResourcesFolder()),
                           orv::Appearance::Light};
    std::vector<std::string> opened;
    const orv::WindowContext context{
        updates, icons, [this](const std::string& address) { opened.push_back(address); }};
};

}  // namespace test_support
