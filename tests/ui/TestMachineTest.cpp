#include "UiTest.h"

namespace {

class TestMachine : public UiTest {};

TEST_F(TestMachine, IsMarked_AndElsewhereNoSettingsAreErased) {
    const std::wstring mark = UiDriver::Store::TestMachineMark();
    const std::wstring aside = mark + L"-aside";
    const std::wstring before = StoreDump();
    ASSERT_NE(MoveFileW(mark.c_str(), aside.c_str()), FALSE);
    EXPECT_THROW(UiDriver::Store(), std::runtime_error);
    EXPECT_EQ(StoreDump(), before);
    ASSERT_NE(MoveFileW(aside.c_str(), mark.c_str()), FALSE);
}

} // namespace
