#include "browse/IconLoader.h"

#include "browse/CDrawIcon.h"
#include "platform/windows/Com.h"
#include "platform/windows/Lock.h"
#include "platform/windows/Worker.h"

#include <deque>
#include <optional>
#include <utility>

namespace {

/// More than a tree shows at once.
constexpr std::size_t kMostQuestions = 200;

struct Question {
    NodeId node;
    std::wstring path;
    std::uint32_t flags;
};

} // namespace

struct IconLoader::Shared {
    const ShellIcons& icons;
    HWND window;
    UINT message;

    SRWLOCK lock = SRWLOCK_INIT;
    std::deque<Question> questions;
    std::vector<Answer> answers;
    unsigned generation = 0; ///< an answer to a question of before Clear is dropped
    bool running = false;
    bool posted = false; ///< the window knows of answers

    /// Nothing when the thread may end.
    std::optional<std::pair<Question, unsigned>> Next() {
        const Lock locked(lock);
        if (questions.empty()) {
            running = false;
            return std::nullopt;
        }
        std::pair next(std::move(questions.back()), generation);
        questions.pop_back();
        return next;
    }

    void Give(Answer answer, unsigned askedIn) {
        const Lock locked(lock);
        if (askedIn != generation) {
            return;
        }
        answers.push_back(std::move(answer));
        if (!posted) {
            posted = PostMessageW(window, message, 0, 0) != FALSE;
        }
    }
};

IconLoader::IconLoader(const ShellIcons& icons, HWND window, UINT message)
    : shared_(new Shared{icons, window, message, SRWLOCK_INIT, {}, {}}) {}

IconLoader::~IconLoader() {
    Clear();
}

NodeId IconLoader::Ask(NodeId node, const std::wstring& path, std::uint32_t flags) {
    NodeId dropped = 0;
    {
        const Lock locked(shared_->lock);
        shared_->questions.push_back({node, path, flags});
        if (shared_->questions.size() > kMostQuestions) {
            dropped = shared_->questions.front().node;
            shared_->questions.pop_front();
        }
        if (std::exchange(shared_->running, true)) {
            return dropped;
        }
    }
    const bool started = StartWorker([shared = shared_] {
        const ComApartment apartment;
        while (auto next = shared->Next()) {
            auto& [question, generation] = *next;
            shared->Give({question.node, CDrawIcon::AskShell(shared->icons, question.path, question.flags)},
                         generation);
        }
    });
    if (!started) {
        const Lock locked(shared_->lock);
        shared_->running = false;
    }
    return dropped;
}

std::vector<IconLoader::Answer> IconLoader::TakeAnswers() {
    const Lock locked(shared_->lock);
    shared_->posted = false;
    return std::exchange(shared_->answers, {});
}

void IconLoader::Clear() {
    const Lock locked(shared_->lock);
    ++shared_->generation;
    shared_->questions.clear();
    shared_->answers.clear();
}
