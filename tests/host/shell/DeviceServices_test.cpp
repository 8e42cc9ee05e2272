#include <zowidgets/host/shell/DeviceServices.h>

#include <gtest/gtest.h>

#include <memory>

namespace {

class DeviceServicesTest : public ::testing::Test {
protected:
  void SetUp() override {
    setDeviceServices(nullptr);
    defaultDeviceServices().clear();
  }
  void TearDown() override { SetUp(); }
};

using Request = RecordingDeviceServices::eRequest;

TEST_F(DeviceServicesTest, TheDefaultRecordsWhatWasAskedInOrder) {
  console_reinit();
  MackieMCU::Manager::instance().init();
  MackieMCU::Manager::instance().deInit();
  EXPECT_EQ(defaultDeviceServices().requests(),
            (std::vector<Request>{RecordingDeviceServices::kConsoleReinit, RecordingDeviceServices::kSurfaceInit,
                                  RecordingDeviceServices::kSurfaceDeInit}));
  EXPECT_EQ(&deviceServices(), &defaultDeviceServices());
}

TEST_F(DeviceServicesTest, TheDefaultReportsNoFailedPluginsUntilToldOfSome) {
  EXPECT_TRUE(ZoDeviceDriverManager::getFailedPlugins().empty());
  defaultDeviceServices().setFailedPlugins({L"Jog wheel", L"Colour panel"});
  std::vector<LightweightString<wchar_t>> const failed = ZoDeviceDriverManager::getFailedPlugins();
  ASSERT_EQ(failed.size(), 2u);
  EXPECT_EQ(failed[0].str(), L"Jog wheel");
  EXPECT_EQ(failed[1].str(), L"Colour panel");
  defaultDeviceServices().clear();
  EXPECT_TRUE(ZoDeviceDriverManager::getFailedPlugins().empty());
}

TEST_F(DeviceServicesTest, AProgramReplacesTheServicesAndCanPutTheDefaultBack) {
  auto own = std::make_shared<RecordingDeviceServices>();
  own->setFailedPlugins({L"Scope"});
  setDeviceServices(own);
  console_reinit();
  EXPECT_EQ(own->requests(), std::vector<Request>{RecordingDeviceServices::kConsoleReinit});
  EXPECT_TRUE(defaultDeviceServices().requests().empty());
  EXPECT_EQ(ZoDeviceDriverManager::getFailedPlugins().size(), 1u);
  setDeviceServices(nullptr);
  MackieMCU::Manager::instance().init();
  EXPECT_EQ(own->requests().size(), 1u);
  EXPECT_EQ(defaultDeviceServices().requests(), std::vector<Request>{RecordingDeviceServices::kSurfaceInit});
}

TEST_F(DeviceServicesTest, TheSurfaceManagerIsOne) {
  EXPECT_EQ(&MackieMCU::Manager::instance(), &MackieMCU::Manager::instance());
}

} // namespace
