// The program's drawings: its emblem, its name in letters, and what stands on its picture buttons.
#pragma once

#include "ui/picture.h"

namespace tamblin::artwork {

// An open parasol on a tile; fills a square of 64 units.
inline constexpr int EmblemUnits = 64;
void DrawEmblem(Picture& picture);
// The parasol alone, at the emblem's size and place.
void DrawParasol(Picture& picture);

// "Tamblin", in light letters.
inline constexpr int LettersWidth = 133;
inline constexpr int LettersHeight = 36;
void DrawLetters(Picture& picture);

// What lies behind the splash window's labels: fills the picture, whose unit is set.
void DrawSplashBackground(Picture& picture, float width, float height);

// On buttons; each fills a square of 24 units.
void DrawInstall(Picture& picture);
void DrawStaging(Picture& picture);
void DrawSettings(Picture& picture);
void DrawLeave(Picture& picture);

} // namespace tamblin::artwork
