#include "print/PrinterChoice.h"

#include <gtest/gtest.h>

#include <cstring>

namespace {

/// What a print dialog may leave behind: each driver's is another.
struct Answer {
    WORD copies = 1;                   ///< in the dialog's own structure
    bool collate = true;               ///< there too
    std::optional<short> driverCopies; ///< in DEVMODE
    std::optional<bool> driverCollate; ///< there too
};

class PrintCopies : public testing::Test {
protected:
    /// Of a printer that is not installed, and so makes no copies itself.
    void Choose(const Answer& answer) {
        choice_ = PrinterChoice::Ask(nullptr, [&](PRINTDLGW& dialog) {
            dialog.nCopies = answer.copies;
            dialog.Flags = answer.collate ? dialog.Flags | PD_COLLATE : dialog.Flags & ~DWORD{PD_COLLATE};
            dialog.hDevMode = GlobalAlloc(GHND, sizeof(DEVMODEW));
            mode_ = static_cast<DEVMODEW*>(GlobalLock(dialog.hDevMode));
            mode_->dmSize = sizeof *mode_;
            if (answer.driverCopies) {
                mode_->dmFields |= DM_COPIES;
                mode_->dmCopies = *answer.driverCopies;
            }
            if (answer.driverCollate) {
                mode_->dmFields |= DM_COLLATE;
                mode_->dmCollate = *answer.driverCollate ? DMCOLLATE_TRUE : DMCOLLATE_FALSE;
            }
            struct Names {
                DEVNAMES offsets;
                wchar_t texts[16];
            };
            dialog.hDevNames = GlobalAlloc(GHND, sizeof(Names));
            auto* const names = static_cast<Names*>(GlobalLock(dialog.hDevNames));
            constexpr WORD kTexts = sizeof(DEVNAMES) / sizeof(wchar_t);
            names->offsets = {kTexts, kTexts, kTexts, 0};
            std::memcpy(names->texts, L"Nowhere", sizeof L"Nowhere");
            GlobalUnlock(dialog.hDevNames);
            return TRUE;
        });
        ASSERT_TRUE(choice_);
    }

    /// Expects the printout to have so many copies, however they come about.
    void ExpectCopies(int copies, bool collated) const {
        EXPECT_EQ(choice_->Job().copies * mode_->dmCopies, copies);
        EXPECT_EQ(choice_->Job().copies > 1 ? choice_->Job().collate : mode_->dmCollate == DMCOLLATE_TRUE,
                  collated);
    }

private:
    std::optional<PrinterChoice> choice_;
    DEVMODEW* mode_ = nullptr; ///< as long as the choice
};

TEST_F(PrintCopies, AreThoseOfTheDialogsOwnStructure) {
    for (const bool collate : {true, false}) {
        Choose({3, collate, std::nullopt, std::nullopt});
        ExpectCopies(3, collate);
        Choose({3, collate, short{1}, !collate});
        ExpectCopies(3, collate);
    }
}

TEST_F(PrintCopies, AreThoseOfTheDriversStructure) {
    for (const bool collate : {true, false}) {
        Choose({1, !collate, short{4}, collate});
        ExpectCopies(4, collate);
    }
}

TEST_F(PrintCopies, AreThoseOfTheDialogsOwnStructure_BesideOthersOfTheDriver) {
    Choose({2, true, short{5}, false});
    ExpectCopies(2, true);
}

TEST_F(PrintCopies, AreNotMultiplied_WhenBothStructuresHaveThem) {
    for (const bool collate : {true, false}) {
        Choose({3, collate, short{3}, collate});
        ExpectCopies(3, collate);
    }
}

TEST_F(PrintCopies, AreOne_WhenNeitherSaysMore) {
    Choose({1, true, std::nullopt, std::nullopt});
    ExpectCopies(1, false);
    Choose({1, true, short{0}, std::nullopt});
    ExpectCopies(1, false);
}

} // namespace
