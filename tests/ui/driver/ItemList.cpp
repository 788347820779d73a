#include "ItemList.h"

#include "Message.h"
#include "Wait.h"

namespace UiDriver {
namespace {

constexpr LRESULT kError = -1; // LB_ERR and CB_ERR

} // namespace

void ItemList::FailForEntry(int index) const {
    Fail(Describe(Hwnd()) + L" has no entry " + std::to_wstring(index));
}

int ItemList::Count() const {
    return static_cast<int>(Send(Hwnd(), messages_->count));
}

std::wstring ItemList::Item(int index) const {
    const auto position = static_cast<WPARAM>(index);
    const LRESULT length = Send(Hwnd(), messages_->textLength, position);
    if (length == kError) {
        FailForEntry(index);
    }
    std::wstring text(static_cast<std::size_t>(length) + 1, L'\0');
    const LRESULT copied = Send(Hwnd(), messages_->text, position, reinterpret_cast<LPARAM>(text.data()));
    text.resize(static_cast<std::size_t>(copied));
    return text;
}

std::vector<std::wstring> ItemList::Items() const {
    std::vector<std::wstring> items;
    const int count = Count();
    items.reserve(static_cast<std::size_t>(count));
    for (int index = 0; index < count; ++index) {
        items.push_back(Item(index));
    }
    return items;
}

LPARAM ItemList::ItemData(int index) const {
    return Send(Hwnd(), messages_->data, static_cast<WPARAM>(index));
}

std::optional<int> ItemList::Selected() const {
    const LRESULT index = Send(Hwnd(), messages_->selected);
    return index == kError ? std::nullopt : std::optional(static_cast<int>(index));
}

std::wstring ItemList::SelectedText() const {
    const std::optional<int> index = Selected();
    return index ? Item(*index) : std::wstring();
}

void ItemList::Choose(int index) const {
    if (!Enabled()) {
        Fail(Describe(Hwnd()) + L" is disabled and nothing can be chosen in it");
    }
    if (index < 0 || Send(Hwnd(), messages_->select, static_cast<WPARAM>(index)) == kError) {
        FailForEntry(index);
    }
    for (const WORD code : messages_->chosen) {
        if (code != 0) {
            Notify(code);
        }
    }
}

void ItemList::Choose(const std::wstring& item) const {
    const LRESULT index =
        Send(Hwnd(), messages_->findExact, static_cast<WPARAM>(-1), reinterpret_cast<LPARAM>(item.c_str()));
    if (index == kError) {
        Fail(Describe(Hwnd()) + L" has no entry \"" + item + L"\"");
    }
    Choose(static_cast<int>(index));
}

} // namespace UiDriver
