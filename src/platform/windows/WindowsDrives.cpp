#include "platform/windows/WindowsDrives.h"

#include "platform/windows/Ansi.h"
#include "platform/windows/KernelHandle.h"
#include "platform/windows/Lock.h"
#include "platform/windows/Worker.h"

#include <windows.h>

#include <array>
#include <memory>

namespace {

constexpr std::size_t kLetters = 26;
/// A disk that has to spin up first is shown without its label.
constexpr ULONGLONG kPatienceMs = 1000;

struct Labels {
    SRWLOCK lock = SRWLOCK_INIT;
    CONDITION_VARIABLE answered = CONDITION_VARIABLE_INIT;
    std::size_t open = 0; ///< drives that have not answered
    std::array<std::wstring, kLetters> texts;
};

std::wstring RootOf(std::size_t letter) {
    return {static_cast<wchar_t>(L'a' + letter), L':', L'\\'};
}

std::wstring LabelOf(const std::wstring& root) {
    const NoSystemBoxes noBoxes;
    std::array<char, MAX_PATH + 1> label{};
    const BOOL answered =
        GetVolumeInformationA(ToAnsi(root).c_str(), label.data(), static_cast<DWORD>(label.size()), nullptr,
                              nullptr, nullptr, nullptr, 0);
    return answered == FALSE ? std::wstring() : FromAnsi(label.data());
}

bool IsLocal(std::uint32_t type) {
    return type == DRIVE_REMOVABLE || type == DRIVE_FIXED || type == DRIVE_CDROM;
}

void AskForLabel(const std::shared_ptr<Labels>& labels, std::size_t letter) {
    const auto ask = [labels, letter] {
        std::wstring label = LabelOf(RootOf(letter));
        const Lock lock(labels->lock);
        labels->texts.at(letter) = std::move(label);
        --labels->open;
        WakeConditionVariable(&labels->answered);
    };
    {
        const Lock lock(labels->lock);
        ++labels->open;
    }
    if (!StartWorker(ask)) {
        const Lock lock(labels->lock);
        --labels->open;
    }
}

/// What has been answered when all drives have, or when it has taken too long.
std::array<std::wstring, kLetters> AwaitLabels(Labels& labels) {
    const ULONGLONG start = GetTickCount64();
    const Lock lock(labels.lock);
    for (;;) {
        const ULONGLONG waited = GetTickCount64() - start;
        if (labels.open == 0 || waited >= kPatienceMs) {
            return labels.texts;
        }
        SleepConditionVariableSRW(&labels.answered, &labels.lock, static_cast<DWORD>(kPatienceMs - waited),
                                  0);
    }
}

} // namespace

std::vector<std::wstring> WindowsDrives::Entries() const {
    const DWORD present = GetLogicalDrives();
    const auto labels = std::make_shared<Labels>();
    for (std::size_t letter = 0; letter < kLetters; ++letter) {
        // A network drive may take half a minute to answer, and is not listed anyway.
        if ((present & (1U << letter)) != 0 && IsLocal(Type(RootOf(letter)))) {
            AskForLabel(labels, letter);
        }
    }
    const auto texts = AwaitLabels(*labels);
    std::vector<std::wstring> entries;
    for (std::size_t letter = 0; letter < kLetters; ++letter) {
        if ((present & (1U << letter)) == 0) {
            continue;
        }
        std::wstring entry = RootOf(letter).substr(0, 2);
        if (!texts.at(letter).empty()) {
            entry += L" [" + texts.at(letter) + L']';
        }
        entries.push_back(std::move(entry));
    }
    return entries;
}

std::uint32_t WindowsDrives::Type(const std::wstring& root) const {
    const NoSystemBoxes noBoxes;
    return GetDriveTypeA(ToAnsi(root).c_str());
}
