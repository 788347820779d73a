#include "exchange/Backups.h"

#include "exchange/Changes.h"
#include "exchange/SettingsFile.h"
#include "exchange/StoredSettings.h"
#include "platform/Clock.h"
#include "platform/WholeFiles.h"
#include "settings/StdModule.h"

#include <algorithm>
#include <set>
#include <string_view>
#include <utility>

namespace {

constexpr std::wstring_view kEnding = L".qlb";
/// "2026-11-22 031502"; behind it "-02" and so on for another of the same second.
constexpr std::wstring_view kForm = L"0000-00-00 000000";
constexpr std::size_t kSuffix = 3;

bool IsDigit(wchar_t c) {
    return c >= L'0' && c <= L'9';
}

bool HasForm(std::wstring_view text, std::wstring_view form) {
    return text.size() == form.size() &&
           std::equal(text.begin(), text.end(), form.begin(),
                      [](wchar_t c, wchar_t wanted) { return wanted == L'0' ? IsDigit(c) : c == wanted; });
}

bool IsBackup(std::wstring_view name) {
    if (!name.ends_with(kEnding)) {
        return false;
    }
    name.remove_suffix(kEnding.size());
    return HasForm(name, kForm) ||
           (HasForm(name.substr(0, kForm.size()), kForm) && HasForm(name.substr(kForm.size()), L"-00"));
}

std::wstring Stem(std::wstring_view name) {
    return std::wstring(name.substr(0, name.size() - kEnding.size()));
}

std::wstring Digits(int number, std::size_t width) {
    std::wstring text = DecimalText(number);
    return std::wstring(width - std::min(width, text.size()), L'0') + text;
}

std::wstring StemOf(const LocalTime& time) {
    return Digits(time.year, 4) + L"-" + Digits(time.month, 2) + L"-" + Digits(time.day, 2) + L" " +
           Digits(time.hour, 2) + Digits(time.minute, 2) + Digits(time.second, 2);
}

/// Months since the year 0.
int MonthOf(const std::wstring& name) {
    constexpr int kMonthsOfAYear = 12;
    return LeadingNumber(name.substr(0, 4)) * kMonthsOfAYear + LeadingNumber(name.substr(5, 2));
}

} // namespace

Backups::Backups(const StoredSettings& store, WholeFiles& files, const Clock& clock)
    : store_(store), files_(files), clock_(clock), folder_(files.LocalApplicationData()) {
    if (!folder_.empty()) {
        folder_ += L"\\QLBUtl\\Backups";
    }
}

std::vector<std::wstring> Backups::Names() const {
    std::vector<std::wstring> names;
    if (!folder_.empty()) {
        names = files_.Names(folder_);
    }
    std::erase_if(names, [](const std::wstring& name) { return !IsBackup(name); });
    std::ranges::sort(names, [](const std::wstring& a, const std::wstring& b) { return Stem(a) > Stem(b); });
    return names;
}

std::vector<std::wstring> Backups::List() const {
    std::vector<std::wstring> paths = Names();
    for (std::wstring& name : paths) {
        name.insert(0, folder_ + L"\\");
    }
    return paths;
}

std::wstring Backups::NewName(const std::vector<std::wstring>& names) const {
    std::wstring stem = StemOf(clock_.Now());
    // The newest has the last name, whatever was done to the clock.
    if (!names.empty() && Stem(names.front()) >= stem) {
        const std::wstring newest = Stem(names.front());
        const int number = newest.size() > kForm.size() ? LeadingNumber(newest.substr(kForm.size() + 1)) : 1;
        stem = newest.substr(0, kForm.size()) + L"-" + Digits(number + 1, kSuffix - 1);
    }
    return stem + std::wstring(kEnding);
}

Backups::Taken Backups::TakeIfChanged() {
    if (folder_.empty()) {
        return {};
    }
    std::vector<std::wstring> names = Names();
    const std::string now = WriteSettingsFile(store_.Read(), store_);
    if (!names.empty()) {
        const std::wstring newest = folder_ + L"\\" + names.front();
        if (files_.Read(newest, kLongestSettingsFile) == now) {
            return {newest, false};
        }
    }
    const std::wstring name = NewName(names);
    const std::wstring path = folder_ + L"\\" + name;
    if (!IsBackup(name) || !files_.MakeFolder(folder_) ||
        files_.Write(path, now, false) != FileWriting::Done) {
        return {};
    }
    names.insert(names.begin(), name);
    RemoveOld(names);
    return {path, true};
}

void Backups::RemoveOld(const std::vector<std::wstring>& names) {
    const int month = MonthOf(StemOf(clock_.Now()));
    std::set<int> kept;
    for (std::size_t i = 0; i < names.size(); ++i) {
        const int age = month - MonthOf(names[i]);
        const bool newestOfMonth = age < kMonths && kept.insert(age).second;
        if (i >= kKept && !newestOfMonth) {
            files_.Remove(folder_ + L"\\" + names[i]); // one that can't go now goes another time
        }
    }
}

Restored Restore(StoredSettings& store, WholeFiles& files, Backups& backups, const std::wstring& path,
                 const std::function<void(const Backups::Taken&)>& taken) {
    Restored result;
    const auto bytes = files.Read(path, kLongestSettingsFile);
    if (!bytes) {
        result.outcome = Restored::Outcome::Unreadable;
        return result;
    }
    SettingsFile file = ReadSettingsFile(*bytes, store);
    result.notes = std::move(file.notes);
    if (!file.errors.empty()) {
        result.outcome = Restored::Outcome::Wrong;
        result.errors = std::move(file.errors);
        return result;
    }
    const Settings before = store.Read();
    const Settings wanted = WithKeyboardOf(std::move(file.settings), before);
    if (before == wanted) {
        result.outcome = Restored::Outcome::Unchanged;
        return result;
    }
    result.backup = backups.TakeIfChanged();
    if (result.backup.path.empty()) {
        result.outcome = Restored::Outcome::NoBackup;
        return result;
    }
    taken(result.backup);
    if (const auto refusal = Apply(store, before, wanted)) {
        result.outcome = Restored::Outcome::Refused;
        result.refused = refusal->name;
        result.putBack = refusal->putBack;
    }
    return result;
}
