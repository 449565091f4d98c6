#pragma once

#include <QPalette>

/// Dark colours for the Fusion style.
QPalette dark_palette();
