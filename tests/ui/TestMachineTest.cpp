#include "UiTest.h"

namespace {

class TestMachine : public UiTest {
protected:
    ~TestMachine() override { MoveFileW(aside_.c_str(), mark_.c_str()); }

    const std::wstring mark_ = UiDriver::Store::TestMachineMark();
    const std::wstring aside_ = mark_ + L"-aside";
};

TEST_F(TestMachine, IsMarked_AndElsewhereNoSettingsAreErased) {
    if (GetEnvironmentVariableW(L"QLB_ERASE_SETTINGS", nullptr, 0) != 0) {
        GTEST_SKIP() << "they are to be erased";
    }
    const std::wstring before = StoreDump();
    ASSERT_NE(MoveFileW(mark_.c_str(), aside_.c_str()), FALSE);
    EXPECT_THROW(UiDriver::Store(), std::runtime_error);
    EXPECT_EQ(StoreDump(), before);
}

} // namespace
