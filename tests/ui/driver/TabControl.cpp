#include "TabControl.h"

#include "Message.h"
#include "RemoteMemory.h"
#include "Wait.h"

#include <commctrl.h>

namespace UiDriver {
namespace {

constexpr int kCaptionCapacity = 260;

} // namespace

void TabControl::RequireTab(int index) const {
    if (index < 0 || index >= Count()) {
        Fail(Describe(Hwnd()) + L" has no tab " + std::to_wstring(index));
    }
}

int TabControl::Count() const {
    return static_cast<int>(Send(Hwnd(), TCM_GETITEMCOUNT));
}

std::wstring TabControl::Caption(int index) const {
    RequireTab(index);
    const RemoteMemory memory(Hwnd(), sizeof(TCITEMW) + kCaptionCapacity * sizeof(wchar_t));
    TCITEMW item{};
    item.mask = TCIF_TEXT;
    item.pszText = reinterpret_cast<wchar_t*>(memory.Address() + sizeof item);
    item.cchTextMax = kCaptionCapacity;
    memory.Write(0, &item, sizeof item);
    if (!Send(Hwnd(), TCM_GETITEMW, static_cast<WPARAM>(index), memory.Param())) {
        Fail(Describe(Hwnd()) + L" does not tell the caption of its tab " + std::to_wstring(index));
    }
    wchar_t caption[kCaptionCapacity] = L"";
    memory.Read(sizeof item, caption, sizeof caption);
    caption[kCaptionCapacity - 1] = L'\0';
    return caption;
}

std::vector<std::wstring> TabControl::Captions() const {
    std::vector<std::wstring> captions;
    const int count = Count();
    captions.reserve(static_cast<std::size_t>(count));
    for (int index = 0; index < count; ++index) {
        captions.push_back(Caption(index));
    }
    return captions;
}

int TabControl::Selected() const {
    return static_cast<int>(Send(Hwnd(), TCM_GETCURSEL));
}

RECT TabControl::LabelRect(int index) const {
    RequireTab(index);
    RECT rect{};
    const RemoteMemory memory(Hwnd(), sizeof rect);
    memory.Write(0, &rect, sizeof rect);
    if (!Send(Hwnd(), TCM_GETITEMRECT, static_cast<WPARAM>(index), memory.Param())) {
        Fail(Describe(Hwnd()) + L" does not say where its tab " + std::to_wstring(index) + L" is");
    }
    memory.Read(0, &rect, sizeof rect);
    MapWindowPoints(Hwnd(), nullptr, reinterpret_cast<POINT*>(&rect), 2);
    return rect;
}

void TabControl::Select(int index) const {
    const RECT label = LabelRect(index);
    const POINT point{(label.left + label.right) / 2, (label.top + label.bottom) / 2};
    RequireReachable(point);
    Mouse::Click(point);
    WaitUntil([&] { return Selected() == index; },
              L"tab " + std::to_wstring(index) + L" of " + Describe(Hwnd()) + L" to be selected");
}

} // namespace UiDriver
