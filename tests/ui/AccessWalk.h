#pragma once

#include "driver/Driver.h"

#include <string>
#include <vector>

/// A control at which the Tab key stops, and what a screen reader says there.
struct TabStop {
    int id = 0;
    std::wstring className{};
    UiDriver::Accessible told{};
};

/// Presses Tab in the form, which is in front, until the focus is back where it was. The walk's table is left
/// beside the program, in access/NAME-LANGUAGE.txt, for a person to read.
std::vector<TabStop> WalkByTab(const UiDriver::Window& form, const std::string& name);

std::vector<int> IdsOf(const std::vector<TabStop>& walk);

/// Expects each stop to have a name, and none the name of another one of its kind.
void ExpectNamed(const std::vector<TabStop>& walk);
