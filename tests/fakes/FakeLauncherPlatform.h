#pragma once

#include "platform/HotKeys.h"
#include "platform/KeySender.h"
#include "platform/NameOnScreen.h"
#include "platform/ProgramStarter.h"
#include "platform/TrayIcon.h"

#include <algorithm>
#include <map>
#include <set>
#include <string>
#include <vector>

/// Keys of this program and of others.
class FakeHotKeys final : public HotKeys {
public:
    std::map<int, KeyCode> registered;
    std::vector<KeyCode> ofOthers;
    std::set<std::uint8_t> down;
    int registrations = 0;

    HotKeyAnswer Register(int id, const KeyCode& key) override {
        ++registrations;
        const auto isKey = [&](KeyCode other) {
            other.extended = key.extended;
            return other == key;
        };
        const bool own =
            std::ranges::any_of(registered, [&](const auto& each) { return isKey(each.second); });
        if (own || std::ranges::any_of(ofOthers, isKey)) {
            return HotKeyAnswer::Taken;
        }
        registered[id] = key;
        return HotKeyAnswer::Registered;
    }
    void Unregister(int id) override { registered.erase(id); }
    [[nodiscard]] bool IsDown(std::uint8_t key) const override { return down.contains(key); }
    [[nodiscard]] std::wstring NameOf(const KeyCode& key) const override {
        return key.key == 0x13 ? L"Pause" : L"";
    }

    /// The number by which the key is reported; 0 when it is not ours.
    [[nodiscard]] int IdOf(const KeyCode& key) const {
        const auto found =
            std::ranges::find_if(registered, [&](const auto& each) { return each.second == key; });
        return found == registered.end() ? 0 : found->first;
    }
};

/// A keyboard on which some modifiers are held.
class FakeKeySender final : public KeySender {
public:
    std::vector<KeyStroke> held;
    std::vector<KeyStroke> sent;
    bool works = true;

    [[nodiscard]] std::vector<KeyStroke> HeldModifiers() const override { return held; }
    bool Send(const std::vector<KeyStroke>& strokes) override {
        sent.insert(sent.end(), strokes.begin(), strokes.end());
        return works;
    }
};

/// Starts everything but what is in `refused`, and is ready with something when the test says so.
class FakeProgramStarter final : public ProgramStarter {
public:
    std::vector<StartRequest> started;
    std::vector<int> tickets; ///< of each start
    std::set<int> waiting;
    std::map<std::wstring, std::wstring> refused; ///< reasons by file
    std::map<std::wstring, std::wstring> located;
    std::map<std::wstring, ShortcutContent> shortcuts;

    std::optional<std::wstring> Start(const StartRequest& request, int ticket) override {
        if (const auto reason = refused.find(request.file); reason != refused.end()) {
            return reason->second;
        }
        started.push_back(request);
        tickets.push_back(ticket);
        if (ticket != 0) {
            waiting.insert(ticket);
        }
        return std::nullopt;
    }
    void Forget(int ticket) override { waiting.erase(ticket); }
    [[nodiscard]] std::wstring Locate(const std::wstring& name) const override {
        const auto found = located.find(name);
        return found == located.end() ? std::wstring() : found->second;
    }
    [[nodiscard]] std::wstring Expand(const std::wstring& text) const override {
        constexpr std::wstring_view kVariable = L"%windir%";
        std::wstring expanded = text;
        if (const std::size_t pos = text.find(kVariable); pos != std::wstring::npos) {
            expanded.replace(pos, kVariable.size(), L"C:\\Windows");
        }
        return expanded;
    }
    [[nodiscard]] std::optional<ShortcutContent> ReadShortcut(const std::wstring& file) const override {
        const auto found = shortcuts.find(file);
        return found == shortcuts.end() ? std::nullopt : std::optional(found->second);
    }

    void BecomeReady(int ticket) {
        if (waiting.erase(ticket) > 0) {
            onReady(ticket);
        }
    }
    [[nodiscard]] std::vector<std::wstring> Files() const {
        std::vector<std::wstring> files;
        for (const StartRequest& request : started) {
            files.push_back(request.file);
        }
        return files;
    }
};

class FakeNameOnScreen final : public NameOnScreen {
public:
    std::vector<ShownName> shown;

    void Show(const ShownName& name) override { shown.push_back(name); }
};

class FakeTrayIcon final : public TrayIcon {
public:
    std::wstring tip;
    std::vector<std::pair<std::wstring, std::wstring>> told;

    void SetTip(const std::wstring& text) override { tip = text; }
    void Notify(const std::wstring& title, const std::wstring& text) override {
        told.emplace_back(title, text);
    }
};
