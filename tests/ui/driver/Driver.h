#pragma once

// Everything a test of the real program needs, at one include.
#include "Accessible.h"
#include "ColourDialog.h"
#include "Keyboard.h"
#include "Launcher.h"
#include "ModalBox.h"
#include "Mouse.h"
#include "Picture.h"
#include "PopupMenu.h"
#include "Process.h"
#include "Store.h"
#include "TextFile.h"
#include "TreeView.h"
#include "UnixPath.h"
#include "Wait.h"
#include "Window.h"
