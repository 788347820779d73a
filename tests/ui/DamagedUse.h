#pragma once

#include "UiTest.h"

/// The settings program on a store that somebody damaged.
class DamagedUse : public UiTest {
protected:
    /// The store without the two numbers that OK always writes.
    std::wstring DumpWithoutNumbers() const;

    /// Opens the dialog, looks at every page, and ends it with OK.
    void LookAtEveryPage();

    /// The same, and expects nothing to change but the numbers.
    void ExpectUsableAndHarmless();
};
