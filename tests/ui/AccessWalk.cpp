#include "AccessWalk.h"

#include "Texts.h"

#include <gtest/gtest.h>
#include <oleacc.h>

#include <set>
#include <utility>

namespace {

constexpr std::size_t kMostStops = 50;

void LeaveTable(const std::vector<TabStop>& walk, const std::string& name) {
    std::wstring table = L"id\tclass\tname\trole\tstate\tdescription\r\n";
    for (const TabStop& stop : walk) {
        table += std::to_wstring(stop.id) + L'\t' + stop.className + L'\t' + stop.told.name + L'\t' +
                 UiDriver::RoleText(stop.told.role) + L'\t' + UiDriver::StateText(stop.told.state) + L'\t' +
                 stop.told.description + L"\r\n";
    }
    UiDriver::WriteBytes(L"Z:" + UiDriver::FromUtf8(QLB_ACCESS_TABLES) + L"/" + UiDriver::FromUtf8(name) +
                             (Japanese() ? L"-ja.txt" : L"-en.txt"),
                         UiDriver::ToUtf8(table));
}

TabStop StopAt(HWND hwnd) {
    const UiDriver::Control control(hwnd);
    return {control.Id(), control.ClassName(), UiDriver::Accessible::Of(hwnd)};
}

} // namespace

std::vector<TabStop> WalkByTab(const UiDriver::Window& form, const std::string& name) {
    const HWND first = form.FocusedHwnd();
    std::vector<TabStop> walk{StopAt(first)};
    while (walk.size() < kMostStops) {
        const HWND from = form.FocusedHwnd();
        UiDriver::Keyboard::Press(VK_TAB);
        UiDriver::WaitUntil([&] { return form.FocusedHwnd() != from; }, L"Tab to move the focus");
        if (form.FocusedHwnd() == first) {
            break;
        }
        walk.push_back(StopAt(form.FocusedHwnd()));
    }
    LeaveTable(walk, name);
    return walk;
}

std::vector<int> IdsOf(const std::vector<TabStop>& walk) {
    std::vector<int> ids;
    for (const TabStop& stop : walk) {
        ids.push_back(stop.id);
    }
    return ids;
}

void ExpectNamed(const std::vector<TabStop>& walk) {
    std::set<std::pair<std::wstring, std::wstring>> names;
    for (const TabStop& stop : walk) {
        EXPECT_NE(stop.told.name, L"") << "control " << stop.id;
        EXPECT_TRUE(names.emplace(stop.className, stop.told.name).second)
            << "control " << stop.id << " is called " << UiDriver::ToUtf8(stop.told.name)
            << " like another one";
        EXPECT_NE(stop.told.role, 0) << "control " << stop.id;
        EXPECT_NE(stop.told.state & STATE_SYSTEM_FOCUSED, 0) << "control " << stop.id;
    }
}
