#pragma once

#include "exchange/Settings.h"
#include "exchange/Words.h"

#include <functional>
#include <string>
#include <vector>

class Clock;
class StoredSettings;
class WholeFiles;

/// The user's settings as they were, each a settings file of everything in QLBUtl\Backups of the local application
/// data, named by date and time.
class Backups {
public:
    static constexpr std::size_t kKept = 50; ///< the newest
    static constexpr int kMonths = 12;       ///< and the newest of each of the last months, this one included

    Backups(const StoredSettings& store, WholeFiles& files, const Clock& clock);

    struct Taken {
        std::wstring path; ///< of the newest, which is as the settings are; empty when none could be written
        bool isNew = false;
    };
    /// Takes one unless the newest says the same, and removes those that are no longer kept.
    Taken TakeIfChanged();

    /// Full names, newest first.
    [[nodiscard]] std::vector<std::wstring> List() const;

    [[nodiscard]] const std::wstring& Folder() const { return folder_; }

private:
    [[nodiscard]] std::vector<std::wstring> Names() const;
    [[nodiscard]] std::wstring NewName(const std::vector<std::wstring>& names) const;
    void RemoveOld(const std::vector<std::wstring>& names);

    const StoredSettings& store_;
    WholeFiles& files_;
    const Clock& clock_;
    std::wstring folder_; ///< empty when the system names none
};

/// What became of bringing something back.
struct Restored {
    enum class Outcome {
        Done,
        Unchanged,  ///< the settings are as the file says already
        Unreadable, ///< no such file
        Wrong,      ///< `errors` tell what
        NoBackup,   ///< none could be written, so nothing was changed
        Refused     ///< by the store; what was there is put back, or it is not
    };
    Outcome outcome = Outcome::Done;
    std::vector<Finding> errors;
    std::vector<Finding> notes; ///< what of the file was left out
    Backups::Taken backup;      ///< of what was there before
    EntryName refused;
    bool putBack = false;
};

/// Makes the settings those of the file, after a backup; `taken` is told of it before the first write. Who calls it
/// holds the instance guard, and tells the launcher when it is Done.
[[nodiscard]] Restored Restore(
    StoredSettings& store, WholeFiles& files, Backups& backups, const std::wstring& path,
    const std::function<void(const Backups::Taken&)>& taken = [](const Backups::Taken&) {});
