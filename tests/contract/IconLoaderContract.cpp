#include "FileSystemRigs.h"
#include "GatedIcons.h"
#include "HiddenForm.h"
#include "browse/CDrawIcon.h"
#include "browse/IconLoader.h"
#include "platform/windows/WindowsShellIcons.h"
#include "platform/windows/Worker.h"

#include <gmock/gmock.h>

#include <optional>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr UINT kAnswersCame = WM_APP + 7;
constexpr std::uint32_t kFlags = CDrawIcon::kDefaultFlags;

class IconLoaderTest : public testing::Test {
protected:
    IconLoaderTest() {
        form_.whenPosted = [this](UINT message) { messages_ += message == kAnswersCame; };
        loader_.emplace(icons_, form_.Window(), kAnswersCame);
    }
    ~IconLoaderTest() override {
        icons_.gate.Open();
        EXPECT_TRUE(AwaitEnd());
    }

    static bool AwaitEnd() {
        return WaitUntil([] { return !WorkersRun(); });
    }
    /// The next question is asked, and not answered until the gate opens.
    void AskAndHold(NodeId node, const std::wstring& path) {
        icons_.gate.Close();
        (void)loader_->Ask(node, path, kFlags);
        ASSERT_TRUE(WaitUntil([this] { return icons_.gate.Waited() > 0; }));
    }
    [[nodiscard]] std::vector<NodeId> Answered() {
        std::vector<NodeId> nodes;
        for (const IconLoader::Answer& answer : loader_->TakeAnswers()) {
            nodes.push_back(answer.node);
        }
        return nodes;
    }

    GatedIcons icons_;
    HiddenForm form_;
    int messages_ = 0;
    std::optional<IconLoader> loader_;
};

TEST_F(IconLoaderTest, AnAnswerComesWithAMessage) {
    icons_.Put(L"C:\\a.txt", 5, L"Text", L"a");
    EXPECT_EQ(loader_->Ask(11, L"C:\\a.txt", kFlags), 0U);
    ASSERT_TRUE(form_.PumpUntil([this] { return messages_ > 0; }));
    const auto answers = loader_->TakeAnswers();
    ASSERT_EQ(answers.size(), 1U);
    EXPECT_EQ(answers[0].node, 11U);
    EXPECT_EQ(answers[0].info.iconIndex, 5);
    EXPECT_EQ(answers[0].info.typeName, L"Text");
    EXPECT_THAT(loader_->TakeAnswers(), IsEmpty());
}

TEST_F(IconLoaderTest, TheNewestQuestionIsAnsweredFirst) {
    AskAndHold(1, L"1");
    for (const NodeId node : {2U, 3U, 4U}) {
        EXPECT_EQ(loader_->Ask(node, std::to_wstring(node), kFlags), 0U);
    }
    icons_.gate.Open();
    ASSERT_TRUE(AwaitEnd());
    EXPECT_THAT(Answered(), ElementsAre(1U, 4U, 3U, 2U));
    EXPECT_THAT(icons_.Asked(), ElementsAre(L"1", L"4", L"3", L"2"));
}

TEST_F(IconLoaderTest, OneMessageIsEnoughForAnswersThatWaitTogether) {
    AskAndHold(1, L"1");
    for (NodeId node = 2; node <= 50; ++node) {
        (void)loader_->Ask(node, L"x", kFlags);
    }
    icons_.gate.Open();
    ASSERT_TRUE(AwaitEnd());
    form_.Pump();
    EXPECT_EQ(messages_, 1);
    EXPECT_EQ(Answered().size(), 50U);
}

TEST_F(IconLoaderTest, TooManyQuestionsDropTheOldestWhichIsTold) {
    AskAndHold(1, L"1");
    NodeId node = 2;
    NodeId dropped = 0;
    while (dropped == 0 && node < 10'000) {
        dropped = loader_->Ask(node++, L"x", kFlags);
    }
    EXPECT_EQ(dropped, 2U);
    EXPECT_EQ(loader_->Ask(node, L"newest", kFlags), 3U);
    icons_.gate.Open();
    ASSERT_TRUE(AwaitEnd());
    const auto answered = Answered();
    EXPECT_EQ(answered.size(), node - 2);
    EXPECT_EQ(answered[0], 1U);
    EXPECT_EQ(answered[1], node);
    EXPECT_EQ(answered.back(), 4U);
}

TEST_F(IconLoaderTest, ClearedItAnswersNoQuestionOfBefore) {
    AskAndHold(1, L"1");
    (void)loader_->Ask(2, L"2", kFlags);
    loader_->Clear();
    icons_.gate.Open();
    ASSERT_TRUE(AwaitEnd());
    form_.Pump();
    EXPECT_THAT(Answered(), IsEmpty());
    EXPECT_EQ(messages_, 0);
    EXPECT_THAT(icons_.Asked(), ElementsAre(L"1"));
    (void)loader_->Ask(3, L"3", kFlags);
    ASSERT_TRUE(form_.PumpUntil([this] { return messages_ > 0; }));
    EXPECT_THAT(Answered(), ElementsAre(3U));
}

TEST_F(IconLoaderTest, AnswersThatNobodyTookGoToo) {
    (void)loader_->Ask(1, L"1", kFlags);
    ASSERT_TRUE(AwaitEnd());
    loader_->Clear();
    EXPECT_THAT(Answered(), IsEmpty());
}

TEST_F(IconLoaderTest, AQuestionAfterAPauseIsAnswered) {
    for (int i = 1; i <= 20; ++i) {
        (void)loader_->Ask(static_cast<NodeId>(i), L"x", kFlags);
        ASSERT_TRUE(form_.PumpUntil([&] { return messages_ == i; }));
        ASSERT_EQ(Answered().size(), 1U);
        ASSERT_TRUE(AwaitEnd());
    }
}

TEST_F(IconLoaderTest, ItMayEndBeforeItsAnswersCome) {
    AskAndHold(1, L"1");
    (void)loader_->Ask(2, L"2", kFlags);
    loader_.reset();
    icons_.gate.Open();
    ASSERT_TRUE(AwaitEnd());
    form_.Pump();
    EXPECT_EQ(messages_, 0);
    EXPECT_THAT(icons_.Asked(), ElementsAre(L"1"));
}

TEST_F(IconLoaderTest, AShellThatRefusesTheFlagsIsAskedWithout) {
    icons_.refusedFlags = 0x2000;
    (void)loader_->Ask(1, L"1", kFlags);
    ASSERT_TRUE(form_.PumpUntil([this] { return messages_ > 0; }));
    const auto answers = loader_->TakeAnswers();
    ASSERT_EQ(answers.size(), 1U);
    EXPECT_NE(answers[0].info.imageList, 0U);
    EXPECT_THAT(icons_.Asked(), ElementsAre(L"1", L"1"));
}

TEST(WindowsIconLoaderTest, TheRealShellAnswersAsItDoesOnThisThread) {
    WindowsFilesRig files;
    files.AddFile(L"readme.txt");
    const WindowsShellIcons icons;
    HiddenForm form;
    bool came = false;
    form.whenPosted = [&](UINT) { came = true; };
    IconLoader loader(icons, form.Window(), kAnswersCame);
    (void)loader.Ask(1, files.Path(L"readme.txt"), kFlags);
    ASSERT_TRUE(form.PumpUntil([&] { return came; }));
    const auto answers = loader.TakeAnswers();
    ASSERT_EQ(answers.size(), 1U);
    const ShellFileInfo here = CDrawIcon::AskShell(icons, files.Path(L"readme.txt"), kFlags);
    EXPECT_EQ(answers[0].info.imageList, here.imageList);
    EXPECT_EQ(answers[0].info.iconIndex, here.iconIndex);
    EXPECT_EQ(answers[0].info.displayName, here.displayName);
    EXPECT_TRUE(WaitUntil([] { return !WorkersRun(); }));
}

} // namespace
