#pragma once

#include "driver/Driver.h"

/// What every form looks like at every scaling: each text in its control, no control over another, none outside
/// the form. `dpi`: what the form is laid out for. Waits until the form stands still.
void ExpectGoodLayout(const UiDriver::Window& form, UINT dpi);

/// Expects the visible controls to have one centre line.
void ExpectOneRow(const UiDriver::Window& form, std::initializer_list<int> ids);
