#include "MainDialog.h"
#include "app/CommandLine.h"

namespace {

using testing::ElementsAre;
using testing::Test;

ButtonSlot Morning() {
    ButtonSlot slot;
    slot.Name = L"Morning";
    slot.Exec = L"P";
    slot.NumAP = 2;
    slot.Program(1).AP = L"C:\\Mail.exe";
    slot.Program(2).AP = L"C:\\News.exe";
    return slot;
}

/// Two buttons that the maker stores in each other's place.
class MovedButtons : public Test, public MainDialog {
public:
    MovedButtons() {
        PutMachine(L"UTLSetting\\ConvAppKey", L"AppKey2", 4);
        PutMachine(L"UTLSetting\\ConvAppKey", L"AppKey4", 2);
        settings.Load();
    }
};

TEST_F(MovedButtons, AreStoredUnderTheLaunchersNumber_WhenTheWizardRunsAlone) {
    StartUp startUp;
    startUp.WizardButton = 1;
    settings.SaveLoneButton(startUp, Morning());
    EXPECT_EQ(UserString(L"Setting\\Set1\\AppKey2", L"DispTitle"), "Morning");
    EXPECT_NE(UserString(L"Setting\\Set1\\AppKey4", L"DispTitle"), "Morning");
}

TEST_F(MovedButtons, ShareNothing) {
    for (int button = 1; button <= kMaxButtons; ++button) {
        EXPECT_THAT(settings.ButtonsStoredWith(button), ElementsAre(button));
    }
}

TEST_F(MovedButtons, StayWhereTheyAre_WhenTheMakersNumberIsNoOtherButton) {
    for (const std::int32_t number : {0, 8, 9, -1}) {
        PutMachine(L"UTLSetting\\ConvAppKey", L"AppKey2", number);
        settings.Load();
        EXPECT_THAT(settings.ButtonsStoredWith(2), ElementsAre(2, 4)) << number;
    }
}

/// A desktop button and a notebook key that the maker stores in the place of the former.
class SharedPlace : public testing::TestWithParam<int>, public MainDialog {
public:
    SharedPlace() {
        PutMachine(L"UTLSetting\\ConvAppKey", L"AppKey6", 3);
        PutMachine(L"Default\\Setting\\Set1\\AppKey3", L"DispTitle", "Default mail");
        settings.Load();
    }

    /// Now and after a save, in this dialog and in the next.
    void ExpectBoth(const ButtonSlot& slot) {
        const auto expect = [&](const MainSettings& dialog) {
            EXPECT_EQ(dialog.Slot(3), slot);
            EXPECT_EQ(dialog.Slot(6), slot);
            EXPECT_EQ(dialog.PictureOf(3), dialog.PictureOf(6));
        };
        expect(settings);
        settings.Apply();
        expect(settings);
        MainSettings next(store, notification, fonts);
        next.Load();
        expect(next);
    }
};

TEST_P(SharedPlace, HasWhatTheWizardLeft) {
    settings.SaveButton(GetParam(), Morning());
    ExpectBoth(Morning());
}

TEST_P(SharedPlace, HasWhatTheRegistrationDialogLeft) {
    settings.SetSlot(GetParam(), Morning());
    ExpectBoth(Morning());
}

TEST_P(SharedPlace, HasTheNameThatWasTyped) {
    ButtonSlot slot = settings.Slot(3);
    slot.Name = L"Post";
    settings.SetButtonName(GetParam(), L"Post");
    ExpectBoth(slot);
}

TEST_P(SharedPlace, HasTheDefaults) {
    ButtonSlot slot;
    slot.Name = L"Default mail";
    slot.Exec = L"M";
    settings.RestoreDefaults(GetParam() == 3 ? MainPage::Desktop : MainPage::Notebook);
    ExpectBoth(slot);
}

INSTANTIATE_TEST_SUITE_P(Of, SharedPlace, testing::Values(3, 6),
                         [](const auto& button) { return "Button" + std::to_string(button.param); });

} // namespace
