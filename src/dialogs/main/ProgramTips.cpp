#include "dialogs/main/ProgramTips.h"

#include "dialogs/register/ProgramSources.h"
#include "dialogs/register/ShownPrograms.h"
#include "platform/Platform.h"
#include "platform/windows/Worker.h"

#include <atomic>
#include <utility>

struct ProgramTips::Question {
    explicit Question(ButtonSlot about) : slot(std::move(about)) {}

    const ButtonSlot slot;
    std::wstring text; ///< for the thread alone until it is answered
    std::atomic<bool> answered = false;
};

ProgramTips::ProgramTips(const Platform& platform, const RegIniFunc& store, UINT answerMessage)
    : platform_(platform), store_(store), answerMessage_(answerMessage) {}

ProgramTips::~ProgramTips() = default;

void ProgramTips::Enter(HWND form, HWND picture, const ButtonSlot& slot, Look look) {
    std::shared_ptr<Question>& question = questions_[picture];
    const bool known = question && question->slot == slot;
    if (entered_ == picture && (known || !question)) {
        return; // without a question none could be asked: not again at each move of the pointer
    }
    tip_.Take();
    form_ = form;
    entered_ = picture;
    look_ = look;
    if (known) {
        OnAnswer(); // or it will come; a second thread would only wait too
        return;
    }
    question = std::make_shared<Question>(slot);
    // A copy of the store: the thread may outlive the form.
    const bool started =
        StartWorker([question, form, message = answerMessage_, &platform = platform_, store = store_] {
            question->text = ProgramLines(question->slot, platform.files, [&] {
                ProgramSources sources(store, platform.files, platform.shell, platform.ansiText);
                sources.LoadShortcutKeys();
                return sources.ShortcutKeys();
            });
            question->answered = true;
            PostMessageW(form, message, 0, 0);
        });
    if (!started) {
        question.reset(); // asked again when the pointer comes back
    }
}

void ProgramTips::Leave(HWND picture) {
    if (entered_ == picture) {
        entered_ = nullptr;
        tip_.Take();
    }
}

void ProgramTips::Forget() {
    entered_ = nullptr;
    tip_.Take();
}

void ProgramTips::OnAnswer() {
    const auto question = questions_.find(entered_);
    if (question != questions_.end() && question->second && question->second->answered) {
        tip_.Give(form_, entered_, question->second->text, look_.font, look_.dpi);
    }
}
