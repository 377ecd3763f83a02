// Writes the program's emblem at the size named by the argument, as raw rows of BGRA from the top,
// colours not multiplied by the opacity. make_icon.py builds and calls it.
#include <cstdio>
#include <cstdlib>

#include "app/artwork.h"

int main(int count, char** arguments) {
    const int side = count > 1 ? std::atoi(arguments[1]) : 0;
    if (side <= 0)
        return 1;
    tamblin::Picture picture(side, side);
    picture.SetUnit(static_cast<float>(side) / tamblin::artwork::EmblemUnits);
    tamblin::artwork::DrawEmblem(picture);
    for (const std::uint32_t pixel : picture.Pixels()) {
        const unsigned opacity = pixel >> 24;
        for (const int shift : {0, 8, 16}) {
            const unsigned channel = (pixel >> shift) & 0xFF;
            std::putchar(opacity ? static_cast<int>(channel * 255 / opacity) : 0);
        }
        std::putchar(static_cast<int>(opacity));
    }
    return 0;
}
