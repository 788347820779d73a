#pragma once

#include <gtest/gtest.h>

#include <string>

/// A contract's suite runs once per rig: one rig holds the fake, one the Windows implementation. This names the
/// suites after them.
class RigName {
public:
    template <class Rig> static std::string GetName(int /*index*/) { return Rig::kName; }
};
