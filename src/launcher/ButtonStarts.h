#pragma once

#include "platform/ProgramStarter.h"
#include "settings/Pattern.h"

#include <functional>
#include <map>
#include <string>
#include <vector>

class FileSystem;

/// Starts the programs of buttons, one after the other where the button says so.
class ButtonStarts {
public:
    /// `tell`: a program could not be started, for the system's reason.
    using Tell = std::function<void(int button, const std::wstring& program, const std::wstring& reason)>;

    ButtonStarts(ProgramStarter& starter, const FileSystem& files, Tell tell);
    ~ButtonStarts();
    ButtonStarts(const ButtonStarts&) = delete;
    ButtonStarts& operator=(const ButtonStarts&) = delete;

    /// Starts what the button starts. Ends the sequence instead that the button has begun and not finished; then
    /// false.
    bool Press(int button, const ButtonSlot& slot);

private:
    using Programs = std::vector<ProgramEntry>;

    /// Starts those in front until one is to be waited for.
    void GoOn(int button);
    bool Start(int button, const ProgramEntry& program, bool waited);

    ProgramStarter& starter_;
    const FileSystem& files_;
    Tell tell_;
    std::map<int, Programs> waiting_; ///< by button: what is yet to be started of a sequence
};
