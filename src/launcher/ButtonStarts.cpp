#include "launcher/ButtonStarts.h"

#include "launcher/StartLine.h"

#include <utility>

ButtonStarts::ButtonStarts(ProgramStarter& starter, const FileSystem& files, Tell tell)
    : starter_(starter), files_(files), tell_(std::move(tell)) {
    starter_.onReady = [this](int ticket) { GoOn(ticket); };
}

ButtonStarts::~ButtonStarts() {
    starter_.onReady = nullptr;
    for (const auto& [button, programs] : waiting_) {
        starter_.Forget(button);
    }
}

bool ButtonStarts::Press(int button, const ButtonSlot& slot) {
    if (waiting_.erase(button) > 0) {
        starter_.Forget(button);
        return false;
    }
    Programs programs = StartedPrograms(slot);
    if (LaunchMethodFromText(slot.Exec) == LaunchMethod::Sequential) {
        waiting_.emplace(button, std::move(programs));
        GoOn(button);
        return true;
    }
    for (const ProgramEntry& program : programs) {
        Start(button, program, false);
    }
    return true;
}

void ButtonStarts::GoOn(int button) {
    for (;;) {
        // Looked up each time: a press may come in while something starts.
        const auto sequence = waiting_.find(button);
        if (sequence == waiting_.end()) {
            return;
        }
        if (sequence->second.empty()) {
            waiting_.erase(sequence);
            return;
        }
        const ProgramEntry program = sequence->second.front();
        sequence->second.erase(sequence->second.begin());
        const bool waited = !sequence->second.empty();
        if (Start(button, program, waited) && waited) {
            return;
        }
    }
}

bool ButtonStarts::Start(int button, const ProgramEntry& program, bool waited) {
    const StartRequest request = RequestFor(program, starter_, files_);
    const auto reason = starter_.Start(request, waited ? button : 0);
    if (reason) {
        tell_(button, program.Title.empty() ? request.file : program.Title, *reason);
    }
    return !reason;
}
